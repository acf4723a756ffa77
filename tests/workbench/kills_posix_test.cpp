// A station that is killed in the middle of a save, a build or a recovery copy, at any moment.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <map>
#include <random>
#include <set>
#include <thread>

#include "handoff/launch.h"
#include "host/files/host_files.h"
#include "host/temporary_folder.h"
#include "stage/stage.h"
#include "support/station_on_stage.h"
#include "workbench/document/design_commands.h"
#include "workbench/document/startup.h"
#include "workbench/station/recovery.h"

namespace torvane {
namespace {

// A long test sets the variable.
int Kills() {
  const char* const asked = std::getenv("TORVANE_TEST_KILLS");
  return asked != nullptr ? std::atoi(asked) : 100;
}

TEST(Kills, LeaveEveryFileWholeAsItWasBeforeOrAfter) {
  const TemporaryFolder folder;
  Stage stage;
  HostFiles files = HostFiles::At(folder.path.string()).value();
  MakeStationFolders(files, [](const std::string&, const std::string& reason) { FAIL() << reason; });
  const Platform computer{stage.store,         stage.clock,      stage.locale,     files,
                          stage.messageDialog, stage.messageBox, stage.fileDialog, stage.launcher};
  WholeStation station(computer);
  Form_Load(station);
  stage.clock.Advance(std::chrono::seconds(6));
  station.Run("mnuNewFile", Event::Click);
  TypeTube(station, 4, "45");
  station.recovery.offered = true;
  const std::string design = files.ProgramFolder() + "\\TV_Design_Files\\a.t2d";

  // Both states of the design come one behind the other, each saved, built and copied.
  const auto save = [&](bool second) {
    station.Type(station.s.txtWA(1), second ? "30" : "45");
    station.s.Comments = second ? std::string(9000, 'c') : "short";
    station.s.gDirty = true;
    return WriteRecovery(station) && SaveDesign(station, design);
  };
  using State = std::map<std::filesystem::path, std::string>;
  const auto found = [&] {
    State state;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder.path))
      if (entry.is_regular_file() && entry.path().extension() != ".LCK")
        state[entry.path().lexically_relative(folder.path)] = Bytes(entry.path());
    return state;
  };
  // The first save gives the design its name, which its file holds from the second one on.
  ASSERT_TRUE(save(true) && save(false) && save(true));
  std::map<std::filesystem::path, std::set<std::string>> known;
  const auto start = std::chrono::steady_clock::now();
  for (const bool second : {false, true, false, true}) {
    ASSERT_TRUE(save(second));
    for (const auto& [path, text] : found()) known[path].insert(text);
  }
  const auto round = (std::chrono::steady_clock::now() - start) / 2;
  ASSERT_EQ(known.size(), 4U) << "design, its copy, program, recovery copy";
  for (const auto& [path, texts] : known) ASSERT_EQ(texts.size(), 2U) << path;

  std::mt19937 random(1);
  int leftovers = 0;
  for (int kill = 0; kill < Kills(); ++kill) {
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
      alarm(60);
      station.onDisk = {};  // the one before it may have saved the other state
      for (bool second = false;; second = !second)
        if (!save(second)) _exit(1);
    }
    std::this_thread::sleep_for(std::uniform_real_distribution(0.0, 1.0)(random) * round);
    ::kill(child, SIGKILL);
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFSIGNALED(status)) << "a save was refused";
    leftovers += found().size() > known.size() ? 1 : 0;

    // The next start.
    HostFiles next = HostFiles::At(folder.path.string()).value();
    MakeStationFolders(next, [](const std::string&, const std::string& reason) { FAIL() << reason; });
    const State state = found();
    ASSERT_EQ(state.size(), known.size());
    for (const auto& [path, text] : state)
      ASSERT_EQ(known[path].count(text), 1U) << path << " of " << text.size() << " bytes after kill " << kill;
  }
  RecordProperty("leftovers", leftovers);
  EXPECT_GT(leftovers, 0) << "no kill came in the middle of a write";
}

}  // namespace
}  // namespace torvane
