// Who may know whom: the include lines of every room of src/, against the table that the build reads too.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <sstream>

namespace {

namespace fs = std::filesystem;

using Names = std::set<std::string>;

// Elsewhere no header of the windows' toolkit is included, and in the core only the standard library's.
bool MayUseLibraries(const std::string& room) {
  return room.starts_with("cli") || room == "apps" || room == "post/machine" || room.starts_with("host/") ||
         room.starts_with("laminate/");
}

class Rooms : public testing::Test {
 protected:
  Rooms() {
    std::ifstream table(fs::path(SOURCE_FOLDER) / "src" / "rooms.txt");
    for (std::string line; std::getline(table, line);) {
      const auto colon = line.find(':');
      if (line.empty() || line[0] == '#' || colon == std::string::npos) continue;
      std::istringstream words(line.substr(colon + 1));
      Names& known = mayKnow[line.substr(0, colon)];
      for (std::string word; words >> word;) {
        EXPECT_EQ(mayKnow.count(word), 1U) << line << ": an arrow upward, or to no room";
        known.insert(word);
      }
    }
  }

  std::map<std::string, Names> mayKnow;
};

TEST_F(Rooms, KnowOnlyWhomTheyMay) {
  const std::regex include("^\\s*#include [<\"]([^>\"]+)[>\"]");
  int files = 0;
  for (const auto& [room, known] : mayKnow) {
    const bool toolkit = room == "look" || known.count("look") != 0U;
    for (const auto& entry : fs::directory_iterator(fs::path(SOURCE_FOLDER) / "src" / room)) {
      const std::string extension = entry.path().extension().string();
      if (extension != ".h" && extension != ".cpp") continue;
      ++files;
      std::ifstream file(entry.path());
      std::smatch match;
      for (std::string line; std::getline(file, line);) {
        if (line.find("#include") == std::string::npos || !std::regex_search(line, match, include)) continue;
        const std::string name = match[1];
        const std::string other = fs::path(name).parent_path().generic_string();
        const bool isRoom = mayKnow.count(other) != 0U;
        EXPECT_TRUE(!isRoom || other == room || known.count(other) != 0U)
            << entry.path() << " includes " << name;
        if (toolkit) continue;
        const bool isStandard = name.find_first_of("/.") == std::string::npos;
        EXPECT_TRUE(isRoom || isStandard || MayUseLibraries(room)) << entry.path() << " includes " << name;
        EXPECT_NE(name[0], 'Q') << entry.path() << " includes a toolkit";
      }
    }
  }
  EXPECT_GT(files, 350);
}

// One that grows beyond this wants another wall. Sources of one computer's kind stand beside those of
// another's.
TEST_F(Rooms, HoldTwentyFilesAtMost) {
  std::map<fs::path, int> files;
  for (const auto& entry : fs::recursive_directory_iterator(fs::path(SOURCE_FOLDER) / "src")) {
    const std::string extension = entry.path().extension().string();
    if (extension != ".h" && extension != ".cpp") continue;
    const std::string room =
        entry.path().parent_path().lexically_relative(fs::path(SOURCE_FOLDER) / "src").generic_string();
    EXPECT_EQ(mayKnow.count(room), 1U) << entry.path() << " stands in no room of the table";
    ++files[room];
  }
  for (const auto& [room, count] : files) EXPECT_LE(count, 20) << room;
}

}  // namespace
