#include <gtest/gtest.h>

#include <random>
#include <regex>

#include "persist/tagged_text.h"
#include "persist/two_axis_file.h"
#include "support/station_on_stage.h"
#include "workbench/document/design_commands.h"

namespace torvane {
namespace {

constexpr const char* kFolder = "C:\\Torvane\\TV_Design_Files\\";

struct DesignFile : testing::Test {
  std::string Save(const std::string& name) {
    std::string path = kFolder + name;
    EXPECT_TRUE(SaveTorvaneMakeFileVer20(s, station.platform, path));
    return onStage.stage.files.ReadWhole(path).value();
  }
  bool Open(const std::string& text) {
    onStage.stage.files.Put(std::string(kFolder) + "opened.t2d", text);
    return OpenDesign(station, std::string(kFolder) + "opened.t2d") != Opened::No;
  }

  StationOnStage onStage;
  Station& station = onStage.Started();
  DesignState& s = station.s;
};

std::string WithoutDateAndName(const std::string& text) {
  return std::regex_replace(text, std::regex("(<Date_of_Creation>|<Filename>|FILE-NAME = )[^<#]*"), "$1");
}

TEST_F(DesignFile, SavedAndReopenedIsTheSameDesign) {
  TypeTube(station, 3, "45.25");
  s.cmbMethod(2) = "cs";
  s.cmb2AxisLayerType(3) = "HOOP";
  s.txtAddRevs(1) = "-12.5";
  ASSERT_TRUE(Open(Save("first.t2d")));
  EXPECT_EQ(s.txtWA(1).text(), "45.3");
  EXPECT_EQ(s.txtZ2(0).text() + "|" + s.txtZ2(1).text() + "|" + s.txtZ2(2).text(), "28.00|4.00|24.00");
  EXPECT_EQ(s.cmbMethod(2).text() + s.cmb2AxisLayerType(3).text() + s.txtAddRevs(1).text(), "csHOOP-12.5");
  EXPECT_FALSE(s.gDirty);
  EXPECT_TRUE(s.gGridSync);
  const std::string second = Save("second.t2d");
  ASSERT_TRUE(Open(second));
  EXPECT_EQ(WithoutDateAndName(Save("third.t2d")), WithoutDateAndName(second));
}

TEST_F(DesignFile, AMillimetreBandShowsTheFilesValues) {
  TypeTube(station, 1, "45");
  s.gUnits = "mm";
  std::string text = Save("metric.t2d");
  EXPECT_NE(text.find("<Band_Width>6.350<"), std::string::npos);
  text = std::regex_replace(text, std::regex("<Band_Width>6.350"), "<Band_Width>6.351");
  ASSERT_TRUE(Open(text));
  EXPECT_EQ(s.txtBandWidthMM(0).text(), "6.351");
  EXPECT_EQ(s.txtBandWidth(0).text(), "0.250");
  EXPECT_EQ(s.gUnits.text(), "mm");
  // A file of the first generation tells no unit: it is of inches.
  s.mnuINCH = false;
  ASSERT_TRUE(Open(std::regex_replace(text, std::regex("<Units>"), "<Unit>")));
  EXPECT_TRUE(s.mnuINCH && !s.mnuMM);
}

TEST_F(DesignFile, WithTooFewTagsIsNoDesign) {
  TypeTube(station, 1, "45");
  EXPECT_TRUE(Open("<Diameter_Left>4</w>\r\n"));
  EXPECT_EQ(s.txtDiameterLeft.text(), "");
  EXPECT_EQ(s.gFileName.text(), "opened.t2d");
  EXPECT_TRUE(s.gGridSync);
  ASSERT_EQ(onStage.stage.messageBox.shown.size(), 1U);
  EXPECT_EQ(onStage.stage.messageBox.shown[0].title, "Input File Error");
  EXPECT_EQ(onStage.stage.messageBox.shown[0].text, "Input File Lacks Sufficient Data");

  // Twelve of the fifteen that a save writes are a design, eleven are none.
  TypeTube(station, 1, "45");
  std::string text = Save("all.t2d");
  for (const char* tag : {"Add_Revs", "Mandrel_RPM", "Carriage_Speeds"})
    text = std::regex_replace(text, std::regex("<" + std::string(tag) + ">[^<]*</w>"), "");
  EXPECT_TRUE(Open(text));
  EXPECT_EQ(s.txtDiameterLeft.text(), "4.000");
  EXPECT_TRUE(Open(std::regex_replace(text, std::regex("<Layer_Type>"), "<Layer>")));
  EXPECT_EQ(s.txtDiameterLeft.text(), "");
}

// Nothing of the design before it stands in a program of no layers.
TEST_F(DesignFile, WithoutLayersTakesNoTime) {
  TypeTube(station, 0, "");
  const std::string none = Save("none.t2d");
  s.txtNumberOfLayers(0) = "2";
  for (int row = 1; row <= 2; ++row) s.txtWA(row) = "45";
  ASSERT_TRUE(Open(Save("two.t2d")));
  ASSERT_EQ(s.lblBuildTime(0).text(), "14.0");
  ASSERT_EQ(s.gBuildMinutes, 14);
  ASSERT_TRUE(Open(none));
  EXPECT_EQ(s.gBuildMinutes, 0);
  EXPECT_EQ(s.lblBuildTime(0).text(), "0.0");
}

// A count between two whole numbers is the nearer one, for the rows, the file, the program and the wall
// alike.
TEST_F(DesignFile, OfACountWithDecimalsHasWholeLayers) {
  TypeTube(station, 3, "45");
  station.Type(s.txtNumberOfLayers(0), "2.6");
  EXPECT_TRUE(s.txtWA(3).shown());
  EXPECT_EQ(s.lblFinalThickness(0).text(), "0.060");
  EXPECT_EQ(s.lblPassesToCover(26).text(), "108");
  const std::string text = Save("count.t2d");
  EXPECT_NE(text.find("<Winding_Angles>45;45;45<"), std::string::npos);
  ASSERT_TRUE(Open(text));
  EXPECT_EQ(s.txtWA(3).text(), "45.0");
  s.txtNumberOfLayers(0) = "2.5";
  EXPECT_FALSE(s.txtWA(3).shown()) << "a tie goes to the even number";
}

// What would part fields or tags stands as a blank, so that no cell moves its neighbours, and the save says
// so.
TEST_F(DesignFile, NoCellMovesItsNeighbours) {
  TypeTube(station, 3, "45");
  s.txtWA(1) = "30;5";
  s.txtWA(3) = "60";
  s.txtAddRevs(2) = "4<5";
  s.Author = "a</w>\r\n<Number_of_Layers>1";
  onStage.stage.fileDialog.answers.emplace_back(std::string(kFolder) + "cells.t2d");
  btnSaveAS_Click(station);
  ASSERT_EQ(onStage.stage.messageBox.shown.size(), 1U);
  const std::string told = onStage.stage.messageBox.shown[0].text;
  EXPECT_NE(told.find("\r\nLayer 1: 30;5\r\nLayer 2: 4<5"), std::string::npos) << told;
  ASSERT_EQ(OpenDesign(station, std::string(kFolder) + "cells.t2d"), Opened::Whole);
  EXPECT_EQ(s.txtNumberOfLayers(0).text(), "3");
  EXPECT_EQ(s.txtWA(1).text() + "|" + s.txtWA(2).text() + "|" + s.txtWA(3).text(), "30 5|45.0|60.0");
  EXPECT_EQ(s.txtAddRevs(2).text() + "|" + s.txtAddRevs(3).text(), "4 5|0");
  onStage.stage.messageBox.shown.clear();
  TypeTube(station, 3, "45");
  s.txtWA(5) = "30;5";  // no layer, and of the other family
  s.txtDia(0) = "4;5";
  onStage.stage.fileDialog.answers.emplace_back(std::string(kFolder) + "cells.t2d");
  btnSaveAS_Click(station);
  EXPECT_TRUE(onStage.stage.messageBox.shown.empty());
}

TEST_F(DesignFile, IsReadWhateverEndsItsLines) {
  TypeTube(station, 2, "45");
  const std::string text = Save("lines.t2d");
  for (const std::string& variant :
       {std::regex_replace(text, std::regex("\r\n"), "\n"), "\xEF\xBB\xBF" + text,
        std::regex_replace(text, std::regex("</w>"), "</other>")}) {
    ASSERT_TRUE(Open(variant));
    EXPECT_EQ(s.txtWA(2).text(), "45.0");
  }
}

TEST_F(DesignFile, OfALargerScheduleKeepsFifteenRows) {
  TypeTube(station, 15, "45");
  const std::string text =
      std::regex_replace(Save("large.t2d"), std::regex("<Number_of_Layers>15"), "<Number_of_Layers>20");
  ASSERT_TRUE(Open(text));
  EXPECT_EQ(s.txtNumberOfLayers(0).text(), "15");
  EXPECT_EQ(s.txtZ2(1).text(), "") << "stops come from the last row of their list";
}

TEST_F(DesignFile, OfTheOtherDecimalSignIsTranslated) {
  TypeTube(station, 2, "45.5");
  s.txtDiameterLeft = "4.5";
  const std::string point = Save("point.t2d");
  StationOnStage commaStage(',');
  Station& comma = commaStage.Started();
  commaStage.stage.files.Put(std::string(kFolder) + "point.t2d", point);
  ASSERT_EQ(OpenDesign(comma, std::string(kFolder) + "point.t2d"), Opened::Whole);
  EXPECT_EQ(comma.s.txtDiameterLeft.text(), "4,500");
  EXPECT_EQ(comma.s.txtWA(2).text(), "45,5");
  std::string path = std::string(kFolder) + "comma.t2d";
  ASSERT_TRUE(SaveTorvaneMakeFileVer20(comma.s, comma.platform, path));
  ASSERT_TRUE(Open(commaStage.stage.files.ReadWhole(path).value()));
  EXPECT_EQ(s.txtDiameterLeft.text(), "4.500");
}

TEST_F(DesignFile, ASaveUnderAFirstGenerationNameChangesIt) {
  TypeTube(station, 1, "45");
  std::string path = std::string(kFolder) + "old.tvd";
  ASSERT_TRUE(SaveTorvaneMakeFileVer20(s, station.platform, path));
  EXPECT_EQ(path, std::string(kFolder) + "old.t2d");
}

TEST_F(DesignFile, AFailedSaveLosesNothing) {
  TypeTube(station, 1, "45");
  onStage.stage.files.FailWrites(std::string(kFolder) + "full.t2d", "the disk is full");
  onStage.stage.fileDialog.answers.emplace_back(std::string(kFolder) + "full.t2d");
  btnSaveAS_Click(station);
  EXPECT_TRUE(s.gDirty);
  EXPECT_EQ(s.gFilePath.text(), "");
  ASSERT_EQ(onStage.stage.messageBox.shown.size(), 1U);
  EXPECT_NE(onStage.stage.messageBox.shown[0].text.find("full.t2d\r\nthe disk is full"), std::string::npos);
}

// Any bytes: whole files of noise, and designs with bytes changed.
TEST_F(DesignFile, OfAnyBytesIsReadToItsEnd) {
  TypeTube(station, 4, "45");
  const std::string design = Save("noise.t2d");
  std::mt19937 random(7);
  const std::string pool = "<>;,.-+0123456789eE\r\n\0</w>Band_Widthabc \xB0\xFF";
  for (int run = 0; run < 200; ++run) {
    std::string text = design;
    for (int change = 0; change < 12; ++change) text[random() % text.size()] = pool[random() % pool.size()];
    Open(text);
    Save("again.t2d");
  }
  std::string noise(1 << 20, '\0');
  for (char& c : noise) c = pool[random() % pool.size()];
  Open(noise);
  Open(std::string(1 << 20, '<'));
  Open("<Winding_Angles>" + std::string(1 << 20, ';') + "</w>");
}

TEST(TaggedText, AValueEndsAtTheFirstBracket) {
  DesignState s({});
  EXPECT_EQ(GetTagValue(s, "<comments>a;b</w>"), "a;b");
  EXPECT_EQ(s.gTagFields(2), "b");
  EXPECT_EQ(GetTagValue(s, "<comments>a<b</w>"), "a");
  EXPECT_EQ(GetTagValue(s, "<comments>open"), "");
  EXPECT_EQ(GetTagValue(s, "<<comments>x</w>"), "");
  EXPECT_EQ(GetTagValue(s, "no tag"), "");
  s.gFileDecimalComma = true;
  EXPECT_EQ(GetTagValue(s, "<comments>1,5;a,b</w>"), "1.5;a.b");
}

}  // namespace
}  // namespace torvane
