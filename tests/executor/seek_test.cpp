// The run taken to a moment, and its steps. Figures by hand.
#include <gtest/gtest.h>

#include <memory>

#include "programs.h"
#include "seeking.h"

namespace torvane::executor {
namespace {

// 10 in at 2 in/s while the mandrel turns at 10 RPM: 5 s, 300 degrees a traverse.
const std::string kTwoLayers =
    "C C0\r\nG20\r\nG90\r\nX V420.000 T2 Z1.875\r\nM17\r\n"
    "G1 F1 Z3.875\r\n"  // line 6: 2 s
    "D0 ST=Winding Schedule\r\n"
    "M0 [Wait for Button Press]\r\n"  // line 8
    "[a comment]\r\n"
    "D0 LA=1_of_2 PA=1_of_2 RPM=10 CS=2 WA=45 WM=ms TI=0.5 LD=4 FW=0.25 HL=2\r\n"
    "M4 S10\r\n"
    "G1 F2 Z13.875\r\n"  // line 12: 2 s to 7 s
    "G1 Z3.875\r\n"      // to 12 s
    "D0 LA=1_of_2 PA=2_of_2 RPM=10 CS=2 WA=45 WM=ms LD=4 FW=0.25 HL=2\r\n"
    "G1 Z13.875\r\n"                                                        // line 15
    "G1 Z3.875\r\n"                                                         // to 22 s
    "D0 LA=2_of_2 PA=1_of_1 RPM=10 CS=2 WA=45 WM=ms LD=4 FW=0.25 HL=2\r\n"  // line 17
    "M0 [Turn the part]\r\n"
    "G1 Z13.875\r\n"
    "G1 Z3.875\r\n"  // line 20, to 32 s
    "D0 ST=Heat Shrink Tape\r\n"
    "G1 F5 Z13.875\r\n"  // line 22, to 34 s
    "M5\r\n"
    "M0 [Take the part off]\r\n";  // line 24

Player Loaded(const std::string& text) {
  Player player;
  player.Load(std::make_shared<const Program>(text));
  return player;
}

TEST(Seek, IsWhatPlayingComesTo) {
  ExpectSeeksLikePlaying(kTwoLayers);
  ExpectSeeksLikePlaying(ProgramOf({.passes = 12, .step = 30}));
  ExpectSeeksLikePlaying("X V1 T2 Z0\nD0 ST=Heat Gun Curing\nM4 S10\nG1 F2 Z4\nG51 Z4 Z14\nM5\n");
  ExpectSeeksLikePlaying("\n\nG1 F1 Z5\nnonsense\n\n[]\nG1 Z6\nX99\nG1 Z9\n");
}

// Check points are given up and covers kept on the way; the layer is covered little by little.
TEST(Seek, IsWhatPlayingComesToInALongProgram) {
  const std::string text = ProgramOf({.passes = 24'000, .step = 0.01});
  const Program program(text);
  const Course course = FollowCourse(program);
  EXPECT_LE(course.points.Count(), CheckPoints::kMost);
  EXPECT_GT(course.points.Count(), CheckPoints::kMost / 4);
  const std::vector<CoverPoint> covers = CountCovers(course);
  EXPECT_LE(covers.size(), kMostCovers);
  EXPECT_GT(covers.size(), 40U);
  ExpectSeeksLikePlaying(text, 25);
}

// At the lines round the check points, and in the midst of the strokes round which a cover is kept.
TEST(Seek, IsExactWhereItIsTakenUp) {
  const std::string text = ProgramOf({.passes = 600, .step = 0.1});
  Player player = Loaded(text);
  const std::vector<CoverPoint> covers = CountCovers(player.course());
  ASSERT_EQ(covers.size(), 1U);
  for (int line = 127; line < player.program()->Lines() - 5; line += line % 128 == 1 ? 126 : 1) {
    player.SeekLine(line);
    ASSERT_EQ(player.LineNow(), line);
    ASSERT_EQ(player.Moving(), player.program()->Line(line)[0] == 'G') << line;
  }
  Player played = Loaded(text);
  const auto& strokes = player.course().wound[0].strokes;
  for (std::size_t i = covers[0].strokes - 2; i < covers[0].strokes + 2; ++i) {
    player.SeekLine(strokes[i].line);
    player.SeekTime(player.Elapsed() + 1.7);
    PlayUpTo(played, player.Elapsed());
    ASSERT_EQ(AllShown(player), AllShown(played));
  }
}

TEST(Seek, StaysPausedOrRunsOn) {
  Player player = Loaded(kTwoLayers);
  player.SeekTime(9);
  EXPECT_EQ(player.State(), RunState::Paused);
  EXPECT_EQ(player.LineNow(), 13);
  EXPECT_DOUBLE_EQ(player.At().carriage, 9.875);
  player.Run();
  player.SeekTime(4);
  EXPECT_EQ(player.State(), RunState::Running);
  player.Advance(0.5);
  EXPECT_DOUBLE_EQ(player.Elapsed(), 4.5);
  player.Stop();
  player.SeekTime(15);
  EXPECT_EQ(player.State(), RunState::Paused);
  player.SeekTime(0);
  EXPECT_EQ(player.State(), RunState::Ready);
  EXPECT_EQ(player.LineNow(), 0);
  EXPECT_EQ(player.LayerShown(), nullptr);
  player.SeekTime(std::nan(""));
  EXPECT_EQ(player.State(), RunState::Ready);
  Player().SeekTime(4);
  Player byHand;
  byHand.BeginManual({.homeZ = 1.5});
  byHand.SeekTime(4);
  byHand.Step(Stride::Line, true);
  EXPECT_EQ(byHand.State(), RunState::Manual);
}

TEST(Seek, StandsAtTheWaitAsLongAsNoTimeHasGoneByBehindIt) {
  Player player = Loaded(kTwoLayers);
  for (const int line : {8, 9, 10, 11, 12}) {
    player.SeekLine(line);
    EXPECT_EQ(player.State(), RunState::Waiting) << line;
    EXPECT_EQ(player.LineNow(), 8) << line;
    ASSERT_NE(player.NextWait(), nullptr);
    EXPECT_EQ(player.NextWait()->line, 8);
  }
  player.SeekLine(13);
  EXPECT_EQ(player.State(), RunState::Paused);
  EXPECT_EQ(player.LineNow(), 13);
  player.SeekTime(22);  // of line 18, with the layer that it stands in
  EXPECT_EQ(player.State(), RunState::Waiting);
  EXPECT_EQ(player.LineNow(), 18);
  EXPECT_EQ(player.screen().layer, 2);
  player.PressButton();
  player.Advance(2.5);
  EXPECT_DOUBLE_EQ(player.At().carriage, 8.875);
  // Sought while it ran, and away from there: it runs on. Played up to there it stands.
  player.SeekTime(2);
  EXPECT_EQ(player.State(), RunState::Waiting);
  player.SeekTime(5);
  EXPECT_EQ(player.State(), RunState::Running);
  player.Advance(60);
  EXPECT_EQ(player.LineNow(), 18);
  player.SeekTime(5);
  EXPECT_EQ(player.State(), RunState::Paused);
  for (int again = 0; again < 2; ++again) {
    player.SeekEnd();
    EXPECT_EQ(player.State(), RunState::Waiting);
    EXPECT_EQ(player.LineNow(), 24);
    player.SeekTime(1e9);
  }
  player.PressButton();
  player.Advance(1);
  EXPECT_EQ(player.State(), RunState::Finished);
}

TEST(Seek, EndsWhereTheRunEnds) {
  Player player = Loaded("X V1 T2 Z0\nG1 F1 Z5\nX99\nG1 Z9\n");
  player.Run();
  player.SeekLine(4);  // never run
  EXPECT_EQ(player.State(), RunState::Finished);
  EXPECT_EQ(player.LineNow(), 3);
  EXPECT_DOUBLE_EQ(player.At().carriage, 5);
  player.Step(Stride::Line, true);
  EXPECT_EQ(player.LineNow(), 3);
  player.Step(Stride::Line, false);
  EXPECT_EQ(player.LineNow(), 2);
  Player gun = Loaded("X V1 T2 Z0\nM4 S10\nG1 F2 Z4\nG51 Z4 Z14\nM5\n");
  gun.Run();
  gun.SeekEnd();
  EXPECT_TRUE(gun.EndlessNow());
  EXPECT_EQ(gun.State(), RunState::Running);
  gun.Advance(3);
  EXPECT_DOUBLE_EQ(gun.At().carriage, 10);
  gun.Step(Stride::Line, false);
  EXPECT_FALSE(gun.EndlessNow());
  EXPECT_EQ(gun.LineNow(), 3);
}

// On and back again: the same lines in the other order, and at each the same is shown.
TEST(Seek, StepsByLines) {
  Player player = Loaded(kTwoLayers);
  std::vector<int> lines;
  std::vector<Shown> shown;
  for (int i = 0; i < 23; ++i) {
    player.Step(Stride::Line, true);
    lines.push_back(player.LineNow());
    shown.push_back(AllShown(player));
  }
  EXPECT_EQ(lines, (std::vector<int>{1,  2,  3,  4,  5,  6,  7,  8,  10, 11, 12, 13,
                                     14, 15, 16, 17, 18, 19, 20, 21, 22, 23, 24}));
  EXPECT_EQ(player.State(), RunState::Waiting);
  player.Step(Stride::Line, true);
  EXPECT_EQ(player.State(), RunState::Finished);
  for (std::size_t i = lines.size() - 1; i-- > 0;) {
    player.Step(Stride::Line, false);
    ASSERT_EQ(player.LineNow(), lines[i]);
    EXPECT_EQ(AllShown(player), shown[i]);
  }
  player.Step(Stride::Line, false);
  EXPECT_EQ(player.LineNow(), 0);
  player.Step(Stride::Line, false);
  EXPECT_EQ(player.State(), RunState::Ready);
  // Within a line, back is its beginning first.
  player.SeekTime(9);
  player.Step(Stride::Line, false);
  EXPECT_EQ(player.LineNow(), 13);
  EXPECT_DOUBLE_EQ(player.Elapsed(), 7);
}

TEST(Seek, StepsByPassesAndLayers) {
  Player player = Loaded(kTwoLayers);
  const auto places = [&player](Stride stride, bool on) {
    std::vector<int> lines;
    for (int last = -1; last != player.LineNow(); player.Step(stride, on)) {
      last = player.LineNow();
      lines.push_back(last);
    }
    return lines;
  };
  const std::vector<int> passes = {0, 8, 14, 17, 21, 24}, layers = {0, 8, 17, 21, 24};
  EXPECT_EQ(places(Stride::Pass, true), passes);
  EXPECT_EQ(places(Stride::Pass, false), std::vector<int>(passes.rbegin(), passes.rend()));
  EXPECT_EQ(places(Stride::Layer, true), layers);
  EXPECT_EQ(places(Stride::Layer, false), std::vector<int>(layers.rbegin(), layers.rend()));
  player.SeekTime(20);
  player.Step(Stride::Pass, false);
  EXPECT_EQ(player.LineNow(), 14);
  player.SeekTime(20);
  player.Step(Stride::Layer, false);
  EXPECT_EQ(player.LineNow(), 8);
}

}  // namespace
}  // namespace torvane::executor
