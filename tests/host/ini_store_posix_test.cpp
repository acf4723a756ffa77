// The store beside other processes, links and things that are no files.
#include "host/store/ini_store.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>

#include "host/ended_process.h"
#include "host/files/file_system.h"
#include "host/temporary_folder.h"

namespace torvane {
namespace {

class SharedIniStoreTest : public testing::Test {
 protected:
  IniStore Store() const { return IniStore(file.string()); }

  TemporaryFolder folder;
  std::filesystem::path file = folder.path / "settings" / "torvane.ini";
};

TEST_F(SharedIniStoreTest, ProcessesThatWriteAtOnceLoseNoKey) {
  constexpr int kWrites = 300;
  std::vector<pid_t> children;
  for (const char* name : {"a", "b"}) {
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
      alarm(60);
      IniStore store = Store();
      bool good = true;
      for (int i = 0; i < kWrites; ++i) {
        good = good && store.Write("Settings", name + std::to_string(i), std::to_string(i)) &&
               store.Write("Settings", "shared", name);
      }
      _exit(good ? 0 : 1);
    }
    children.push_back(child);
  }
  for (const pid_t child : children) {
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0);
  }
  const IniStore store = Store();
  EXPECT_EQ(store.All().size(), 2U * kWrites + 1);
  for (int i = 0; i < kWrites; ++i) {
    EXPECT_EQ(store.Read("Settings", "a" + std::to_string(i)), std::to_string(i));
    EXPECT_EQ(store.Read("Settings", "b" + std::to_string(i)), std::to_string(i));
  }
}

TEST_F(SharedIniStoreTest, LeftoversLinksAndModesOfTheFile) {
  std::filesystem::create_directory(file.parent_path());
  const auto target = folder.path / "common.ini";
  Put(target, "[Settings]\nkept=1\n");
  ASSERT_EQ(chmod(target.c_str(), 0640), 0);
  std::filesystem::create_symlink("../common.ini", file);
  const auto leftover = folder.path / NameBeside(EndedProcess(), 1);
  Put(leftover, "[Settings]\nhalf");
  const uid_t owner = geteuid() == 0 ? 4321 : geteuid();
  ASSERT_EQ(chown(target.c_str(), owner, getegid()), 0);
  Put(target.string() + ".lock", "");

  ASSERT_TRUE(Store().Write("Settings", "more", "2"));
  EXPECT_TRUE(std::filesystem::is_symlink(file));
  EXPECT_EQ(Bytes(target), "[Settings]\nkept=1\nmore=2\n");
  EXPECT_FALSE(std::filesystem::exists(leftover));
  struct stat found {};
  ASSERT_EQ(stat(target.c_str(), &found), 0);
  EXPECT_EQ(found.st_mode & 07777, 0640U);
  EXPECT_EQ(found.st_uid, owner) << "whoever writes it";

  std::filesystem::remove(target);  // the link now leads nowhere
  ASSERT_TRUE(Store().Write("Settings", "more", "3"));
  EXPECT_EQ(Bytes(target), "[Settings]\nmore=3\n");
}

TEST_F(SharedIniStoreTest, WhatIsNoFileIsRefusedAndStays) {
  EXPECT_TRUE(Store().Readable()) << "nothing has been written yet";
  std::filesystem::create_directories(file);
  EXPECT_FALSE(Store().Readable());
  EXPECT_EQ(Store().Read("Settings", "a"), std::nullopt);
  const Outcome outcome = Store().Write("Settings", "a", "1");
  ASSERT_FALSE(outcome);
  EXPECT_NE(outcome.reason().find("torvane.ini"), std::string::npos);
  std::filesystem::remove(file);

  ASSERT_EQ(mkfifo(file.c_str(), 0600), 0);
  EXPECT_EQ(Store().Read("Settings", "a"), std::nullopt);
  EXPECT_FALSE(Store().Write("Settings", "a", "1"));
  EXPECT_TRUE(std::filesystem::is_fifo(file));
  EXPECT_FALSE(IniStore("").Write("Settings", "a", "1"));
}

TEST_F(SharedIniStoreTest, WaitsForAnotherStationsLock) {
  ASSERT_TRUE(Store().Write("Settings", "a", "1"));
  std::array<int, 2> ready{};
  ASSERT_EQ(pipe(ready.data()), 0);
  const pid_t holder = fork();
  ASSERT_GE(holder, 0);
  if (holder == 0) {
    const int lock = open((file.string() + ".lock").c_str(), O_RDWR);
    const bool good = lock >= 0 && flock(lock, LOCK_EX) == 0 && write(ready[1], "x", 1) == 1;
    usleep(300'000);
    Put(file, "[Settings]\na=2\n");  // what the holder wrote must be in what follows
    _exit(good ? 0 : 1);
  }
  char x = 0;
  close(ready[1]);
  ASSERT_EQ(read(ready[0], &x, 1), 1);
  close(ready[0]);
  ASSERT_TRUE(Store().Write("Settings", "b", "3"));
  EXPECT_EQ(Bytes(file), "[Settings]\na=2\nb=3\n");
  int status = 0;
  waitpid(holder, &status, 0);
  EXPECT_EQ(status, 0);
}

}  // namespace
}  // namespace torvane
