#include <gtest/gtest.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

#include <memory>

#include "host/host_files.h"
#include "host/paths.h"
#include "host/temporary_folder.h"

namespace torvane {
namespace {

class HostFilesTest : public testing::Test {
 protected:
  void SetUp() override { files.MakeProgramFolderCurrent(); }

  TemporaryFolder folder;
  HostFiles files = HostFiles::At(folder.path.string()).value();
};

TEST_F(HostFilesTest, NamesWithoutAFolderAreInTheObjectsCurrentFolder) {
  HostFiles fresh = HostFiles::At(folder.path.string()).value();
  EXPECT_EQ(fresh.CurrentFolder(), StationPath(std::filesystem::current_path().string()).value());
  EXPECT_EQ(fresh.ProgramFolder(), StationPath(folder.path.string()).value());
  EXPECT_EQ(HostFiles::At(folder.path.string() + "/").value().ProgramFolder(), fresh.ProgramFolder());
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

TEST_F(HostFilesTest, FormerFileStaysWhereNothingMayBeWritten) {
  if (geteuid() == 0) GTEST_SKIP() << "nothing is forbidden to this user";
  ASSERT_TRUE(files.WriteWhole("a.t2d", {"former"}));
  ASSERT_EQ(chmod((folder.path / "a.t2d").c_str(), 0444), 0);
  ASSERT_EQ(chmod(folder.path.c_str(), 0555), 0);
  EXPECT_FALSE(files.WriteWhole("a.t2d", {"new"}));
  EXPECT_FALSE(files.WriteWhole("b.t2d", {"new"}));
  EXPECT_FALSE(files.Exists("b.t2d"));
  EXPECT_EQ(files.ReadWhole("a.t2d").value(), "former");
  chmod(folder.path.c_str(), 0755);
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
  EXPECT_FALSE(files.Exists("disk\\b.T2G"));
  EXPECT_TRUE(files.WriteWhole("disk\\b.T2G", {std::string(20'000, 'n')}));  // the room was given back
}

}  // namespace
}  // namespace torvane
