// `torvane post` as a user starts it.
#include <gtest/gtest.h>

#include <filesystem>

#include "post/posting.h"
#include "support/ended_program.h"

namespace torvane::post {
namespace {

namespace fs = std::filesystem;

const fs::path kCase = fs::path(SOURCE_FOLDER) / "tests" / "cases" / "post" / "two_axes";

class PostCommand : public testing::Test {
 protected:
  PostCommand() { fs::copy_file(kCase / "program.T2G", folder_ / "part.T2G"); }

  Ended Start(const std::string& arguments) const {
    return RunToItsEnd(TORVANE_PROGRAM,
                       "post " + arguments + " --home " + Quoted(folder_.string()) + " --store " +
                           Quoted((folder_ / "store.ini").string()),
                       folder_);
  }
  std::string Part() const { return Quoted((folder_ / "part.T2G").string()); }
  // Names of the files in the folder, but for what the test itself makes.
  std::vector<std::string> Files() const {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder_))
      if (const std::string name = entry.path().filename().string();
          entry.is_regular_file() && name != "out" && name != "err")
        names.push_back(name);
    std::sort(names.begin(), names.end());
    return names;
  }
  void Put(const std::string& name, const std::string& text) const {
    std::ofstream(folder_ / name, std::ios::binary) << text;
  }

  TemporaryFolder temporary_;
  fs::path folder_ = temporary_.path;
};

TEST_F(PostCommand, WritesBesideTheProgramAndSaysWhatItLeftOut) {
  const Ended run = Start(Part() + " --machine marlin");
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.out, (folder_ / "part.marlin.gcode").string() +
                         "\n  Notices to addresses are not sent (line 24)\n"
                         "  The motors are not switched off (line 25)\n");
  EXPECT_EQ(Bytes(folder_ / "part.marlin.gcode"), Bytes(kCase / "marlin.gcode"));
  EXPECT_EQ(Files(), (std::vector<std::string>{"part.T2G", "part.marlin.gcode"}));
}

TEST_F(PostCommand, TakesAMachineFileOfOnesOwnAndANameForTheProgram) {
  std::string machine = MachineText("linuxcnc");
  machine.replace(machine.find("LinuxCNC 4 axes"), 15, "Shed");
  Put("shed.json", machine);
  const Ended run = Start(Part() + " --machine " + Quoted((folder_ / "shed.json").string()) + " --out " +
                          Quoted((folder_ / "tube.ngc").string()));
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_NE(Bytes(folder_ / "tube.ngc").find("( for Shed )\n"), std::string::npos);
}

// A refusal of the program, of the machine's file or of the command leaves what stood there, and nothing
// else.
TEST_F(PostCommand, LeavesWhatStoodThereWhereItRefuses) {
  Put("part.grbl.nc", "the former one");
  std::string machine = MachineText("grbl");
  machine.replace(machine.find("\"max\""), 5, "\"mx\"");
  Put("bad.json", machine);
  Put("far.T2G", "G21\nX V420 T2 Z0\nG28 F1\nG1 F10 Z2000\nX99\n");
  const std::string out = " --out " + Quoted((folder_ / "part.grbl.nc").string());
  const std::vector<std::string> before = Files();
  const struct {
    std::string arguments, says;
    int status;
  } kCases[] = {
      {Quoted((folder_ / "far.T2G").string()) + " --machine grbl" + out,
       "far.T2G: line 4: the carriage would go to X-2000, and this machine's ends at -1220", 1},
      {Part() + " --machine " + Quoted((folder_ / "bad.json").string()) + out,
       "bad.json: there is no key axes.carriage.mx", 1},
      {Quoted((folder_ / "none.T2G").string()) + " --machine grbl" + out, "none.T2G: ", 1},
      {Part() + " --machine none" + out, "there is no machine none", 2},
      {Part() + " --machine grbl --out " + Part(), "this is the program itself", 2},
  };
  for (const auto& c : kCases) {
    const Ended run = Start(c.arguments);
    EXPECT_EQ(run.status, c.status) << c.says;
    EXPECT_EQ(run.out, "");
    EXPECT_NE(run.err.find(c.says), std::string::npos) << run.err;
    EXPECT_EQ(Bytes(folder_ / "part.grbl.nc"), "the former one");
    EXPECT_EQ(Files(), before);
  }
  EXPECT_EQ(Start(Part() + " --machine grbl" + out).status, 0);
  EXPECT_EQ(Bytes(folder_ / "part.grbl.nc"), Bytes(kCase / "grbl.nc"));
}

}  // namespace
}  // namespace torvane::post
