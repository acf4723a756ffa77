#include "calc/totals.h"

#include "design/masks.h"

#include <limits>

namespace torvane {

namespace {

// Wound part, pounds per cubic inch.
constexpr double kPartDensity = 0.075;

void SetWhole(std::int32_t& target, Number value) {
  const Number whole = Whole(value);
  if (holds(Abs(whole) <= std::numeric_limits<std::int32_t>::max()))
    target = static_cast<std::int32_t>(whole.value());
}

}  // namespace

void EstimateThickness(DesignState& s, int panel) {
  const Number thickness = number(s.txtBandThickness(panel));
  s.lblFinalThickness(panel) =
      (LayersOf(s.txtNumberOfLayers(panel)) * (thickness + thickness)).as(mask::kWall);
  // The thickness stands in the inches of the band, and the formulas of a millimetre design take the same
  // figure for millimetres: the tip says both.
  std::string tip = s.lblFinalThickness(panel).text();
  if (!s.InInches() && !tip.empty()) {
    tip += " inches";
    if (panel == 0) tip += "; volume, weight and glue read it as millimetres";
  }
  s.lblFinalThickness(panel).SetTip(tip);
}

void EstimatePart(DesignState& s) {
  const Number shell =
      number(s.Length_Total) * (number(s.lblFinalThickness(0)) * (number(s.Diameter_Right) * kPi));
  s.lblFilamentVOlume(0) = (s.InInches() ? shell : shell / 1000.0).as(mask::kVolume);

  const Number volume = number(s.lblFilamentVOlume(0));
  s.lblEstWeight(0) =
      (s.InInches() ? volume * kPartDensity : volume * (kPartDensity / 2.54 / 2.54) / 2.54).as(mask::kWeight);
  // Half of the volume is glue of 1.4 times the density of water, in grams.
  const Number glue = s.InInches() ? volume * (1.4 * 0.5 * 62.4) / 1728.0 * 454.0
                                   : volume * (1.4 * 0.5 * 62.4) / 2.54 / 2.54 / 2.54 / 1728.0 * 454.0;
  s.lblTotalGlueWgt(0) = glue.as(mask::kGlue);
}

void EstimateTwoAxisBuildTime(DesignState& s) {
  const Number minutes = number(s.lblMinutesToCover(IndexSet::kAllRows));
  SetWhole(s.gBuildHours, Int(minutes / 60));
  SetWhole(s.gBuildMinutes, minutes - static_cast<double>(s.gBuildHours) * 60);
  s.gBuildSeconds = 0;
}

void EstimateFourAxisBuildTime(DesignState& s) {
  const Number minutes = number(s.lblMinutes(IndexSet::kAllRows));
  SetWhole(s.gBuildHours, Whole(minutes / 60) - 1);
  if (s.gBuildHours < 0) {
    s.gBuildHours = 0;
    SetWhole(s.gBuildMinutes, minutes);
  } else {
    SetWhole(s.gBuildMinutes, minutes - static_cast<double>(s.gBuildHours) * 60);
  }
  s.gBuildSeconds = 0;
}

}  // namespace torvane
