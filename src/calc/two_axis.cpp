#include "calc/two_axis.h"

#include "calc/layer_figures.h"
#include "calc/speed_search.h"
#include "calc/totals.h"
#include "design/masks.h"
#include "design/rows.h"
#include "design/units.h"
#include "text/text.h"

namespace torvane {

namespace {

int SpeedClass(const DesignState& s, int row) {
  const std::string letter = LowerCase(s.LayerTable2Ax(row, 4).substr(0, 1));
  return letter == "s" ? 1 : letter == "m" ? 2 : 3;
}

void SpeedsFromAngle(DesignState& s, int i) {
  const Number windingAngle = number(s.txtWA(i));
  if (!windingAngle.good()) return;
  Number mandrelRPM = 0;
  Number carriageSpeed = 0;
  CalculateSpeedsForAngle(s, mandrelRPM, carriageSpeed, windingAngle.value(), SpeedClass(s, i));
  s.txtMRPM(i) = mandrelRPM.as(mask::kMandrelSpeed);
  s.txtCarriageSpeed(i) = carriageSpeed.as(mask::kCarriageSpeed);
}

void CarriageSpeedFromRPM(DesignState& s, int i) {
  const Number surfaceSpeed =
      (number(s.Diameter_Right) + number(s.Diameter_Left)) * kPi / 2 * number(s.txtMRPM(i)) / 60;
  s.txtCarriageSpeed(i) = (surfaceSpeed / Tan(number(s.txtWA(i)) * kPi / 180)).as(mask::kAskedCarriageSpeed);
}

// Without a right diameter it is 0.
Number MeanDiameter(const DesignState& s) {
  Kept mean;
  if (!s.txtDiameterRight.empty()) mean = (number(s.txtDiameterLeft) + number(s.txtDiameterRight)) / 2;
  return mean;
}

void Passes(DesignState& s, int i) {
  const Number windingAngle = number(s.txtWA(i));
  if (holds(windingAngle == 90))
    s.lblPassesToCover(i) = "1";
  else
    WritePasses(s, s.lblPassesToCover(i), number(s.txtDiameterLeft), windingAngle, BandWidth(s, 0));
}

void Minutes(DesignState& s, int i) {
  s.lblMinutesToCover(i) = MinutesOfPasses(number(s.Length_Total), number(s.txtCarriageSpeed(i)),
                                           number(s.txtMRPM(i)), number(s.lblPassesToCover(i)))
                               .as(mask::kMinutes);
}

// A hoop runs between the stops, a helix over what the row leaves free of the part.
void Length(DesignState& s, int i, Number meanDiameter) {
  const bool hoop = holds(number(s.txtWA(i)) == 90);
  const Number stops = Abs(number(s.txtZ2(0)) - number(s.txtZ2(1)));
  const Number span = number(s.txtLengthTotal(0)) - number(s.txtRight(i)) - number(s.txtLeft(i));
  const Number length = hoop ? HoopLength(meanDiameter, stops, BandWidth(s, 0))
                             : HelixLength(meanDiameter, span, number(s.txtCarriageSpeed(i)),
                                           number(s.txtMRPM(i)), number(s.lblPassesToCover(i)));
  WriteLength(s, s.lblLengthToCover(i), length / LengthDivisor(s));
}

}  // namespace

void RecalculateTwoAxisLayers(DesignState& s, int index) {
  const int rows = RowsOf(s.txtNumberOfLayers(0));
  if (index == kSpeedsByAngle)
    for (int i = 1; i <= rows; ++i) SpeedsFromAngle(s, i);
  else if (index == kSpeedsByMandrelSpeed)
    for (int i = 1; i <= rows; ++i) CarriageSpeedFromRPM(s, i);
  else if (index >= 0 && index <= kLongRows)
    SpeedsFromAngle(s, index);

  // A row without a readable angle is no layer yet: it shows no figures, so that the sums leave it out.
  for (int i = 1; i <= rows; ++i) {
    if (number(s.txtWA(i)).good()) {
      Passes(s, i);
      Minutes(s, i);
    } else {
      s.lblPassesToCover(i) = "";
      s.lblMinutesToCover(i) = "";
    }
  }
  s.lblPassesToCover(IndexSet::kAllRows) = SumOfRows(s.lblPassesToCover, rows).as(mask::kPasses);
  s.lblMinutesToCover(IndexSet::kAllRows) = SumOfRows(s.lblMinutesToCover, rows).as(mask::kMinutes);

  const Number meanDiameter = MeanDiameter(s);
  for (int i = 1; i <= rows; ++i) {
    if (number(s.txtWA(i)).good())
      Length(s, i, meanDiameter);
    else
      s.lblLengthToCover(i) = "";
  }
  WriteLength(s, s.lblLengthToCover(IndexSet::kAllRows), SumOfRows(s.lblLengthToCover, rows));
  EstimatePart(s);
}

void SyncGridToLayerTable(DesignState& s) {
  struct Mirrored {
    const FieldArray& field;
    int column;
  };
  const Mirrored columns[] = {
      {s.txtWA, 1},   {s.txtRight, 2},         {s.txtLeft, 3},          {s.cmbSpeed, 4},    {s.cmbMethod, 5},
      {s.txtMRPM, 7}, {s.txtCarriageSpeed, 8}, {s.lblPassesToCover, 9}, {s.txtAddRevs, 10},
  };
  const int rows = RowsOf(s.txtNumberOfLayers(0));
  for (int i = 1; i <= rows; ++i)
    for (const auto& [field, column] : columns)
      if (field(i).exists()) s.LayerTable2Ax.Set(i, column, field(i).text());
  RecalculateTwoAxisLayers(s, kSpeedsByAngle);
}

}  // namespace torvane
