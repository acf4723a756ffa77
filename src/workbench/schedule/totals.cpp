#include "workbench/schedule/totals.h"

namespace torvane {

std::vector<Total> TotalsOf(const DesignState& s, Family family) {
  const bool inches = s.InInches();
  const std::string_view filament = inches ? "ft" : "m";
  // The wall stands in the inches of the band in either unit.
  const std::string_view wall = "in";
  constexpr int kAllRows = IndexSet::kAllRows;
  if (family == Family::FourAxes)
    return {{"Minutes", &s.lblMinutes(kAllRows), "min"},
            {"Length", &s.lblLength(kAllRows), filament},
            {"Final Thickness :", &s.lblFinalThickness(1), wall},
            {"Passes", &s.lblNPasses(kAllRows), ""}};
  return {{"Est. Build Time :", &s.lblBuildTime(0), "min"},
          {"Filament Length :", &s.lblLengthRequired(0), filament},
          {"Wall Thickness :", &s.lblFinalThickness(0), wall},
          {"Part Volume :", &s.lblFilamentVOlume(0), inches ? "in\xB3" : "cm\xB3"},
          {"Est. Total Wgt. :", &s.lblEstWeight(0), "lb"},
          {"Est. Glue Wgt. :", &s.lblTotalGlueWgt(0), "g"}};
}

std::vector<Total> UncalculatedTotalsOf(const DesignState& s) {
  return {{"Part Volume :", &s.lblFilamentVOlume(1), s.InInches() ? "in\xB3" : "cm\xB3"},
          {"Est. Glue Wgt. :", &s.lblTotalGlueWgt(1), "g"},
          {"Est. Build Time :", &s.lblBuildTime(1), "min"}};
}

std::vector<Total> LargeTotalsOf(const DesignState& s) {
  const std::vector<Total> all = TotalsOf(s, s.family());
  // Time and filament of either family; then the weight, or the wall where there is none.
  return {all[0], all[1], s.gShow4Axis ? all[2] : all[4]};
}

}  // namespace torvane
