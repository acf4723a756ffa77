#include "calc/polar_walk.h"

#include <gtest/gtest.h>

#include "support/station_on_stage.h"

namespace torvane {
namespace {

std::vector<PolarWalk::Step> StepsOf(const PolarPattern& pattern, PolarMarks marks) {
  PolarWalk walk(pattern, marks);
  std::vector<PolarWalk::Step> steps;
  while (const auto step = walk.Next()) steps.push_back(*step);
  return steps;
}

// Two groups of two circuits: three marks and chords, one red mark a quarter of the way round.
TEST(PolarWalk, OfTwoByTwo) {
  const PolarPattern pattern{2, 2, 2, 180, 90, 0.25};
  const auto steps = StepsOf(pattern, PolarMarks::ByDivision);
  ASSERT_EQ(steps.size(), 4U);
  EXPECT_TRUE(steps.back().figures.empty()) << "the last pass has neither mark nor chord";
  for (std::size_t i = 0; i < 3; ++i) ASSERT_EQ(steps[i].figures.size(), 2U);
  // The first pass ends half a turn on: 90 + 180 + 90 + 180 degrees.
  const PolarFigure& first = steps[0].figures[0];
  EXPECT_EQ(first.colour, PolarColour::Band);
  EXPECT_NEAR(first.from, kPi, 1e-9);
  EXPECT_NEAR(first.to, kPi + kPi / 2, 1e-9);
  const PolarFigure& chord = steps[0].figures[1];
  EXPECT_NEAR(chord.x1, 2, 1e-6);
  EXPECT_NEAR(chord.x2, -2, 1e-6);
  const PolarFigure& closing = steps[1].figures[0];
  EXPECT_EQ(closing.colour, PolarColour::Closing);
  EXPECT_NEAR(closing.from, kPi / 2, 1e-9);
  EXPECT_NEAR(closing.to, kPi, 1e-9);
  EXPECT_EQ(steps[2].circuit, 2);
  EXPECT_EQ(steps[2].pass, 1);
  // The second circuit starts one band on.
  EXPECT_NEAR(steps[2].figures[0].from, kPi + kPi / 2, 1e-9);
}

TEST(PolarWalk, MarksByTheBandAreOfItsWidthAndWholeDegrees) {
  const PolarPattern pattern{2, 3, 4, 180, 60.2, 0.08};
  const auto steps = StepsOf(pattern, PolarMarks::ByBand);
  ASSERT_EQ(steps.size(), 12U);
  const PolarFigure& mark = steps[0].figures[0];
  EXPECT_NEAR(mark.from, 120 * 2 * kPi / 360, 1e-9);  // 480.4 degrees, whole and less a turn
  EXPECT_NEAR(mark.to - mark.from, 0.08 * 2 * kPi, 1e-9);
  for (const auto& step : steps)
    for (const PolarFigure& figure : step.figures)
      EXPECT_LE(figure.kind == PolarKind::Arc ? figure.to : 0, 2 * kPi + 1e-9);
}

// A pass ends at 350 degrees: a mark of 36 degrees goes on behind the full turn.
TEST(PolarWalk, AMarkThatPassesTheFullTurnBeginsAnew) {
  const auto steps = StepsOf({2, 2, 2, 180, 175, 0.1}, PolarMarks::ByBand);
  EXPECT_NEAR(steps[0].figures[0].from, 350.0 / 180 * kPi, 1e-9);
  EXPECT_NEAR(steps[0].figures[0].to, 26.0 / 180 * kPi, 1e-9);
}

TEST(PolarPicture, ArcsEndAtTheLeftAndSpanTheWrap) {
  const auto half = PolarArcs({1, 2, 2, 180, 90, 0.25}, 45);
  EXPECT_EQ(half[1].from, 0);
  EXPECT_NEAR(half[1].to, kPi, 1e-9);
  EXPECT_NEAR(half[0].to, kPi / 4, 1e-9);
  const auto wide = PolarArcs({1, 2, 2, 230, 90, 0.25}, 45);
  EXPECT_NEAR(wide[1].from, 310.0 / 360 * 2 * kPi, 1e-9);
  const auto narrow = PolarArcs({1, 2, 2, 120, 90, 0.25}, 45);
  EXPECT_NEAR(narrow[1].from, 60.0 / 360 * 2 * kPi, 1e-9);
}

TEST(PolarPicture, OfWhatCannotBeReadIsTheMandrelAlone) {
  DesignState s({});
  EXPECT_TRUE(PolarBase(s).empty());
  s.txtDia(0) = "4";
  s.txtPODia(0) = "1";
  EXPECT_EQ(PolarBase(s).size(), 6U);
  for (const char* text : {"", "HOOP", "Select ...", "18.12 | x 12 | 180\xB0", "18.12 | 400 x 400 | 180\xB0",
                           "18.12 | 0 x 12 | 180\xB0"})
    EXPECT_FALSE(PolarPatternOf(s, SplitPatternFields(s, text))) << text;
}

}  // namespace
}  // namespace torvane
