// What holds for every program with wrapped ends.
#include <gtest/gtest.h>

#include <cmath>
#include <optional>
#include <sstream>

#include "gcode/session.h"
#include "support/station_on_stage.h"
#include "workbench/document/design_commands.h"

namespace torvane {
namespace {

constexpr const char* kFolder = "C:\\Torvane\\TV_Design_Files\\";

struct FourAxisProgram : testing::Test {
  void Describe(int type) {
    station.Run("optX", Event::Click, 1);
    station.Run("optType", Event::Click, type);
    s.cmbRate = "MED";
    s.txtDia(0) = "4";
    s.txtDia(1) = "4";
    s.txtPODia(0) = "1";
    s.txtPODia(1) = "1";
    const char* z[] = {"30", "28", "4", "2"};
    for (int i = 0; i <= 3; ++i) s.txtZ4(i) = z[i];
    const char* offsets[] = {"0.75", "32", "28", "1.5", "4", "1.9", "0.75"};
    for (int i = 0; i <= 6; ++i) s.txtAdjust(i) = offsets[i];
    s.txtBandWidth(1) = "0.5";
    s.txtNumberOfLayers(1) = "3";
    s.gFilePath = std::string(kFolder) + "part.t4d";
  }
  void ChoosePattern(int row, const std::string& wrap, std::size_t entry) {
    s.cmbPhiSplit(row) = "45\xB0";
    station.Choose(s.cmbPhiW(row), wrap + "\xB0");
    std::vector<std::string> entries;
    for (const std::string& text : s.cmbPattern(row).entries())
      if (!text.empty()) entries.push_back(text);
    ASSERT_GT(entries.size(), entry);
    station.Choose(s.cmbPattern(row), entries[entry]);
  }
  std::vector<std::string> ProgramLines() {
    Program program(s.signs);
    EXPECT_TRUE(FormProgram(s, station.platform, program));
    std::string text;
    for (const std::string_view block : program.Text()) text += block;
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) lines.push_back(line.substr(0, line.size() - 1));
    return lines;
  }

  StationOnStage onStage;
  Station& station = onStage.Started();
  DesignState& s = station.s;
};

// The number behind a letter of a move, comments left out.
std::optional<double> Word(const std::string& line, char letter) {
  std::istringstream words(line.substr(0, line.find('[')));
  for (std::string word; words >> word;)
    if (word[0] == letter && word.size() > 1) return std::stod(word.substr(1));
  return std::nullopt;
}

bool IsMove(const std::string& line) {
  return line.size() > 1 && line[0] == 'G' && Word(line, 'A').has_value();
}

// The running angle grows by what the mandrel is told to turn. The ellipse at the right end holds the shift
// of the withdrawal behind it already, so the two are taken together.
TEST_F(FourAxisProgram, RunningAngleIsTheSumOfTheTurns) {
  for (const int type : {0, 1}) {
    Describe(type);
    ChoosePattern(1, "180", 0);
    station.Choose(s.cmb3D(2), "HOOP");
    ChoosePattern(3, "150", 1);
    double angle = -1e9;
    double told = 0;
    int moves = 0;
    bool firstOfLayer = true;
    for (const std::string& line : ProgramLines()) {
      if (line.starts_with("[START LAYER") || line.find("HOOP LAYER") != std::string::npos)
        firstOfLayer = true;
      if (!IsMove(line)) continue;
      ++moves;
      told += *Word(line, 'C');
      if (line.starts_with("G3 ")) continue;
      const double now = *Word(line, 'A');
      EXPECT_GT(now, angle) << line;
      EXPECT_NEAR(now - angle, firstOfLayer ? now - angle : told, 0.021) << line;
      firstOfLayer = false;
      angle = now;
      told = 0;
    }
    EXPECT_GT(moves, 100);
  }
}

// Wrapped ends: a pass is two traverses and two wraps, and the turns of its layer add up to whole turns for
// every circuit and one band for each.
TEST_F(FourAxisProgram, LayerClosesAsItsPatternPromises) {
  Describe(0);
  ChoosePattern(1, "180", 0);
  s.txtNumberOfLayers(1) = "1";
  double turned = 0;
  double firstTurn = 0;
  double traverse = 0;
  for (const std::string& line : ProgramLines()) {
    if (!IsMove(line)) continue;
    turned += *Word(line, 'C');
    if (line.find("MOVE LEFT") != std::string::npos && firstTurn == 0) firstTurn = *Word(line, 'C');
    if (line.find("MOVE RIGHT") != std::string::npos) traverse = *Word(line, 'C');
  }
  s.gTagFields.Split(s.cmbPattern(1).text(), "|x\xB0");
  const double groups = std::stod(s.gTagFields(2));
  const double circuits = std::stod(s.gTagFields(3));
  const double turns = (turned - firstTurn + traverse) / 360 - 1 / groups;
  EXPECT_NEAR(turns, std::round(turns), groups * circuits * 2 * 0.01) << s.cmbPattern(1).text();
}

TEST_F(FourAxisProgram, OfASavedAndReopenedDesignIsTheSame) {
  for (const int type : {0, 1}) {
    Describe(type);
    ChoosePattern(1, "180", 0);
    station.Choose(s.cmb3D(2), "HOOP");
    ChoosePattern(3, "150", 1);
    s.chkPause(1) = "1";
    ASSERT_TRUE(SaveDesign(station, std::string(kFolder) + "part.t4d"));
    ASSERT_EQ(OpenDesign(station, std::string(kFolder) + "part.t4d"), Opened::Whole);
    const auto first = ProgramLines();
    ASSERT_TRUE(SaveDesign(station, std::string(kFolder) + "part.t4d"));
    ASSERT_EQ(OpenDesign(station, std::string(kFolder) + "part.t4d"), Opened::Whole);
    EXPECT_EQ(ProgramLines(), first);
    EXPECT_EQ(s.gPartType.text(), type == 1 ? "HEMI" : "FLAT");
    EXPECT_TRUE(s.chkPause(1).checked());
  }
}

// A rate that the station does not know drives nothing: its speeds are 0, and no line is left out for them.
TEST_F(FourAxisProgram, WithoutARateStandsStill) {
  Describe(2);
  s.txtNumberOfLayers(1) = "2.6";
  for (int row = 1; row <= 3; ++row) station.Type(s.cmbPattern(row), "45");
  ASSERT_NE(s.lblRPM(3).text(), "0.00");
  station.Choose(s.cmbRate, "");
  for (int row = 1; row <= 3; ++row) station.Type(s.cmbPattern(row), "45");
  for (int row = 1; row <= 3; ++row)
    EXPECT_EQ(s.lblRPM(row).text() + "|" + s.lblcSpeed(row).text(), "0.00|0.00") << row;
  int turns = 0;
  int displays = 0;
  for (const std::string& line : ProgramLines()) {
    turns += line.starts_with("M4 S0 ");
    displays += line.starts_with("D0 LA=3_of_2.6 PA=1_");
  }
  EXPECT_EQ(turns, 3) << "three layers of 2.6, and each is written whole";
  EXPECT_EQ(displays, 1);
}

TEST_F(FourAxisProgram, WithoutAFirstPatternSaysSo) {
  Describe(0);
  s.cmbPattern(1) = "";
  EXPECT_TRUE(WriteProgram(station).angleUndefined);
  ASSERT_EQ(onStage.stage.messageBox.shown.size(), 1U);
  EXPECT_EQ(onStage.stage.messageBox.shown[0].title, "Winding Angle Error");
  EXPECT_EQ(onStage.stage.messageBox.shown[0].text, "Winding Angle Undefined");
  const auto lines = ProgramLines();
  for (const std::string& line : lines) EXPECT_FALSE(line.starts_with("G28")) << line;
}

TEST_F(FourAxisProgram, OfTooManyPassesIsRefused) {
  Describe(0);
  s.cmbPattern(1) = "18.12 | 99999 x 99999 | 180\xB0";
  const Written written = WriteGCode(s, station.platform);
  EXPECT_EQ(written, Written::No);
  EXPECT_NE(written.refusal.find("Layer 1 has 9,999,800,001 passes"), std::string::npos);
}

// The bands of an ellipse whose other axes need longer than the mandrel.
TEST_F(FourAxisProgram, WorkedExampleOfAnEndWrap) {
  Describe(0);
  s.gDelayTimeInG456ToWaitForMandrelinMS = 0;
  s.txtZ4(3) = "4";
  s.txtAdjust(5) = "2";
  ChoosePattern(1, "180", 0);
  for (const std::string& line : ProgramLines()) {
    if (!line.starts_with("G3 ")) continue;
    EXPECT_EQ(*Word(line, 'C'), 135);
    EXPECT_EQ(*Word(line, 'F'), 0.36);
    EXPECT_EQ(*Word(line, 'E'), 1.68);
    EXPECT_EQ(*Word(line, 'S'), 4);
    break;
  }
}

// A pattern that no search would give: the build neither hangs nor counts what cannot be counted.
TEST_F(FourAxisProgram, OddPatternsEnd) {
  Describe(0);
  s.txtNumberOfLayers(1) = "1";
  for (const char* pattern : {"18.12 | 0 x 1E12 | 180", "18.12 | -1 x 1E12 | 180", "18.12 | 3 x -5 | 180"}) {
    s.cmbPattern(1) = pattern;
    for (const std::string& line : ProgramLines()) EXPECT_FALSE(line.starts_with("D0 LA=")) << pattern;
  }
  for (const char* pattern : {"18.12 | 1E200 x 1E200 | 180", "18.12 | 1E154 x 1E154 | 180"}) {
    s.cmbPattern(1) = pattern;
    Program program(s.signs);
    EXPECT_TRUE(FormProgram(s, station.platform, program));
    EXPECT_NE(program.refusal().find("more passes than can be counted"), std::string::npos)
        << program.refusal();
  }
}

}  // namespace
}  // namespace torvane
