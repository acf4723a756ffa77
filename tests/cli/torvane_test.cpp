// The program itself, as a user starts it: its output and exit status against the files of the cases.
#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>
#include <sstream>

#include "support/ended_program.h"

namespace torvane {
namespace {

namespace fs = std::filesystem;

const fs::path kCases = fs::path(SOURCE_FOLDER) / "tests" / "cases";

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

class Torvane : public testing::Test {
 protected:
  Torvane() { fs::create_directories(home()); }

  fs::path home() const { return folder_ / "home"; }

  Ended Start(const std::string& arguments, const std::string& store = "") {
    return RunToItsEnd(TORVANE_PROGRAM,
                       arguments + " --home " + Quoted(home().string()) + " --store " +
                           Quoted(store.empty() ? (folder_ / "store.ini").string() : store) + " --now " +
                           Quoted("2026-03-04 05:06:07"),
                       folder_);
  }

  TemporaryFolder temporary_;
  fs::path folder_ = temporary_.path;
};

std::string Replaced(std::string text, const std::string& from, const std::string& to) {
  for (auto at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size()))
    text.replace(at, from.size(), to);
  return text;
}

std::string StationPathOf(const fs::path& folder) { return Replaced(folder.string(), "/", "\\"); }

// Programs worked out by hand from the rules of winding, byte for byte.
TEST_F(Torvane, WritesProgramsAsWorkedOutByHand) {
  int cases = 0;
  for (const auto& entry : fs::directory_iterator(kCases / "programs")) {
    if (!entry.is_directory()) continue;
    SCOPED_TRACE(entry.path().filename().string());
    const CaseDesign design = DesignOf(entry.path());
    std::string arguments = "gcode " + Quoted(design.path.string()) + " --out - ";
    for (const std::string& option : LinesOfFile(entry.path() / "options.txt")) arguments += option + " ";
    if (arguments.find("--locale") == std::string::npos) arguments += "--locale point ";
    for (const std::string& field : LinesOfFile(entry.path() / "fields.txt"))
      arguments += "--field " + Quoted(field) + " ";
    const Ended run = Start(arguments, (entry.path() / "settings.ini").string());
    const std::string expected =
        Replaced(Bytes(entry.path() / design.program), "@HOME@", StationPathOf(home()));
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.out, expected);
    ++cases;
  }
  EXPECT_GE(cases, 11);
}

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

// Each script is one situation that an operator would recognise, with what it prints beside it.
TEST_F(Torvane, FollowsScripts) {
  int cases = 0;
  for (const auto& entry : fs::directory_iterator(kCases / "scripts")) {
    SCOPED_TRACE(entry.path().filename().string());
    ++cases;
    fs::remove_all(folder_);
    fs::create_directories(home());
    const Ended run = Start("script --locale point " + Quoted((entry.path() / "script").string()));
    EXPECT_EQ(Lines(run.out) + (run.status == 0 ? "" : "status " + std::to_string(run.status) + "\n"),
              Bytes(entry.path() / "expected"))
        << run.err;
  }
  EXPECT_GE(cases, 50);
}

// The whole working days among the samples print what stands beside them.
TEST_F(Torvane, FollowsTheWorkingDays) {
  for (const auto& entry : fs::directory_iterator(fs::path(SOURCE_FOLDER) / "samples")) {
    if (entry.path().extension() != ".script") continue;
    SCOPED_TRACE(entry.path().filename().string());
    fs::remove_all(folder_);
    fs::create_directories(home());
    const Ended run = Start("script --locale point " + Quoted(entry.path().string()));
    fs::path output = entry.path();
    const std::string expected =
        Replaced(Bytes(output.replace_extension(".output")), "\\srv\\winder\\torvane", StationPathOf(home()));
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(Lines(run.out), expected);
  }
}

TEST_F(Torvane, DoesTheOtherDesignsWhenOneCannotBeRead) {
  const fs::path samples = fs::path(SOURCE_FOLDER) / "samples";
  std::ofstream(folder_ / "noise.t2d") << "nothing of a design";
  const Ended run = Start(
      "gcode " + Quoted((folder_ / "missing.t2d").string()) + " " + Quoted((folder_ / "noise.t2d").string()) +
      " " + Quoted((folder_ / "part.txt").string()) + " " + Quoted((samples / "Tube-4x24.t2d").string()));
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(Lines(run.out), (home() / "TV_G-Code_Files" / "Tube-4x24.T2G").string() + "\n");
  EXPECT_NE(run.err.find("missing.t2d: there is no such file"), std::string::npos) << run.err;
  EXPECT_NE(run.err.find("Input File Lacks Sufficient Data"), std::string::npos) << run.err;
  EXPECT_TRUE(fs::is_directory(home() / "TV_Design_Files"));
}

TEST_F(Torvane, ProvesDesigns) {
  const auto sample = [](const std::string& name) {
    return Quoted((fs::path(SOURCE_FOLDER) / "samples" / name).string());
  };
  const std::string tube = sample("Tube-4x24.t2d"), sleeve = sample("Carriage-Shift-Sleeve.t2d");
  const Ended good = Start("prove " + tube);
  EXPECT_EQ(good.status, 0) << good.err;
  EXPECT_NE(Lines(good.out).find("Tube-4x24.t2d\n  0 faults, "), std::string::npos) << good.out;
  EXPECT_NE(good.out.find("feet of tow where 823.6 feet are announced"), std::string::npos) << good.out;
  EXPECT_EQ(Start("prove " + tube + " " + sleeve).status, 1) << "by the second one";
  EXPECT_EQ(Start("prove " + sleeve + " " + tube).status, 1);
  EXPECT_EQ(Start("prove " + Quoted((folder_ / "missing.t2d").string())).status, 1);
  EXPECT_EQ(Start("prove").status, 2);
  EXPECT_FALSE(fs::exists(home() / "TV_G-Code_Files" / "Tube-4x24.T2G")) << "nothing is written";

  const auto json = [&](const std::string& settings) {
    const Ended run = Start("prove --json " + tube + settings);
    EXPECT_EQ(run.status, 0) << run.err;
    return nlohmann::json::parse(run.out);
  };
  const nlohmann::json usual = json("");
  EXPECT_EQ(usual["layers"].size(), 6U);
  EXPECT_EQ(usual["spools"]["count"], 1);
  EXPECT_EQ(usual["accelerations"], "not known");
  EXPECT_NEAR(usual["announcedTow"].get<double>(), 823.6 * 12, 1e-6);
  const double tow = usual["tow"][0];
  const nlohmann::json other = json(
      " --setting gProofSpoolLength=100 --setting gProofCarriageAcceleration=10 --setting "
      "gProofResinShare=25");
  EXPECT_EQ(other["spools"]["count"], static_cast<int>(std::ceil(tow / 1200)));
  EXPECT_EQ(other["spools"]["splices"].size(), other["spools"]["count"].get<std::size_t>() - 1);
  EXPECT_GT(other["seconds"][1].get<double>(), usual["seconds"][1].get<double>());
  EXPECT_EQ(other["layers"][1]["slowest"], "carriage");
  EXPECT_NEAR(other["resinGrams"].get<double>(), usual["resinGrams"].get<double>() / 2, 1e-6);
}

TEST_F(Torvane, SaysWhatIsWrongWithItsArguments) {
  const std::string sample = Quoted(std::string(SOURCE_FOLDER) + "/samples/Tube-4x24.t2d");
  for (const std::string& arguments :
       {std::string(""), std::string("wind"), "gcode " + sample + " --locale dot",
        "gcode " + sample + " --now noon", "gcode " + sample + " --setting nothing=1",
        "gcode " + sample + " --field nothing=1", "gcode " + sample + " --field " + Quoted("\xE2\x98\x83=1"),
        std::string("setting get Settings nothing"), std::string("setting set Nowhere chkNotify1 1"),
        "convert " + sample + " part.t4d"}) {
    const Ended run = Start(arguments);
    EXPECT_EQ(run.status, 2) << arguments;
    EXPECT_FALSE(run.err.empty()) << arguments;
  }
}

TEST_F(Torvane, LeavesTheStoreAloneButForItsSettingCommand) {
  const std::string sample = Quoted(std::string(SOURCE_FOLDER) + "/samples/Tube-4x24.t2d");
  const Ended convert = Start("convert " + sample + " " + Quoted((folder_ / "copy.t2d").string()));
  EXPECT_EQ(Lines(convert.out), (folder_ / "copy.t2d").string() + "\n");
  EXPECT_NE(Start("info " + Quoted((folder_ / "copy.t2d").string())).out.find("823.6"), std::string::npos);
  EXPECT_EQ(Start("gcode " + sample + " --setting gIsLHDrive=True").status, 0);
  EXPECT_FALSE(fs::exists(folder_ / "store.ini"));
  EXPECT_EQ(Lines(Start("setting get Settings gIsLHDrive").out), "False\n");
  EXPECT_EQ(Start("setting set Settings gIsLHDrive True").status, 0);
  EXPECT_EQ(Lines(Start("setting get Settings gIsLHDrive").out), "True\n");
}

// What stands in a design's fields is 8-bit text, what a terminal shows UTF-8.
TEST_F(Torvane, ShowsWhatIsNoNumberInTheTerminalsText) {
  std::string design = Bytes(fs::path(SOURCE_FOLDER) / "samples" / "Tube-4x24.t2d");
  const std::string tag = "<Diameter_Left>";
  const auto at = design.find(tag) + tag.size();
  design.replace(at, design.find('<', at) - at, "4\xBD");
  std::ofstream(folder_ / "half.t2d", std::ios::binary) << design;
  const Ended run = Start("info " + Quoted((folder_ / "half.t2d").string()));
  EXPECT_NE(run.out.find("Left diameter                4\xC2\xBD in"), std::string::npos) << run.out;
}

TEST_F(Torvane, ADesignOfAMegabyteOfGarbageIsReadAtOnce) {
  std::ofstream file(folder_ / "garbage.t2d", std::ios::binary);
  for (int i = 0; i < 500'000; ++i) file << (i % 2 == 0 ? "\n" : "<");
  file.close();
  EXPECT_EQ(Start("info " + Quoted((folder_ / "garbage.t2d").string())).status, 1);
}

}  // namespace
}  // namespace torvane
