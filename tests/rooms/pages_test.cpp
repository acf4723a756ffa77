// What the pages for developers name exists: a page that speaks of a file or a routine that is gone misleads.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <sstream>

namespace {

namespace fs = std::filesystem;

const fs::path kRoot = SOURCE_FOLDER;

std::string TextOf(const fs::path& path) {
  std::ifstream file(path);
  std::ostringstream text;
  text << file.rdbuf();
  return text.str();
}

std::vector<std::string> AllOf(const std::string& text, const std::regex& what, std::size_t group = 0) {
  std::vector<std::string> found;
  for (std::sregex_iterator at(text.begin(), text.end(), what), end; at != end; ++at)
    found.push_back(at->str(group));
  return found;
}

// What stands between backticks, blocks of code left out.
std::vector<std::string> NamesOn(const std::string& page) {
  const std::string text = std::regex_replace(page, std::regex("```[^`]*```"), "");
  return AllOf(text, std::regex("`([^`]+)`"), 1);
}

// A path of this project as pages write it: from the root, or from src/. What a build makes, what is the
// operator's, and patterns of names are none.
bool IsPath(const std::string& word) {
  static const std::regex path(
      "[.]?[a-z_]+(/[A-Za-z0-9_.-]+)+/?|[A-Za-z][A-Za-z_-]*\\.(h|cpp|md|txt|sh|py|cmake)");
  return std::regex_match(word, path) && !word.starts_with("build/") && !word.starts_with("bin/") &&
         !word.starts_with("share/");
}

bool Exists(const std::string& path) {
  // NAME stands for whatever the reader calls it.
  const fs::path known = path.substr(0, path.find("/NAME"));
  return fs::exists(kRoot / known) || fs::exists(kRoot / "src" / known);
}

std::vector<fs::path> Pages() {
  std::vector<fs::path> pages;
  for (const fs::path& folder : {kRoot, kRoot / "docs"})
    for (const auto& entry : fs::directory_iterator(folder))
      if (entry.path().extension() == ".md") pages.push_back(entry.path());
  return pages;
}

bool IsCode(const fs::path& file) {
  const std::string name = file.filename().string(), ending = file.extension().string();
  return name != "pages_test.cpp" && (name == "CMakeLists.txt" || ending == ".h" || ending == ".cpp" ||
                                      ending == ".sh" || ending == ".py" || ending == ".cmake");
}

// Every word of the code, comments left out.
std::set<std::string> WordsOfCode() {
  const auto inWord = [](char c) { return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_'; };
  std::set<std::string> words;
  for (const char* folder : {"src", "tests", "fuzz", "bench", "tools", "cmake"})
    for (const auto& entry : fs::recursive_directory_iterator(kRoot / folder)) {
      if (!IsCode(entry.path())) continue;
      std::ifstream file(entry.path());
      for (std::string line; std::getline(file, line);) {
        line.resize(std::min(line.size(), line.find("//")));
        for (auto at = line.begin(); at != line.end();) {
          const auto from = std::find_if(at, line.end(), inWord);
          at = std::find_if_not(from, line.end(), inWord);
          if (from != at) words.emplace(from, at);
        }
      }
    }
  return words;
}

TEST(Pages, NameFilesThatExist) {
  int paths = 0;
  for (const fs::path& page : Pages())
    for (const std::string& name : NamesOn(TextOf(page))) {
      std::istringstream words(name);
      for (std::string word; words >> word;) {
        if (!IsPath(word)) continue;
        ++paths;
        EXPECT_TRUE(Exists(word)) << page << " names " << word;
      }
    }
  EXPECT_GT(paths, 100);
}

TEST(Pages, NameCodeThatExists) {
  const std::set<std::string> known = WordsOfCode();
  const std::regex word("[A-Za-z_][A-Za-z0-9_]*");
  int names = 0;
  for (const char* page : {"code-map.md", "mechanisms.md", "style.md", "extending.md"})
    for (const std::string& name : NamesOn(TextOf(kRoot / "docs" / page))) {
      if (Exists(name) || name.find_first_of("/<~\\") != std::string::npos) continue;
      ++names;
      for (const std::string& each : AllOf(name, word))
        EXPECT_EQ(known.count(each), 1U) << page << " names " << name << ": there is no " << each;
    }
  EXPECT_GT(names, 60);
}

// Each line of a block under a file's name, wherever that file has it.
TEST(Pages, ShowCodeAsItStands) {
  const std::string page = TextOf(kRoot / "docs" / "style.md");
  const std::regex block("```cpp\n// ([^\n]+)\n([^`]*)```");
  int lines = 0;
  for (std::sregex_iterator at(page.begin(), page.end(), block), end; at != end; ++at) {
    const std::string code = TextOf(kRoot / "src" / at->str(1));
    std::istringstream shown(at->str(2));
    for (std::string line; std::getline(shown, line); ++lines)
      EXPECT_NE(code.find(line), std::string::npos) << at->str(1) << " does not say " << line;
  }
  EXPECT_GT(lines, 5);
}

// The packages that set-up and checks install, each with its licence.
TEST(Pages, TellTheLicenceOfEachPackage) {
  const std::vector<std::string> named = NamesOn(TextOf(kRoot / "docs" / "third-party.md"));
  const std::set<std::string> known(named.begin(), named.end());
  int packages = 0;
  std::vector<fs::path> scripts = {kRoot / "check"};
  for (const auto& entry : fs::directory_iterator(kRoot / "tools"))
    if (entry.path().extension() == ".sh") scripts.push_back(entry.path());
  for (const fs::path& script : scripts)
    for (const std::string& list : AllOf(TextOf(script), std::regex("packages\\+?=\\(([^)]*)\\)"), 1)) {
      std::istringstream words(list);
      for (std::string package; words >> package; ++packages)
        EXPECT_EQ(known.count(package), 1U) << script << " installs " << package;
    }
  EXPECT_GT(packages, 15);
}

TEST(Pages, TheCodeMapShowsEveryRoom) {
  const std::vector<std::string> named = NamesOn(TextOf(kRoot / "docs" / "code-map.md"));
  const std::set<std::string> known(named.begin(), named.end());
  int rooms = 0;
  std::istringstream table(TextOf(kRoot / "src" / "rooms.txt"));
  for (std::string line; std::getline(table, line);) {
    const auto colon = line.find(':');
    if (line.empty() || line[0] == '#' || colon == std::string::npos) continue;
    ++rooms;
    EXPECT_EQ(known.count(line.substr(0, colon)), 1U) << line.substr(0, colon);
  }
  EXPECT_GT(rooms, 30);
}

}  // namespace
