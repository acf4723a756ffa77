// A save and a build on the computer's own disk: run with the library slow_sync in LD_PRELOAD, on one that
// syncs in 5 ms.
#include <benchmark/benchmark.h>

#include "handoff/launch.h"
#include "host/files/host_files.h"
#include "host/store/ini_store.h"
#include "host/temporary_folder.h"
#include "stage/stage.h"
#include "workbench/document/design_commands.h"
#include "workbench/document/startup.h"

namespace torvane {
namespace {

class DiskStation {
 public:
  DiskStation()
      : platform_{store_,
                  stage_.clock,
                  stage_.locale,
                  files_,
                  stage_.messageDialog,
                  stage_.messageBox,
                  stage_.fileDialog,
                  stage_.launcher},
        station(platform_) {
    MakeStationFolders(files_, [](const std::string&, const std::string&) {});
    store_.Write("Settings", "gHasUserCheckedCarriageZOffset", "1");
    Form_Load(station);
    stage_.clock.Advance(std::chrono::seconds(6));
    files_.WriteWhole(Path("sample.t2d"), {ReadRegularFile(DISK_BENCH_SAMPLE).value()});
    OpenDesign(station, Path("sample.t2d"));
  }
  std::string Path(const std::string& name) const {
    return files_.ProgramFolder() + "\\TV_Design_Files\\" + name;
  }
  std::size_t Programs() const { return stage_.launcher.starts.size(); }

 private:
  TemporaryFolder folder_;
  Stage stage_;
  HostFiles files_ = HostFiles::At(folder_.path.string()).value();
  IniStore store_{(folder_.path / "torvane.ini").string()};
  Platform platform_;

 public:
  WholeStation station;
};

void SaveAgain(benchmark::State& state) {
  DiskStation disk;
  for (auto _ : state)
    if (!SaveDesign(disk.station, disk.Path("sample.t2d"))) return state.SkipWithError("not saved");
}
BENCHMARK(SaveAgain)->Unit(benchmark::kMillisecond)->UseRealTime();

void SaveUnderANewName(benchmark::State& state) {
  DiskStation disk;
  int saves = 0;
  for (auto _ : state)
    if (!SaveDesign(disk.station, disk.Path("s" + std::to_string(++saves) + ".t2d")))
      return state.SkipWithError("not saved");
}
BENCHMARK(SaveUnderANewName)->Unit(benchmark::kMillisecond)->UseRealTime();

void BuildOfASavedSample(benchmark::State& state) {
  DiskStation disk;
  for (auto _ : state) disk.station.Run("imgBUILD", Event::Click);
  if (disk.Programs() != static_cast<std::size_t>(state.iterations())) state.SkipWithError("not built");
}
BENCHMARK(BuildOfASavedSample)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
}  // namespace torvane
