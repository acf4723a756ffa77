#include "design/units.h"

#include "design/masks.h"

namespace torvane {

Masked FormatForUnits(const DesignState& s, Number value, bool alreadyInUnits) {
  return (s.InInches() || alreadyInUnits ? value : value * kMillimetresPerInch).as(mask::kInUnits);
}

MaybeText FormatForUnits(const DesignState& s, const Field& value, bool alreadyInUnits) {
  if (s.InInches() || alreadyInUnits) return {value.exists(), value.through(mask::kInUnits)};
  return TextOf(s.signs, FormatForUnits(s, number(value), alreadyInUnits));
}

Number InUnits(const DesignState& s, Number value, bool alreadyInUnits) {
  const MaybeText text = TextOf(s.signs, FormatForUnits(s, value, alreadyInUnits));
  return text.good ? s.Read(text.text) : Number::Failure();
}

const Field& BandWidthField(const DesignState& s, int panel) {
  return s.InInches() ? s.txtBandWidth(panel) : s.txtBandWidthMM(panel);
}

Number BandWidth(const DesignState& s, int panel) { return number(BandWidthField(s, panel)); }

Number SteppingBandWidth(const DesignState& s, int panel) {
  return InUnits(s, number(s.txtBandWidth(panel)), false);
}

Number SpacingBandWidth(const DesignState& s) { return InUnits(s, number(s.Band_Width), false); }

void ShowUnits(DesignState& s, std::string_view inches) {
  const bool isInches = inches == "Y";
  s.mnuINCH = isInches;
  s.mnuMM = !isInches;
  s.gUnits = isInches ? "in" : "mm";
  s.lblUnits(0) = isInches ? "in" : "mm";
  s.lblLengthHeading = isInches ? "Length (ft)" : "Length (meters)";
  s.lblCarriageSpeedHeading = isInches ? "Carriage Speed (in/s)" : "Carriage Speed (mm/s)";
  s.lblLengthHeading4Ax = isInches ? "Length (feet)" : "Length (meters)";
  s.lblCarriageSpeedHeading4Ax.CopyFrom(s.lblCarriageSpeedHeading);
  s.lblSpeedUnits = isInches ? "(in/s)" : "(mm/s)";
  s.lblLengthUnits = isInches ? "(ft)" : "(m)";
}

}  // namespace torvane
