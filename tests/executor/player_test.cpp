// The player: time, waits, speeds, and where the bands are at a moment. Figures by hand.
#include "executor/player/player.h"

#include <gtest/gtest.h>

#include "executor/proof/remarks.h"
#include "programs.h"

namespace torvane::executor {
namespace {

// 10 in at 2 in/s while the mandrel turns at 10 RPM: 5 s, 300 degrees a traverse.
const std::string kTwoLayers =
    "[GENERAL PART DESCRIPTION: LeftDia=4.000 RightDia=2.000 ]\r\n"
    "C C0\r\nG20\r\nG90\r\nX V420.000 T2 Z1.875\r\nM17\r\n"
    "G1 F1 Z3.875\r\n"  // line 7: 2 s
    "D0 ST=Winding Schedule\r\n"
    "M0 [Wait for Button Press]\r\n"  // line 9
    "D0 LA=1_of_2 PA=1_of_1 RPM=10 CS=2 WA=HOOP WM=ms TI=0.5 LD=4 FW=0.25 HL=2\r\n"
    "M4 S10\r\n"
    "G1 F2 Z13.875\r\n"  // line 12: 5 s
    "G1 Z3.875\r\n"      // 5 s
    "D0 LA=2_of_2 PA=1_of_1 RPM=10 CS=2 WA=45 WM=ms LD=4 FW=0.25 HL=2\r\n"
    "M0 [Turn the part]\r\n"  // line 15
    "G1 Z13.875\r\n"
    "G1 Z3.875\r\n"
    "D0 GM=Winding_Process_Complete\r\n"
    "G4 P30000\r\n"  // line 19: 3 s
    "M5\r\n"
    "D0 ST=Heat Shrink Tape\r\n"
    "G1 F5 Z13.875\r\n";  // 2 s

std::shared_ptr<const Program> Made(const std::string& text) { return std::make_shared<Program>(text); }

Player Loaded(const std::string& text) {
  Player player;
  player.Load(Made(text));
  return player;
}

TEST(Course, TellsStagesWaitsAndThePart) {
  const Course course = FollowCourse(*Made(kTwoLayers));
  EXPECT_DOUBLE_EQ(course.seconds, 2 + 10 + 10 + 3 + 2);
  std::vector<std::pair<std::string, double>> stretches;
  for (const Stretch& s : course.stretches)
    stretches.emplace_back(s.layer > 0 ? std::to_string(s.layer) : s.name, s.seconds);
  EXPECT_EQ(stretches, (std::vector<std::pair<std::string, double>>{
                           {"Start", 2}, {"1", 10}, {"2", 10}, {"End", 3}, {"Heat Shrink Tape", 2}}));
  EXPECT_DOUBLE_EQ(course.stretches[2].begins, 12);
  ASSERT_EQ(course.waits.size(), 2U);
  EXPECT_EQ(course.waits[1].line, 15);
  EXPECT_EQ(course.waits[1].why, "Turn the part");
  const Mandrel part = course.Part();
  EXPECT_DOUBLE_EQ(part.zRight, 3.875);
  EXPECT_DOUBLE_EQ(part.zLeft, 13.875);
  EXPECT_DOUBLE_EQ(part.leftRadius, 2);
  EXPECT_DOUBLE_EQ(part.rightRadius, 1);
  EXPECT_FALSE(course.head);
  EXPECT_FALSE(course.endless);
}

TEST(Player, WaitsForTheButtonAndRunsToItsEnd) {
  Player player = Loaded(kTwoLayers);
  EXPECT_EQ(player.State(), RunState::Ready);
  player.Advance(1);
  EXPECT_EQ(player.Elapsed(), 0);
  player.Run();
  player.Advance(1);
  EXPECT_EQ(player.LineNow(), 7);
  EXPECT_DOUBLE_EQ(player.At().carriage, 2.875);
  EXPECT_DOUBLE_EQ(player.TargetZ(), 3.875);
  ASSERT_NE(player.NextWait(), nullptr);
  EXPECT_EQ(player.NextWait()->line, 9);
  player.Advance(60);
  EXPECT_EQ(player.State(), RunState::Waiting);
  EXPECT_EQ(player.LineNow(), 9);
  EXPECT_EQ(player.NextWait()->line, 9);
  EXPECT_DOUBLE_EQ(player.Elapsed(), 2);
  EXPECT_DOUBLE_EQ(player.Remaining(), 25);
  player.Advance(60);  // it stands as long as the operator likes
  EXPECT_DOUBLE_EQ(player.Elapsed(), 2);
  player.PressButton();
  player.Advance(2.5);
  EXPECT_EQ(player.LineNow(), 12);
  EXPECT_EQ(player.NextWait()->line, 15);
  EXPECT_DOUBLE_EQ(player.At().carriage, 8.875);
  EXPECT_DOUBLE_EQ(player.At().mandrel, 150);
  EXPECT_DOUBLE_EQ(player.Rpm(), 10);
  player.Advance(100);
  EXPECT_EQ(player.State(), RunState::Waiting);
  player.PressButton();
  player.Advance(100);
  EXPECT_EQ(player.State(), RunState::Finished);
  EXPECT_DOUBLE_EQ(player.Elapsed(), 27);
  EXPECT_DOUBLE_EQ(player.Remaining(), 0);
  EXPECT_EQ(player.NextWait(), nullptr);
  EXPECT_EQ(player.screen().stage, "Heat Shrink Tape");
  player.Run();  // anew
  EXPECT_EQ(player.State(), RunState::Running);
  EXPECT_EQ(player.LineNow(), 0);
  EXPECT_DOUBLE_EQ(player.Elapsed(), 0);
  EXPECT_EQ(player.LayerShown(), nullptr);
}

TEST(Player, PausesStopsAndChangesItsSpeed) {
  Player player = Loaded("X V1 T2 Z0\nG1 F1 Z100\n");
  player.Run();
  player.SetSpeed(10);
  player.Advance(1);
  EXPECT_DOUBLE_EQ(player.At().carriage, 10);
  player.Pause();
  player.Advance(1);
  EXPECT_DOUBLE_EQ(player.At().carriage, 10);
  player.Run();
  player.SetSpeed(1);
  player.Advance(5);
  EXPECT_DOUBLE_EQ(player.At().carriage, 15);
  player.Stop();
  player.Advance(5);
  EXPECT_EQ(player.State(), RunState::Stopped);
  EXPECT_DOUBLE_EQ(player.At().carriage, 15);
  player.PressButton();
  player.Pause();
  EXPECT_EQ(player.State(), RunState::Stopped);
}

TEST(Player, PassesTheWaitsOnItsWayToTheEnd) {
  Player player = Loaded(kTwoLayers);
  player.Run();
  player.SetSpeed(Player::kToTheEnd);
  player.Advance(0.001);
  EXPECT_EQ(player.State(), RunState::Finished);
  EXPECT_DOUBLE_EQ(player.Elapsed(), 27);
}

TEST(Player, ShowsWhatTheProgramDisplays) {
  Player player = Loaded(kTwoLayers);
  player.Run();
  player.Advance(60);
  player.PressButton();
  player.Advance(1);
  const Screen& screen = player.screen();
  EXPECT_EQ(screen.stage, "Winding Schedule");
  EXPECT_EQ(screen.layer, 1);
  EXPECT_EQ(screen.layers, 2);
  EXPECT_EQ(screen.windingAngle, "HOOP");
  EXPECT_EQ(screen.minutesLeft, "0.5");
  player.Advance(60);
  EXPECT_EQ(screen.layer, 2);
  EXPECT_EQ(screen.windingAngle, "45");
  EXPECT_EQ(screen.minutesLeft, "0.5");  // layer 2 tells none
  player.PressButton();
  player.Advance(12);
  EXPECT_EQ(screen.message, "Winding_Process_Complete");
}

TEST(Player, LaysTheBandWhereTheCarriageIs) {
  Player player = Loaded(kTwoLayers);
  player.Run();
  player.Advance(60);
  EXPECT_EQ(player.LayerShown(), nullptr);
  player.PressButton();
  player.Advance(2.5);
  ASSERT_NE(player.LayerShown(), nullptr);
  EXPECT_EQ(player.LaidSoFar().strokes, 0U);
  EXPECT_TRUE(player.LaidSoFar().partly);
  EXPECT_DOUBLE_EQ(player.LaidSoFar().z, 8.875);
  EXPECT_DOUBLE_EQ(player.LayerShown()->strokes[0].AngleAt(8.875), 150);
  EXPECT_TRUE(player.LayerShown()->strokes[0].out);
  player.Advance(5);
  EXPECT_EQ(player.LaidSoFar().strokes, 1U);
  EXPECT_FALSE(player.LayerShown()->strokes[1].out);
  player.Advance(60);
  EXPECT_EQ(player.LayerIndex(), 2U);  // the next layer begins with nothing laid
  EXPECT_EQ(player.LaidSoFar().strokes, 0U);
  EXPECT_FALSE(player.LaidSoFar().partly);
}

// The pieces that are handed out over many small steps are the strokes, nothing twice and nothing left out.
TEST(Player, HandsOutEachPieceOnce) {
  Player player = Loaded(ProgramOf({.passes = 4, .step = 90}));
  player.Run();
  Laid seen;
  double way = 0;
  for (int i = 0; i < 20000 && player.State() != RunState::Finished; ++i) {
    player.Advance(0.0137);
    player.PressButton();
    if (player.LayerShown() == nullptr) continue;
    ForEachPiece(*player.LayerShown(), seen, player.LaidSoFar(),
                 [&](const Stroke&, double z0, double z1) { way += std::abs(z1 - z0); });
    seen = player.LaidSoFar();
  }
  EXPECT_EQ(player.State(), RunState::Finished);
  EXPECT_NEAR(way, 8 * 24, 1e-9);
}

TEST(CoverCount, CountsWhatLiesUnderOneBandAndUnderTwo) {
  CoverCount cover;
  cover.Begin({4, 28, 2, 2}, 0.25);
  // At 45 degrees a band reaches 0.25 * sqrt 2 round a circumference of 4 pi.
  const double share = 0.25 * std::sqrt(2.0) / (4 * kTestPi);
  const double turn = 24 / (4 * kTestPi) * 360;
  Stroke out{1, 0, 4, 28, 0, turn, 6, kTestRpm, false, true, false};
  cover.Lay(out, 4, 28);
  EXPECT_NEAR(cover.Once(), share, 0.0005);
  EXPECT_EQ(cover.Twice(), 0);
  cover.Lay(out, 4, 16);  // half of it again
  EXPECT_NEAR(cover.Once(), share, 0.0005);
  EXPECT_NEAR(cover.Twice(), share / 2, 0.0005);
  cover.Begin({4, 28, 0, 0}, 0.25);
  EXPECT_FALSE(cover.Known());
}

TEST(Player, CoversALayerThatCloses) {
  Player player = Loaded(ProgramOf({}));
  player.Run();
  player.SetSpeed(Player::kToTheEnd);
  while (player.State() == RunState::Running) player.Advance(0.01);
  EXPECT_GT(player.Cover().Once(), 0.999);
  EXPECT_GT(player.Cover().Twice(), 0.99);  // both ways
}

TEST(Player, RunsWithoutEndUntilItIsStopped) {
  const std::string gun = "X V1 T2 Z0\nD0 ST=Heat Gun Curing\nM4 S10\nG1 F2 Z4\nG51 Z4 Z14\nM5\n";
  Player player = Loaded(gun);
  EXPECT_TRUE(player.course().endless);
  player.Run();
  player.Advance(2 + 3);
  EXPECT_TRUE(player.EndlessNow());
  EXPECT_DOUBLE_EQ(player.At().carriage, 10);
  player.Advance(4);
  EXPECT_DOUBLE_EQ(player.At().carriage, 10);  // on its way back
  EXPECT_EQ(player.LineNow(), 5);
  player.Advance(3600);
  EXPECT_EQ(player.State(), RunState::Running);
  player.Stop();
  EXPECT_EQ(player.State(), RunState::Stopped);
  player.Run();
  player.SetSpeed(Player::kToTheEnd);
  player.Advance(1);
  EXPECT_EQ(player.State(), RunState::Finished);
  // Nowhere to go: it comes to rest.
  Player still = Loaded("X V1 T2 Z0\nG51 Z4 Z4\n");
  still.Run();
  still.Advance(1000);
  EXPECT_EQ(still.State(), RunState::Finished);
}

TEST(Player, IsMovedByHand) {
  Player player;
  player.BeginManual({.homeZ = 1.5, .homeY = 0, .travel = 10, .carriageSpeed = 9, .fourAxes = false});
  EXPECT_EQ(player.State(), RunState::Manual);
  player.SetSpeed(1000);  // a jog keeps its own time
  player.Jog(Axis::Carriage, 3);
  player.Advance(1);
  EXPECT_DOUBLE_EQ(player.At().carriage, 2.5);
  player.Jog(Axis::Mandrel, -90);  // behind the first
  player.Advance(2);
  EXPECT_DOUBLE_EQ(player.At().carriage, 4.5);
  player.Advance(1);
  EXPECT_DOUBLE_EQ(player.At().mandrel, -60);
  player.Stop();
  player.Advance(10);
  EXPECT_DOUBLE_EQ(player.At().mandrel, -60);
  player.Jog(Axis::Carriage, 100);  // no further than the travel goes
  player.Jog(Axis::Head, 1);        // not on this machine
  player.Advance(60);
  EXPECT_DOUBLE_EQ(player.At().carriage, 11.5);
  EXPECT_DOUBLE_EQ(player.At().head, 0);
  player.Home();
  player.Advance(60);
  EXPECT_DOUBLE_EQ(player.At().carriage, 1.5);
  EXPECT_EQ(player.JogsLeft(), 0U);
}

TEST(Player, TakesAnyBytes) {
  for (const std::string& text :
       {std::string(), std::string("\0\xff[\n\r\n]", 7), std::string("G1 F0 Z4\nG4 L601"),
        std::string("D0 LA=9999999999 PA=\nG1 F1 Z5\nD0 LA=2\nM0")}) {
    Player player = Loaded(text);
    player.Run();
    for (int i = 0; i < 10; ++i) {
      player.Advance(10);
      player.PressButton();
    }
    EXPECT_EQ(player.State(), RunState::Finished) << text;
  }
}

TEST(Remarks, BeginWithTheWorst) {
  const auto subjects = [](const std::string& program) {
    std::vector<std::string> found;
    for (const Remark& remark : RemarksOf(Prove(program, Limits())))
      found.push_back(std::string(NameOf(remark.level)) + ' ' + remark.subject);
    return found;
  };
  EXPECT_EQ(subjects(ProgramOf({})),
            (std::vector<std::string>{"ok Layer 1", "ok Limits", "ok Axes", "ok Layer 1", "ok Filament"}));
  EXPECT_EQ(
      subjects(ProgramOf({.passes = 6, .step = 60, .farZ = 60})),
      (std::vector<std::string>{"fault Layer 1", "note Layer 1", "ok Axes", "ok Layer 1", "ok Filament"}));
}

}  // namespace
}  // namespace torvane::executor
