// Each warning is held against the program that a build would write.
#include <gtest/gtest.h>

#include <algorithm>

#include "design/catalogue.h"
#include "gcode/session.h"
#include "persist/settings.h"
#include "support/station_on_stage.h"
#include "workbench/build/build_outlook.h"
#include "workbench/build/marks.h"
#include "workbench/document/design_commands.h"

namespace torvane {
namespace {

struct BuildWarningsTest : testing::Test {
  StationOnStage onStage;
  Station& station = onStage.Started();
  DesignState& s = station.s;

  std::vector<std::string> Fields() const {
    std::vector<std::string> names;
    for (const BuildWarning& warning : BuildWarnings(station)) names.push_back(NameOf(*warning.field));
    return names;
  }
  bool Warns(const std::string& field) const {
    const auto names = Fields();
    return std::count(names.begin(), names.end(), field) > 0;
  }
  std::string WhyOf(const std::string& field) const {
    for (const BuildWarning& warning : BuildWarnings(station))
      if (NameOf(*warning.field) == field) return warning.why;
    return {};
  }

  void SetEnds(int row, const std::string& text) {
    s.txtLeft(row) = text;
    s.txtRight(row) = text;
  }
  void Name(const std::string& name) {
    s.gFilePath = "C:\\Torvane\\TV_Design_Files\\" + name;
    s.gFileName = name;
  }
  void Save(const std::string& name) {
    onStage.stage.fileDialog.answers.emplace_back("C:\\Torvane\\TV_Design_Files\\" + name);
    station.Run("btnSaveAS", Event::Click);
  }
  void Open(const std::string& name) {
    onStage.stage.fileDialog.answers.emplace_back("C:\\Torvane\\TV_Design_Files\\" + name);
    station.Run("btnOPen", Event::Click);
  }
  std::string Program() {
    torvane::Program program(s.signs);
    EXPECT_TRUE(FormProgram(s, station.platform, program));
    std::string text;
    for (const auto block : program.Text()) text += block;
    return text;
  }
  // From the head of a layer to that of the next.
  std::string LayerOf(const std::string& head, const std::string& next) {
    const std::string program = Program();
    const auto from = program.find(head);
    return from == std::string::npos ? "" : program.substr(from, program.find(next, from) - from);
  }

  void TypeFlatTube(int layers) {
    station.Choose(s.optX(1), "True");
    s.txtBandWidth(1) = "0.25";
    s.txtBandThickness(1) = "0.01";
    s.txtDia(0) = "4";
    s.txtDia(1) = "4";
    s.txtZ4(0) = "28";
    s.txtZ4(1) = "27";
    s.txtZ4(2) = "5";
    s.txtZ4(3) = "4";
    s.txtPODia(0) = "1";
    s.txtPODia(1) = "1";
    s.txtNumberOfLayers(1) = std::to_string(layers);
    for (int row = 1; row <= layers; ++row) station.Choose(s.cmb3D(row), "REG");
  }
  void ChoosePattern(int row) { station.Choose(s.cmbPattern(row), s.cmbPattern(row).entries().front()); }
};

TEST_F(BuildWarningsTest, RowsTypedFromScratchShowNoLineUntilTheirFileIsOpened) {
  TypeTube(station, 2, "45");
  SetEnds(1, "");
  SetEnds(2, "");
  Save("tube.t2d");
  EXPECT_EQ(Fields(), std::vector<std::string>{"txtLeft(1)"});
  EXPECT_EQ(Program().find("D0 LA="), std::string::npos);
  Open("tube.t2d");
  EXPECT_EQ(Fields(), std::vector<std::string>{});
  EXPECT_NE(Program().find("D0 LA=2_of_2"), std::string::npos);
}

TEST_F(BuildWarningsTest, CarriageShiftDoesNotMoveOrLeavesTheStops) {
  TypeTube(station, 1, "45");
  SetEnds(1, "");
  station.Choose(s.cmbMethod(1), "cs");
  Name("tube.t2d");
  EXPECT_TRUE(Warns("cmbMethod(1)"));
  EXPECT_EQ(Program().find("Carriage Shift Distance"), std::string::npos);
  // 36 passes of 45 degrees: 35 bands of 0.25 in on the slant are 12.37 in beyond the row's end at 28.
  Save("tube.t2d");
  Open("tube.t2d");
  ASSERT_EQ(Fields(), std::vector<std::string>{"cmbMethod(1)"});
  EXPECT_NE(BuildWarnings(station).front().what.find("Z=40.37"), std::string::npos);
  EXPECT_NE(Program().find("G1 Z40.37 [Move to L1 Home End"), std::string::npos);
  station.Choose(s.cmbMethod(1), "ms");
  EXPECT_EQ(Fields(), std::vector<std::string>{});
  // With the drive at the left the far stop is the right one.
  station.Choose(s.cmbMethod(1), "cs");
  s.gIsLHDrive = true;
  s.txtZ2(0) = "4";
  s.txtZ2(1) = "50";
  EXPECT_FALSE(Warns("cmbMethod(1)"));
  // The second pass is the first one to move.
  for (const auto& [diameter, passes] : {std::pair("0.15", "2"), std::pair("0.08", "1")}) {
    s.txtDiameterLeft = diameter;
    SetEnds(1, "");
    ASSERT_EQ(s.lblPassesToCover(1).text(), passes);
    EXPECT_EQ(Warns("cmbMethod(1)"), passes == std::string("2"));
  }
}

TEST_F(BuildWarningsTest, ARowWithoutAnAngleAndEmptyStopsAreNamed) {
  TypeTube(station, 3, "45");
  Name("tube.t2d");
  EXPECT_EQ(Fields(), std::vector<std::string>{});
  s.txtNumberOfLayers(0) = "4";
  SetEnds(4, "0");
  s.txtZ2(1) = "";
  EXPECT_EQ(Fields(), (std::vector<std::string>{"txtZ2(1)", "txtWA(4)"}));
  EXPECT_EQ(LayerOf("[BEGIN LAYER 4", "Winding_Process_Complete").find("G1"), std::string::npos);
  EXPECT_NE(LayerOf("[BEGIN LAYER 3", "[BEGIN LAYER 4").find("Z0.00"), std::string::npos)
      << "an empty stop is 0";
  s.chkWindingSchedule = "0";
  EXPECT_EQ(Fields(), std::vector<std::string>{"txtZ2(1)"}) << "layers that are not wound need no angle";
}

// A mandrel speed typed in one row takes every carriage speed from the angle: a hoop's comes to nothing.
TEST_F(BuildWarningsTest, ATypedMandrelSpeed) {
  TypeTube(station, 2, "45");
  s.txtWA(2) = "90";
  Name("tube.t2d");
  ASSERT_EQ(Fields(), std::vector<std::string>{});
  station.Type(s.txtMRPM(1), "20");
  EXPECT_EQ(Fields(),
            (std::vector<std::string>{"txtMRPM(1)", "txtCarriageSpeed(2)", "lblMinutesToCover(26)"}));
  EXPECT_NE(Program().find("M711 H0 M12 S0"), std::string::npos) << "the time of before";
  EXPECT_NE(WhyOf("txtMRPM(1)").find("keeps the former one"), std::string::npos);
  const std::string hoop = LayerOf("[BEGIN LAYER 2", "Winding_Process_Complete");
  EXPECT_NE(hoop.find("G1 F0 Z28.00"), std::string::npos) << hoop;
  EXPECT_NE(LayerOf("[BEGIN LAYER 1", "[BEGIN LAYER 2").find("M4 S20 "), std::string::npos);
  Save("tube.t2d");
  const std::string file = onStage.stage.files.ReadWhole("C:\\Torvane\\TV_Design_Files\\tube.t2d").value();
  EXPECT_NE(file.find("<Mandrel_RPM>28.6;45.0<"), std::string::npos) << "the file keeps the former speed";
  station.Type(s.txtMRPM(1), "0");
  EXPECT_NE(WhyOf("txtMRPM(1)"), "") << "the mandrel would stand";
  station.Run("btnReCalc", Event::Click);
  EXPECT_EQ(Fields(), std::vector<std::string>{});
  s.mMaxRPM = 28.7;
  EXPECT_FALSE(Warns("txtMRPM(1)"));
  s.mMaxRPM = 28.5;
  EXPECT_EQ(WhyOf("txtMRPM(1)"), "Its highest mandrel speed is 28.5 RPM.");
}

TEST_F(BuildWarningsTest, FiguresThatCannotBeWound) {
  TypeTube(station, 1, "45");
  Name("tube.t2d");
  s.txtZ2(1) = "28";
  EXPECT_EQ(Fields(), std::vector<std::string>{"txtZ2(1)"}) << "equal stops";
  s.txtZ2(1) = "4";
  s.txtWA(1) = "90";
  EXPECT_EQ(Fields(), std::vector<std::string>{});
  s.txtWA(1) = "405";
  EXPECT_TRUE(Warns("txtWA(1)"));
  s.txtWA(1) = "45";
  s.txtBandWidth(0) = "0.0005";
  EXPECT_FALSE(Warns("txtBandWidth(0)"));
  s.txtBandWidth(0) = "0.00049";
  EXPECT_TRUE(Warns("txtBandWidth(0)"));
  EXPECT_NE(Program().find("G4 L602 C [Dwell Home End"), std::string::npos) << "no angle behind the C";
  s.txtBandWidth(0) = "abc";
  EXPECT_EQ(WhyOf("txtBandWidth(0)"), "A figure of that line is missing.");
  s.txtBandWidth(0) = "0.25";
  s.txtAddRevs(1) = "two";
  EXPECT_EQ(Fields(), std::vector<std::string>{"txtAddRevs(1)"});
  EXPECT_EQ(ShownMark(s.txtAddRevs(1)), Mark::NoNumber) << "it is marked at once";
  EXPECT_EQ(s.txtAddRevs(1).mark(), Mark::Plain) << "beside the marks of its own";
  EXPECT_EQ(MarkedFields(s), std::vector<const Field*>{&s.txtAddRevs(1)});
  ConfirmCarriageOffset(station.platform.store);
  EXPECT_TRUE(WarningsBesideMarks(station).empty());
  s.txtAddRevs(1) = "0";
  s.txtDiameterLeft = "4E9";
  EXPECT_NE(BuildWarnings(station).front().what.find("passes"), std::string::npos);
  EXPECT_NE(WhyOf("txtWA(1)").find("No program holds so many"), std::string::npos);
  s.txtDiameterLeft = "4";
  ASSERT_EQ(s.lblPassesToCover(1).text(), "36");
  s.txtDiameterLeft = "1E308";
  EXPECT_EQ(s.lblPassesToCover(1).text(), "36") << "they did not follow";
  EXPECT_TRUE(Warns("lblPassesToCover(1)"));
}

// A pass takes three lines at least, and a program holds ten million.
TEST_F(BuildWarningsTest, MorePassesThanAProgramHolds) {
  TypeTube(station, 1, "45");
  for (const auto& [passes, warned] : {std::pair("3333333", false), std::pair("3333334", true)}) {
    s.lblPassesToCover(1).Restore(passes);
    EXPECT_EQ(WhyOf("txtWA(1)").starts_with("No program holds so many"), warned) << passes;
  }
}

TEST_F(BuildWarningsTest, FourAxisSpeedsOfTheMachine) {
  TypeFlatTube(1);
  Name("flat.t4d");
  ChoosePattern(1);
  ASSERT_EQ(Fields(), std::vector<std::string>{});
  s.mMaxRPM = 1;
  EXPECT_TRUE(Warns("lblRPM(1)"));
  s.mMaxRPM = 90;
  station.Choose(s.cmbRate, "");
  EXPECT_EQ(Fields(), (std::vector<std::string>{"lblRPM(1)", "lblcSpeed(1)"}));
}

// Both families share the working copies of a part's values.
TEST_F(BuildWarningsTest, AValueTypedForTheOtherFamily) {
  TypeTube(station, 1, "45");
  Name("tube.t2d");
  const std::string before = Program();
  station.Choose(s.optX(1), "True");
  s.txtDia(0) = "4";
  s.txtDia(1) = "4";
  station.Choose(s.optX(0), "True");
  ASSERT_EQ(Program(), before);
  EXPECT_EQ(Fields(), std::vector<std::string>{});
  s.txtDia(1) = "3";
  EXPECT_NE(Program(), before) << "its dwells are of 3 inches";
  ASSERT_EQ(Fields(), std::vector<std::string>{"txtDiameterRight"});
  EXPECT_NE(WhyOf("txtDiameterRight").find("would take 3"), std::string::npos);
}

TEST_F(BuildWarningsTest, HeadsThatTurnOnTheSpotOrTooSlowly) {
  TypeFlatTube(1);
  Name("flat.t4d");
  ChoosePattern(1);
  s.txtAdjust(5) = "4";
  EXPECT_EQ(Fields(), std::vector<std::string>{"txtAdjust(5)"});
  s.txtAdjust(5) = "3";
  onStage.stage.store.Write("Settings", "gIsNEMA34", "True");
  EXPECT_EQ(Fields(), std::vector<std::string>{"cmbRate"});
  station.Run("Form", Event::Click);
  EXPECT_EQ(Fields(), std::vector<std::string>{});
}

// The file of one layer has no semicolon: its reader takes the decimal comma for what parts the values.
TEST(BuildWarningsWithAComma, OneLayerLosesItsDecimals) {
  StationOnStage onStage(',');
  Station& station = onStage.Started();
  DesignState& s = station.s;
  const auto warns = [&station](const Field& field) {
    for (const BuildWarning& warning : BuildWarnings(station))
      if (warning.field == &field) return warning.what + ". " + warning.why;
    return std::string();
  };
  TypeTube(station, 1, "45,0");
  s.txtBandWidth(0) = "0,25";
  EXPECT_EQ(warns(s.txtNumberOfLayers(0)), "");
  s.txtLeft(1) = "";
  EXPECT_NE(warns(s.txtLeft(1)).find("open it again"), std::string::npos);
  s.txtZ2(1) = "3,5";
  EXPECT_NE(warns(s.txtNumberOfLayers(0)), "");
  EXPECT_EQ(warns(s.txtLeft(1)).find("open it again"), std::string::npos) << "that would lose the half inch";
  const std::string path = "C:\\Torvane\\TV_Design_Files\\komma.t2d";
  ASSERT_TRUE(SaveDesign(station, path) && OpenDesign(station, path) == Opened::Whole);
  EXPECT_EQ(s.txtZ2(1).text(), "3,00");
  TypeTube(station, 2, "45,5");
  EXPECT_EQ(warns(s.txtNumberOfLayers(0)), "") << "two layers have their semicolon";
}

TEST_F(BuildWarningsTest, FourAxisRowsWithoutAPattern) {
  TypeFlatTube(2);
  s.cmbPattern(1) = "";
  Name("flat.t4d");
  EXPECT_EQ(Fields(), (std::vector<std::string>{"cmbPattern(1)", "cmbPattern(2)"}));
  EXPECT_NE(WhyOf("cmbPattern(1)").find("neither home"), std::string::npos);
  EXPECT_EQ(Program().find("G28"), std::string::npos);
  ChoosePattern(1);
  EXPECT_EQ(Fields(), std::vector<std::string>{"cmbPattern(2)"});
  EXPECT_NE(Program().find("G28"), std::string::npos);
  EXPECT_NE(WhyOf("cmbPattern(2)").find("like the layer before"), std::string::npos);
  EXPECT_NE(Program().find("[Layer 2: Group 1/"), std::string::npos);
  ChoosePattern(2);
  EXPECT_EQ(Fields(), std::vector<std::string>{});
}

TEST_F(BuildWarningsTest, AFlatPartStartsFromAnInnerZThatIsHidden) {
  TypeFlatTube(1);
  Name("flat.t4d");
  ChoosePattern(1);
  EXPECT_FALSE(Warns("txtZ4(2)"));
  const auto startOf = [](const std::string& program) {
    const auto at = program.find("[Pause 1000ms]\r\nG1 F");
    EXPECT_NE(at, std::string::npos);
    return program.substr(at, program.find(" Y", at) - at);
  };
  const std::string before = startOf(Program());
  s.txtZ4(2) = "0";
  ChoosePattern(1);
  EXPECT_TRUE(Warns("txtZ4(2)"));
  EXPECT_NE(startOf(Program()), before) << "the start is another";
}

// A store may hold any text, which a program takes as it stands or not at all.
TEST_F(BuildWarningsTest, SettingsThatAreNoNumbers) {
  TypeTube(station, 2, "45");
  Name("tube.t2d");
  for (Field* check : {&s.chkPreWrap1, &s.chkPromptForHST, &s.chkHeatGunApp}) *check = "1";
  ASSERT_EQ(Fields(), std::vector<std::string>{});
  const auto spoils = [&](Field& setting, const std::string& text, const std::string& without,
                          const std::string& with) {
    const std::string good = setting.text(), name = NameOf(setting);
    EXPECT_NE(Program().find(without), std::string::npos) << name;
    setting = text;
    EXPECT_EQ(Fields(), std::vector<std::string>{name}) << text;
    const std::string program = Program();
    EXPECT_EQ(program.find(without), std::string::npos) << name;
    EXPECT_NE(program.find(with), std::string::npos) << name;
    setting = good;
  };
  spoils(s.gCarriageOffsetFromRMPFace, "x", "T2 Z1.875 ", "T2 Zx ");
  spoils(s.gCarriageOffsetFromRMPFace, "", "T2 Z1.875 ", "T2 Z ");
  spoils(s.gCarriageOffsetFromRMPFace, "1e14", "T2 Z1.875 ", "T2 Z100000000000000.000 ");
  spoils(s.txtLimitSwitchApproachSpeed, "fast", "G28 F1.000 ", "G28 Ffast ");
  spoils(s.cmbPreWrapRPM(1), "", "M4 S40 ", "[Carriage Back to");
  spoils(s.txtPreWrapAdvance(1), "x", "[Carriage Move for Pre-Wrap]", "[Mandrel CW");
  spoils(s.txtMandrelAdvanceAfterPreWrapCarriageStop, "x", "Rev's after Pre-Wrap]", "[Mandrel CW");
  s.txtMandrelRotateAfterLayerCompletion = "90";
  spoils(s.txtMandrelRotateAfterLayerCompletion, "1e14", "G4 C90 ", "G4 C100000000000000 ");
  spoils(s.txtHSTWidth, "x", "[Forward Pass for Heat", "[SET MANDREL RPM]");
  spoils(s.cmbHSTRPM, "x", "[Start Mandrel for HST", "[SET MANDREL RPM]");
  spoils(s.txtMandrelAdvanceAfterHSTCarriageStop, "x", "Angle After HST Pass]", "[SET MANDREL RPM]");
  spoils(s.cmbHGRPM, "x", "[SET MANDREL RPM]", "[Start Mandrel for HST");
  s.txtLengthTotal(0) = "1e14";
  EXPECT_TRUE(Warns("txtLengthTotal(0)")) << "beyond any machine";

  TypeFlatTube(1);
  ChoosePattern(1);
  Name("flat.t4d");
  s.txtAdjust(1) = "29";
  s.txtAdjust(5) = "3";
  spoils(s.gDHYtoMandrelCenter, "x", " Y4.4375 ", " Yx ");
}

TEST_F(BuildWarningsTest, TheFileAndItsProgram) {
  EXPECT_EQ(Fields().front(), "gFileName") << "no file yet";
  TypeFlatTube(1);
  ChoosePattern(1);
  Save("flat.t4d");
  EXPECT_EQ(Fields(), std::vector<std::string>{}) << "there is no program that could be old";
  station.Run("Command2", Event::Click);
  EXPECT_EQ(Fields(), std::vector<std::string>{});
  Save("flat.t4d");
  ASSERT_EQ(Fields(), std::vector<std::string>{"gFileName"});
  EXPECT_NE(BuildWarnings(station).front().what.find("older"), std::string::npos);
  Save("my flat.t4d");
  ASSERT_EQ(Fields(), std::vector<std::string>{"gFileName"});
  EXPECT_NE(BuildWarnings(station).front().what.find("blank"), std::string::npos);
}

TEST_F(BuildWarningsTest, TheOutlookNamesWhatStandsInTheWay) {
  const auto sentence = [this] { return OutlookOf(station).sentence; };
  EXPECT_FALSE(OutlookOf(station).ready) << "no layers";
  TypeTube(station, 2, "45");
  EXPECT_FALSE(OutlookOf(station).ready) << "no name";
  Name("tube.t2d");
  EXPECT_EQ(sentence(), "1 warning, look first") << "the carriage offset is not measured";
  EXPECT_EQ(WarningsBesideMarks(station).front().field, &s.gCarriageOffsetFromRMPFace);
  ConfirmCarriageOffset(station.platform.store);
  EXPECT_TRUE(OutlookOf(station).ready && OutlookOf(station).clear);
  EXPECT_EQ(sentence(), "writes and runs tube.T2G");
  SetEnds(1, "");
  EXPECT_TRUE(OutlookOf(station).ready && !OutlookOf(station).clear) << "a warning stops nothing";
  EXPECT_EQ(sentence(), "1 warning, look first");
  Name("my tube.t2d");
  EXPECT_EQ(sentence(), "2 warnings, look first");
  s.txtZ2(1) = "";
  ASSERT_NE(s.txtZ2(1).mark(), Mark::Plain);
  EXPECT_EQ(sentence(), "1 marked value, look first") << "marks come before warnings";
  EXPECT_TRUE(Warns("txtZ2(1)"));
  for (const BuildWarning& warning : WarningsBesideMarks(station))
    EXPECT_NE(warning.field, &s.txtZ2(1)) << "the mark has said it";
  EXPECT_EQ(WarningsBesideMarks(station).size(), 2U);
}

TEST_F(BuildWarningsTest, LooksWithoutTouching) {
  TypeFlatTube(2);
  const Snapshot before = s.TakeSnapshot();
  const std::string fields = s.gTagFields(0);
  BuildWarnings(station);
  EXPECT_TRUE(s.HasTextsOf(before));
  EXPECT_EQ(s.gTagFields(0), fields);
}

}  // namespace
}  // namespace torvane
