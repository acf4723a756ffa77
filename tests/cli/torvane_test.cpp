// The program itself, as a user starts it: its output and exit status.
#include "cli/torvane_program.h"

#include <algorithm>
#include <cmath>
#include <fstream>
#include <nlohmann/json.hpp>
#include <thread>

#include "cli/command/proof_json.h"
#include "live/live_proof.h"
#include "support/station_on_stage.h"
#include "workbench/document/design_commands.h"

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

TEST_F(Torvane, WindsOnFromAPass) {
  const std::string tube = Quoted((fs::path(SOURCE_FOLDER) / "samples" / "Tube-4x24.t2d").string());
  ASSERT_EQ(Start("gcode " + tube).status, 0);
  const fs::path programs = home() / "TV_G-Code_Files";
  const std::string program = Quoted((programs / "Tube-4x24.T2G").string());
  const Ended run = Start("restart " + program + " --layer 3 --pass 17");
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(Lines(run.out), (programs / "Tube-4x24-RESTART.T2G").string() + "\n");
  const std::string restart = Bytes(programs / "Tube-4x24-RESTART.T2G");
  EXPECT_EQ(restart.find("[RESTART OF Tube-4x24.T2G AT LAYER 3 PASS 17]"), 0U);
  EXPECT_EQ(Start("restart " + program + " --layer 3 --pass 99").status, 2);
  EXPECT_EQ(Bytes(programs / "Tube-4x24-RESTART.T2G"), restart) << "the former restart stays";
  const std::string out = (folder_ / "on.T2G").string();
  EXPECT_EQ(Start("restart " + program + " --layer 1 --pass 1 --out " + Quoted(out)).status, 0);
  EXPECT_TRUE(fs::exists(out));
}

// A design against itself retyped, against its own program, and against that program with one figure changed.
TEST_F(Torvane, TellsWhatIsWoundDifferently) {
  const fs::path samples = fs::path(SOURCE_FOLDER) / "samples";
  const std::string tube = Quoted((samples / "Tube-4x24.t2d").string());
  const auto differences = [&](const std::string& one, const std::string& other, int status) {
    const Ended run = Start("diff --json " + one + " " + other);
    EXPECT_EQ(run.status, status) << run.err;
    const nlohmann::json told = nlohmann::json::parse(run.out);
    std::vector<std::string> lines;
    for (const auto& each : told["differences"])
      lines.push_back(std::to_string(each["layer"].get<int>()) + " " + each["what"].get<std::string>() + " " +
                      each["from"].get<std::string>() + ">" + each["to"].get<std::string>() +
                      each["unit"].get<std::string>());
    return lines;
  };
  const auto has = [](const std::vector<std::string>& lines, const std::string& line) {
    return std::find(lines.begin(), lines.end(), line) != lines.end();
  };
  EXPECT_TRUE(differences(tube, tube, 0).empty());

  std::string design = Bytes(samples / "Tube-4x24.t2d");
  const auto put = [&](const std::string& tag, const std::string& text) {
    const auto at = design.find("<" + tag + ">") + tag.size() + 2;
    design.replace(at, design.find('<', at) - at, text);
  };
  put("Winding_Angles", "90;45;50;30;60;90");
  put("Band_Width", "0.2500");
  std::ofstream(folder_ / "steeper.t2d", std::ios::binary) << design;
  const auto steeper = differences(tube, Quoted((folder_ / "steeper.t2d").string()), 1);
  EXPECT_TRUE(has(steeper, "3 Winding Angle 45.0>50.0deg")) << testing::PrintToString(steeper);
  EXPECT_TRUE(has(steeper, "3 Angle as laid 45.0>50.0deg")) << testing::PrintToString(steeper);
  EXPECT_FALSE(has(steeper, "0 Band width 0.250>0.2500in")) << "the same number";
  for (const std::string& line : steeper) EXPECT_TRUE(line[0] == '0' || line[0] == '3') << line;

  ASSERT_EQ(Start("gcode " + tube).status, 0);
  const fs::path program = home() / "TV_G-Code_Files" / "Tube-4x24.T2G";
  EXPECT_TRUE(differences(tube, Quoted(program.string()), 0).empty()) << "its own program";
  std::string damaged = Bytes(program);
  const auto at = damaged.find("G1 F6 ");
  ASSERT_NE(at, std::string::npos);
  damaged.replace(at, 6, "G1 F3 ");
  std::ofstream(folder_ / "slower.T2G", std::ios::binary) << damaged;
  const auto slower = differences(Quoted(program.string()), Quoted((folder_ / "slower.T2G").string()), 1);
  EXPECT_TRUE(has(slower, "0 First other statement line 40: G1 F6 Z28.00>line 40: G1 F3 Z28.00"))
      << testing::PrintToString(slower);

  EXPECT_EQ(Start("diff " + tube + " " + Quoted((folder_ / "missing.t2d").string())).status, 2);
  std::ofstream(folder_ / "noise.T2G") << "nothing";
  EXPECT_EQ(Start("diff " + Quoted((folder_ / "noise.T2G").string()) + " " + tube).status, 2);
}

TEST_F(Torvane, TellsWhatThePartWillBe) {
  const std::string tube = Quoted(std::string(SOURCE_FOLDER) + "/samples/Tube-4x24.t2d");
  const std::string materials = " --tow \"T300 (NASA)\" --resin \"Epoxy IMHS (NASA)\"";
  const Ended first = Start("laminate " + tube);
  EXPECT_EQ(first.status, 0) << first.err;
  EXPECT_NE(first.err.find("TV_Materials.csv is made"), std::string::npos) << first.err;
  EXPECT_NE(first.out.find("Missing: the design names no tow"), std::string::npos) << first.out;
  EXPECT_NE(first.out.find("unverified by tests of real tubes"), std::string::npos);
  EXPECT_TRUE(fs::exists(home() / "TV_Materials.csv"));

  const auto json = [&](const std::string& options) {
    const Ended run = Start("laminate --json " + tube + options);
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.err.find("is made"), std::string::npos) << "the table is not made again";
    return nlohmann::json::parse(run.out);
  };
  const nlohmann::json plain = json(materials), loaded = json(materials + " --pressure 10bar");
  EXPECT_TRUE(plain["missing"].empty()) << plain["missing"];
  const nlohmann::json& layers = plain["middle"]["layers"];
  ASSERT_EQ(layers.size(), 6U);
  EXPECT_NEAR(layers[1]["angle"].get<double>(), layers[1]["asked"].get<double>(), 0.5);
  double wall = 0;
  for (const nlohmann::json& layer : layers) wall += layer["thickness"].get<double>();
  EXPECT_NEAR(wall, plain["middle"]["wall"].get<double>(), 1e-12);
  EXPECT_FALSE(plain.contains("margins"));
  double least = 1e9;
  for (const nlohmann::json& margin : loaded["margins"])
    least = std::min(least, margin["tsaiWu"].get<double>());
  EXPECT_NEAR(least * 1e6, plain["firstPlyFailure"][0]["tsaiWu"]["load"].get<double>(), 1);

  // The design's own materials stand beside it.
  const fs::path part = folder_ / "part.t2d";
  fs::copy_file(fs::path(SOURCE_FOLDER) / "samples" / "Tube-4x24.t2d", part);
  std::ofstream(folder_ / "part.t2d.materials.csv")
      << "Item,Value\nTow,T300 (NASA)\nResin,Epoxy IMHS (NASA)\nResin share (% of volume),40\n";
  const Ended own = Start("laminate --json " + Quoted(part.string()));
  EXPECT_DOUBLE_EQ(nlohmann::json::parse(own.out)["fibreShare"].get<double>(), 0.6);
  std::ofstream(home() / "TV_Materials.csv", std::ios::app) << "rope,bad\r\n";
  EXPECT_NE(Start("laminate " + tube).err.find("line 32: \"bad\" is no kind"), std::string::npos);

  EXPECT_EQ(Start("laminate " + Quoted((folder_ / "missing.t2d").string())).status, 1);
  std::ofstream(folder_ / "case.json") << R"({"kind": "tube", "inputs": {"radius": 0.1, "pressure": 100}})";
  const Ended answer = Start("laminate --case " + Quoted((folder_ / "case.json").string()));
  EXPECT_EQ(answer.status, 0) << answer.err;
  EXPECT_DOUBLE_EQ(nlohmann::json::parse(answer.out)["N2"].get<double>(), 10);
  std::ofstream(folder_ / "bad.json") << R"({"kind": "tube", "inputs": {"radius": -1}})";
  const std::string bad = "--case " + Quoted((folder_ / "bad.json").string());
  for (const std::string& arguments :
       {std::string(), bad, bad + " " + tube, "--case " + Quoted(folder_.string()), tube + " --pressure much",
        tube + " --pressure 5parsec"}) {
    const Ended run = Start("laminate " + arguments);
    EXPECT_EQ(run.status, 2) << arguments;
    EXPECT_NE(run.err, "") << arguments;
    EXPECT_EQ(run.out, "") << arguments;
  }
}

// What the window proves beside the typing is what the command prints, byte for byte.
TEST_F(Torvane, ProvesWhatTheWindowProves) {
  for (const char* name : {"Tube-100x600-mm.t2d", "Taper-Mast.t2d", "Hemi-Vessel-150mm.t4d"}) {
    const fs::path sample = fs::path(SOURCE_FOLDER) / "samples" / name;
    StationOnStage onStage;
    Station& station = onStage.Started();
    const std::string path = std::string("C:\\Torvane\\TV_Design_Files\\") + name;
    onStage.stage.files.Put(path, Bytes(sample));
    OpenNamedDesign(station, path);
    LiveProof live(station.s.signs, [] {});
    live.Ask(station.s, {station.platform.files.ProgramFolder(), station.platform.clock.Now()},
             executor::ReadLimits(station.platform.store, '.'));
    while (live.Proving()) std::this_thread::yield();
    EXPECT_EQ(Lines(Start("prove --json " + Quoted(sample.string())).out),
              JsonOf(live.Result()->proof).dump(2) + "\n")
        << name;
  }
}

TEST_F(Torvane, WritesAMapOfTheBands) {
  const std::string sample = Quoted(std::string(SOURCE_FOLDER) + "/samples/Tube-4x24.t2d");
  const std::string csv = (folder_ / "map.csv").string(), vtk = (folder_ / "map.vtk").string();
  EXPECT_EQ(Start("prove " + sample + " --map " + Quoted(csv)).status, 0);
  EXPECT_EQ(Lines(Bytes(csv)).substr(0, 49), "z_in,angle_deg,bands,thickness_in,layer1,layer2,l");
  EXPECT_EQ(Start("prove " + sample + " --map " + Quoted(vtk)).status, 0);
  EXPECT_NE(Bytes(vtk).find("SCALARS layer6 int 1"), std::string::npos);
  for (const std::string& arguments :
       {sample + " --map map.txt", sample + " " + sample + " --map " + Quoted(csv)})
    EXPECT_EQ(Start("prove " + arguments).status, 2) << arguments;
  EXPECT_EQ(Start("prove " + sample + " --map " + Quoted((folder_ / "none" / "map.csv").string())).status, 1);
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
