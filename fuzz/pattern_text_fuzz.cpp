// Any bytes as the pattern of a row, on parts of each type: its figures, its picture and its walk.
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "calc/four_axis.h"
#include "calc/patterns.h"
#include "calc/polar_walk.h"

namespace {

using namespace torvane;

constexpr int kRow = 2;

bool IsDrawn(const PolarFigure& figure) {
  for (const double value :
       {figure.radius, figure.from, figure.to, figure.x1, figure.y1, figure.x2, figure.y2})
    if (!std::isfinite(value)) return false;
  return true;
}

void Walk(DesignState& s, std::string_view text, PolarMarks marks) {
  const auto pattern = PolarPatternOf(s, SplitPatternFields(s, text));
  if (!pattern) return;
  // The station draws no more; a few passes show what the rest would.
  if (double{1} * pattern->groups * pattern->circuits > kMostPolarPasses) return;
  for (const PolarFigure& figure : PolarArcs(*pattern, 45))
    if (!IsDrawn(figure)) std::abort();
  PolarWalk walk(*pattern, marks);
  double passes = 0;
  while (const auto step = walk.Next()) {
    if (++passes > kMostPolarPasses + 1) std::abort();
    if (!std::isfinite(step->farAngle) || !std::isfinite(step->nearAngle)) std::abort();
    if (step->pass == 1) PolarTracePass(s, *step, kRow);
    if (passes > 1000) break;
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);
  DesignState s({'.', '/', ':'});
  s.gShow4Axis = true;
  s.gUnits = "in";
  s.txtNumberOfLayers(1) = "3";
  s.txtDia(0) = "4";
  s.txtDia(1) = "4";
  s.txtPODia(0) = "1";
  s.txtZ4(0) = "28";
  s.txtZ4(1) = "26";
  s.txtZ4(2) = "6";
  s.txtZ4(3) = "4";
  s.txtBandWidth(1) = "0.25";
  s.iMaxCarriageSpeeds = {2, 4, 6};
  s.iMaxMandrelRPM = {15, 30, 45};
  for (const int type : {0, 1, 2}) {
    SelectPartType(s, type);
    s.cmbPattern(kRow) = text;
    SplitPatternFields(s, text);
    CalculateAndShow(s, s.Read(s.gTagFields(1)), text, kRow);
    RecalculateFourAxisRows(s);
    Refresh4AXGrid(s);
    Walk(s, text, type == 0 ? PolarMarks::ByBand : PolarMarks::ByDivision);
  }
  return 0;
}
