#include "host/ini_store.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>

#include "host/temporary_folder.h"

namespace torvane {
namespace {

class IniStoreTest : public testing::Test {
 protected:
  IniStore Store() const { return IniStore(file.string()); }

  TemporaryFolder folder;
  std::filesystem::path file = folder.path / "settings" / "torvane.ini";
};

TEST_F(IniStoreTest, EveryByteAndAwkwardTextSurvivesInEachPlace) {
  std::vector<std::string> texts = {"",       "  a  ", "a=b",    "[a]b",  ";a",          "#a",
                                    "a;b #c", "%4",    "%41",    "%%0A",  "%4\n1",       "% ",
                                    "a\r\nb", "\n\n",  "\t a\t", "100 %", "\xEF\xBB\xBF"};
  std::string all;
  for (int byte = 0; byte < 256; ++byte) {
    texts.emplace_back(1, static_cast<char>(byte));
    all += static_cast<char>(byte);
  }
  texts.push_back(all);
  std::reverse(all.begin(), all.end());
  texts.push_back(all);

  IniStore store = Store();
  for (std::size_t i = 0; i < texts.size(); ++i) {
    const std::string& other = texts[(i + 1) % texts.size()];
    ASSERT_TRUE(store.Write(texts[i], texts[i], other));
    ASSERT_TRUE(store.Write("Settings", texts[i], other));
  }
  const IniStore later = Store();
  for (std::size_t i = 0; i < texts.size(); ++i) {
    const std::string& other = texts[(i + 1) % texts.size()];
    EXPECT_EQ(later.Read(texts[i], texts[i]), other) << testing::PrintToString(texts[i]);
    EXPECT_EQ(later.Read("Settings", texts[i]), other) << testing::PrintToString(texts[i]);
  }
  EXPECT_EQ(later.All().size(), 2 * texts.size());
}

TEST_F(IniStoreTest, OrdinaryValuesStandReadableInTheFile) {
  IniStore store = Store();
  ASSERT_TRUE(store.Write("Settings", "gLastFileInUse", "C:\\Torvane\\M\xFCller 50% [2]; v=1.t2d"));
  ASSERT_TRUE(store.Write("TV4_Calibration", "dhlMaxSpeed", ""));
  ASSERT_TRUE(store.Write("Settings", "mnu2Axis", "1"));
  EXPECT_EQ(Bytes(file),
            "[Settings]\n"
            "gLastFileInUse=C:\\Torvane\\M\xC3\xBCller 50% [2]; v=1.t2d\n"
            "mnu2Axis=1\n"
            "\n"
            "[TV4_Calibration]\n"
            "dhlMaxSpeed=\n");
}

TEST_F(IniStoreTest, HandWrittenFileIsReadAndKeptWhenRewritten) {
  const std::string before =
      "\xEF\xBB\xBF; of the big machine\r\n"
      "loose = 1\r\n"
      "[Settings] ; station\r\n"
      "  txtStepSize2Ax =  0.5  \r\n"
      "#mnu2Axis=7\r\n"
      "no sign here\r\n"
      "txtStepSize2Ax=9\r\n"
      "odd=\xCE\xA9\r\n"
      "note=\ta%20b%2\r\n"
      "[broken\r\n"
      "mnu2Axis=lost\r\n"
      "\r\n"
      "; calibration\r\n"
      "[TV2_Calibration]\r\n"
      "cMaxTravel=120";
  std::filesystem::create_directory(file.parent_path());
  Put(file, before);
  IniStore store = Store();
  EXPECT_EQ(store.Read("", "loose"), "1");
  EXPECT_EQ(store.Read("Settings", "txtStepSize2Ax"), "0.5");
  EXPECT_EQ(store.Read("Settings", "TXTSTEPSIZE2AX"), std::nullopt);
  EXPECT_EQ(store.Read("Settings", "mnu2Axis"), std::nullopt);
  EXPECT_EQ(store.Read("Settings", "odd"), std::nullopt);
  EXPECT_EQ(store.Read("Settings", "note"), "a b%2");
  EXPECT_EQ(store.Read("TV2_Calibration", "cMaxTravel"), "120");

  ASSERT_TRUE(store.Write("Settings", "mnu2Axis", "0"));
  ASSERT_TRUE(store.Write("TV2_Calibration", "cMaxTravel", "121"));
  std::string expected = before;
  expected.replace(expected.find("[broken"), 0, "mnu2Axis=0\n");
  expected.replace(expected.find("cMaxTravel=120"), std::string::npos, "cMaxTravel=121\n");
  EXPECT_EQ(Bytes(file), expected);
}

TEST_F(IniStoreTest, DamagedFileGivesWhatIsReadableAndLosesNoLine) {
  std::filesystem::create_directory(file.parent_path());
  std::string garbage = "[Settings]\ngood=1\n";
  for (int i = 0; i < 5000; ++i) garbage += static_cast<char>(i * i * 37 % 251);
  garbage += "\nalso=2\n";
  Put(file, garbage);
  IniStore store = Store();
  EXPECT_EQ(store.Read("Settings", "good"), "1");
  ASSERT_TRUE(store.Write("Settings", "good", "3"));
  garbage.replace(garbage.find("good=1"), 6, "good=3");
  EXPECT_EQ(Bytes(file), garbage);
}

TEST_F(IniStoreTest, TwoStoresSeeEachOthersWritesAtOnce) {
  IniStore one = Store(), two = Store();
  EXPECT_EQ(two.Read("Settings", "turn"), std::nullopt);
  // Texts of one length, so that neither size nor, within a tick, time tells the files apart.
  for (int i = 100; i < 200; ++i) {
    IniStore& writer = i % 3 == 0 ? one : two;
    ASSERT_TRUE(writer.Write("Settings", "turn", std::to_string(i)));
    ASSERT_EQ(one.Read("Settings", "turn"), std::to_string(i));
    ASSERT_EQ(two.Read("Settings", "turn"), std::to_string(i));
  }
  for (int i = 200; i < 220; ++i) {  // an editor, which writes over the file
    Put(file, "[Settings]\nturn=" + std::to_string(i) + "\n");
    EXPECT_EQ(one.Read("Settings", "turn"), std::to_string(i));
  }
  std::filesystem::remove(file);
  EXPECT_EQ(one.Read("Settings", "turn"), std::nullopt);
}

TEST_F(IniStoreTest, ProcessesThatWriteAtOnceLoseNoKey) {
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

TEST_F(IniStoreTest, LeftoversLinksAndModesOfTheFile) {
  std::filesystem::create_directory(file.parent_path());
  const auto target = folder.path / "common.ini";
  Put(target, "[Settings]\nkept=1\n");
  ASSERT_EQ(chmod(target.c_str(), 0640), 0);
  std::filesystem::create_symlink("../common.ini", file);
  Put(target.string() + ".new", "[Settings]\nhalf");  // of a station that ended in the middle
  Put(target.string() + ".lock", "");

  ASSERT_TRUE(Store().Write("Settings", "more", "2"));
  EXPECT_TRUE(std::filesystem::is_symlink(file));
  EXPECT_EQ(Bytes(target), "[Settings]\nkept=1\nmore=2\n");
  EXPECT_FALSE(std::filesystem::exists(target.string() + ".new"));
  struct stat found {};
  ASSERT_EQ(stat(target.c_str(), &found), 0);
  EXPECT_EQ(found.st_mode & 07777, 0640U);

  std::filesystem::remove(target);  // the link now leads nowhere
  ASSERT_TRUE(Store().Write("Settings", "more", "3"));
  EXPECT_EQ(Bytes(target), "[Settings]\nmore=3\n");
}

TEST_F(IniStoreTest, WhatIsNoFileIsRefusedAndStays) {
  std::filesystem::create_directories(file);
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

TEST_F(IniStoreTest, WaitsForAnotherStationsLock) {
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
