// A computer that does not do what it should, with real files, disks, stores and programs: the operator hears
// of it and loses nothing.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <memory>

#include "handoff/launch.h"
#include "host/files/host_files.h"
#include "host/somebody.h"
#include "host/store/ini_store.h"
#include "host/system/host_launcher.h"
#include "host/temporary_folder.h"
#include "persist/design_file.h"
#include "stage/stage.h"
#include "support/station_on_stage.h"
#include "workbench/document/design_commands.h"
#include "workbench/document/startup.h"

namespace torvane {
namespace {

class Hindrance : public testing::Test {
 protected:
  Hindrance() {
    std::filesystem::permissions(folder.path, std::filesystem::perms(0755));
    for (const char* sub : {"TV_Design_Files", "TV_G-Code_Files"})
      std::filesystem::create_directory(folder.path / sub);
  }

  Station& Started() {
    const Platform computer{*store,           stage.clock,      stage.locale, files, stage.messageDialog,
                            stage.messageBox, stage.fileDialog, launcher};
    station_ = std::make_unique<WholeStation>(computer);
    Form_Load(*station_);
    stage.clock.Advance(std::chrono::seconds(6));
    station_->Run("mnuNewFile", Event::Click);
    TypeTube(*station_, 2, "45");
    return *station_;
  }
  Station& Running() { return *station_; }
  std::string Path(const std::string& name) const {
    return files.ProgramFolder() + "\\TV_Design_Files\\" + name;
  }
  std::string DesignBytes(const std::string& name) const {
    return Bytes(folder.path / "TV_Design_Files" / name);
  }
  // What the boxes have said since the last time.
  std::vector<std::string> Heard() {
    std::vector<std::string> texts;
    for (const auto& box : stage.messageBox.shown) texts.push_back(box.text);
    stage.messageBox.shown.clear();
    return texts;
  }
  static bool Holds(const std::string& text, std::string_view part) {
    return text.find(part) != std::string::npos;
  }

  TemporaryFolder folder;
  Stage stage;
  HostFiles files = HostFiles::At(folder.path.string()).value();
  HostLauncher launcher;
  std::unique_ptr<SettingsStore> store = std::make_unique<IniStore>((folder.path / "torvane.ini").string());

 private:
  std::unique_ptr<WholeStation> station_;
};

TEST_F(Hindrance, AFullDisk) {
  TemporaryFolder disk;
  if (mount("tmpfs", disk.path.c_str(), "tmpfs", 0, "size=128k") != 0)
    GTEST_SKIP() << "no small disk to be had";
  const std::shared_ptr<void> mounted(nullptr, [&](void*) { umount(disk.path.c_str()); });
  for (const char* sub : {"TV_Design_Files", "TV_G-Code_Files"})
    std::filesystem::create_directory(disk.path / sub);
  files = HostFiles::At(disk.path.string()).value();
  store = std::make_unique<IniStore>((disk.path / "torvane.ini").string());
  Station& station = Started();
  const std::string design = Path("a.t2d");
  ASSERT_TRUE(SaveDesign(station, design));
  const std::string formerDesign = Bytes(disk.path / "TV_Design_Files" / "a.t2d");
  const std::string formerProgram = Bytes(disk.path / "TV_G-Code_Files" / "a.T2G");
  ASSERT_FALSE(formerProgram.empty());
  ASSERT_TRUE(Heard().empty());

  const auto filler = [](int i) { return "filler" + std::to_string(i); };
  int fillers = 0;
  const auto fill = [&] {
    while (files.WriteWhole(files.ProgramFolder() + "\\" + filler(fillers), {std::string(4096, 'x')}))
      ++fillers;
  };
  fill();

  station.Type(station.s.txtWA(1), "30");
  station.s.Comments = std::string(20'000, 'c');
  EXPECT_FALSE(SaveDesign(station, design));
  std::vector<std::string> heard = Heard();
  ASSERT_EQ(heard.size(), 1U);
  EXPECT_TRUE(Holds(heard[0], "The design file was not written") && Holds(heard[0], "No space left"))
      << heard[0];
  EXPECT_EQ(Bytes(disk.path / "TV_Design_Files" / "a.t2d"), formerDesign);
  EXPECT_TRUE(station.s.gDirty);
  EXPECT_EQ(station.s.txtWA(1).text(), "30");

  // The design finds room beside the former one, which takes no more of it as a copy; the longer program
  // does not.
  station.s.Comments = "";
  station.Type(station.s.txtBandWidth(0), "0.01");
  do {
    std::filesystem::remove(disk.path / filler(--fillers));
    Heard();
  } while (fillers > 0 && !SaveDesign(station, design));
  heard = Heard();
  ASSERT_EQ(heard.size(), 1U);
  EXPECT_TRUE(Holds(heard[0], "The G-code file was not written") && Holds(heard[0], "No space left"))
      << heard[0];
  EXPECT_EQ(Bytes(disk.path / "TV_Design_Files" / "a.t2d~"), formerDesign);
  EXPECT_EQ(Bytes(disk.path / "TV_G-Code_Files" / "a.T2G"), formerProgram);

  fill();
  // The store: told once, whatever else is chosen, and written when there is room again.
  station.Choose(station.s.chkNotify1, "1");
  ASSERT_EQ(Heard().size(), 1U);
  station.Choose(station.s.chkHeatGunApp, "0");
  EXPECT_TRUE(Heard().empty());
  while (fillers > 0) std::filesystem::remove(disk.path / filler(--fillers));
  station.Choose(station.s.chkNotify2, "1");
  EXPECT_EQ(store->Read("Settings", "chkNotify1"), "1");
  EXPECT_EQ(store->Read("Settings", "chkHeatGunApp"), "0");
  EXPECT_EQ(store->Read("Settings", "chkNotify2"), "1");
}

// The copy of a design's former state gives way to the design itself. Another user's design can only be kept
// as a copy that takes room.
TEST_F(Hindrance, ADiskWithNoRoomForACopy) {
  const TemporaryFolder disk;
  if (mount("tmpfs", disk.path.c_str(), "tmpfs", 0, "size=64k") != 0)
    GTEST_SKIP() << "no small disk to be had";
  const std::shared_ptr<void> mounted(nullptr, [&](void*) { umount(disk.path.c_str()); });
  HostFiles real = HostFiles::At(disk.path.string()).value();
  ASSERT_TRUE(ReplaceDesign(real, "a.t2d", std::string(24'000, 'f')));
  ASSERT_EQ(chown((disk.path / "a.t2d").c_str(), 4321, 4321), 0);
  const Result<SavedDesign> saved = ReplaceDesign(real, "a.t2d", std::string(30'000, 'n'));
  ASSERT_TRUE(saved) << "without the copy there is room";
  EXPECT_NE(saved.value().copyRefusal, "");
  EXPECT_EQ(real.ReadWhole("a.t2d").value(), std::string(30'000, 'n'));
  EXPECT_FALSE(real.Exists("a.t2d~"));
  EXPECT_FALSE(ReplaceDesign(real, "a.t2d", std::string(90'000, 'x')));
  EXPECT_EQ(real.ReadWhole("a.t2d").value(), std::string(30'000, 'n'));
  ASSERT_TRUE(ReplaceDesign(real, "a.t2d", "short"));
  EXPECT_EQ(real.ReadWhole("a.t2d").value(), "short");
}

TEST_F(Hindrance, AFolderThatMayOnlyBeRead) {
  Station& station = Started();
  ASSERT_TRUE(SaveDesign(station, Path("a.t2d")));
  const std::string former = DesignBytes("a.t2d");
  for (const char* sub : {"TV_Design_Files", "TV_G-Code_Files", ""}) chmod((folder.path / sub).c_str(), 0555);
  for (const char* file : {"TV_Design_Files/a.t2d", "TV_G-Code_Files/a.T2G", "torvane.ini"})
    chmod((folder.path / file).c_str(), 0444);
  station.Type(station.s.txtWA(2), "60");
  Heard();
  {
    const Somebody somebody;
    EXPECT_FALSE(SaveDesign(station, Path("a.t2d")));
    EXPECT_FALSE(SaveDesign(station, Path("new.t2d")));
    std::vector<std::string> heard = Heard();
    ASSERT_EQ(heard.size(), 2U);
    EXPECT_TRUE(Holds(heard[0], "a.t2d") && Holds(heard[0], "Permission denied")) << heard[0];
    EXPECT_TRUE(Holds(heard[1], "new.t2d") && Holds(heard[1], "Permission denied")) << heard[1];
    EXPECT_TRUE(station.s.gDirty);
    EXPECT_EQ(station.s.gFilePath.text(), Path("a.t2d"));

    // The choices hold all the same, and a start would not read them: told once, not at every key.
    for (const char* speed : {"2", "2.5", "3"}) station.Type(station.s.txtHGSpeed, speed);
    heard = Heard();
    ASSERT_EQ(heard.size(), 1U);
    EXPECT_TRUE(Holds(heard[0], "torvane.ini") && Holds(heard[0], "Permission denied")) << heard[0];
    EXPECT_EQ(station.platform.store.Read("Settings", "txtHGSpeed"), "3");
    station.Run("mnuQuit", Event::Click);
    EXPECT_TRUE(station.ended);
    EXPECT_TRUE(Heard().empty());
  }
  EXPECT_EQ(DesignBytes("a.t2d"), former);
  EXPECT_FALSE(std::filesystem::exists(folder.path / "TV_Design_Files" / "new.t2d"));
  chmod(folder.path.c_str(), 0755);
  for (const char* sub : {"TV_Design_Files", "TV_G-Code_Files"}) chmod((folder.path / sub).c_str(), 0755);
}

// The design that was open is asked about first and saved; what cannot be found leaves a blank one, and the
// station goes on.
TEST_F(Hindrance, AFileThatVanishesBetweenDialogAndOpen) {
  Station& station = Started();
  ASSERT_TRUE(SaveDesign(station, Path("b.t2d")));
  station.Type(station.s.txtWA(2), "60");
  stage.messageDialog.answers = {{true, false}};
  stage.fileDialog.answers = {Path("kept.t2d"), Path("b.t2d")};
  stage.fileDialog.observer = [this](const StagedFileDialog::Request& request) {
    if (!request.save) std::filesystem::remove(folder.path / "TV_Design_Files" / "b.t2d");
  };
  station.Run("btnOPen", Event::Click);
  EXPECT_TRUE(Holds(DesignBytes("kept.t2d"), "<Winding_Angles>45;60</w>")) << DesignBytes("kept.t2d");
  EXPECT_EQ(station.s.txtNumberOfLayers(0).text(), "0");
  EXPECT_FALSE(station.s.gDirty);

  stage.fileDialog.answers = {Path("kept.t2d")};
  station.Run("btnOPen", Event::Click);
  EXPECT_EQ(station.s.txtWA(2).text(), "60.0");
}

TEST_F(Hindrance, AStoreThatAnotherProgramKeepsLocked) {
  store = std::make_unique<IniStore>((folder.path / "torvane.ini").string(), std::chrono::milliseconds(300));
  Station& station = Started();
  ASSERT_TRUE(Heard().empty());
  std::array<int, 2> ready{}, done{};
  ASSERT_EQ(pipe(ready.data()) + pipe(done.data()), 0);
  const pid_t holder = fork();
  ASSERT_GE(holder, 0);
  if (holder == 0) {
    close(done[1]);
    const int lock = open((folder.path / "torvane.ini.lock").c_str(), O_RDWR | O_CREAT, 0666);
    char x = 0;
    const bool good = lock >= 0 && flock(lock, LOCK_EX) == 0 && write(ready[1], "x", 1) == 1;
    _exit(good && read(done[0], &x, 1) >= 0 ? 0 : 1);
  }
  char x = 0;
  ASSERT_EQ(read(ready[0], &x, 1), 1);

  station.Choose(station.s.chkNotify1, "1");
  const std::vector<std::string> heard = Heard();
  ASSERT_EQ(heard.size(), 1U);
  EXPECT_TRUE(Holds(heard[0], "keeps it locked")) << heard[0];
  // Forty keys would take twelve seconds if each of them waited.
  const auto start = std::chrono::steady_clock::now();
  for (int i = 0; i < 40; ++i) station.Type(station.s.txtHGSpeed, std::to_string(i));
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(6));
  EXPECT_TRUE(Heard().empty());

  close(done[1]);
  waitpid(holder, nullptr, 0);
  station.Choose(station.s.chkNotify2, "1");
  EXPECT_EQ(store->Read("Settings", "txtHGSpeed"), "39");
  EXPECT_EQ(store->Read("Settings", "chkNotify1"), "1");
  for (const int end : {ready[0], ready[1], done[0]}) close(end);
}

TEST_F(Hindrance, AStoreThatIsBroken) {
  const std::string broken("[Settings\nMe.Top\xFF=\x01\n\0=\n", 23);
  Put(folder.path / "torvane.ini", broken + "[Settings]\niMaxMandrelRPM(1)=fast\n");
  Station& station = Started();
  EXPECT_TRUE(Heard().empty());
  EXPECT_EQ(station.s.txtHGSpeed.text(), "1");
  station.Type(station.s.txtHGSpeed, "2.5");
  station.Run("mnuQuit", Event::Click);
  EXPECT_EQ(store->Read("Settings", "txtHGSpeed"), "2.5");
  EXPECT_TRUE(Holds(Bytes(folder.path / "torvane.ini"), broken));
}

// The operator hears of it, and the defaults do not take the place of what stands there, also if it is mended
// while the station runs.
TEST_F(Hindrance, AStoreThatCannotBeRead) {
  const std::filesystem::path file = folder.path / "torvane.ini";
  const std::string former = "[Settings]\ntxtHGSpeed=7\n";
  Put(file, former);
  chmod(file.c_str(), 0);
  {
    const Somebody somebody;
    Station& station = Started();
    const std::vector<std::string> heard = Heard();
    ASSERT_EQ(heard.size(), 1U);
    EXPECT_TRUE(Holds(heard[0], "torvane.ini") && Holds(heard[0], "Permission denied") &&
                Holds(heard[0], "started with the defaults"))
        << heard[0];
    EXPECT_EQ(station.s.txtHGSpeed.text(), "1");
  }
  chmod(file.c_str(), 0644);
  // This station was started before.
  Station& station = Running();
  station.Type(station.s.txtHGSpeed, "2.5");
  EXPECT_EQ(station.platform.store.Read("Settings", "txtHGSpeed"), "2.5");
  station.s.gDirty = false;
  station.Run("mnuQuit", Event::Click);
  EXPECT_TRUE(station.ended);
  EXPECT_TRUE(Heard().empty());
  EXPECT_EQ(Bytes(file), former);
  EXPECT_EQ(Started().s.txtHGSpeed.text(), "7");
}

TEST_F(Hindrance, AnExecutorThatIsMissingOrCannotRun) {
  store->Write("Settings", "gHasUserCheckedCarriageZOffset", "1");
  Station& station = Started();
  ASSERT_TRUE(SaveDesign(station, Path("a.t2d")));
  station.s.gDirty = false;
  const std::string program = Bytes(folder.path / "TV_G-Code_Files" / "a.T2G");
  const std::filesystem::path executor = folder.path / "Torvane_Executor.exe";
  Heard();

  const auto build = [&] {
    station.Run("imgBUILD", Event::Click);
    const std::vector<std::string> heard = Heard();
    return heard.size() == 1 && Holds(heard[0], "Can't Locate TorvaneExecutor.exe") &&
           Holds(heard[0], "cannot proceed");
  };
  EXPECT_TRUE(build());
  EXPECT_EQ(Bytes(folder.path / "TV_G-Code_Files" / "a.T2G"), program);

  Put(executor, "no program");
  EXPECT_TRUE(build());
  std::filesystem::remove(executor);

  // What a program comes to that could be started is no affair of the station.
  std::filesystem::copy_file("/bin/false", executor);
  station.Run("imgBUILD", Event::Click);
  EXPECT_TRUE(Heard().empty());
  EXPECT_EQ(Bytes(folder.path / "TV_G-Code_Files" / "a.T2G"), program);
}

}  // namespace
}  // namespace torvane
