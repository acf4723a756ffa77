#include "persist/four_axis_file.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "support/station_on_stage.h"
#include "workbench/build/build_warnings.h"
#include "workbench/document/design_commands.h"

namespace torvane {
namespace {

constexpr const char* kFolder = "C:\\Torvane\\TV_Design_Files\\";

// A tube of 4 inches with flat ends, as lines of its file.
std::string FileOf(const std::string& type, const std::string& layers, int count) {
  return "<#TORVANE DESIGN FILE FORMAT VERSION #4.0 = T4D EXETNSION#>\r\n\r\n<DecimalComma>NO</w>\r\n" +
         (type.empty() ? std::string() : "<Type>" + type + "</w>\r\n") +
         "<Units>in</w>\r\n<Length_Total>24.00</w>\r\n<Band_Width>0.250</w>\r\n<Band_Thickness>0.012</w>\r\n"
         "<Diameter>4;4</w>\r\n<Z_Coords>28;4</w>\r\n<Hemi_Coords>26;6</w>\r\n<Opening_Diameter>1;1</w>\r\n"
         "<Skirt_Length>0;0</w>\r\n<Winding_Rate>fast</w>\r\n<DHPath_Offsets>0.755;30;28;1.5;4;2;0.75</w>\r\n"
         "<Number_of_Layers>" +
         std::to_string(count) + "</w>\r\n" + layers;
}

struct FourAxisFile : testing::Test {
  FourAxisFile() { station.Run("optX", Event::Click, 1); }
  bool Open(const std::string& text) {
    onStage.stage.files.Put(std::string(kFolder) + "opened.t4d", text);
    return OpenDesign(station, std::string(kFolder) + "opened.t4d") != Opened::No;
  }
  std::string Save() {
    EXPECT_TRUE(SaveTorvaneMakeFileVer40(s, station.platform, std::string(kFolder) + "saved.t4d"));
    return onStage.stage.files.ReadWhole(std::string(kFolder) + "saved.t4d").value();
  }

  StationOnStage onStage;
  Station& station = onStage.Started();
  DesignState& s = station.s;
};

TEST_F(FourAxisFile, FillsRowsByTheirOwnNumbers) {
  ASSERT_TRUE(Open(FileOf("hemi",
                          "<Layer>2;hoop;0;1;1;hoop;180\xB0;45\xB0</w>\r\n"
                          "<Layer>1;reg;1;9;9;6.110 | 2 x 19 | 180\xB0;170\xB0;50\xB0</w>\r\n"
                          "<Layer>51;reg;0;;;x;;</w>\r\n<Layer>x;reg;0;;;x;;</w>\r\n",
                          2)));
  EXPECT_EQ(s.gPartType.text(), "HEMI");
  EXPECT_TRUE(s.optType(1).checked());
  EXPECT_EQ(s.txtZ4(1).text() + "|" + s.txtZ4(2).text(), "26.000|6.000");
  EXPECT_EQ(s.txtAdjust(0).text(), "0.76");
  EXPECT_EQ(s.txtBandThickness(1).text() + "|" + s.txtBandThicknessMM(1).text(), "0.0120|0.305")
      << "the twin follows its inch field";
  EXPECT_EQ(s.cmbRate.text(), "FAST");
  EXPECT_EQ(s.cmb3D(1).text() + "|" + s.cmb3D(2).text(), "REG|HOOP");
  EXPECT_TRUE(s.chkPause(1).checked());
  EXPECT_EQ(s.cmbPhiW(1).text() + "|" + s.cmbPhiSplit(1).text(), "170\xB0|50\xB0");
  EXPECT_EQ(s.cmbPattern(2).text(), "HOOP");
  EXPECT_EQ(s.lblNPasses(2).text(), "1");
  EXPECT_EQ(s.lblFinalThickness(1).text(), "0.0");
}

TEST_F(FourAxisFile, OfMillimetresHasOneDecimal) {
  std::string text = FileOf("hemi", "", 0);
  text.replace(text.find("<Units>in"), 9, "<Units>mm");
  ASSERT_TRUE(Open(text));
  EXPECT_EQ(s.txtAdjust(0).text() + "|" + s.txtAdjust(6).text(), "0.8|0.8");
  EXPECT_EQ(s.txtDia(1).text() + "|" + s.txtPODia(1).text(), "4.0|1.0");
}

TEST_F(FourAxisFile, WithoutATypeLeavesThePartTypeAsItStood) {
  station.Run("optType", Event::Click, 1);
  ASSERT_TRUE(Open(FileOf("", "", 0)));
  EXPECT_EQ(s.gPartType.text(), "HEMI");
  for (int i = 0; i <= 2; ++i) s.optType(i).Restore("False");
  EXPECT_EQ(Save().find("<Type>"), std::string::npos);
}

TEST_F(FourAxisFile, OfAnAngleScheduleKeepsItsAngles) {
  ASSERT_TRUE(
      Open(FileOf("2ax", "<Layer>1;2ax;0;;;45;n/a;n/a</w>\r\n<Layer>2;hoop;0;;;hoop;n/a;n/a</w>\r\n", 2)));
  EXPECT_EQ(s.cmbPattern(1).text(), "45");
  EXPECT_EQ(s.cmbPhiW(1).text(), "N/A");
  EXPECT_FALSE(s.cmbPhiW(1).enabled());
  EXPECT_FALSE(s.btn4XRow(1).shown());
  EXPECT_NE(Save().find("<Layer>1;2AX;0;"), std::string::npos);
}

// A row that moves takes the pattern of its file along, or a refresh would bring the deleted layer back.
TEST_F(FourAxisFile, ADeletedLayerStaysDeleted) {
  const std::string rest = " | 180\xB0;180\xB0;45\xB0</w>\r\n";
  ASSERT_TRUE(Open(FileOf("FLAT",
                          "<Layer>1;REG;0;;;21.44 | 2 X 24" + rest + "<Layer>2;REG;0;;;7.460 | 2 X 25" +
                              rest + "<Layer>3;REG;0;;;15.23 | 25 X 2" + rest,
                          3)));
  station.Run("btn4XRow", Event::Press, 1);
  station.Run("mnuDelete4Ax", Event::Click);
  station.Run("lblRefresh", Event::Click);
  EXPECT_EQ(s.cmbPattern(1).text() + "|" + s.cmbPattern(2).text(),
            "7.460 | 2 X 25 | 180\xB0|15.23 | 25 X 2 | 180\xB0");
  // A pattern chosen anew gives way to the file's at the next refresh, which the warnings say.
  station.Choose(s.cmbPattern(1), "21.44 | 2 x 24 | 180\xB0");
  std::vector<std::string> warned;
  for (const BuildWarning& warning : BuildWarnings(station)) warned.push_back(warning.what);
  EXPECT_NE(std::find(warned.begin(), warned.end(), "Layer 1 may turn back into its file's pattern"),
            warned.end());
  station.Run("lblRefresh", Event::Click);
  EXPECT_EQ(s.cmbPattern(1).text(), "7.460 | 2 X 25 | 180\xB0");
}

TEST_F(FourAxisFile, SavesTheSameBytesAgain) {
  ASSERT_TRUE(Open(FileOf("FLAT", "<Layer>1;REG;0;;;18.12 | 4 X 12 | 180\xB0;180\xB0;45\xB0</w>\r\n", 1)));
  EXPECT_EQ(s.cmbPattern(1).text(), "18.12 | 4 X 12 | 180\xB0");
  EXPECT_EQ(s.lblNPasses(1).text(), "48");
  const std::string first = Save();
  ASSERT_TRUE(Open(first));
  EXPECT_EQ(Save(), first);
}

TEST_F(FourAxisFile, OfAnyBytesIsReadToItsEnd) {
  const std::string design =
      FileOf("FLAT", "<Layer>1;REG;0;;;18.12 | 4 X 12 | 180\xB0;180\xB0;45\xB0</w>\r\n", 3);
  std::mt19937 random(11);
  const std::string pool = "<>;,|xX.-+0123456789eE\r\n</w>HOOP2AX \xB0\xFF";
  for (int run = 0; run < 150; ++run) {
    std::string text = design;
    for (int change = 0; change < 10; ++change) text[random() % text.size()] = pool[random() % pool.size()];
    Open(text);
    Save();
  }
  Open(FileOf("FLAT", "<Layer>1;REG;0;;;99999 | 99999 x 99999 | 99999\xB0;\xB0;\xB0</w>\r\n", 1000000));
  EXPECT_EQ(s.txtNumberOfLayers(1).text(), "15");
}

}  // namespace
}  // namespace torvane
