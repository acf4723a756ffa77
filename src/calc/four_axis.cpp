#include "calc/four_axis.h"

#include "calc/layer_figures.h"
#include "calc/patterns.h"
#include "calc/speed_search.h"
#include "design/masks.h"
#include "design/units.h"
#include "text/text.h"

namespace torvane {

namespace {

constexpr int kPanel = 1;
// The head's way round an end, seconds.
constexpr double kEndOfTraverse = 5;

// Slow, medium, fast by the first letter of the rate; 0 for any other text.
int RateClass(const DesignState& s) {
  const std::string letter = UpperCase(s.cmbRate.text().substr(0, 1));
  return letter == "S" ? 1 : letter == "M" ? 2 : letter == "F" ? 3 : 0;
}

Number ZSpan(const DesignState& s) { return Abs(number(s.txtZ4(0)) - number(s.txtZ4(3))); }

void Keep(Number& out, Number value) {
  if (value.good()) out = value;
}

void SpeedsOfRate(const DesignState& s, Number windingAngle, Number& mandrelRPM, Number& carriageSpeed) {
  const int speedClass = RateClass(s);
  if (speedClass != 0)
    Keep(carriageSpeed, InUnits(s, s.iMaxCarriageSpeeds[static_cast<std::size_t>(speedClass) - 1], false));
  Keep(mandrelRPM, Tan(windingAngle / 180 * kPi) * carriageSpeed * 60 / (number(s.txtDia(0)) * kPi));
  if (s.optType(2).checked() && speedClass != 0 && windingAngle.good())
    CalculateSpeedsForAngle(s, mandrelRPM, carriageSpeed, windingAngle.value(), speedClass);
}

void CalculatePattern(DesignState& s, Number windingAngle, Number carriageSpeed, std::string_view patternText,
                      int row) {
  const PatternFields pattern = SplitPatternFields(s, patternText);
  const Number a = s.Read(pattern.groups).valueOr0();
  const Number b = s.Read(pattern.circuits).valueOr0();
  s.lblNPasses(row) = (a * b).plain();
  const Number length = TraverseLength(s);
  const Number secondsPerTraverse = length / carriageSpeed / Cos(windingAngle / 180 * kPi) + kEndOfTraverse;
  s.lblMinutes(row) = (2 * secondsPerTraverse * a * b / 60).as(mask::kMinutes);
  const Number oneWay = length / Cos(windingAngle / 180 * kPi) + number(s.txtDia(0)) * kShortPi / 2;
  s.lblLengthHeading4Ax = s.InInches() ? "Length (feet)" : "Length (meters)";
  s.lblCarriageSpeedHeading4Ax = s.InInches() ? "Carriage Speed (in/s)" : "Carriage Speed (mm/s)";
  s.lblLength(row) = (2 * oneWay * a * b / LengthDivisor(s)).as(mask::kFourAxisFilament);
}

void CalculateHoop(DesignState& s, Number& mandrelRPM, Number& carriageSpeed, int row) {
  const int speedClass = RateClass(s);
  const Number bandWidth = BandWidth(s, kPanel);
  if (speedClass != 0) mandrelRPM = s.iMaxMandrelRPM[static_cast<std::size_t>(speedClass) - 1];
  Keep(carriageSpeed, bandWidth * mandrelRPM / 60);
  WriteSpeeds(s, row, mandrelRPM, carriageSpeed);
  s.lblNPasses(row) = "1";
  const Number length = TraverseLength(s);
  const Number secondsPerTraverse = length / carriageSpeed + kEndOfTraverse;
  s.lblMinutes(row) = (2 * secondsPerTraverse / 60).as(mask::kMinutes);
  s.lblLength(row) =
      (2 * (length / bandWidth) * kPi * number(s.txtDia(1)) / LengthDivisor(s)).as(mask::kFourAxisFilament);
}

}  // namespace

// Each is one step of a formula: where its root or its quotient fails, its value is 0.
Number ArcSin(Number x) { return Atn(x / Pow(1 - x * x, 0.5)).valueOr0(); }

Number ArcCos(Number x) { return (Atn(-x / Pow(1 - x * x, 0.5)) + 2 * Atn(1)).valueOr0(); }

Number TraverseLength(const DesignState& s) {
  return s.IsHemi() ? Abs(number(s.txtZ4(2)) - number(s.txtZ4(1)))
                    : Abs(number(s.txtZ4(3)) - number(s.txtZ4(0)));
}

Number HoopLeadAngle(const DesignState& s, Number bandWidth) {
  return 180 / kPi * Atn(number(s.txtDia(1)) / 2 / bandWidth);
}

void CalculateFourAxisRow(DesignState& s, Number windingAngle, Number& mandrelRPM, Number& carriageSpeed,
                          std::string_view patternText, int row) {
  SpeedsOfRate(s, windingAngle, mandrelRPM, carriageSpeed);
  if (patternText.empty()) return;
  if (patternText == "HOOP")
    CalculateHoop(s, mandrelRPM, carriageSpeed, row);
  else if (s.IsNoWrap())
    RecalculateAngleLayers(s);
  else
    CalculatePattern(s, windingAngle, carriageSpeed, patternText, row);
}

void WriteSpeeds(DesignState& s, int row, Number mandrelRPM, Number carriageSpeed) {
  s.lblRPM(row) = mandrelRPM.as(mask::kFourAxisSpeed);
  s.lblcSpeed(row) = carriageSpeed.as(mask::kFourAxisSpeed);
}

void CalculateAndShow(DesignState& s, Number windingAngle, std::string_view patternText, int row) {
  Number mandrelRPM = 0;
  Number carriageSpeed = 0;
  CalculateFourAxisRow(s, windingAngle, mandrelRPM, carriageSpeed, patternText, row);
  WriteSpeeds(s, row, mandrelRPM, carriageSpeed);
}

void RecalculateFourAxisRow(DesignState& s, int row) {
  const std::string pattern = s.cmbPattern(row).text();
  if (pattern == "HOOP") {
    s.gWindAngle = HoopLeadAngle(s, BandWidth(s, kPanel));
    CalculateAndShow(s, s.gWindAngle, pattern, row);
    return;
  }
  const Number windingAngle = s.Read(SplitPatternFields(s, pattern).angle);
  if (windingAngle.good()) CalculateAndShow(s, windingAngle, pattern, row);
}

void RecalculateFourAxisRows(DesignState& s) {
  const int rows = RowsOf(s.txtNumberOfLayers(1));
  for (int row = 1; row <= rows; ++row) RecalculateFourAxisRow(s, row);
}

void RecalculateAngleLayers(DesignState& s) {
  const int rows = RowsOf(s.txtNumberOfLayers(1));
  const Number bandWidth = BandWidth(s, kPanel);
  for (int i = 1; i <= rows; ++i) {
    if (s.cmbPattern(i).text() == "HOOP")
      s.lblNPasses(i) = "1";
    else
      WritePasses(s, s.lblNPasses(i), number(s.txtDia(0)), number(s.cmbPattern(i)), bandWidth);
    s.Length_Total = ZSpan(s).plain();
    s.lblMinutes(i) = MinutesOfPasses(number(s.Length_Total), number(s.lblcSpeed(i)), number(s.lblRPM(i)),
                                      number(s.lblNPasses(i)))
                          .as(mask::kMinutes);
  }
  s.lblNPasses(IndexSet::kAllRows) = SumOfRows(s.lblNPasses, rows).as(mask::kPasses);
  s.lblMinutes(IndexSet::kAllRows) = SumOfRows(s.lblMinutes, rows).as(mask::kMinutes);

  Kept meanDiameter;
  if (!s.txtDia(0).empty()) meanDiameter = (number(s.txtDia(1)) + number(s.txtDia(0))) / 2;
  for (int i = 1; i <= rows; ++i) {
    const Number length = s.cmbPattern(i).text() == "HOOP"
                              ? HoopLength(meanDiameter, ZSpan(s), bandWidth)
                              : HelixLength(meanDiameter, ZSpan(s), number(s.lblcSpeed(i)),
                                            number(s.lblRPM(i)), number(s.lblNPasses(i)));
    WriteLength(s, s.lblLength(i), length / LengthDivisor(s));
  }
  WriteLength(s, s.lblLength(IndexSet::kAllRows), SumOfRows(s.lblLength, rows));
}

}  // namespace torvane
