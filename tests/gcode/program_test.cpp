#include "gcode/program.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>

#include "design/catalogue.h"
#include "gcode/session.h"
#include "support/station_on_stage.h"
#include "workbench/document/design_commands.h"

namespace torvane {
namespace {

std::string TextOf(const Program& program) {
  std::string text;
  for (const std::string_view block : program.Text()) text += block;
  return text;
}

TEST(Program, ALineWithAFailedPartIsLeftOut) {
  Program p({});
  p.Line("G1 F", Number(2).plain(), " Z", Number(0.5).as("###.00"_mask));
  p.Line("G4 C", (Number(1) / 0).plain(), " [lost]");
  p.Line("M5");
  EXPECT_EQ(TextOf(p), "G1 F2 Z.50\r\nM5\r\n");
  EXPECT_EQ(p.lines(), 2);
}

// Neither the passes that are to come, of all layers, nor what is written passes the limits, of lines or of
// characters.
TEST(Program, HoldsNoMoreThanItsLimits) {
  const auto goesOn = [](ProgramLimits limits, int passes, int lines) {
    Program p({}, nullptr, limits);
    p.ExpectLayer(1, passes, 2, 24);
    for (int line = 0; line < lines; ++line) p.Line("12345678");
    return p.GoesOn(0);
  };
  // A line has ten characters; a pass that is to come has two of twelve.
  EXPECT_TRUE(goesOn({10, 1000}, 5, 10));
  EXPECT_FALSE(goesOn({10, 1000}, 6, 0));
  EXPECT_FALSE(goesOn({10, 1000}, 1, 11));
  EXPECT_TRUE(goesOn({1000, 120}, 5, 12));
  EXPECT_FALSE(goesOn({1000, 119}, 5, 0));
  EXPECT_FALSE(goesOn({1000, 120}, 1, 13));

  Program p({}, nullptr, {10, 1000});
  p.ExpectLayer(1, 3, 2, 24);
  p.ExpectLayer(2, -7, 2, 24);
  EXPECT_TRUE(p.GoesOn(0));
  p.ExpectLayer(3, 3, 2, 24);
  EXPECT_FALSE(p.GoesOn(0));
  EXPECT_TRUE(p.refusal().starts_with("Layer 3 has 3 passes and would make 6 lines")) << p.refusal();
}

// A failed number costs the line of its slot, and that line alone; where the place may stay empty, nothing.
TEST(Program, RepeatsAPassageWithOtherNumbersInItsSlots) {
  Program p({',', '/', ':'});
  const Slot first{0, "0.0"_mask}, second{1, "0.00"_mask}, blank{1, "0"_mask, true};
  p.Line("before");
  const Passage passage = p.Spelled([&] {
    p.Line("G4 C", first, " D", second, " [a]");
    p.Line("G4 E", (Number(1) / 0).plain(), " F", first);
    p.Line("M5");
    p.Line(second);
    p.Line("G1 Z", blank, std::string("\n"), first);
  });
  const auto repeat = [&](Number one, Number two) { p.Repeat(passage, std::array{one, two}); };
  EXPECT_EQ(TextOf(p), "before\r\n") << "what is spelled is not written yet";
  EXPECT_EQ(passage.lines(), 4);
  repeat(1.25, -2);
  EXPECT_EQ(p.lines(), 5);
  repeat(1, Number::Failure());
  EXPECT_EQ(p.lines(), 7);
  repeat(Number::Failure(), 3);
  EXPECT_EQ(p.lines(), 9);
  EXPECT_EQ(TextOf(p),
            "before\r\n"
            "G4 C1,3 D-2,00 [a]\r\nM5\r\n-2,00\r\nG1 Z-2 1,3\r\n"
            "M5\r\nG1 Z 1,0\r\n"
            "M5\r\n3,00\r\n");
}

// Full blocks do not stay, and the program ends where nobody takes them any more.
TEST(Program, HandsItsBlocksOver) {
  for (const bool room : {true, false}) {
    std::string taken;
    std::size_t longest = 0;
    Program p({}, nullptr, {}, [&](std::string_view block) {
      longest = std::max(longest, block.size());
      taken += block;
      return room || taken.empty();
    });
    std::string all;
    for (int i = 0; i < 200'000 && p.GoesOn(0); ++i) {
      p.Line("line ", i);
      all += "line " + std::to_string(i) + "\r\n";
    }
    p.Line(std::string(1'000'000, 'x'));
    all += std::string(1'000'000, 'x') + "\r\n";
    EXPECT_EQ(p.End(), room);
    EXPECT_EQ(p.refusal().empty(), room);
    EXPECT_EQ(taken == all, room);
    EXPECT_EQ(TextOf(p), "");
    EXPECT_EQ(longest, room ? 1'000'002U : taken.size()) << "it hands over once what is not taken";
  }
}

// A text stays within its part of its line.
TEST(Program, TextsEndNeitherTheirLineNorTheirComment) {
  Program p({});
  const std::string hostile = "a]\r\nM4 S45\t[b";
  p.Line("[FileName= ", hostile, " ]");
  p.Line("D0 ST=", std::string_view(hostile), " [Display ", MaybeText{true, "x[y]"}, "]");
  p.Line("G28 F", std::string("1\x7F[home]"), " [Move]");
  EXPECT_EQ(TextOf(p),
            "[FileName= a)  M4 S45 (b ]\r\nD0 ST=a]  M4 S45 [b [Display x(y)]\r\nG28 F1 [home) [Move]\r\n");
  EXPECT_EQ(p.lines(), 3);
}

struct ProgramOfTube : testing::Test {
  ProgramOfTube() {
    TypeTube(station, 2, "45");
    s.gFilePath = "C:\\Torvane\\TV_Design_Files\\tube.t2d";
  }

  std::string Written() { return onStage.stage.files.ReadWhole(kPath).value(); }

  // The first line of a comment, without it.
  std::string LineOf(const std::string& comment) {
    const std::string text = Written();
    const auto at = text.find(" [" + comment);
    return at == std::string::npos ? "none"
                                   : text.substr(text.rfind('\n', at) + 1, at - text.rfind('\n', at) - 1);
  }

  static constexpr const char* kPath = "C:\\Torvane\\TV_G-Code_Files\\tube.T2G";
  StationOnStage onStage;
  Station& station = onStage.Started();
  DesignState& s = station.s;
};

TEST_F(ProgramOfTube, IsWrittenUnderTheStationsFolder) {
  EXPECT_EQ(WriteGCode(s, station.platform), Written::Whole);
  EXPECT_EQ(s.gGCodeFilePath.text(), kPath);
  EXPECT_EQ(s.gGCodeFolder.text(), "C:\\Torvane\\TV_G-Code_Files\\");
  EXPECT_TRUE(Written().ends_with("[Heat Gun Forever Between These Z Values]\r\n"));
  EXPECT_EQ(LineOf("Move Carriage to LS"), "G28 F1.000");
  // 20 turns a minute of tape an inch wide.
  EXPECT_EQ(LineOf("Forward Pass for Heat Shrink Tape"), "G1 F.33 Z28");
}

// The operator's own wrap stands at both ends of every pass; where the carriage shifts a negative one counts
// in the first pass alone.
TEST_F(ProgramOfTube, WrapsOnByTheOperatorsAngle) {
  struct Case {
    const char *method, *angle;
    int dwells;
  };
  s.gGridSync = false;
  s.txtNumberOfLayers(0) = "1";
  s.lblPassesToCover(1) = "3";
  for (const Case& c : {Case{"ms", "12.5", 6}, Case{"ms", "-12.5", 6}, Case{"cs", "12.5", 6},
                        Case{"cs", "-12.5", 2}, Case{"ms", "0", 0}, Case{"ms", " ", 0}}) {
    s.cmbMethod(1) = c.method;
    s.txtAddRevs(1) = c.angle;
    EXPECT_EQ(WriteGCode(s, station.platform), Written::Whole);
    const std::string text = Written(), dwell = c.angle + std::string(" deg.]");
    int found = 0;
    for (auto at = text.find(dwell); at != std::string::npos; at = text.find(dwell, at + 1)) ++found;
    EXPECT_EQ(found, c.dwells) << c.method << c.angle;
  }
}

// Every text that stands in a program, one at a time: whatever it holds, the program has no line more.
TEST_F(ProgramOfTube, HasTheSameLinesWhateverItsTextsHold) {
  for (const bool fourAxis : {false, true}) {
    station.Run("optX", Event::Click, fourAxis ? 1 : 0);
    s.txtNumberOfLayers(1) = "1";
    s.cmbPattern(1) = "18.12 | 2 x 1 | 180\xB0";
    for (Field* check : {&s.chkPreWrap1, &s.chkPreWrap2, &s.chkHeatGunApp, &s.chkPromptForHST, &s.chkNotify1})
      *check = "1";
    const auto lines = [&] {
      Program program(s.signs);
      EXPECT_TRUE(FormProgram(s, station.platform, program));
      const std::string text = TextOf(program);
      EXPECT_EQ(text.find("\nM4 S45"), std::string::npos);
      return std::count(text.begin(), text.end(), '\n');
    };
    const auto usual = lines();
    int held = 0;
    ForEachField(static_cast<Fields&>(s), [&](Field& field) {
      const std::string former = field.text();
      field.Restore(former + "]\r\nM4 S45 [");
      const auto now = lines();
      EXPECT_LE(now, usual) << NameOf(field);
      held += now == usual;
      field.Restore(former);
    });
    EXPECT_GT(held, 500) << "most texts cost no line either";
  }
}

// Forming a three-axis program leaves the two-axis part as it stands.
TEST_F(ProgramOfTube, OfTheOtherFamilyChangesNoDwell) {
  const auto schedule = [this] {
    EXPECT_EQ(WriteGCode(s, station.platform), Written::Whole);
    return Written().substr(Written().find("[BEGIN 2-AXIS"));
  };
  const std::string before = schedule();
  s.txtDia(0) = "3";
  s.txtDia(1) = "3";
  s.Diameter_Left = "4";
  s.Diameter_Right = "4";
  station.Run("optX", Event::Click, 1);
  station.Run("optType", Event::Click, 2);
  s.txtBandWidth(1) = "0.25";
  s.txtNumberOfLayers(1) = "1";
  station.Type(s.cmbPattern(1), "45");
  Program program(s.signs);
  ASSERT_TRUE(FormProgram(s, station.platform, program));
  // 3 inches round, the band 0.3536 on the slant: 27 steps of 13.33 degrees.
  EXPECT_NE(TextOf(program).find("G4 L602 C13.33 "), std::string::npos);
  // The head leads by 5 degrees and stands square while the mandrel dwells.
  EXPECT_NE(TextOf(program).find(" B50.00 [Move Far End"), std::string::npos);
  EXPECT_NE(TextOf(program).find(" B-50.00 [Move Home End"), std::string::npos);
  EXPECT_NE(TextOf(program).find(" B0.00 [Dwell Far End"), std::string::npos);
  EXPECT_NE(TextOf(program).find(" B0.00 [Dwell Home End"), std::string::npos);
  station.Run("optX", Event::Click, 0);
  EXPECT_EQ(schedule(), before);
}

// Without a shift the carriage still runs from end to end.
TEST_F(ProgramOfTube, ByCarriageShiftAtNoAngleStillMoves) {
  s.cmbMethod(1) = "cs";
  s.lblPassesToCover(1) = "2";
  s.txtRight(1) = "0";
  s.txtLeft(1) = "0";
  s.gGridSync = false;
  s.txtWA(1) = "0";
  ASSERT_EQ(WriteGCode(s, station.platform), Written::Whole);
  EXPECT_NE(Written().find("G1 Z24.0 [Move to L1 Far End"), std::string::npos);
  EXPECT_NE(Written().find("G1 Z.0 [Move to L1 Home End"), std::string::npos);
}

TEST_F(ProgramOfTube, WithoutANameWritesNothing) {
  for (const char* path : {"", "C:\\Torvane\\TV_Design_Files\\", "t2d"}) {
    s.gFilePath = path;
    EXPECT_EQ(WriteProgram(station), torvane::Written::No) << path;
  }
  EXPECT_TRUE(onStage.stage.messageBox.shown.empty());
}

TEST_F(ProgramOfTube, ThatCannotBeWrittenLeavesTheFormerFileAndSaysWhy) {
  onStage.stage.files.Put(kPath, "former");
  onStage.stage.files.FailWrites(kPath, "the disk is full");
  EXPECT_EQ(WriteProgram(station), torvane::Written::No);
  EXPECT_EQ(Written(), "former");
  ASSERT_EQ(onStage.stage.messageBox.shown.size(), 1U);
  EXPECT_EQ(onStage.stage.messageBox.shown[0].title, "Error");
  EXPECT_NE(onStage.stage.messageBox.shown[0].text.find("the disk is full"), std::string::npos);
}

TEST_F(ProgramOfTube, OfTooManyLinesIsRefusedBeforeItIsFormed) {
  onStage.stage.files.Put(kPath, "former");
  s.gGridSync = false;
  s.lblPassesToCover(2) = "123456789012";
  const auto written = WriteGCode(s, station.platform);
  EXPECT_EQ(written, torvane::Written::No);
  EXPECT_EQ(Written(), "former");
  const std::string& text = written.refusal;
  EXPECT_NE(text.find("Layer 2 has 123,456,789,012 passes"), std::string::npos) << text;
  EXPECT_NE(text.find("10,000,000 lines"), std::string::npos) << text;
}

// The minutes left fall as a layer's first pass begins, so a layer without passes takes none off.
TEST_F(ProgramOfTube, OfALayerWithoutPassesKeepsTheMinutesLeft) {
  s.gGridSync = false;
  s.txtNumberOfLayers(0) = "3";
  for (int row = 1; row <= 3; ++row) {
    s.lblPassesToCover(row) = row == 2 ? "" : "1";
    s.lblMinutesToCover(row).Restore("1.5");
  }
  s.lblMinutesToCover(IndexSet::kAllRows).Restore("4.5");
  EXPECT_EQ(WriteGCode(s, station.platform), Written::Whole);
  EXPECT_NE(Written().find("LA=1_of_3 PA=1_of_1 RPM=28.6 CS=6 WA=45 WM=ms TI=4.5"), std::string::npos);
  EXPECT_EQ(Written().find("LA=2_of_3"), std::string::npos);
}

struct Impatient : ProgramProgress {
  bool GoOn(double share) override {
    shares.push_back(share);
    return shares.size() < 3;
  }
  std::vector<double> shares;
};

TEST_F(ProgramOfTube, CanBeCancelled) {
  s.gGridSync = false;
  s.lblPassesToCover(1) = "5000";
  onStage.stage.files.Put(kPath, "former");
  Impatient progress;
  EXPECT_EQ(WriteGCode(s, station.platform, &progress), Written::Cancelled);
  EXPECT_EQ(Written(), "former");
  ASSERT_EQ(progress.shares.size(), 3U);
  EXPECT_LT(progress.shares[1], progress.shares[2]);
  EXPECT_LT(progress.shares[2], 0.5);
}

}  // namespace
}  // namespace torvane
