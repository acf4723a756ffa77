// Files that come by their name: from a command line, by a drop, from another start.
#include "handoff/named_file.h"

#include <gtest/gtest.h>

#include "support/station_on_stage.h"
#include "workbench/document/design_commands.h"

namespace torvane {
namespace {

constexpr const char* kDryRun = "C:\\Programs\\Torvane_Executor.exe";

class NamedFile : public testing::Test {
 protected:
  void SetUp() override {
    TypeTube(station, 2, "45");
    ASSERT_TRUE(SaveDesign(station, "C:\\Torvane\\TV_Design_Files\\tube.t2d"));
    station.Type(station.s.txtDiameterLeft, "5");
    ASSERT_TRUE(station.s.gDirty);
  }
  void Open(const std::string& path) { OpenNamedFile(station, path, kDryRun); }

  StationOnStage onStage;
  Station& station = onStage.Started();
  Stage& stage = onStage.stage;
};

TEST_F(NamedFile, ADesignOpensInItsFamilyBehindTheUsualQuestion) {
  stage.files.Put("D:\\a b\\Other.T2D",
                  stage.files.ReadWhole("C:\\Torvane\\TV_Design_Files\\tube.t2d").value());
  station.Run("optX", Event::Click, 1);
  Open("D:\\a b\\Other.T2D");
  ASSERT_EQ(stage.messageDialog.shown.size(), 1U);
  EXPECT_EQ(stage.messageDialog.shown[0].number, 1);
  EXPECT_EQ(station.s.gFilePath.text(), "D:\\a b\\Other.T2D");
  EXPECT_EQ(station.s.txtDiameterLeft.text(), "4.000");
  EXPECT_FALSE(station.s.gShow4Axis);
}

// The machine's own executor may stand in the station's folder, and would wind what was only to be looked at.
TEST_F(NamedFile, AProgramGoesToTheDryRunAndTheDesignStays) {
  for (const char* path : {"C:\\Torvane\\TV_G-Code_Files\\a b.T2G", "D:\\c.t4g"}) {
    stage.files.Put(path, std::string(kLargestText + 1, ' '));
    stage.launcher.starts.clear();
    Open(path);
    ASSERT_EQ(stage.launcher.starts.size(), 1U) << path;
    EXPECT_EQ(stage.launcher.starts[0].commandLine, kDryRun + std::string(" ") + path);
    EXPECT_EQ(stage.launcher.starts[0].folder, "C:\\Torvane");
  }
  EXPECT_TRUE(stage.messageBox.shown.empty());
  stage.launcher.FailNext("it may not run");
  Open("D:\\c.t4g");
  ASSERT_EQ(stage.messageBox.shown.size(), 1U);
  EXPECT_EQ(stage.messageBox.shown[0].detail, "it may not run");
  EXPECT_TRUE(stage.messageDialog.shown.empty());
  EXPECT_TRUE(station.s.gDirty);
  EXPECT_EQ(station.s.txtDiameterLeft.text(), "5");
}

TEST_F(NamedFile, WhatCannotBeReadIsToldAndTheDesignKeepsItsName) {
  stage.files.Put("C:\\large.t2d", std::string(kLargestText + 1, ' '));
  for (const char* path : {"C:\\none.t2d", "C:\\none.T4G", "C:\\large.t2d"}) {
    stage.messageBox.shown.clear();
    Open(path);
    ASSERT_EQ(stage.messageBox.shown.size(), 1U) << path;
    EXPECT_NE(stage.messageBox.shown[0].text.find(path), std::string::npos);
    EXPECT_NE(stage.messageBox.shown[0].detail, "");
  }
  EXPECT_TRUE(stage.messageDialog.shown.empty());
  EXPECT_TRUE(stage.launcher.starts.empty());
  EXPECT_EQ(station.s.gFileName.text(), "tube.t2d");
  EXPECT_EQ(station.s.txtDiameterLeft.text(), "5");
  EXPECT_TRUE(station.s.gDirty);
}

}  // namespace
}  // namespace torvane
