#include <gtest/gtest.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <csignal>
#include <memory>

#include "host/ended_process.h"
#include "host/files/file_system.h"
#include "host/files/host_files.h"
#include "host/files/paths.h"
#include "host/files/station_folder.h"
#include "host/somebody.h"
#include "host/temporary_folder.h"

namespace torvane {
namespace {

class HostFilesTest : public testing::Test {
 protected:
  TemporaryFolder folder;
  HostFiles files = HostFiles::At(folder.path.string()).value();
};

TEST_F(HostFilesTest, NamesWithoutAFolderAreInTheProgramsFolder) {
  const TemporaryFolder other;
  const HostFiles fresh = HostFiles::At(other.path.string()).value();
  EXPECT_EQ(files.ProgramFolder(), StationPath(folder.path.string()).value());
  EXPECT_EQ(HostFiles::At(folder.path.string() + "/").value().ProgramFolder(), files.ProgramFolder());
  EXPECT_FALSE(HostFiles::At("/srv/Ω"));

  ASSERT_TRUE(files.MakeFolder("TV_Design_Files"));
  ASSERT_TRUE(files.MakeFolder(files.ProgramFolder() + "\\TV_Design_Files"));
  const std::string bytes("a\0\r\n\xFF", 5);
  ASSERT_TRUE(files.WriteWhole("TV_Design_Files\\M\xFCll.t2d", {bytes, "", "z"}));
  EXPECT_EQ(Bytes(folder.path / "TV_Design_Files" / "Müll.t2d"), bytes + "z");
  EXPECT_EQ(files.ReadWhole(files.ProgramFolder() + "\\TV_Design_Files\\M\xFCll.t2d").value(), bytes + "z");
  EXPECT_TRUE(files.Exists("TV_Design_Files\\M\xFCll.t2d"));
  EXPECT_FALSE(fresh.Exists("TV_Design_Files\\M\xFCll.t2d"));
}

TEST_F(HostFilesTest, ReplacingLeavesNothingOfTheFormerFileAndNothingBeside) {
  ASSERT_TRUE(files.WriteWhole("a.T2G", {std::string(100'000, 'x')}));
  ASSERT_TRUE(files.WriteWhole("a.T2G", {"short"}));
  EXPECT_EQ(files.ReadWhole("a.T2G").value(), "short");
  ASSERT_TRUE(files.WriteWhole("a.T2G", {std::string(9000, 'y')}));
  EXPECT_EQ(files.ReadWhole("a.T2G").value(), std::string(9000, 'y'));
  ASSERT_TRUE(files.WriteWhole("a.T2G", {}));
  EXPECT_EQ(files.ReadWhole("a.T2G").value(), "");
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path), {}), 1);
}

TEST_F(HostFilesTest, NamesTheFilesOfAFolder) {
  const TemporaryFolder samples;
  for (const char* name : {"b.t2d", "a.t4d", "M\u00fcll.t2d", "\u03a9.t2d"}) Put(samples.path / name, "x");
  std::filesystem::create_directory(samples.path / "c.t2d");
  const HostFiles both = HostFiles::At(folder.path.string(), samples.path.string() + "/").value();
  EXPECT_EQ(both.SampleFolder(), StationPath(samples.path.string()).value());
  // Neither folders nor names that the station cannot say.
  EXPECT_EQ(both.NamesIn(both.SampleFolder()), (std::vector<std::string>{"M\xFCll.t2d", "a.t4d", "b.t2d"}));
  EXPECT_EQ(files.SampleFolder(), "");
  EXPECT_TRUE(files.NamesIn("none").empty());
  EXPECT_EQ(HostFiles::At(folder.path.string(), "/srv/\u03a9").value().SampleFolder(), "");
}

TEST(StationFolders, SamplesLieInTheShareOfAnInstallationOrBesideTheProgram) {
  const TemporaryFolder prefix;
  const std::filesystem::path bin = prefix.path / "bin",
                              share = prefix.path / "share" / "torvane" / "samples";
  std::filesystem::create_directory(bin);
  EXPECT_EQ(SampleFolder(bin.string()), "");
  std::filesystem::create_directory(bin / "samples");
  EXPECT_EQ(SampleFolder(bin.string()), (bin / "samples").string());
  std::filesystem::create_directories(share);
  EXPECT_EQ(SampleFolder(bin.string()), share.string());
}

TEST_F(HostFilesTest, TellsWhenAFileWasWrittenAndRemovesIt) {
  EXPECT_FALSE(files.LastWritten("a.t2d"));
  ASSERT_TRUE(files.WriteWhole("a.t2d", {"x"}));
  ASSERT_TRUE(files.WriteWhole("a.T2G", {"x"}));
  const auto earlier = std::filesystem::last_write_time(folder.path / "a.t2d") - std::chrono::seconds(2);
  std::filesystem::last_write_time(folder.path / "a.T2G", earlier);
  ASSERT_TRUE(files.LastWritten("a.t2d"));
  EXPECT_LT(*files.LastWritten("a.T2G"), *files.LastWritten("a.t2d"));
  std::filesystem::create_directory(folder.path / "sub");
  EXPECT_FALSE(files.LastWritten("sub"));
  EXPECT_FALSE(files.Remove("sub"));
  EXPECT_TRUE(std::filesystem::exists(folder.path / "sub"));
  ASSERT_TRUE(files.Remove("a.t2d"));
  EXPECT_FALSE(files.Exists("a.t2d"));
  EXPECT_TRUE(files.Remove("a.t2d"));
}

TEST_F(HostFilesTest, WhatIsNoFileIsRefusedAtOnce) {
  ASSERT_EQ(mkfifo((folder.path / "pipe").c_str(), 0600), 0);
  std::filesystem::create_directory(folder.path / "sub");
  for (const std::string path : {"pipe", "sub", "sub\\", "missing\\a.t2d", "\\dev\\null", ""}) {
    EXPECT_FALSE(files.Exists(path)) << path;
    EXPECT_FALSE(files.ReadWhole(path)) << path;
    const Outcome written = files.WriteWhole(path, {"x"});
    ASSERT_FALSE(written) << path;
    EXPECT_FALSE(written.reason().empty());
  }
  EXPECT_FALSE(files.ReadWhole("missing.t2d"));
  EXPECT_FALSE(files.Exists(std::string_view("a\0b", 3)));
  ASSERT_TRUE(files.WriteWhole("plain", {"x"}));
  EXPECT_FALSE(files.MakeFolder("plain"));
  EXPECT_FALSE(files.MakeFolder("missing\\below"));
}

TEST_F(HostFilesTest, FormerFileStaysWhereItMayNotBeWritten) {
  ASSERT_TRUE(files.WriteWhole("a.t2d", {"former"}));
  ASSERT_EQ(chmod((folder.path / "a.t2d").c_str(), 0444), 0);
  for (const mode_t rights : {0777U, 0555U}) {
    ASSERT_EQ(chmod(folder.path.c_str(), rights), 0);
    const Somebody somebody;
    EXPECT_FALSE(files.WriteWhole("a.t2d", {"new"})) << rights;
    EXPECT_EQ(files.ReadWhole("a.t2d").value(), "former");
  }
  {
    const Somebody somebody;
    EXPECT_FALSE(files.WriteWhole("b.t2d", {"new"}));
  }
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path), {}), 1);
  chmod(folder.path.c_str(), 0755);
}

// What is formed while it is written, and does not become whole; also where it would be written in place.
TEST_F(HostFilesTest, ContentThatRefusesLeavesTheFormerFileAndNothingBeside) {
  const auto content = [](const std::function<bool(std::string_view)>& take) -> Outcome {
    EXPECT_TRUE(take(std::string(100'000, 'x')));
    return Refusal{"Cancelled."};
  };
  ASSERT_TRUE(files.WriteWhole("a.T2G", {"former"}));
  ASSERT_EQ(chmod((folder.path / "a.T2G").c_str(), 0666), 0);
  for (const mode_t rights : {0777U, 0555U}) {
    ASSERT_EQ(chmod(folder.path.c_str(), rights), 0);
    const Somebody somebody;
    EXPECT_EQ(files.WriteWhole("a.T2G", content, Lasting::Later).reason(), "Cancelled.") << rights;
    EXPECT_EQ(files.ReadWhole("a.T2G").value(), "former");
  }
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path), {}), 1);
  chmod(folder.path.c_str(), 0755);
}

// The last resort: a folder that takes no second file, and a file that is mounted itself.
TEST_F(HostFilesTest, WritesInPlaceOnlyWhereTheFolderTakesNoSecondFile) {
  std::vector<std::string> told;
  files.tell = [&](const std::string& text) { told.push_back(text); };
  ASSERT_TRUE(files.WriteWhole("a.t2d", {"former"}));
  ASSERT_EQ(chmod((folder.path / "a.t2d").c_str(), 0666), 0);
  ASSERT_EQ(chmod(folder.path.c_str(), 0555), 0);
  {
    const Somebody somebody;
    EXPECT_TRUE(files.WriteWhole("a.t2d", {"n", "ew"}));
    EXPECT_TRUE(files.WriteWhole("a.t2d", {"newer"}));
  }
  chmod(folder.path.c_str(), 0755);
  EXPECT_EQ(files.ReadWhole("a.t2d").value(), "newer");
  ASSERT_EQ(told.size(), 1U) << "once for a folder";
  EXPECT_NE(told[0].find("a.t2d\r\nPermission denied"), std::string::npos) << told[0];

  std::filesystem::create_directory(folder.path / "sub");
  Put(folder.path / "sub" / "b.T2G", "");
  const auto mounted = folder.path / "sub" / "b.T2G";
  if (mount((folder.path / "a.t2d").c_str(), mounted.c_str(), nullptr, MS_BIND, nullptr) != 0)
    GTEST_SKIP() << "nothing can be mounted";
  EXPECT_TRUE(files.WriteWhole("sub\\b.T2G", {"through"}));
  umount(mounted.c_str());
  EXPECT_EQ(files.ReadWhole("a.t2d").value(), "through");
  EXPECT_EQ(told.size(), 2U);
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path / "sub"), {}), 1);
}

TEST_F(HostFilesTest, GoesThroughLinksAndKeepsRightsAndOwner) {
  std::filesystem::create_directory(folder.path / "far");
  const auto file = folder.path / "far" / "a.t2d";
  Put(file, "former");
  std::filesystem::create_symlink("far/second", folder.path / "first");
  std::filesystem::create_symlink("a.t2d", folder.path / "far" / "second");
  const uid_t owner = geteuid() == 0 ? 4321 : geteuid();
  ASSERT_EQ(chown(file.c_str(), owner, getegid()), 0);
  ASSERT_EQ(chmod(file.c_str(), 0604), 0);
  struct stat before {
  }, after{};
  ASSERT_EQ(stat(file.c_str(), &before), 0);

  ASSERT_TRUE(files.WriteWhole("first", {"new"}));
  EXPECT_TRUE(std::filesystem::is_symlink(folder.path / "first"));
  EXPECT_TRUE(std::filesystem::is_symlink(folder.path / "far" / "second"));
  EXPECT_EQ(Bytes(file), "new");
  ASSERT_EQ(stat(file.c_str(), &after), 0);
  EXPECT_EQ(after.st_mode, before.st_mode);
  EXPECT_EQ(after.st_uid, owner);
  EXPECT_NE(after.st_ino, before.st_ino) << "it was written over in place";

  EXPECT_TRUE(files.AreOne("first", "far\\a.t2d"));
  EXPECT_TRUE(files.AreOne("far\\a.t2d", files.ProgramFolder() + "\\first"));
  Put(folder.path / "far" / "b.t2d", "new");
  EXPECT_FALSE(files.AreOne("first", "far\\b.t2d"));
  EXPECT_FALSE(files.AreOne("missing", "missing"));
  std::filesystem::remove(folder.path / "far" / "b.t2d");

  // A copy has the rights of what it was made of and never goes where a link leads.
  Put(folder.path / "elsewhere", "kept");
  std::filesystem::create_symlink("elsewhere", folder.path / "copy");
  ASSERT_TRUE(files.Copy("first", "copy"));
  EXPECT_EQ(Bytes(folder.path / "elsewhere"), "kept");
  ASSERT_EQ(lstat((folder.path / "copy").c_str(), &after), 0);
  EXPECT_TRUE(S_ISREG(after.st_mode));
  EXPECT_EQ(after.st_mode & 07777, 0604U);
  EXPECT_EQ(Bytes(folder.path / "copy"), "new");
  EXPECT_FALSE(files.Copy("missing", "copy"));
  EXPECT_EQ(Bytes(folder.path / "copy"), "new");
  // Of the user's own file it is what that was, through links and though it is kept twice.
  ASSERT_EQ(chown(file.c_str(), geteuid(), getegid()), 0);
  for (int times = 0; times < 2; ++times) ASSERT_TRUE(files.Copy("first", "copy"));
  ASSERT_TRUE(files.WriteWhole("first", {"newer"}));
  EXPECT_EQ(Bytes(folder.path / "copy"), "new");
  EXPECT_EQ(Bytes(file), "newer");
  ASSERT_EQ(lstat((folder.path / "copy").c_str(), &after), 0);
  EXPECT_EQ(after.st_mode & 07777, 0604U);
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path), {}), 4) << "something was left";

  std::filesystem::create_symlink("ring", folder.path / "ring");
  EXPECT_FALSE(files.WriteWhole("ring", {"x"}));
}

TEST_F(HostFilesTest, RemovesTheLeftoversOfTheDeadAlone) {
  const auto dead = folder.path / NameBeside(EndedProcess(), 7);
  const auto living = folder.path / NameBeside(EndedProcess(), 1);
  Put(dead, "half");
  Put(living, "half");
  const std::vector<std::string> others = {".torvane-x-1.new", ".torvane-1-1.new~", ".torvane-.new", "a.new"};
  for (const std::string& other : others) Put(folder.path / other, "");
  {
    const FileLock writer(living, std::chrono::milliseconds(0));
    files.RemoveLeftovers("");
    files.RemoveLeftovers(files.ProgramFolder());
    EXPECT_FALSE(std::filesystem::exists(dead));
    EXPECT_TRUE(std::filesystem::exists(living));
  }
  // A folder where no start looks is tidied by the first write.
  HostFiles next = HostFiles::At(folder.path.string()).value();
  ASSERT_TRUE(next.WriteWhole(files.ProgramFolder() + "\\b.t2d", {"x"}));
  EXPECT_FALSE(std::filesystem::exists(living));
  for (const std::string& other : others) EXPECT_TRUE(std::filesystem::exists(folder.path / other)) << other;
}

TEST_F(HostFilesTest, ALockLastsAsLongAsItsProcess) {
  std::array<int, 2> ready{};
  ASSERT_EQ(pipe(ready.data()), 0);
  const pid_t holder = fork();
  ASSERT_GE(holder, 0);
  if (holder == 0) {
    const auto lock = files.Lock("TV_STATION.LCK");
    const bool good = lock && lock.value() && write(ready[1], "x", 1) == 1;
    alarm(60);
    if (good) pause();
    _exit(1);
  }
  char x = 0;
  ASSERT_EQ(read(ready[0], &x, 1), 1);
  const auto held = files.Lock("TV_STATION.LCK");
  ASSERT_TRUE(held);
  EXPECT_FALSE(held.value());
  kill(holder, SIGKILL);
  waitpid(holder, nullptr, 0);
  {
    const auto taken = files.Lock("TV_STATION.LCK");
    ASSERT_TRUE(taken && taken.value());
    EXPECT_FALSE(files.Lock("TV_STATION.LCK").value()) << "also against another of this process";
  }
  {
    // Another user's station, whose file this one may only read.
    const Somebody somebody;
    chmod((folder.path / "TV_STATION.LCK").c_str(), 0444);
    EXPECT_TRUE(files.Lock("TV_STATION.LCK").value());
    EXPECT_FALSE(files.Lock("other.LCK"));
  }
  for (const int end : ready) close(end);
}

// What a writer puts there over and over: one letter, as often as the letter says.
std::string OfLetter(char letter) {
  return std::string(static_cast<std::size_t>(letter - 'a' + 1) * 9001, letter);
}

bool IsWhole(const std::string& text) { return !text.empty() && text == OfLetter(text[0]); }

TEST_F(HostFilesTest, WritersOfOneNameNeverMix) {
  ASSERT_TRUE(files.WriteWhole("a.T2G", {OfLetter('a')}));
  std::vector<pid_t> writers;
  for (const char first : {'a', 'm'}) {
    const pid_t writer = fork();
    ASSERT_GE(writer, 0);
    if (writer == 0) {
      alarm(60);
      bool good = true;
      for (int i = 0; i < 100 && good; ++i) {
        const std::string text = OfLetter(static_cast<char>(first + i % 12));
        good = bool(files.WriteWhole(
            "a.T2G", {std::string_view(text).substr(0, 5000), std::string_view(text).substr(5000)}));
      }
      _exit(good ? 0 : 1);
    }
    writers.push_back(writer);
  }
  while (!writers.empty()) {
    int status = 0;
    if (waitpid(writers.back(), &status, WNOHANG) == writers.back()) {
      EXPECT_EQ(status, 0);
      writers.pop_back();
    }
    const std::string read = files.ReadWhole("a.T2G").value();
    ASSERT_TRUE(IsWhole(read)) << read.size();
  }
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path), {}), 1);
}

TEST_F(HostFilesTest, FormerFileStaysOnAFullDisk) {
  const auto disk = folder.path / "disk";
  std::filesystem::create_directory(disk);
  if (mount("tmpfs", disk.c_str(), "tmpfs", 0, "size=64k") != 0) GTEST_SKIP() << "no small disk to be had";
  const std::shared_ptr<void> mounted(nullptr, [&](void*) { umount(disk.c_str()); });
  const std::string former(20'000, 'f'), tooLong(100'000, 'n');
  EXPECT_TRUE(files.WriteWhole("disk\\a.T2G", {former}));
  const Outcome longer = files.WriteWhole("disk\\a.T2G", {tooLong});
  const Outcome fresh = files.WriteWhole("disk\\b.T2G", {tooLong});
  ASSERT_FALSE(longer);
  ASSERT_FALSE(fresh);
  EXPECT_NE(longer.reason().find("space"), std::string::npos) << longer.reason();
  EXPECT_EQ(files.ReadWhole("disk\\a.T2G").value(), former);
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(disk), {}), 1) << "nothing beside it";
  EXPECT_TRUE(files.WriteWhole("disk\\b.T2G", {std::string(20'000, 'n')}));  // the room was given back
}

TEST(RegularFiles, AreComparedAndLimitedByTheirBytes) {
  const TemporaryFolder folder;
  const auto file = folder.path / "a.txt";
  EXPECT_FALSE(HoldsJust(file, ""));
  Put(file, "abc");
  EXPECT_TRUE(HoldsJust(file, "abc"));
  for (const char* other : {"", "ab", "abd", "abcd"}) EXPECT_FALSE(HoldsJust(file, other)) << other;
  EXPECT_EQ(ReadRegularFile(file, 3).value(), "abc");
  EXPECT_FALSE(ReadRegularFile(file, 2));
}

}  // namespace
}  // namespace torvane
