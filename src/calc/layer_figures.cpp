#include "calc/layer_figures.h"

#include "design/masks.h"

namespace torvane {

namespace {

constexpr double kBothWays = 2 * 1.15;  // and 15 % for what the ends take

}  // namespace

void WriteLength(const DesignState& s, Field& field, Number length) {
  if (s.InInches())
    field = length.as(mask::kFilament);
  else
    field = length.as(mask::kFilamentMM);
}

void WritePasses(const DesignState& s, Field& passes, Number diameter, Number windingAngle,
                 Number bandWidth) {
  const Number base = Int(diameter * kPi * Cos(windingAngle * kPi / 180) / bandWidth);
  const Number added = number(s.txtAddPasses);
  if (holds(added > 0)) {
    passes = Whole(base + added + 1).plain();
    passes.SetBold(true);
  } else {
    passes = (base + 1).plain();
    passes.SetBold(false);
  }
}

Number MinutesOfPasses(Number length, Number carriageSpeed, Number mandrelRPM, Number passes) {
  const Number secondsPerPass = length * kBothWays / carriageSpeed + 60 / mandrelRPM / 2 * kBothWays;
  return secondsPerPass / 60 * passes;
}

Number HoopLength(Number meanDiameter, Number span, Number bandWidth) {
  return 2 * (meanDiameter * kPi) * (span / bandWidth);
}

Number HelixLength(Number meanDiameter, Number span, Number carriageSpeed, Number mandrelRPM, Number passes) {
  const Number pitch = carriageSpeed * 60 / mandrelRPM;
  const Number revolutions = span / pitch;
  const Number oneWay = Pow(Pow(kShortPi * meanDiameter * revolutions, 2) + Pow(pitch * revolutions, 2), 0.5);
  return 2 * oneWay * passes + passes * (kShortPi * meanDiameter);
}

Number SumOfRows(const FieldArray& column, int rows) {
  Kept sum;
  for (int i = 1; i <= rows; ++i) sum = sum + number(column(i));
  return sum;
}

}  // namespace torvane
