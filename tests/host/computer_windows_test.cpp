// Windows as the station uses it: the registry, files, paths, programs and the clock.
#include <gtest/gtest.h>
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

#include <chrono>
#include <cstdlib>
#include <thread>

#include "host/files/file_system.h"
#include "host/files/host_files.h"
#include "host/files/paths.h"
#include "host/store/default_store.h"
#include "host/store/registry_store_windows.h"
#include "host/system/host_clock.h"
#include "host/system/host_launcher.h"
#include "host/temporary_folder.h"

namespace torvane {
namespace {

// Sections of its own, so that the settings of a station on this computer stay as they are.
class RegistryStoreTest : public testing::Test {
 protected:
  void TearDown() override {
    RegDeleteTreeW(HKEY_CURRENT_USER, L"Software\\Torvane\\Test of Settings");
    RegDeleteTreeW(HKEY_CURRENT_USER, L"Software\\Torvane\\Test of Calibration");
  }
  RegistryStore store;
};

TEST_F(RegistryStoreTest, HoldsEveryCharacterByItsSectionAndKey) {
  std::string all;
  for (int byte = 1; byte < 256; ++byte) all += static_cast<char>(byte);
  ASSERT_TRUE(store.Write("Test of Settings", "iMaxMandrelRPM(1)", "15"));
  ASSERT_TRUE(store.Write("Test of Settings", "Me.Top\xB0", all));
  ASSERT_TRUE(store.Write("Test of Calibration", "iMaxMandrelRPM(1)", ""));
  EXPECT_EQ(store.Read("Test of Settings", "iMaxMandrelRPM(1)"), "15");
  EXPECT_EQ(store.Read("Test of Settings", "Me.Top\xB0"), all);
  EXPECT_EQ(store.Read("Test of Calibration", "iMaxMandrelRPM(1)"), "");
  EXPECT_EQ(store.Read("Test of Calibration", "Me.Top\xB0"), std::nullopt);
  EXPECT_EQ(store.Read("Test of nothing", "a"), std::nullopt);
  EXPECT_EQ(DefaultStore()->Read("Test of Settings", "iMaxMandrelRPM(1)"), "15");

  ASSERT_TRUE(store.Write("Test of Settings", "iMaxMandrelRPM(1)", "20"));
  int found = 0;
  for (const auto& entry : store.All()) {
    if (entry.section.rfind("Test of", 0) != 0) continue;
    ++found;
    EXPECT_EQ(store.Read(entry.section, entry.key), entry.value);
  }
  EXPECT_EQ(found, 3);
}

TEST_F(RegistryStoreTest, RefusesWhatTheRegistryCannotHold) {
  EXPECT_FALSE(store.Write("", "a", "1"));
  EXPECT_FALSE(store.Write("Test of Settings\\below", "a", "1"));
  EXPECT_FALSE(store.Write("Test of Settings", std::string("a\0b", 3), "1"));
  EXPECT_FALSE(store.Write("Test of Settings", "a", std::string("1\0", 2)));
  // A value of another kind is none of the station's.
  const DWORD number = 7;
  RegSetKeyValueW(HKEY_CURRENT_USER, L"Software\\Torvane\\Test of Settings", L"a", REG_DWORD, &number,
                  sizeof number);
  EXPECT_EQ(store.Read("Test of Settings", "a"), std::nullopt);
}

class WindowsFilesTest : public testing::Test {
 protected:
  TemporaryFolder folder;
  HostFiles files = HostFiles::At(HostText(folder.path)).value();
};

TEST_F(WindowsFilesTest, AreReplacedByTheirStationNames) {
  EXPECT_EQ(files.ProgramFolder(), folder.path.string());
  ASSERT_TRUE(files.MakeFolder("TV_Design_Files"));
  ASSERT_TRUE(files.MakeFolder(files.ProgramFolder() + "\\TV_Design_Files"));
  const std::string bytes("a\0\r\n\xFF", 5), name = "TV_Design_Files\\M\xFCll \x80.t2d";
  ASSERT_TRUE(files.WriteWhole(name, {std::string(100'000, 'x')}));
  ASSERT_TRUE(files.WriteWhole(name, {bytes, "", "z"}));
  EXPECT_EQ(files.ReadWhole(name).value(), bytes + "z");
  EXPECT_EQ(Bytes(folder.path / L"TV_Design_Files" / L"M\u00FCll \u20AC.t2d"), bytes + "z");
  EXPECT_TRUE(files.Exists(name));
  for (const std::string path : {"TV_Design_Files", "missing\\a.t2d", "NUL", ""}) {
    EXPECT_FALSE(files.ReadWhole(path)) << path;
    EXPECT_FALSE(files.WriteWhole(path, {"x"})) << path;
  }
}

TEST_F(WindowsFilesTest, ReadOnlyAndHeldFilesKeepWhatTheyHold) {
  ASSERT_TRUE(files.WriteWhole("a.t2d", {"former"}));
  const std::wstring path = (folder.path / "a.t2d").wstring();
  SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_READONLY);
  const Outcome readOnly = files.WriteWhole("a.t2d", {"new"});
  SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_NORMAL);
  ASSERT_FALSE(readOnly);
  EXPECT_FALSE(readOnly.reason().empty());
  const HANDLE held = CreateFileW(path.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING,
                                  FILE_ATTRIBUTE_NORMAL, nullptr);
  ASSERT_NE(held, INVALID_HANDLE_VALUE);
  EXPECT_FALSE(files.WriteWhole("a.t2d", {"new"}));
  EXPECT_FALSE(files.ReadWhole("a.t2d"));
  CloseHandle(held);
  EXPECT_EQ(files.ReadWhole("a.t2d").value(), "former");
}

TEST_F(WindowsFilesTest, ALockKeepsAnotherOut) {
  const auto path = folder.path / "torvane.ini.lock";
  bool second = false;
  std::thread waits;
  {
    const FileLock lock(path, std::chrono::seconds(0));
    ASSERT_TRUE(lock.Taken());
    waits = std::thread([&] { second = bool(FileLock(path, std::chrono::seconds(10)).Taken()); });
    std::this_thread::sleep_for(std::chrono::milliseconds(200));
    EXPECT_FALSE(second);
  }
  waits.join();
  EXPECT_TRUE(second);
}

TEST(WindowsPaths, KeepTheirBackslashesAndDrives) {
  EXPECT_EQ(HostPath("C:\\Torvane\\M\xFCll.T2G").value(), "C:\\Torvane\\Müll.T2G");
  EXPECT_EQ(StationPath("C:/Torvane/Müll.T2G").value(), "C:\\Torvane\\M\xFCll.T2G");
  EXPECT_EQ(AbsoluteStationPath("C:\\x\\.\\y.t2d").value(), "C:\\x\\y.t2d");
  EXPECT_EQ(AbsoluteStationPath("C:/x/y.t2d").value(), "C:\\x\\y.t2d");
  EXPECT_FALSE(StationPath("C:\\Ω"));
  EXPECT_FALSE(HostPath(std::string_view("a\0b", 3)));
  const auto folder = RunningProgramFolder();
  ASSERT_TRUE(folder);
  EXPECT_TRUE(std::filesystem::exists(SystemPath(folder.value()) / "host_tests.exe")) << folder.value();
  EXPECT_NE(UserFolder().find(":\\"), std::string::npos) << UserFolder();
}

TEST(WindowsLauncher, StartsProgramsInTheStationsFolder) {
  const TemporaryFolder folder;
  const auto station = folder.path / "my station", report = folder.path / "report";
  std::filesystem::create_directory(station);
  std::filesystem::copy_file(HOST_TEST_ARGUMENTS, station / "Torvane_Executor.exe");
  ASSERT_TRUE(SetEnvironmentVariableW(L"ARGUMENTS_FILE", report.wstring().c_str()));
  const std::string home = station.string();
  // The report may be seen before it can be opened: its writer's rename still holds it.
  const auto told = [&] {
    std::string text;
    for (int i = 0; i < 2000 && text.find("input") == std::string::npos; ++i) {
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
      text = Bytes(report);
    }
    std::filesystem::remove(report);
    return text.substr(0, text.find("in " + home) + 3 + home.size());
  };
  HostLauncher launcher;
  ASSERT_TRUE(launcher.Start("Torvane_Executor.exe", "TRACE", home));
  EXPECT_EQ(told(), "TRACE\nin " + home);
  // The path of a program goes bare: a blank in it makes it two words of the library's.
  ASSERT_TRUE(launcher.Start("Torvane_Executor.exe", home + "\\G\\a.T2G", home));
  EXPECT_EQ(told(), folder.path.string() + "\\my\nstation\\G\\a.T2G\nin " + home);
  ASSERT_TRUE(launcher.Start("Torvane_Executor.exe", "", home));
  EXPECT_EQ(told(), "in " + home);

  for (const std::string program : {"missing.exe", "sub\\x.exe"}) {
    const Outcome outcome = launcher.Start(program, "TRACE", home);
    ASSERT_FALSE(outcome) << program;
    EXPECT_EQ(outcome.reason().rfind(program, 0), 0U) << outcome.reason();
  }
  EXPECT_FALSE(launcher.Start("", "", home));
  EXPECT_FALSE(launcher.Start("Torvane_Executor.exe", "", home + "\\gone"));
  SetEnvironmentVariableW(L"windir_of_the_test", L"C:\\M\u00FCll");
  EXPECT_EQ(launcher.EnvironmentVariable("windir_of_the_test"), "C:\\M\xFCll");
  EXPECT_EQ(launcher.EnvironmentVariable("windir_not_set"), "");
}

TEST(WindowsClock, TellsTheTimeOfTheComputer) {
  const auto now = std::chrono::system_clock::now().time_since_epoch();
  const double hours =
      std::chrono::duration<double, std::ratio<3600>>(HostClock().Now().time_since_epoch() - now).count();
  EXPECT_LT(std::abs(hours), 15);
}

}  // namespace
}  // namespace torvane
