#include "host/store/ini_store.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>

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

  // The mark in front of an editor's file belongs to no section's name.
  Put(file, "\xEF\xBB\xBF[Settings]\nmnu2Axis=1\n");
  EXPECT_EQ(Store().Read("Settings", "mnu2Axis"), "1");
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

// What is found without reading anew is what a reader of the file would find.
TEST_F(IniStoreTest, SeveralAreWrittenInOneStepOrNone) {
  IniStore store(file.string());
  ASSERT_TRUE(store.WriteAll({{"a", "x", "1"}, {"b", "y", "2"}, {"a", "x", "3"}}));
  EXPECT_EQ(store.Read("a", "x"), "3");
  EXPECT_EQ(store.Read("b", "y"), "2");
  const auto written = StampOf(file);
  ASSERT_TRUE(store.WriteAll({{"a", "x", "3"}, {"b", "y", "2"}}));
  EXPECT_EQ(StampOf(file), written) << "there was nothing to write";
  EXPECT_FALSE(store.WriteAll({{"a", "x", "4"}, {"a", "z", std::string(kLargestText, 'z')}}));
  EXPECT_EQ(IniStore(file.string()).Read("a", "x"), "3");
  EXPECT_EQ(store.Read("a", "x"), "3");
}

TEST_F(IniStoreTest, ManyWritesInARowLeaveTheTextThatTheyShow) {
  std::mt19937 dice(7);  // NOLINT: the same each time
  const auto any = [&](std::initializer_list<const char*> texts) {
    return std::string(texts.begin()[dice() % texts.size()]);
  };
  IniText text(
      "; head\nfirst=0\n[broken\nlost=1\n[A]\nk1=old\nk1=second\n[B] ; b\nx==\n[A]\nk2=\n[C]\nlast=9");
  std::map<std::pair<std::string, std::string>, std::string> expected;
  for (const auto& entry : text.Entries()) expected[{entry.section, entry.key}] = entry.value;
  ASSERT_EQ(expected.size(), 5U);
  for (int i = 0; i < 3000; ++i) {
    const std::string section = any({"", "A", "B", "C", "lost", "D ]"});
    const std::string key = any({"k", "first", "x", "last", "[", "="}) + std::to_string(dice() % 40);
    const std::string value = std::string(dice() % 9, 'v') + any({"", "\n", "=", "%41"});
    text.Set(section, key, value);
    expected[{section, key}] = value;
    ASSERT_EQ(text.Find(section, key), value);
    if (i % 100 != 0) continue;
    const IniText read(text.Bytes());
    const auto shown = text.Entries(), found = read.Entries();
    ASSERT_EQ(shown.size(), expected.size());
    ASSERT_EQ(found.size(), expected.size());
    for (std::size_t j = 0; j < found.size(); ++j) {
      const std::pair name(found[j].section, found[j].key);
      ASSERT_EQ(name, std::pair(shown[j].section, shown[j].key));
      ASSERT_EQ(expected.at(name), found[j].value);
      ASSERT_EQ(text.Find(name.first, name.second), found[j].value);
    }
  }
  EXPECT_TRUE(text.Bytes().starts_with("; head\nfirst=0\n"));
}

TEST_F(IniStoreTest, ALargeStoreIsListedInOneWalk) {
  std::string bytes = "[Settings]\n";
  for (int i = 0; i < 200'000; ++i) bytes += "key" + std::to_string(i) + "=" + std::to_string(i) + "\n";
  std::filesystem::create_directory(file.parent_path());
  Put(file, bytes + "key7=again\n");
  IniStore store = Store();
  EXPECT_EQ(store.All().size(), 200'000U);
  EXPECT_EQ(store.Read("Settings", "key7"), "7");
  EXPECT_EQ(store.Read("Settings", "key199999"), "199999");
  // What could not be read again is not written.
  EXPECT_FALSE(store.Write("Settings", "long", std::string(16'000'000, 'x')));
  EXPECT_EQ(store.Read("Settings", "long"), std::nullopt);
  EXPECT_TRUE(Store().Readable());
}

}  // namespace
}  // namespace torvane
