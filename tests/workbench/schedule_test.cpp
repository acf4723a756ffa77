// What edits of the two schedules set off.
#include <gtest/gtest.h>

#include "support/station_on_stage.h"

namespace torvane {
namespace {

struct ScheduleTest : testing::Test {
  StationOnStage onStage;
  Station& station = onStage.Started();
  DesignState& s = station.s;
};

TEST_F(ScheduleTest, AllRowsAreWorkedOutFromTheirAngles) {
  TypeTube(station, 2, "45");
  for (int row = 1; row <= 2; ++row) s.txtMRPM(row) = "10";
  station.Run("mnuRecalcAllRows", Event::Click);
  EXPECT_EQ(s.txtMRPM(1).text() + "|" + s.txtMRPM(2).text(), "28.6|28.6");
}

TEST_F(ScheduleTest, AnOffsetOfTheHeadThatIsMissingIsMarked) {
  station.Choose(s.optX(1), "True");
  for (const auto& [text, mark] : {std::pair("1", Mark::Plain), std::pair("0", Mark::NeedsInput)}) {
    s.gDirty = false;
    station.Type(s.txtAdjust(2), text);
    EXPECT_EQ(s.txtAdjust(2).mark(), mark) << text;
    EXPECT_TRUE(s.gDirty);
  }
}

}  // namespace
}  // namespace torvane
