#include "post/proof/proof.h"

#include <gtest/gtest.h>

#include "post/posting.h"

namespace torvane::post {
namespace {

namespace fs = std::filesystem;

const fs::path kCases = fs::path(SOURCE_FOLDER) / "tests" / "cases";

std::vector<std::string> LinesOf(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

std::string Joined(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) text += line + '\n';
  return text;
}

// Another digit in the place of the last one before the point of the word that begins there; of a speed, of
// which the last one may be too small to matter, the first.
std::string Spoiled(std::string line, std::size_t word) {
  std::size_t at = word + 1;
  while (line[word] != 'F' && at + 1 < line.size() && line[at + 1] >= '0' && line[at + 1] <= '9') ++at;
  line[at] = line[at] == '5' ? '7' : '5';
  return line;
}

// No line of a program can be lost, come late or be misread without notice.
TEST(WrittenProgram, IsRefusedWithAnyLineSpoiled) {
  const std::string program = Bytes(kCases / "post" / "two_axes" / "program.T2G");
  for (const char* name : kControllers) {
    const Machine machine = MachineNamed(name);
    const std::vector<std::string> lines = LinesOf(Post(program, machine).text);
    ASSERT_EQ(Differs(program, machine, Joined(lines)), "");
    int spoiled = 0;
    for (std::size_t i = 0; i < lines.size(); ++i) {
      const std::string& line = lines[i];
      const bool acts = line.find("G1 ") != std::string::npos || line.find("G4 ") != std::string::npos ||
                        line.find("G0 X") != std::string::npos || line.find("M0") != std::string::npos;
      if (!acts) continue;
      std::vector<std::string> without = lines;
      without.erase(without.begin() + static_cast<std::ptrdiff_t>(i));
      EXPECT_NE(Differs(program, machine, Joined(without)), "") << name << " without " << line;
      for (const char letter : std::string("XYAFPS")) {
        const auto word = line.rfind(letter);
        if (word == std::string::npos || line.find("M0") != std::string::npos) continue;
        if (letter == 'F' && line.find("G0") != std::string::npos) continue;  // as fast as it may
        std::vector<std::string> other = lines;
        other[i] = Spoiled(line, word);
        EXPECT_NE(Differs(program, machine, Joined(other)), "") << name << ": " << other[i];
        ++spoiled;
      }
    }
    EXPECT_GT(spoiled, 10);
    EXPECT_NE(Differs(program, machine, Joined(lines) + "G1 X1 F60\n"), "") << name;
  }
}

struct Rule {
  const char* machine;
  const char* line;
  const char* says;  // of a line that is refused
};

TEST(WrittenProgram, IsReadByTheRulesOfItsController) {
  const Rule kRules[] = {
      {"grbl", "G1 X-1 F60 (so)", "a bracket"},
      {"grbl", "G1 X-1 F60 ; so", "a comment"},
      {"grbl", "G1 X-1", "G93 takes an F in each line"},
      {"grbl", "G1 X-1 X-2 F60", "the word X stands there twice"},
      {"grbl", "G1 G0 X-1 F60", "two G words of one group"},
      {"grbl", "G1 A1 F60", "there is no word A"},
      {"grbl", "G1 X-1e1 F60", "there is no word e"},
      {"grbl", "G1 X--1 F60", "no number stands behind X"},
      {"grbl", "G64", "there is no such G word"},
      {"grbl", "G91", "there is no such G word"},
      {"grbl", "G20", "there is no such G word"},
      {"grbl", "M117", "there is no such M word"},
      {"grbl", "G4", "G4 has no time"},
      {"grbl", "G0 Y0", "the mandrel runs to an angle at full speed"},
      {"grbl", "G92 X0", "another coordinate than the mandrel's is set"},
      {"grbl", "G1 X-1.00000000000000000000000000000000000000000000000000000000000000000000000 F60",
       "the line is too long"},
      {"grblhal", "(what?)", "it acts at once on ?"},
      {"grblhal", "(a (b) c)", "a bracket"},
      {"grblhal", "(\xE9)", "a byte that is no plain character"},
      {"linuxcnc", "(never closed", "a bracket stays open"},
      {"linuxcnc", "G1 N5 X1 F60", "N is not the first word"},
      {"linuxcnc", "G1 U1 F60", "there is no word U"},
      {"marlin", "N5 G1 X1 F60", "there is no word N"},
      {"marlin", "G93", "there is no such G word"},
      {"marlin", "M117 5*", "* begins a checksum"},
      {"marlin", "M2", "there is no such M word"},
  };
  for (const Rule& rule : kRules) {
    const Machine machine = MachineNamed(rule.machine);
    Player player(machine);
    for (const std::string& line : machine.start) ASSERT_TRUE(player.Take(line)) << line;
    if (machine.feedMode == FeedMode::InverseTime) {
      ASSERT_TRUE(player.Take("G93"));
    }
    const Result<Step> step = player.Take(rule.line);
    ASSERT_FALSE(step) << rule.machine << ": " << rule.line;
    EXPECT_EQ(step.reason(), rule.says) << rule.line;
  }
  const Machine grbl = MachineNamed("grbl");
  Player player(grbl);
  const Result<Step> early = player.Take("G1 X-1 F60");
  ASSERT_FALSE(early);
  EXPECT_EQ(early.reason(), "positions are not absolute yet");
}

// What the controllers make of a number: 359999.123 is 359999.125 in 32 bits; of more than eight digits the
// small one drops the rest.
TEST(WrittenProgram, IsReadWithTheControllersNumbers) {
  const auto angle = [](const char* name, const std::string& word) {
    const Machine machine = MachineNamed(name);
    Player player(machine);
    for (const std::string& line : machine.start) EXPECT_TRUE(player.Take(line));
    const Result<Step> step = player.Take("G1 " + word + " F1000");
    EXPECT_TRUE(step) << step.reason();
    return player.At()[Axis::Mandrel];
  };
  EXPECT_EQ(angle("linuxcnc", "A359999.123"), 359999.123);
  EXPECT_EQ(angle("grblhal", "A359999.123"), 359999.125);
  EXPECT_EQ(angle("grblhal", "A100000.001"), 100000.0);
  EXPECT_EQ(angle("grbl", "Y00001.23456"), static_cast<double>(1.234F));
  EXPECT_EQ(angle("grblhal", "A00001.23456"), static_cast<double>(1.23456F));
}

// Marlin looks at the linear axes first, the others at all of them; G4 counts in units of its own.
TEST(WrittenProgram, TakesTheTimeOfItsController) {
  const auto seconds = [](const char* name, const std::string& line) {
    const Machine machine = MachineNamed(name);
    Player player(machine);
    for (const std::string& own : machine.start) EXPECT_TRUE(player.Take(own));
    const Result<Step> step = player.Take(line);
    EXPECT_TRUE(step) << step.reason();
    return step ? step.value().seconds : -1;
  };
  EXPECT_NEAR(seconds("marlin", "G1 X10 A720 F600"), 1, 1e-6);
  EXPECT_NEAR(seconds("marlin", "G1 A720 F600"), 72, 1e-4);
  EXPECT_NEAR(seconds("grblhal", "G1 X10 A720 F600"), 72.007, 1e-3);
  EXPECT_NEAR(seconds("linuxcnc", "G1 X20 A1440 F20"), 60, 1e-6);
  EXPECT_NEAR(seconds("linuxcnc", "G93 G1 X20 A1440 F2"), 30, 1e-6);
  // Slower than a millimetre a minute it does not go.
  EXPECT_NEAR(seconds("grbl", "G93 G1 X0.5 F0.1"), 30, 1e-6);
  EXPECT_EQ(seconds("marlin", "G4 P1500"), 1.5);
  EXPECT_EQ(seconds("grbl", "G4 P1.5"), 1.5);
}

}  // namespace
}  // namespace torvane::post
