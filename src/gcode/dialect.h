// The language of a program: every statement is spelled here, once. A comment runs to the end of its line.
// Values keep the form that their writer gives them; a slot in the place of one is filled at each repetition.
#pragma once

#include "gcode/program.h"

namespace torvane::dialect {

// How a program's words show each quantity.
inline constexpr Mask kCountMask = "0"_mask;       // of passes
inline constexpr Mask kStopMask = "###0.00"_mask;  // the carriage at the part's ends
inline constexpr Mask kHomeMask = "###0.000"_mask;
inline constexpr Mask kShiftedMask = "######.#0"_mask;  // the carriage of a carriage shift
inline constexpr Mask kFeedMask = "###.##"_mask;        // of pre-wraps and finishing passes
inline constexpr Mask kAddedWrapMask = "####"_mask;
inline constexpr Mask kShiftAngleMask = "###.00"_mask;

// The two stores of a mandrel angle: 601 holds the far end of a layer's first pass, 602 its home end.
enum class Register { FarEnd = 601, HomeEnd = 602 };

inline void EmptyLine(Program& p) { p.Line(); }

template <class... Comment>
void CommentLine(Program& p, const Comment&... comment) {
  p.Line("[", comment..., "]");
}

// Heads of the file.
inline void NumberForm(Program& p, bool decimalComma) {
  p.Line(decimalComma ? "C C1 [DECIMAL COMMA FORMAT = YES]" : "C C0 [DECIMAL COMMA FORMAT = NO]");
}
inline void Units(Program& p, bool inches) {
  p.Line(inches ? "G20 [Units are Inches]" : "G21 [Units are Millimeters]");
}
inline void AbsolutePositioning(Program& p) { p.Line("G90 [Absolute Positioning]"); }
template <class Version, class Z>
void IdentifyTwoAxis(Program& p, const Version& version, const Z& zOffset) {
  p.Line("X V", version, " T2 Z", zOffset,
         " [TORVANE DESIGNER VERSION NUMBER, FILE TYPE, AND Z-AXIS MEAS. OFFSET DISTANCE]");
}
inline void BuildTime(Program& p, int hours, int minutes, int seconds) {
  p.Line("M711 H", hours, " M", minutes, " S", seconds, " [Estimated Total Build Time]");
}

// Session.
inline void EnableSteppers(Program& p) { p.Line("M17 [Enable Steppers]"); }
template <class Speed>
void HomeCarriage(Program& p, const Speed& speed, std::string_view comment) {
  p.Line("G28 F", speed, " [", comment, "]");
}
inline void EndOfHoming(Program& p) { p.Line("G4 Z P10000 [Pause 1000ms]"); }
template <class Text>
void Notify(Program& p, const Text& address1, const Text& address2, const char* message) {
  p.Line("M650 E1", address1, " E2", address2, " ", message);
}

// Carriage.
template <class Speed, class Z, class... Comment>
void Move(Program& p, const Speed& speed, const Z& z, const Comment&... comment) {
  p.Line("G1 F", speed, " Z", z, " [", comment..., "]");
}
template <class Z, class... Comment>
void MoveAtLastSpeed(Program& p, const Z& z, const Comment&... comment) {
  p.Line("G1 Z", z, " [", comment..., "]");
}
template <class Z>
void RunForever(Program& p, const Z& from, const Z& to, std::string_view comment) {
  p.Line("G51 Z", from, " Z", to, " [", comment, "]");
}

// Mandrel.
template <class Speed>
void Turn(Program& p, const Speed& rpm, std::string_view comment) {
  p.Line("M4 S", rpm, " [", comment, "]");
}
inline void Stop(Program& p, std::string_view comment) { p.Line("M5 [", comment, "]"); }
inline void Save(Program& p, Register angle, std::string_view comment) {
  p.Line("M", static_cast<int>(angle), " [", comment, "]");
}

// Dwells: the carriage stands while the mandrel turns on by an angle, back to a saved angle, or to an angle
// behind it.
template <class Angle, class... Comment>
void Dwell(Program& p, const Angle& angle, const Comment&... comment) {
  p.Line("G4 C", angle, " [", comment..., "]");
}
template <class... Comment>
void DwellTo(Program& p, Register saved, const Comment&... comment) {
  p.Line("G4 L", static_cast<int>(saved), " [", comment..., "]");
}
template <class Angle, class... Comment>
void DwellBehind(Program& p, Register saved, const Angle& angle, const Comment&... comment) {
  p.Line("G4 L", static_cast<int>(saved), " C", angle, " [", comment..., "]");
}

// Operator.
inline void WaitForButton(Program& p, std::string_view comment) { p.Line("M0 [", comment, "]"); }
inline void ShowMessage(Program& p, std::string_view message) { p.Line("D0 GM=", message); }
// The program with wrapped ends spells its message with blanks.
inline void ShowMessageWithBlanks(Program& p, std::string_view message) { p.Line("D0 GM = ", message); }
inline void ShowStage(Program& p, std::string_view stage) { p.Line("D0 ST=", stage); }

// A pre-wrap on the executor's screen: its mandrel speed stands behind "PA=", its advance behind "WA=".
template <class Speed, class Advance>
void ShowPreWrap(Program& p, int n, const Speed& rpm, const Advance& advance) {
  p.Line("D0 ST=Mandrel Pre-Wrap #", n, " PA=", rpm, " WA=", advance,
         n == 1 ? " FL= [Display Layer Properties]" : " ");
}

// The layer on the executor's screen. A layer of one run shows no count of passes; some lines show no
// minutes left or no left offset.
struct LayerDisplay {
  int layer = 0;
  std::string_view layers;
  MaybeText passes, rpm, carriageSpeed, angle;
  std::string_view method;
  MaybeText leftDiameter, bandWidth, leftOffset;
  bool countsPasses = true;
  bool showsOffset = true;
};
template <class Pass>
void ShowLayer(Program& p, const LayerDisplay& d, const Pass& pass, const MaybeText* minutesLeft) {
  static const MaybeText nothing{true, {}};
  p.Line("D0 LA=", d.layer, "_of_", d.layers, " PA=", pass, d.countsPasses ? "_of_" : "",
         d.countsPasses ? d.passes : nothing, " RPM=", d.rpm, " CS=", d.carriageSpeed, " WA=", d.angle,
         " WM=", d.method, minutesLeft != nullptr ? " TI=" : "",
         minutesLeft != nullptr ? *minutesLeft : nothing, " LD=", d.leftDiameter, " FW=", d.bandWidth,
         d.showsOffset ? " HL=" : "", d.showsOffset ? d.leftOffset : nothing, " [Display Layer Properties]");
}

// Four axes. Speeds and targets come in pairs: F with Z, E with Y, R with B, S with C; A is the mandrel's
// running angle.
inline constexpr Mask kFourAxisMask = "###0.00"_mask;
inline constexpr Mask kEndMask = "##0.00"_mask;
inline constexpr Mask kRunningAngle = "#########0.00"_mask;

template <class Version, class Z, class Y>
void IdentifyFourAxis(Program& p, const Version& version, bool fullFourAxis, const Z& zOffset,
                      const Y& yOffset) {
  p.Line("X V", version, fullFourAxis ? " T4 " : " T3 ", "Z", zOffset, " Y", yOffset,
         " [TORVANE DESIGNER VERSION NUMBER, FILE TYPE, Z-AXIS MEAS. OFFSET DISTANCE, Y AXIS MEAS. OFFSET "
         "DISTANCE]");
}
inline void AllAccelerations(Program& p) {
  p.Line("G1 I10 J10 K10 N10 O10 T10 [Linear and Angular Acceleration Settings of Axes]");
}
template <class HeadSpeed, class Speed>
void HomeAllAxes(Program& p, const HeadSpeed& headSpeed, const Speed& speed) {
  p.Line("G28 E", headSpeed, " R4 F", speed, " C", Number(0).as(kEndMask), " [Move Axes to Limit Switches]");
}
inline void PauseAtLimitSwitch(Program& p) { p.Line("G4 P10000 [Pause 1s at Carriage Limit Switch]"); }
template <class Value>
void WindingAccelerations(Program& p, const Value& value) {
  p.Line("G1 J", value, " K", value, " O", value, " T10 [Set Axes Accels]");
}

// All axes at once to a starting position; the mandrel stands.
struct StartPosition {
  Masked speed, z;
  Plain y;
  Masked headSpeed;
  Number headAngle;
  Number headRotation;
  bool holdsMandrel = true;
};
inline void MoveToStart(Program& p, const StartPosition& m) {
  p.Line("G1 F", m.speed, " Z", m.z, " Y", m.y, " E", m.headSpeed, " B", m.headAngle.as(kFourAxisMask), " R",
         m.headRotation.plain(), m.holdsMandrel ? " S0" : "");
}
template <class Speed>
void MoveToHoop(Program& p, const Speed& speed, Number z, Number y) {
  p.Line("G1 F", speed, " Z", z.as(kFourAxisMask), " Y", y.as(kFourAxisMask),
         " R20 B0 [Move Carriage to Beginning of Hoop Start]");
}

// A straight move: a pair whose speed is 0 is left out.
struct FourAxisMove {
  double f = 0, z = 0, e = 0, y = 0, r = 0, b = 0, s = 0, c = 0;
};
// Its words up to the running angle.
std::string WordsOf(NumberSigns signs, const FourAxisMove& move);
template <class Angle>
void MoveAxes(Program& p, const FourAxisMove& move, const Angle& runningAngle, std::string_view comment) {
  p.Line(WordsOf(p.signs(), move), "A", runningAngle, "  [", comment, "]");
}

// The two moves of an end wrap: the head goes round the end in an ellipse, then withdraws.
enum class EndMoveKind { EllipseLeft = 2, EllipseRight = 3, WithdrawalLeft = 5, WithdrawalRight = 6 };
struct EndMove {
  EndMoveKind kind{};
  double f = 0, z = 0, e = 0, y = 0, r = 0, b = 0, u = 0, v = 0, h = 0, w = 0, s = 0, c = 0;
};
std::string WordsOf(NumberSigns signs, const EndMove& move);
template <class Angle>
void MoveRoundEnd(Program& p, const EndMove& move, const Angle& runningAngle, std::string_view comment) {
  p.Line(WordsOf(p.signs(), move), "A", runningAngle, " [", comment, "]");
}

// A move or dwell with the head turning meanwhile.
struct HeadTurn {
  Masked rotation, angle;
};
template <class Speed, class Z>
void MoveTurning(Program& p, const Speed& speed, const Z& z, const HeadTurn& head, std::string_view comment) {
  p.Line("G1 F", speed, " Z", z, " R", head.rotation, " B", head.angle, " [", comment, "]");
}
template <class Z>
void MoveTurningAtLastSpeed(Program& p, const Z& z, const HeadTurn& head, std::string_view comment) {
  p.Line("G1 Z", z, " R", head.rotation, " B", head.angle, " [", comment, "]");
}
template <class Angle>
void DwellTurning(Program& p, const Angle& angle, const HeadTurn& head, std::string_view comment) {
  p.Line("G4 C", angle, " R", head.rotation, " B", head.angle, " [", comment, "]");
}
template <class Angle>
void DwellTurning(Program& p, Register saved, const Angle& angle, const HeadTurn& head,
                  std::string_view comment) {
  p.Line("G4 L", static_cast<int>(saved), " C", angle, " R", head.rotation, " B", head.angle, " [", comment,
         "]");
}

// Traces: small programs that send the machine to a point.
inline void AbsolutePositioningOnly(Program& p, std::string_view version) {
  p.Line("G90 [Absolute Positioning: Relative Positioning Not Implemented in v", version, "]");
}
inline void EnableAllMotors(Program& p) {
  p.Line("M17 [Enable Carriage Stepper and Mandrel Motors, M18 Disables]");
}
template <class Speed>
void HomeHead(Program& p, const Speed& speed) {
  p.Line("G28 E", speed, " [Move Axes to Limit Switches]");
}
template <class Speed>
void HomeRotationAndCarriage(Program& p, const Speed& speed) {
  p.Line("G28 R4 F", speed, " [Move Axes to Limit Switches]");
}
inline void TraceAccelerations(Program& p) { p.Line("G1 J1 K1 O10 T10 [Set Axes Accels]"); }
template <class Speed, class Z>
void TraceCarriage(Program& p, const Speed& speed, const Z& z, bool turnsHead) {
  p.Line("G1 F", speed, " Z", z, turnsHead ? " R20 B90" : "");
}
template <class Speed, class Y>
void MoveHead(Program& p, const Speed& speed, const Y& y) {
  p.Line("G1 E", speed, " Y", y);
}
template <class Y>
void MoveHeadAtTraceSpeed(Program& p, const Y& y) {
  p.Line("G1 E0.50 Y", y);
}
inline void EndExecutor(Program& p) { p.Line("X99 [END EXECUTOR]"); }

}  // namespace torvane::dialect
