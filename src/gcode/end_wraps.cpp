#include "gcode/end_wraps.h"

#include "calc/four_axis.h"
#include "calc/patterns.h"
#include "gcode/dialect.h"

namespace torvane {

namespace {

constexpr double kSteepest = 80;  // degrees of the head's way round the end

// Mandrel speeds of the two moves by the winding rate, for the smaller and the larger motors.
struct WrapSpeeds {
  std::string_view rate;
  double ellipse, ellipseLarge, withdrawal, withdrawalLarge;
};
constexpr WrapSpeeds kWrapSpeeds[] = {{"SLOW", 3, 3, 3, 2}, {"MED", 4, 6, 4, 4}, {"FAST", 10, 12, 4, 6}};
constexpr WrapSpeeds kOtherRate = {"", 6, 6, 6, 6};

const WrapSpeeds& SpeedsOf(const DesignState& s) {
  for (const WrapSpeeds& speeds : kWrapSpeeds)
    if (s.cmbRate.text() == speeds.rate) return speeds;
  return kOtherRate;
}

// The end of the traverse and the wrap position beyond it, for one end.
struct EndGeometry {
  Number traverseEnd;  // Z where the traverse ends
  Number wrapZ, wrapY;
  Number beyond;  // how far the wrap position lies from the end of the traverse
};

EndGeometry GeometryOf(const DesignState& s, End end) {
  const bool hemi = s.IsHemi();
  if (end == End::Left) {
    const Number traverseEnd = number(s.txtZ4(hemi ? 1 : 0));
    const Number wrapZ = number(s.txtAdjust(1));
    return {traverseEnd, wrapZ, number(s.txtAdjust(0)), wrapZ - traverseEnd};
  }
  const Number traverseEnd = number(s.txtZ4(hemi ? 2 : 3));
  const Number wrapZ = number(s.txtAdjust(5));
  return {traverseEnd, wrapZ, number(s.txtAdjust(6)), traverseEnd - wrapZ};
}

// Words that both moves of an end share.
dialect::EndMove CommonMove(const GCodeSession& session, const EndGeometry& g, dialect::EndMoveKind kind) {
  const DesignState& s = session.s;
  dialect::EndMove move;
  move.kind = kind;
  move.z = session.gMoveZ.value();
  move.y = session.gMoveY.value();
  move.b = session.gMoveB.value();
  move.u = (number(s.txtAdjust(3)) + number(s.txtDia(1)) / 2 - g.wrapY).valueOr0();
  move.v = g.beyond.valueOr0();
  move.h = g.traverseEnd.valueOr0();
  move.w = g.wrapY.valueOr0();
  move.s = session.gWrapRPM.value();
  return move;
}

// Seconds by which the other axes finish before the mandrel.
Number Delay(const DesignState& s) { return Number(s.gDelayTimeInG456ToWaitForMandrelinMS) / 1000; }

Number SecondsOf(Number degrees, Number rpm) { return degrees / 360 / rpm * 60; }

// Turns the head to an angle and tells by how much.
Number TurnHead(GCodeSession& session, Number target) {
  const Number rotation = Abs(session.gMoveB - target);
  session.gMoveB = target;
  return rotation;
}

void WriteEllipse(GCodeSession& session, int n, End end, const EndGeometry& g, const Slot& runningAngle) {
  const DesignState& s = session.s;
  const bool right = end == End::Right;
  session.gMoveZ = g.wrapZ;
  session.gMoveY = g.wrapY;
  Kept zSpan;
  zSpan = s.IsHemi() ? g.beyond * (2.0 / 3) : g.beyond;
  // A wrap position at the end of the traverse has no slope: the head turns square to the part.
  Kept slope;
  slope = Atn(number(s.txtDia(0)) / 2 / zSpan) * (180 / kPi);
  const Number rotation = TurnHead(session, right ? slope - 90 : 90 - slope);
  session.ellipseAngle = Degrees(s, s.cmbPhiW(n)) - Degrees(s, s.cmbPhiSplit(n));
  const WrapSpeeds& speeds = SpeedsOf(s);
  session.gWrapRPM = s.gIsNEMA34 ? speeds.ellipseLarge : speeds.ellipse;

  const Number rpm = session.gWrapRPM;
  const Number seconds = SecondsOf(session.ellipseAngle, rpm);
  // Without a diameter it stays 0: the head is then timed over a quarter turn.
  Kept ratio;
  ratio = Cos(s.gWindAngle * kPi / 180) * (number(s.txtZ4(2)) - number(s.txtAdjust(5))) /
          (number(s.txtDia(0)) / 2);
  Kept phi;
  phi = 90 - 180 / kPi * ArcCos(ratio);
  if (holds(phi > kSteepest)) phi = kSteepest;
  const Number headSeconds = SecondsOf(90 + phi, rpm) - Delay(s);
  Kept f(1.0);
  Kept e(2.0);
  Kept r(3.0);
  f = Abs(zSpan) / (seconds - Delay(s));
  e = number(s.txtDia(1)) * (2 * kPi * rpm / 60);
  r = Abs(rotation / headSeconds / 360) * 60 * (holds(rotation < 20) ? 1.5 : 1.4);

  dialect::EndMove move =
      CommonMove(session, g, right ? dialect::EndMoveKind::EllipseRight : dialect::EndMoveKind::EllipseLeft);
  move.f = f.value();
  move.e = e.value();
  move.r = r.value();
  move.c = session.ellipseAngle.value();
  dialect::MoveRoundEnd(session.program, move, runningAngle,
                        right ? "CCW ELLIPSE AT RIGHT END" : "CW ELLIPSE AT LEFT END");
}

std::string WithdrawalComment(const DesignState& s, End end, const std::optional<Number>& shift) {
  if (end == End::Left) return "DH G5 WITHDRAWL LEFT END";
  if (!shift) return "DH G6 WITHDRAWL RIGHT END";
  return "DH G6 WITHDRAWL RIGHT END + MANDREL SHIFT ANG=" + TextOf(s.signs, shift->as("##0.00"_mask)).text +
         " DEG.";
}

void WriteWithdrawal(GCodeSession& session, End end, const EndGeometry& g, Number wrapAngle,
                     const std::optional<Number>& shift, const Slot& runningAngle) {
  const DesignState& s = session.s;
  const bool right = end == End::Right;
  const Number formerY = session.gMoveY;
  session.gMoveY = number(s.txtAdjust(3)) + number(s.txtDia(0)) / 2;
  const Number ySpan = Abs(formerY - session.gMoveY);
  const Number rotation = TurnHead(session, right ? 90 - s.gWindAngle : -90 + s.gWindAngle);
  const Number split = wrapAngle - session.ellipseAngle;
  const WrapSpeeds& speeds = SpeedsOf(s);
  session.gWrapRPM = s.gIsNEMA34 ? speeds.withdrawalLarge : speeds.withdrawal;
  session.gMoveZ = g.traverseEnd;
  Kept zSpan;
  zSpan = Abs(session.gMoveZ - g.wrapZ);

  const Number seconds = SecondsOf(split, session.gWrapRPM) - Delay(s);
  Kept f(1.0);
  Kept e(2.0);
  Kept r(3.0);
  f = zSpan / seconds;
  e = ySpan / seconds;
  r = Abs(rotation / seconds / 360) * 60 * 1.2;

  dialect::EndMove move = CommonMove(
      session, g, right ? dialect::EndMoveKind::WithdrawalRight : dialect::EndMoveKind::WithdrawalLeft);
  move.f = f.value();
  move.e = e.value();
  move.r = r.value();
  move.c = (shift ? split + *shift : split).valueOr0();
  dialect::MoveRoundEnd(session.program, move, runningAngle, WithdrawalComment(s, end, shift));
}

}  // namespace

Number AngleBehindEllipse(const GCodeSession& session, Number behindWrap, Number wrapAngle) {
  return (behindWrap - (wrapAngle - session.ellipseAngle)).valueOr0();
}

void WriteEndWrap(GCodeSession& session, int n, End end, Number wrapAngle, std::optional<Number> shift,
                  const Slot& behindEllipse, const Slot& behindWithdrawal) {
  const EndGeometry g = GeometryOf(session.s, end);
  WriteEllipse(session, n, end, g, behindEllipse);
  WriteWithdrawal(session, end, g, wrapAngle, shift, behindWithdrawal);
}

}  // namespace torvane
