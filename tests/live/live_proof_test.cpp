#include "live/live_proof.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <cstdlib>
#include <random>
#include <thread>

#include "support/station_on_stage.h"
#include "workbench/document/design_commands.h"

namespace torvane {
namespace {

struct LiveProofTest : testing::Test {
  ProgramPlace Place() const {
    return {station.platform.files.ProgramFolder(), station.platform.clock.Now()};
  }
  executor::Limits Limits() const { return executor::ReadLimits(station.platform.store, '.'); }
  // What was proven once the last asking is answered.
  const LiveResult& Settled(LiveProof& live) {
    while (live.Proving()) std::this_thread::yield();
    result = live.Result();
    return *result;
  }

  StationOnStage onStage;
  Station& station = onStage.Started();
  DesignState& s = station.s;
  std::shared_ptr<const LiveResult> result;
};

TEST_F(LiveProofTest, ProvesWhatBuildWouldWriteAndTouchesNothing) {
  TypeTube(station, 3, "45");
  s.gFilePath = "C:\\Torvane\\TV_Design_Files\\tube.t2d";
  const std::string leftStop = s.gLeftStopText.text();
  const std::size_t stored = onStage.stage.store.All().size();
  LiveProof live(s.signs, [] {});
  live.Ask(s, Place(), Limits());
  const LiveResult& proven = Settled(live);
  EXPECT_TRUE(proven.formed);
  EXPECT_EQ(proven.proof.layers.size(), 3U);
  EXPECT_EQ(s.gLeftStopText.text(), leftStop);
  EXPECT_EQ(s.gGCodeFileName.text(), "");
  EXPECT_EQ(onStage.stage.store.All().size(), stored);
  EXPECT_TRUE(onStage.stage.messageBox.shown.empty());
  ASSERT_EQ(WriteProgram(station), Written::Whole);
  const std::string written = onStage.stage.files.ReadWhole(s.gGCodeFilePath.text()).value();
  const executor::Proof offline = executor::Prove(written, Limits());
  EXPECT_EQ(offline.statements, proven.proof.statements);
  EXPECT_EQ(offline.seconds, proven.proof.seconds);
  EXPECT_EQ(offline.findings.all().size(), proven.proof.findings.all().size());
}

TEST_F(LiveProofTest, FollowsEachEditAndNothingElse) {
  LiveProof live(s.signs, [] {});
  live.Ask(s, Place(), Limits());
  EXPECT_FALSE(Settled(live).formed) << "no layers";
  TypeTube(station, 1, "45");
  live.Ask(s, Place(), Limits());
  const double seconds = Settled(live).proof.windingSeconds;
  EXPECT_GT(seconds, 0);
  const std::uint64_t asking = result->asking;
  live.Ask(s, Place(), Limits());
  EXPECT_EQ(Settled(live).asking, asking) << "nothing has changed";
  station.Type(s.txtWA(1), "60");
  live.Ask(s, Place(), Limits());
  EXPECT_NE(Settled(live).proof.windingSeconds, seconds);
  executor::Limits slower = Limits();
  slower.carriageSpeed = 1;
  live.Ask(s, Place(), slower);
  EXPECT_GT(Settled(live).proof.findings.Count(executor::Level::Fault), 0);
}

TEST_F(LiveProofTest, ALongProofIsLeftForTheNextState) {
  TypeTube(station, 15, "45");
  s.gGridSync = false;
  for (int layer = 1; layer <= 15; ++layer) s.lblPassesToCover(layer) = "60000";
  std::atomic<int> done = 0;
  {
    LiveProof live(s.signs, [&done] { ++done; });
    live.Ask(s, Place(), Limits());
    std::this_thread::sleep_for(std::chrono::milliseconds(30));
    for (int layer = 1; layer <= 15; ++layer) s.lblPassesToCover(layer) = "2";
    live.Ask(s, Place(), Limits());
    EXPECT_EQ(Settled(live).proof.layers.size(), 15U);
    EXPECT_EQ(result->proof.layers[0].passesRun, 2);
    EXPECT_EQ(done, 1) << "nothing is told of what was left";
    s.lblPassesToCover(1) = "9000000";
    live.Ask(s, Place(), Limits());
  }
  EXPECT_EQ(done, 1) << "its end waits for no proof";
}

// Also under the thread sanitizer, with TORVANE_EDITS=10000.
TEST_F(LiveProofTest, KeepsUpWithAnyTyping) {
  TypeTube(station, 4, "45");
  const char* asked = std::getenv("TORVANE_EDITS");
  const int edits = asked == nullptr ? 300 : std::atoi(asked);
  std::mt19937 dice(5);
  const auto of = [&dice](int count) { return static_cast<int>(dice() % static_cast<unsigned>(count)); };
  std::atomic<int> done = 0;
  LiveProof live(s.signs, [&done] { ++done; });
  for (int edit = 0; edit < edits; ++edit) {
    const int row = 1 + of(4);
    switch (of(6)) {
      case 0:
        station.Type(s.txtDiameterLeft, std::to_string(2 + of(5)));
        break;
      case 1:
        station.Type(s.txtNumberOfLayers(0), std::to_string(of(9)));
        break;
      case 2:
        station.Choose(s.cmbSpeed(row), of(2) == 0 ? "slow" : "fast");
        break;
      case 3:
        station.Undo();
        break;
      default:
        station.Type(s.txtWA(row), of(5) == 0 ? "" : std::to_string(25 + of(60)));
    }
    live.Ask(s, Place(), Limits(), of(3) == 0 ? MapFor::Picture : MapFor::Nobody);
    if (of(20) == 0) Settled(live);
  }
  station.Type(s.txtNumberOfLayers(0), "3");
  live.Ask(s, Place(), Limits());
  const LiveResult& last = Settled(live);
  DesignState copy(s.signs);
  copy.TakeFrom(s);
  const LiveResult offline = ProveDesign(copy, Place(), Limits());
  EXPECT_EQ(last.proof.statements, offline.proof.statements);
  EXPECT_EQ(last.proof.windingSeconds, offline.proof.windingSeconds);
  EXPECT_EQ(last.remarks.size(), offline.remarks.size());
  EXPECT_GT(done, 0);
}

TEST_F(LiveProofTest, SaysWhyThereIsNoProgram) {
  TypeTube(station, 1, "45");
  s.gGridSync = false;
  s.lblPassesToCover(1) = "123456789012";
  LiveProof live(s.signs, [] {});
  live.Ask(s, Place(), Limits());
  EXPECT_FALSE(Settled(live).formed);
  EXPECT_NE(result->refusal.find("passes"), std::string::npos) << result->refusal;
}

}  // namespace
}  // namespace torvane
