// What a command line names against what the environment names.
#include <vector>

#include "cli/programs_store.h"

namespace torvane {
namespace {

namespace fs = std::filesystem;

TEST_F(ProgramsStore, OptionsWinOverTheEnvironment) {
  const std::string others = "[Settings]\ngIsLHDrive=True\ntxtMailServer=other\n";
  Put(Path("other.ini"), others);
  Put(Path("mine.ini"), "[Settings]\ntxtMailServer=mine\n");
  const std::string tube = Quoted(kSamples + "Tube-4x24.t2d"),
                    vessel = Quoted(kSamples + "Hemi-Vessel-150mm.t4d");
  Put(Path("day.script"), "store Settings txtEmail1 me\nsetting Settings txtMailServer\n");
  const std::vector<std::string> commands = {
      "gcode --out - --now '2026-03-04 05:06:07' " + tube,  // its head tells the minute
      "info --json " + tube,
      "preview " + vessel + " --row 1 --out " + Quoted(Path("row.svg")),
      "patterns --diameter 4 --band 0.25 --length 24",
      "setting list",
      "setting get Settings txtMailServer",
      "setting set Settings gVersionNumber 420",
      "script " + Quoted(Path("day.script")),
      "prove --json " + tube};
  StartWith(commands[6], "mine.ini");
  StartWith(commands[7], "mine.ini");
  std::vector<std::string> printed;
  for (const std::string& command : commands) printed.push_back(StartWith(command, "mine.ini").out);
  EXPECT_EQ(printed[5], "mine\n");

  setenv("TORVANE_STORE", Path("other.ini").c_str(), 1);
  setenv("TORVANE_HOME", Path("other").c_str(), 1);
  for (std::size_t i = 0; i < commands.size(); ++i)
    EXPECT_EQ(StartWith(commands[i], "mine.ini").out, printed[i]) << commands[i];
  EXPECT_EQ(StartWith("gcode " + tube, "mine.ini").out, Path("home/TV_G-Code_Files/Tube-4x24.T2G\n"));
  StartWith("convert " + tube + " " + Quoted(Path("copy.t2d")), "mine.ini");
  EXPECT_FALSE(fs::exists(folder_ / "other" / "TV_Design_Files"));
  EXPECT_EQ(Bytes(Path("other.ini")), others);
  EXPECT_TRUE(Holds(Bytes(Path("mine.ini")), "txtEmail1=me"));

  // Without the options the variables count.
  EXPECT_EQ(Start("gcode " + tube).out, Path("other/TV_G-Code_Files/Tube-4x24.T2G\n"));
  EXPECT_EQ(Start("setting get Settings txtMailServer").out, "other\n");
  EXPECT_EQ(Start("setting get Settings txtMailServer --store ''").status, 2);

  // The same of a check.
  const std::string program = Path("program.T2G");
  Put(program, StartWith("gcode --out - " + Quoted(kSamples + "Tube-4x24.t2d"), "none.ini").out);
  Put(Path("short.ini"), "[TV2_Calibration]\ncMaxTravel=10\n[TV2_Calibration_DC]\ncMaxTravel=10\n");
  Put(Path("long.ini"), "[TV2_Calibration]\ncMaxTravel=90\n[TV2_Calibration_DC]\ncMaxTravel=90\n");
  setenv("TORVANE_STORE", Path("short.ini").c_str(), 1);
  EXPECT_EQ(Check(program, "").status, 1);
  EXPECT_EQ(Check(program, Path("long.ini")).status, 0);
  setenv("TORVANE_STORE", Path("long.ini").c_str(), 1);
  EXPECT_EQ(Check(program, Path("short.ini")).status, 1);
}

}  // namespace
}  // namespace torvane
