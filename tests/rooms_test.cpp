// Who may know whom: the include lines of every room of src/.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <set>

namespace {

namespace fs = std::filesystem;

// A room knows itself, the rooms named here, and the standard library.
const std::map<std::string, std::set<std::string>> kMayKnow = {
    {"design", {}},
    {"platform", {}},
    {"calc", {"design"}},
    {"gcode", {"design", "calc", "platform"}},
    {"persist", {"design", "calc", "platform"}},
    {"workbench", {"design", "calc", "gcode", "persist", "platform"}},
    {"handoff", {"design", "calc", "gcode", "persist", "platform", "workbench"}},
    {"host", {"platform"}},
    {"stage", {"platform"}},
    {"executor", {"platform", "host"}},
    {"executor/main", {"platform", "host", "executor", "dryrun"}},
    {"cli", {"design", "calc", "gcode", "persist", "platform", "workbench", "handoff", "host", "stage"}},
    {"look", {"platform", "host"}},
    {"dryrun", {"platform", "host", "executor", "look"}},
    {"window", {"design", "calc", "gcode", "persist", "platform", "workbench", "handoff", "host", "look"}},
};
// Elsewhere no header of the windows' toolkit is included, and in the core only the standard library's.
const std::set<std::string> kToolkitRooms = {"look", "dryrun", "window"};
const std::set<std::string> kLibraryRooms = {"host", "cli", "executor/main"};

TEST(Rooms, KnowOnlyWhomTheyMay) {
  const std::regex include("^\\s*#include [<\"]([^>\"]+)[>\"]");
  int files = 0;
  for (const auto& [room, known] : kMayKnow) {
    const fs::path folder = fs::path(SOURCE_FOLDER) / "src" / room;
    if (!fs::exists(folder)) continue;
    for (const auto& entry : fs::directory_iterator(folder)) {
      const std::string extension = entry.path().extension().string();
      if (extension != ".h" && extension != ".cpp") continue;
      ++files;
      std::ifstream file(entry.path());
      std::smatch match;
      for (std::string line; std::getline(file, line);) {
        if (!std::regex_search(line, match, include)) continue;
        const std::string name = match[1];
        const std::string other = name.substr(0, name.find('/'));
        const bool isRoom = kMayKnow.count(other) != 0U;
        EXPECT_TRUE(!isRoom || other == room || known.count(other) != 0U)
            << entry.path() << " includes " << name;
        if (kToolkitRooms.count(room) != 0U) continue;
        const bool isStandard = name.find_first_of("/.") == std::string::npos;
        EXPECT_TRUE(isRoom || isStandard || kLibraryRooms.count(room) != 0U)
            << entry.path() << " includes " << name;
        EXPECT_NE(name[0], 'Q') << entry.path() << " includes a toolkit";
      }
    }
  }
  EXPECT_GT(files, 200);
}

}  // namespace
