// What edits of the two schedules set off.
#include <gtest/gtest.h>

#include "design/catalogue.h"
#include "support/station_on_stage.h"

namespace torvane {
namespace {

struct ScheduleTest : testing::Test {
  StationOnStage onStage;
  Station& station = onStage.Started();
  DesignState& s = station.s;
};

// Where the drive stands at the left, the right stop is the far one.
TEST_F(ScheduleTest, TheStopsGiveTheLength) {
  TypeTube(station, 1, "45");
  EXPECT_EQ(s.txtZ2(2).text(), "24.00");
  s.gIsLHDrive = true;
  s.txtZ2(0) = "2";
  EXPECT_EQ(s.txtZ2(2).text(), "2.00");
  EXPECT_EQ(s.txtZ2(1).mark(), Mark::Plain);
  s.txtZ2(1) = "1.5";
  EXPECT_EQ(s.txtZ2(1).mark(), Mark::StopTooLow) << "1.875 in is the carriage at its switch";
}

TEST_F(ScheduleTest, AKeyOrAChoiceIsUnsaved) {
  station.Choose(s.optX(1), "True");
  s.txtNumberOfLayers(1) = "1";
  for (Field* field : {&s.txtSkirtLeft, &s.txtZ4(1), &s.txtPODia(0)}) {
    s.gDirty = false;
    station.Type(*field, "3");
    EXPECT_TRUE(s.gDirty) << NameOf(*field);
  }
  s.gDirty = false;
  station.Check(s.chkPause(1), true);
  EXPECT_TRUE(s.gDirty);
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
