// Changes that set off changes come to rest, on a small stack and in few steps.
#include <gtest/gtest.h>
#include <pthread.h>

#include "host/store/ini_store.h"
#include "host/temporary_folder.h"
#include "support/station_on_stage.h"
#include "workbench/document/design_commands.h"
#include "workbench/document/startup.h"

namespace torvane {
namespace {

void* ChangeEveryFigure(void* cutEchoes) {
  StationOnStage onStage;
  Station& station = onStage.Started();
  TypeTube(station, 15, "45");
  for (const char* diameter : {"5", "0.3", "100", "x", "4"})
    station.Type(station.s.txtDiameterLeft, diameter);
  for (int row = 1; row <= 15; ++row) station.Type(station.s.txtWA(row), "60");
  station.Run("optX", Event::Click, 1);
  station.Run("optType", Event::Click, 2);
  station.s.txtNumberOfLayers(1) = "15";
  for (int row = 1; row <= 15; ++row) station.Type(station.s.cmbPattern(row), "45");
  station.Type(station.s.txtDia(0), "5");
  *static_cast<int*>(cutEchoes) = station.cutEchoes;
  return nullptr;
}

TEST(Echo, ComesToRestOnASmallStack) {
#if defined(__SANITIZE_ADDRESS__)
  constexpr std::size_t kStack = 4 << 20;  // the sanitizers' frames are larger
#else
  constexpr std::size_t kStack = 512 << 10;
#endif
  pthread_attr_t attributes;
  pthread_attr_init(&attributes);
  ASSERT_EQ(pthread_attr_setstacksize(&attributes, kStack), 0);
  pthread_t thread;
  int cutEchoes = -1;
  ASSERT_EQ(pthread_create(&thread, &attributes, ChangeEveryFigure, &cutEchoes), 0);
  pthread_join(thread, nullptr);
  EXPECT_EQ(cutEchoes, 0) << "the echoes end by themselves";
  pthread_attr_destroy(&attributes);
}

// After any keystroke a second calculation finds nothing to change.
TEST(Echo, LeavesTheScheduleAtRest) {
  StationOnStage onStage;
  Station& station = onStage.Started();
  TypeTube(station, 15, "45");
  for (const char* text : {"30", "89.99", "90", "-20", "1e5", "", "steep"}) {
    station.Type(station.s.txtWA(7), text);
    const Snapshot before = station.s.TakeSnapshot();
    station.Run("btnReCalc", Event::Click);
    EXPECT_EQ(station.s.TakeSnapshot().texts, before.texts) << text;
  }
}

TEST(Restart, BringsTheSameStationBack) {
  const TemporaryFolder folder;
  const std::string path = (folder.path / "torvane.ini").string();
  Stage stage;
  stage.files.MakeFolder("C:\\Torvane\\TV_Design_Files");
  stage.files.MakeFolder("C:\\Torvane\\TV_G-Code_Files");
  const auto start = [&](IniStore& store) {
    const Platform platform{store,
                            stage.clock,
                            stage.locale,
                            stage.files,
                            stage.messageDialog,
                            stage.messageBox,
                            stage.fileDialog,
                            stage.launcher};
    auto station = std::make_unique<WholeStation>(platform);
    Form_Load(*station);
    stage.clock.Advance(std::chrono::seconds(6));
    return station;
  };
  IniStore firstStore(path);
  auto first = start(firstStore);
  TypeTube(*first, 2, "45");
  first->s.txtAddPasses = "2";
  first->s.iMaxCarriageSpeeds[2] = 7.5;
  first->Choose(first->s.chkPreWrap1, "1");
  first->Type(first->s.txtHGSpeed, "2.5");
  ASSERT_TRUE(SaveDesign(*first, "C:\\Torvane\\TV_Design_Files\\tube.t2d"));
  Form_Unload(*first);

  IniStore secondStore(path);
  auto second = start(secondStore);
  EXPECT_EQ(second->s.txtWA(2).text(), "45.0");
  EXPECT_EQ(second->s.txtAddPasses.text(), "2");
  EXPECT_EQ(second->s.iMaxCarriageSpeeds[2], 7.5);
  EXPECT_TRUE(second->s.chkPreWrap1.checked());
  EXPECT_EQ(second->s.txtHGSpeed.text(), "2.5");
  EXPECT_EQ(second->s.gLastFileInUse.text(), "C:\\Torvane\\TV_Design_Files\\tube.t2d");
}

}  // namespace
}  // namespace torvane
