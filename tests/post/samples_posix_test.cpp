// The programs of all sample designs and all cases, for every machine that comes with the program.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <map>

#include "post/posting.h"
#include "support/ended_program.h"

namespace torvane::post {
namespace {

namespace fs = std::filesystem;

class Samples : public testing::Test {
 protected:
  Samples() {
    fs::create_directories(folder_ / "home" / "TV_G-Code_Files");
    for (const auto& entry : fs::directory_iterator(fs::path(SOURCE_FOLDER) / "samples")) {
      const std::string ending = entry.path().extension().string();
      if (ending != ".t2d" && ending != ".t4d") continue;
      const Ended run = RunToItsEnd(
          TORVANE_PROGRAM,
          "gcode --out - --locale point --home " + Quoted((folder_ / "home").string()) + " --store " +
              Quoted((folder_ / "store.ini").string()) + " " + Quoted(entry.path().string()),
          folder_);
      EXPECT_EQ(run.status, 0) << run.err;
      programs_[entry.path().filename().string()] = run.out;
    }
    for (const auto& entry : fs::directory_iterator(fs::path(SOURCE_FOLDER) / "tests" / "cases" / "programs"))
      for (const char* name : {"program.T2G", "program.T4G"})
        if (fs::exists(entry.path() / name))
          programs_[entry.path().filename().string()] = Bytes(entry.path() / name);
  }

  TemporaryFolder temporary_;
  fs::path folder_ = temporary_.path;
  std::map<std::string, std::string> programs_;
};

// Why a machine of the samples cannot run a program, and it is told.
bool MayBeRefused(const std::string& refusal) {
  for (const char* why :
       {"which this machine does not have", "and this machine's ends at", "told to turn and has no speed",
        "there is no such command", "no number stands behind", "nothing stands behind"})
    if (refusal.find(why) != std::string::npos) return true;
  return false;
}

TEST_F(Samples, ArePostedForEveryMachineThatCanRunThem) {
  std::map<std::string, Machine> machines;
  for (const char* controller : kControllers) machines[controller] = MachineNamed(controller);
  // One whose delivery head moves in and out, which the sample's does not.
  machines["marlin with head"] =
      MachineWith("marlin", "\"headRotation\"",
                  "\"head\": {\"letter\": \"Z\", \"rotary\": false, "
                  "\"maxRatePerMin\": 6000, \"accelPerS2\": 500}, \"headRotation\"")
          .Take();
  std::map<std::string, int> posted;
  for (const auto& [name, program] : programs_)
    for (const auto& [controller, machine] : machines) {
      const Posted text = Post(program, machine);
      if (!text.refusal.empty()) {
        // The sample designs run on all of them that have the axes.
        const bool runs = name.ends_with(".t2d") || (name.ends_with(".t4d") && machine[Axis::Head]);
        EXPECT_TRUE(!runs && MayBeRefused(text.refusal))
            << name << " for " << controller << ": " << text.refusal;
        continue;
      }
      EXPECT_EQ(Differs(program, machine, text.text), "") << name << " for " << controller;
      ++posted[controller];
    }
  EXPECT_EQ(programs_.size(), 21U);
  for (const auto& [controller, count] : posted) EXPECT_GE(count, 9) << controller;
  EXPECT_EQ(posted.size(), machines.size());
}

// Each motion as the interpreter is to have it: where X, Y, Z, A, B and C stand behind it, and how long it
// takes.
struct Motion {
  std::array<double, 6> at{};
  double seconds = 0;
};

class Expected : public Listener {
 public:
  explicit Expected(const Machine& machine) : machine_(machine) {}

  bool Take(const Event& event) override {
    Motion motion{at_, event.seconds};
    // A move takes as long as its slowest axis needs.
    for (const Axis axis : kAllAxes)
      motion.seconds =
          std::max(motion.seconds, std::abs(event.to[axis] - event.from[axis]) / machine_[axis]->rate);
    for (const Axis axis : kAllAxes)
      if (event.kind == Event::Kind::Move || (event.kind == Event::Kind::Home && axis != Axis::Mandrel)) {
        const bool head = axis == Axis::Head || axis == Axis::HeadRotation;
        if (event.kind == Event::Kind::Home && head && !event.headToo) continue;
        // An axis that the program never moves stays where the interpreter begins.
        if (event.kind == Event::Kind::Move && event.to[axis] == event.from[axis]) continue;
        const std::size_t letter = std::string_view("XYZABC").find(machine_[axis]->letter);
        motion.at[letter] = machine_.CoordinateOf(axis, event.to[axis]);
      }
    constexpr double kDigit = 1e-4;
    double moved = 0;
    for (std::size_t i = 0; i < at_.size(); ++i) moved = std::max(moved, std::abs(motion.at[i] - at_[i]));
    if (event.kind == Event::Kind::Move && moved > kDigit) motions.push_back(motion);
    at_ = motion.at;
    return true;
  }

  std::vector<Motion> motions;

 private:
  const Machine& machine_;
  std::array<double, 6> at_{};
};

// The way that the interpreter refers a speed to: of the lengths if there is one.
double LengthOf(const Motion& from, const Motion& to) {
  double linear = 0, turning = 0;
  for (std::size_t i = 0; i < 3; ++i) {
    linear += std::pow(to.at[i] - from.at[i], 2);
    turning += std::pow(to.at[i + 3] - from.at[i + 3], 2);
  }
  return std::sqrt(linear > 1e-14 ? linear : turning);
}

TEST_F(Samples, AreReadAlikeByLinuxCncsOwnInterpreter) {
  if (std::system("command -v rs274 > /dev/null") != 0)
    GTEST_SKIP() << "LinuxCNC's interpreter (rs274) is not installed";
  const Machine machine = MachineNamed("linuxcnc");
  std::ofstream(folder_ / "winder.ini")
      << "[TRAJ]\nCOORDINATES = X Y Z A B\nLINEAR_UNITS = mm\nANGULAR_UNITS = "
         "degree\n[RS274NGC]\nPARAMETER_FILE = rs.var\n[AXIS_A]\n"
         "WRAPPED_ROTARY = 0\n";
  std::ofstream(folder_ / "empty.tbl").close();
  int read = 0;
  for (const auto& [name, program] : programs_) {
    const Posted posted = Post(program, machine);
    if (!posted.refusal.empty()) continue;
    SCOPED_TRACE(name);
    std::ofstream(folder_ / "part.ngc", std::ios::binary) << posted.text;
    const std::string there = "cd " + Quoted(folder_.string()) + " && rm -f copy.var* && HOME=. ";
    ASSERT_EQ(
        std::system(
            (there + "rs274 -g -i winder.ini -v copy.var -t empty.tbl part.ngc out.txt > said 2>&1").c_str()),
        0)
        << Bytes(folder_ / "said");
    EXPECT_EQ(Bytes(folder_ / "said").find("rror"), std::string::npos) << Bytes(folder_ / "said");
    Expected expected(machine);
    Motions motions(expected, 2);
    motions.Take(program);
    ASSERT_TRUE(motions.Finish());
    std::ifstream out(folder_ / "out.txt");
    Motion before;
    std::size_t count = 0;
    double rate = 0;
    bool ended = false;
    for (std::string line; std::getline(out, line);) {
      double value = 0;
      Motion at;
      const auto call = std::min(line.find("STRAIGHT_FEED("), line.find("STRAIGHT_TRAVERSE("));
      ended |= line.find("PROGRAM_END()") != std::string::npos;
      if (const auto feed = line.find("SET_FEED_RATE("); feed != std::string::npos) {
        ASSERT_EQ(std::sscanf(line.c_str() + feed, "SET_FEED_RATE(%lf", &value), 1);
        rate = value;
      }
      if (call == std::string::npos) continue;
      ASSERT_EQ(std::sscanf(line.c_str() + line.find('(', call), "(%lf, %lf, %lf, %lf, %lf, %lf",
                            at.at.data(), &at.at[1], &at.at[2], &at.at[3], &at.at[4], &at.at[5]),
                6);
      if (line.find("STRAIGHT_FEED(") != std::string::npos) {
        ASSERT_LT(count, expected.motions.size());
        const Motion& due = expected.motions[count++];
        for (std::size_t i = 0; i < 6; ++i) ASSERT_NEAR(at.at[i], due.at[i], 2e-4) << line;
        const double seconds = LengthOf(before, at) / rate * 60;
        EXPECT_NEAR(seconds, due.seconds, due.seconds * 0.01 + 0.002) << line;
      }
      before = at;
    }
    EXPECT_EQ(count, expected.motions.size());
    EXPECT_TRUE(ended);
    ++read;
  }
  EXPECT_GT(read, 10);
}

}  // namespace
}  // namespace torvane::post
