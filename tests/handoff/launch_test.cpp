// What a build checks before it starts, and the command lines that other programs get.
#include "handoff/launch.h"

#include <gtest/gtest.h>

#include <utility>

#include "support/station_on_stage.h"
#include "workbench/document/design_commands.h"

namespace torvane {
namespace {

class LaunchTest : public testing::Test {
 protected:
  void SetUp() override {
    onStage.stage.store.Write("Settings", "gHasUserCheckedCarriageZOffset", "1");
    TypeTube(station, 2, "45");
    ASSERT_TRUE(SaveDesign(station, "C:\\Torvane\\TV_Design_Files\\tube.t2d"));
    station.s.gDirty = false;
  }
  // The line of the only start since the last time; empty if there was none.
  std::string Started() {
    const auto starts = std::exchange(onStage.stage.launcher.starts, {});
    EXPECT_LE(starts.size(), 1U);
    for (const auto& start : starts) EXPECT_EQ(start.folder, "C:\\Torvane");
    return starts.empty() ? "" : starts[0].commandLine;
  }
  std::vector<int> Asked() {
    std::vector<int> numbers;
    for (const auto& message : std::exchange(onStage.stage.messageDialog.shown, {}))
      numbers.push_back(message.number);
    return numbers;
  }
  std::string Program(const char* name) {
    const auto program = onStage.stage.files.ReadWhole(std::string("C:\\Torvane\\TV_G-Code_Files\\") + name);
    return program ? program.value() : "";
  }

  StationOnStage onStage;
  Station& station = onStage.Started();
};

TEST_F(LaunchTest, ABuildWritesTheProgramAndHandsItsPathOver) {
  const std::string former = Program("tube.T2G");
  station.Type(station.s.txtWA(1), "60");
  station.Run("imgBUILD", Event::Click);  // the question about the changes is answered with no
  EXPECT_EQ(Asked(), std::vector<int>{1});
  EXPECT_EQ(Started(), "Torvane_Executor.exe C:\\Torvane\\TV_G-Code_Files\\tube.T2G");
  EXPECT_NE(Program("tube.T2G"), former);
  EXPECT_TRUE(station.s.gDirty);

  station.Run("optX", Event::Click, 1);
  station.s.gDirty = false;
  for (const char* button : {"lblBuild", "lblBeginBuild", "mnuBeginWinding"}) {
    station.Run(button, Event::Click);
    EXPECT_EQ(Started(), "Torvane_Executor.exe C:\\Torvane\\TV_G-Code_Files\\tube.T4G") << button;
  }
}

TEST_F(LaunchTest, AnOffsetThatWasNeverMeasuredStopsTheBuildOnItsTab) {
  onStage.stage.store.Write("Settings", "gHasUserCheckedCarriageZOffset", "0");
  std::vector<int> tabs;
  station.settingsOpened = [&tabs](int tab) { tabs.push_back(tab); };
  station.Run("imgBUILD", Event::Click);
  EXPECT_EQ(Asked(), std::vector<int>{33});
  station.Run("btnCancel", Event::Click);
  station.Run("optX", Event::Click, 1);
  station.Run("lblManualOperation", Event::Click);
  EXPECT_EQ(Asked(), std::vector<int>{33});
  EXPECT_EQ(tabs, (std::vector<int>{1, 2}));
  EXPECT_EQ(Started(), "");
  // Manual operation from the menu asks nothing.
  station.Run("mnuManually", Event::Click);
  EXPECT_EQ(Started(), "Torvane_Executor.exe MANUAL");
}

TEST_F(LaunchTest, RowsThatAreTooFlatAreRaisedAndTheBuildGoesOn) {
  station.s.txtWA(1) = "25";
  station.s.txtWA(2) = "24.9";
  station.s.gDirty = false;
  station.Run("imgBUILD", Event::Click);
  EXPECT_EQ(Asked(), (std::vector<int>{32, 1}));  // the raised row is a change
  EXPECT_EQ(station.s.txtWA(1).text(), "25");
  EXPECT_EQ(station.s.txtWA(2).text(), "25.0");
  EXPECT_EQ(station.s.focus, &station.s.txtWA(2));
  EXPECT_NE(Started(), "");
}

// "25.0" would be 250 degrees where the comma is the decimal sign.
TEST(LaunchWithAComma, ARowThatIsTooFlatIsRaisedInTheComputersSign) {
  StationOnStage onStage(',');
  Station& station = onStage.Started();
  onStage.stage.store.Write("Settings", "gHasUserCheckedCarriageZOffset", "1");
  TypeTube(station, 1, "24,9");
  station.s.txtBandWidth(0) = "0,25";
  ASSERT_TRUE(SaveDesign(station, "C:\\Torvane\\TV_Design_Files\\tube.t2d"));
  station.Run("imgBUILD", Event::Click);
  EXPECT_EQ(station.s.txtWA(1).text(), "25,0");
  EXPECT_EQ(station.s.lblPassesToCover(1).text(), "46");
}

TEST_F(LaunchTest, AnAngleThatCannotBeReadEndsTheBuild) {
  onStage.stage.files.Put("C:\\Torvane\\TV_G-Code_Files\\tube.T2G", "former");
  station.s.txtWA(2) = "steep";
  station.Run("imgBUILD", Event::Click);
  ASSERT_EQ(onStage.stage.messageBox.shown.size(), 1U);
  EXPECT_EQ(onStage.stage.messageBox.shown[0].title, "Error");
  EXPECT_EQ(onStage.stage.messageBox.shown[0].icon, BoxIcon::Stop);
  EXPECT_EQ(Started(), "");
  EXPECT_EQ(Program("tube.T2G"), "former");
}

// 10 inches a second is the limit of the heat gun; the operator is stopped once, then has accepted it.
TEST_F(LaunchTest, AValueThatSeemsTooHighBlinksUntilItIsAccepted) {
  station.Choose(station.s.chkHeatGunApp, "1");
  station.Type(station.s.txtHGSpeed, "10.1");
  station.Run("imgBUILD", Event::Click);
  EXPECT_EQ(Asked(), std::vector<int>{33});
  EXPECT_EQ(Started(), "");
  onStage.stage.clock.Advance(std::chrono::milliseconds(500));
  station.Tick();
  EXPECT_EQ(station.s.txtHGSpeed.mark(), Mark::TooHigh);
  station.Run("txtHGSpeed", Event::Click);
  EXPECT_EQ(station.s.txtHGSpeed.mark(), Mark::Plain);
  station.s.gDirty = false;
  station.Run("imgBUILD", Event::Click);
  EXPECT_NE(Started(), "");
}

// From stop to stop, with the operator in between; with the head the ends stand for the stops.
TEST_F(LaunchTest, ATraceGoesFromEndToEnd) {
  DesignState& s = station.s;
  const auto trace = [this] {
    station.Run("lblGoTrace", Event::Click);
    return onStage.stage.files.ReadWhole("C:\\Torvane\\TV_TRACE.TVG").value();
  };
  const auto holds = [](const std::string& text, std::initializer_list<const char*> parts) {
    std::size_t at = 0;
    for (const char* part : parts) {
      at = text.find(part, at);
      if (at == std::string::npos) return std::string(part);
    }
    return std::string();
  };
  TypeTube(station, 1, "45");
  EXPECT_EQ(holds(trace(), {"G28 F", " Z4 [", "M0 [Wait for Operator Button Press]", " Z28 [", "X99"}), "");
  station.Choose(s.optX(1), "True");
  station.Run("optType", Event::Click, 2);
  s.txtZ4(0) = "30";
  s.txtZ4(3) = "2";
  s.txtDia(0) = "4";
  s.txtAdjust(3) = "1.5";
  EXPECT_EQ(
      holds(trace(), {"G28 ", " Z2.00", " Y3.50", "M0 [Wait for Button Press]", " Z30.00", " Y3.50", "X99"}),
      "");
}

TEST_F(LaunchTest, ATraceThatCannotBeWrittenMovesNothing) {
  station.Run("lblHome", Event::Click);
  ASSERT_EQ(Started(), "Torvane_Executor.exe TRACE");
  onStage.stage.files.FailWrites("C:\\Torvane\\TV_TRACE.TVG", "Access is denied");
  station.Run("txtZ2", Event::DoubleClick, 1);
  EXPECT_EQ(Started(), "") << "the former trace goes elsewhere";
  ASSERT_EQ(onStage.stage.messageBox.shown.size(), 1U);
  EXPECT_NE(onStage.stage.messageBox.shown[0].text.find("Access is denied"), std::string::npos);
}

TEST_F(LaunchTest, ViewersGetTheFileOrItsFolder) {
  station.Run("mnuViewDesignFile", Event::Click);
  EXPECT_EQ(Started(), "C:\\Torvane\\Notepad2.exe C:\\Torvane\\TV_Design_Files\\tube.t2d");
  station.Run("Command2", Event::Click);
  EXPECT_EQ(Started(), "Notepad2.exe C:\\Torvane\\TV_G-Code_Files\\tube.T2G");
  station.Run("mnuViewDesignDirectory", Event::Click);
  EXPECT_EQ(Started(), "C:\\Windows\\Explorer.exe C:\\Torvane\\TV_Design_Files\\");
  station.Run("mnuViewGCodeDirectory", Event::Click);
  EXPECT_EQ(Started(), "C:\\Windows\\Explorer.exe C:\\Torvane\\TV_G-Code_Files\\");
  station.Run("mnuLaunchExecutor", Event::Click);
  EXPECT_EQ(Started(), "Torvane_Executor.exe");
  for (const char* control : {"mnuViewDesignFile", "Command2", "imgBUILD"}) {
    onStage.stage.launcher.FailNext("missing");
    onStage.stage.messageBox.shown.clear();
    station.Run(control, Event::Click);
    ASSERT_EQ(onStage.stage.messageBox.shown.size(), 1U) << control;
    EXPECT_EQ(onStage.stage.messageBox.shown[0].detail, "missing") << "the computer's own reason";
  }
}

}  // namespace
}  // namespace torvane
