// The folders of tests/cases and the working days among the samples, each a test of its own.
#include "cli/torvane_program.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <vector>

namespace torvane {
namespace {

namespace fs = std::filesystem;

const fs::path kCases = fs::path(SOURCE_FOLDER) / "tests" / "cases";
const fs::path kSamples = fs::path(SOURCE_FOLDER) / "samples";

// The design of a case and the ending of its program.
struct CaseDesign {
  fs::path path;
  std::string program;
};
CaseDesign DesignOf(const fs::path& folder) {
  if (fs::exists(folder / "design.t4d")) return {folder / "design.t4d", "program.T4G"};
  return {folder / "design.t2d", "program.T2G"};
}

std::vector<std::string> LinesOfFile(const fs::path& path) {
  std::vector<std::string> lines;
  std::ifstream file(path);
  for (std::string line; std::getline(file, line);)
    if (!line.empty()) lines.push_back(line);
  return lines;
}

std::string Replaced(std::string text, const std::string& from, const std::string& to) {
  for (auto at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size()))
    text.replace(at, from.size(), to);
  return text;
}

std::string StationPathOf(const fs::path& folder) { return Replaced(folder.string(), "/", "\\"); }

std::vector<std::string> FoldersOf(const fs::path& folder) {
  std::vector<std::string> names;
  for (const auto& entry : fs::directory_iterator(folder))
    if (entry.is_directory()) names.push_back(entry.path().filename().string());
  std::sort(names.begin(), names.end());
  return names;
}

// By the folder's name, so that one case can be asked for by it.
std::string NameOfCase(const testing::TestParamInfo<std::string>& info) {
  return Replaced(info.param, "-", "_");
}

// The text as the file holds it; where differences are accepted (tools/accept.sh), the file takes it over.
void ExpectAsIn(const fs::path& file, const std::string& text) {
  if (std::getenv("TORVANE_ACCEPT") == nullptr)
    EXPECT_EQ(text, Bytes(file));
  else
    std::ofstream(file, std::ios::binary) << text;
}

class Cases : public Torvane, public testing::WithParamInterface<std::string> {
 protected:
  Ended Follow(const fs::path& script) { return Start("script --locale point " + Quoted(script.string())); }
};

// A program worked out by hand from the rules of winding, byte for byte. No run may take over its
// expectation.
class Programs : public Cases {};

TEST_P(Programs, AsWorkedOutByHand) {
  const fs::path folder = kCases / "programs" / GetParam();
  const CaseDesign design = DesignOf(folder);
  std::string arguments = "gcode " + Quoted(design.path.string()) + " --out - ";
  for (const std::string& option : LinesOfFile(folder / "options.txt")) arguments += option + " ";
  if (arguments.find("--locale") == std::string::npos) arguments += "--locale point ";
  for (const std::string& field : LinesOfFile(folder / "fields.txt"))
    arguments += "--field " + Quoted(field) + " ";
  const Ended run = Start(arguments, (folder / "settings.ini").string());
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.out, Replaced(Bytes(folder / design.program), "@HOME@", StationPathOf(home())));
}

INSTANTIATE_TEST_SUITE_P(Cases, Programs, testing::ValuesIn(FoldersOf(kCases / "programs")), NameOfCase);

// The rows of the same designs, worked out with them: case, row, speeds, passes, minutes, length.
TEST_F(Torvane, ShowsFiguresAsWorkedOutByHand) {
  const std::vector<std::string> twoAxes = {"txtMRPM", "txtCarriageSpeed", "lblPassesToCover",
                                            "lblMinutesToCover", "lblLengthToCover"};
  const std::vector<std::string> fourAxes = {"lblRPM", "lblcSpeed", "lblNPasses", "lblMinutes", "lblLength"};
  std::vector<std::string> lines = LinesOfFile(kCases / "programs" / "figures.txt");
  for (const std::string& line : LinesOfFile(kCases / "programs" / "figures4.txt")) lines.push_back(line);
  EXPECT_GE(lines.size(), 48U);
  for (const std::string& line : lines) {
    std::vector<std::string> cells;
    std::stringstream stream(line + "\t");
    for (std::string cell; std::getline(stream, cell, '\t');) cells.push_back(cell);
    const fs::path folder = kCases / "programs" / cells[0];
    const fs::path design = DesignOf(folder).path;
    std::string arguments = "info --json " + Quoted(design.string());
    const auto options = LinesOfFile(folder / "options.txt");
    arguments += options.empty() ? " --locale point" : " " + options.front();
    const Ended run = Start(arguments, (folder / "settings.ini").string());
    const auto expect = [&](const std::string& name, const std::string& text) {
      EXPECT_NE(run.out.find("\"" + name + "\": \"" + text + "\""), std::string::npos)
          << line << ": " << name << " is not " << text;
    };
    if (cells[1] == "build") {
      expect("gBuildHours", cells[2]);
      expect("gBuildMinutes", cells[3]);
      continue;
    }
    const auto& names = design.extension() == ".t4d" ? fourAxes : twoAxes;
    ASSERT_EQ(cells.size(), 7U) << line;
    for (std::size_t i = 0; i < names.size(); ++i)
      if (cells[i + 2] != "-") expect(names[i] + "(" + cells[1] + ")", cells[i + 2]);
  }
}

// A situation that an operator would recognise, with what it prints beside it.
class Scripts : public Cases {};

TEST_P(Scripts, PrintAsExpected) {
  const fs::path folder = kCases / "scripts" / GetParam();
  const Ended run = Follow(folder / "script");
  ExpectAsIn(folder / "expected",
             Lines(run.out) + (run.status == 0 ? "" : "status " + std::to_string(run.status) + "\n"));
}

INSTANTIATE_TEST_SUITE_P(Cases, Scripts, testing::ValuesIn(FoldersOf(kCases / "scripts")), NameOfCase);

// A whole working day prints what stands beside it.
class WorkingDays : public Cases {};

TEST_P(WorkingDays, PrintAsExpected) {
  const Ended run = Follow(kSamples / (GetParam() + ".script"));
  EXPECT_EQ(run.status, 0) << run.err;
  ExpectAsIn(kSamples / (GetParam() + ".output"),
             Replaced(Lines(run.out), StationPathOf(home()), "\\srv\\winder\\torvane"));
}

INSTANTIATE_TEST_SUITE_P(Cases, WorkingDays, testing::Values("working-day", "four-axis-day"), NameOfCase);

}  // namespace
}  // namespace torvane
