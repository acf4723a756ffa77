#include "post/write/writer.h"

#include <gtest/gtest.h>

#include <cmath>

#include "post/posting.h"
#include "post/write/ramp.h"

namespace torvane::post {
namespace {

namespace fs = std::filesystem;

const fs::path kCases = fs::path(SOURCE_FOLDER) / "tests" / "cases" / "post";

std::string Begun(const std::string& unit = "G21") {
  return unit + "\nX V420 T4 Z0 Y4.4375\nG28 E1 R1 F10\n";
}

std::vector<std::string> MovesOf(const std::string& text) {
  std::vector<std::string> moves;
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line);)
    if (const auto at = line.find("G1 "); at != std::string::npos) moves.push_back(line.substr(at));
  return moves;
}

// Worked out by hand: a millimetre from the switch is one on the carriage, ten revolutions a minute are 60
// degrees a second.
TEST(Writer, SpellsForEachController) {
  int spelled = 0;
  for (const char* part : {"two_axes/program.T2G", "four_axes/program.T4G"}) {
    const fs::path program = kCases / part;
    for (const char* name : kControllers) {
      const Machine machine = MachineNamed(name);
      const fs::path expected = program.parent_path() / (name + std::string(EndingOf(machine.controller)));
      if (!fs::exists(expected)) continue;
      const Posted posted = Post(Bytes(program), machine);
      EXPECT_EQ(posted.refusal, "");
      EXPECT_EQ(posted.text, Bytes(expected)) << expected;
      EXPECT_EQ(Differs(Bytes(program), machine, Bytes(expected)), "") << expected;
      ++spelled;
    }
  }
  EXPECT_EQ(spelled, 6);
}

TEST(Writer, RefusesWhatTheMachineCannotRun) {
  const std::pair<std::string, std::string> kPrograms[] = {
      {"G1 F10 Z1300\nX99\n", "line 4: the carriage would go to X1300, and this machine's ends at 1220"},
      {"G1 F10 Z-1\nX99\n", "line 4: the carriage would go to X-1, and this machine's ends at 0"},
      {"G1 Y100 E1\nX99\n", "line 4: the program moves the axis head, which this machine does not have"},
      {"M4 S60\nG4 C719640\nG4 C361\nX99\n",
       "line 6: the mandrel has made more than 2000 turns, the most that this machine counts"},
  };
  const Machine marlin = MachineNamed("marlin");
  for (const auto& [lines, reason] : kPrograms) EXPECT_EQ(Post(Begun() + lines, marlin).refusal, reason);
  EXPECT_EQ(Post(Begun() + "G1 B10 R1\nX99\n", MachineNamed("grbl")).refusal,
            "line 4: the program moves the axis headRotation, which this machine does not have");
}

TEST(Writer, TellsWhatIsSlowerThanAsked) {
  // 300 mm/s are asked; the carriage makes 200.
  const Posted posted = Post(Begun() + "G1 F300 Z600\nX99\n", MachineNamed("linuxcnc"));
  EXPECT_EQ(MovesOf(posted.text), (std::vector<std::string>{"G1 X600 F20"}));
  EXPECT_EQ(
      posted.notes,
      (std::vector<std::string>{
          "1 move is slower than the program asks, by 50 % at most: the carriage is not faster (line 4)"}));
}

TEST(Writer, KeepsWhatControllersActOnOutOfMessages) {
  const std::string program = Begun() + "M0 [Stop! (hot?) ~ \x84 50% * \xE9t\xE9; $H]\nD0 GM=\x18go(!\nX99\n";
  for (const char* name : kControllers) {
    const Machine machine = MachineNamed(name);
    const Posted posted = Post(program, machine);
    EXPECT_EQ(posted.refusal, "");
    EXPECT_EQ(posted.text.find_first_of("!?~*$%\x84\x18\xE9"), std::string::npos) << posted.text;
    EXPECT_EQ(Differs(program, machine, posted.text), "") << name;
  }
  EXPECT_NE(Post(program, MachineNamed("marlin")).text.find("M0 Stop hot 50 t H\n"), std::string::npos);
}

// Only what stands between layers or at a wait may be set back, and only by whole turns: 101 turns and 15
// degrees go on from 15.
TEST(Writer, SetsTheMandrelBackByWholeTurnsBetweenLayers) {
  const std::string program = Begun() +
                              "D0 LA=1_of_2 PA=1_of_1 FW=1\nM4 S60\nG4 C36370\nG4 C5\n"
                              "D0 LA=2_of_2 PA=1_of_1 FW=1\nG4 C10\nX99\n";
  const Machine machine = MachineNamed("marlin");
  const Posted posted = Post(program, machine);
  EXPECT_NE(
      posted.text.find("G1 A36375 F21600\nM117 Layer 2 of 2\nM400\nG92.9 A15\n; Layer 2 of 2, pass 1 of "
                       "1\nG1 A25 F21600\n"),
      std::string::npos)
      << posted.text;
  EXPECT_EQ(Differs(program, machine, posted.text), "");
  // The next one to that does not know the word for it goes on counting.
  EXPECT_NE(Post(program, MachineNamed("grblhal")).text.find("G1 A36385 F"), std::string::npos);
}

// 50.8 mm/s where an axis gains 10 mm/s in a block's 20 ms: five blocks of 5, 15 .. 45 mm/s at each end.
TEST(Writer, RampsWhereThePlannerWouldJump) {
  const Posted posted = Post(Begun() + "M4 S10\nG1 F50.8 Z50.8\nX99\n", MachineNamed("marlin"));
  EXPECT_EQ(
      MovesOf(posted.text),
      (std::vector<std::string>{"G1 X0.1 A0.118 F300", "G1 X0.4 A0.472 F900", "G1 X0.9 A1.063 F1500",
                                "G1 X1.6 A1.89 F2100", "G1 X2.5 A2.953 F2700", "G1 X48.3 A57.047 F3048",
                                "G1 X49.2 A58.11 F2700", "G1 X49.9 A58.937 F2100", "G1 X50.4 A59.528 F1500",
                                // Of the way as 32 bits have it.
                                "G1 X50.7 A59.882 F899.998", "G1 X50.8 A60 F299.995"}));
  EXPECT_EQ(MovesOf(Post(Begun() + "M4 S10\nG1 F50.8 Z50.8\nX99\n", MachineNamed("grblhal")).text),
            (std::vector<std::string>{"G1 X-50.8 A60 F60"}));
}

TEST(Ramp, KeepsTheWayAndNeverJumps) {
  for (const double jumps : {0.5, 1.2, 3.0, 9.7, 40.0})
    for (const double seconds : {0.03, 0.2, 1.0, 30.0}) {
      constexpr double kBlock = 0.02;
      double way = 0, speed = 0;
      const std::vector<Block> blocks = Ramped(seconds, jumps, kBlock);
      for (const Block& block : blocks) {
        const double now = block.share / block.seconds * seconds * jumps;
        // A way that is too short for a step is made at once.
        if (blocks.size() > 1) {
          EXPECT_LE(std::abs(now - speed), 1.0001) << jumps << ' ' << seconds;
        }
        speed = now;
        way += block.share;
      }
      EXPECT_NEAR(way, 1, 1e-12);
      if (jumps <= 1 || seconds >= 1) {
        EXPECT_EQ(blocks.size() > 1, jumps > 1) << jumps << ' ' << seconds;
      }
    }
}

}  // namespace
}  // namespace torvane::post
