// The program itself, as a user starts it: its output and exit status.
#include "cli/torvane_program.h"

#include <cmath>
#include <fstream>
#include <nlohmann/json.hpp>

namespace torvane {
namespace {

namespace fs = std::filesystem;

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
