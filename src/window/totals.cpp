#include "window/totals.h"

namespace torvane {

std::vector<Total> TotalsOf(const DesignState& s, bool fourAxis) {
  const bool inches = s.InInches();
  const QString filament = inches ? QStringLiteral("ft") : QStringLiteral("m");
  // The wall stands in the inches of the band in either unit.
  const QString wall = QStringLiteral("in");
  constexpr int kAllRows = IndexSet::kAllRows;
  // Nothing calculates volume and weight of four axes, so they are left out.
  if (fourAxis)
    return {{QStringLiteral("Minutes"), &s.lblMinutes(kAllRows), QStringLiteral("min")},
            {QStringLiteral("Length"), &s.lblLength(kAllRows), filament},
            {QStringLiteral("Final Thickness :"), &s.lblFinalThickness(1), wall},
            {QStringLiteral("Passes"), &s.lblNPasses(kAllRows), QString()}};
  return {{QStringLiteral("Est. Build Time :"), &s.lblBuildTime(0), QStringLiteral("min")},
          {QStringLiteral("Filament Length :"), &s.lblLengthRequired(0), filament},
          {QStringLiteral("Wall Thickness :"), &s.lblFinalThickness(0), wall},
          {QStringLiteral("Part Volume :"), &s.lblFilamentVOlume(0),
           inches ? QStringLiteral("in\u00B3") : QStringLiteral("cm\u00B3")},
          {QStringLiteral("Est. Total Wgt. :"), &s.lblEstWeight(0), QStringLiteral("lb")},
          {QStringLiteral("Est. Glue Wgt. :"), &s.lblTotalGlueWgt(0), QStringLiteral("g")}};
}

std::vector<Total> LargeTotalsOf(const DesignState& s) {
  const std::vector<Total> all = TotalsOf(s, s.gShow4Axis);
  // Time and filament of either family; then the weight, or the wall where there is none.
  return {all[0], all[1], s.gShow4Axis ? all[2] : all[4]};
}

}  // namespace torvane
