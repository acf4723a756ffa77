// The language of a program: every statement is spelled here, once. A comment runs to the end of its line.
// Values keep the form that their writer gives them.
#pragma once

#include "gcode/program.h"

namespace torvane::dialect {

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
void HomeCarriage(Program& p, const Speed& speed) {
  p.Line("G28 F", speed, " [Move Carriage to LS]");
}
inline void EndOfHoming(Program& p) { p.Line("G4 Z P10000 [Pause 1000ms]"); }
template <class Text>
void Notify(Program& p, const Text& address1, const Text& address2, std::string_view message) {
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
inline void ShowStage(Program& p, std::string_view stage) { p.Line("D0 ST=", stage); }

// A pre-wrap on the executor's screen: its mandrel speed stands behind "PA=", its advance behind "WA=".
template <class Speed, class Advance>
void ShowPreWrap(Program& p, int n, const Speed& rpm, const Advance& advance) {
  p.Line("D0 ST=Mandrel Pre-Wrap #", n, " PA=", rpm, " WA=", advance,
         n == 1 ? " FL= [Display Layer Properties]" : " ");
}

// The layer on the executor's screen. `minutesLeft` is given in the first pass of a layer alone.
struct LayerDisplay {
  int layer = 0;
  std::string_view layers;
  MaybeText passes, rpm, carriageSpeed, angle;
  std::string_view method;
  MaybeText leftDiameter, bandWidth, leftOffset;
};
inline void ShowLayer(Program& p, const LayerDisplay& d, int pass, const MaybeText* minutesLeft) {
  p.Line("D0 LA=", d.layer, "_of_", d.layers, " PA=", pass, "_of_", d.passes, " RPM=", d.rpm,
         " CS=", d.carriageSpeed, " WA=", d.angle, " WM=", d.method, minutesLeft != nullptr ? " TI=" : "",
         minutesLeft != nullptr ? *minutesLeft : MaybeText{true, {}}, " LD=", d.leftDiameter,
         " FW=", d.bandWidth, " HL=", d.leftOffset, " [Display Layer Properties]");
}

}  // namespace torvane::dialect
