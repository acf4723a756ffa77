// What the station writes, held to the proof: the samples, and designs that follow no pattern but a number's.
// What the rules of its programs cannot make clean is expected by name; anything else fails.
#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <sstream>

#include "designs.h"
#include "executor/proof/report.h"
#include "persist/calibration.h"
#include "persist/settings.h"
#include "programs.h"
#include "seeking.h"
#include "stage/stores.h"

namespace torvane::executor {
namespace {

// The proof reads the same store as the station, by tables of its own.
TEST_F(Station, HasTheLimitsThatTheProofStartsWith) {
  MemoryStore store;
  for (const Setting& setting : Settings()) store.Write(kSettings, setting.key, setting.fallback);
  for (const CalibrationKey& key : CalibrationKeys())
    store.Write(key.ofFourAxes ? kFourAxisCalibration : kPointCalibration, key.key, key.fallback);
  EXPECT_EQ(ReadLimits(store, '.'), Limits());
}

TEST_F(Station, ProvesItsSamplesAndSeeksInThem) {
  const std::map<std::string, Kinds> expected = {
      {"Tube-4x24.t2d", {{"hoop-dwell", 1}, {"hoop-dwell", 6}}},
      {"Tube-100x600-mm.t2d", {{"hoop-dwell", 4}}},
      {"Taper-Mast.t2d", {}},
      {"Rocket-Airframe-75mm.t2d", {{"hoop-dwell", 1}, {"hoop-dwell", 5}}},
      {"Launch-Tube-Full-Finish.t2d", {{"hoop-dwell", 1}, {"hoop-dwell", 4}}},
      // Its rows' ends are stops, and the last of them leaves the carriage where layer 3 does not begin.
      {"Carriage-Shift-Sleeve.t2d", {{"shift-ends", 1}, {"shift-ends", 2}, {"first-traverse", 3}}},
      {"Flat-Tube-4x24.t4d", {{"rounding", 1}, {"first-traverse", 2}}},
      {"Hoop-First-Tube.t4d", {{"first-traverse", 2}}},
      {"Hemi-Vessel-150mm.t4d", {{"first-traverse", 1}, {"first-traverse", 3}}},
      {"No-Wrap-Mast.t4d", {{"time", 0}}},
  };
  std::size_t samples = 0;
  for (const auto& entry : fs::directory_iterator(fs::path(SOURCE_FOLDER) / "samples")) {
    const fs::path& design = entry.path();
    if (design.extension() != ".t2d" && design.extension() != ".t4d") continue;
    const auto row = expected.find(design.filename().string());
    if (row == expected.end()) {
      ADD_FAILURE() << design << " has no expectation";
      continue;
    }
    fs::path store = design;
    store.replace_extension(".ini");
    const std::string program =
        Written(design, fs::exists(store) ? "--store " + Quoted(store.string()) : Store());
    const Proof proof = Prove(program, Limits());
    EXPECT_EQ(KindsOf(proof), row->second) << design << "\n" << Report(proof);
    SCOPED_TRACE(design.string());
    ExpectSeeksLikePlaying(program);
    ++samples;
  }
  EXPECT_EQ(samples, expected.size());
}

struct Written4 {
  std::string name;
  std::vector<std::pair<std::string, std::string>> rows;  // type, pattern
  double headY;                                           // along the part, inches from the axis
};

// Without a note on the time, where the winding does take that much longer than its estimate.
Kinds KindsButTime(const Proof& proof) {
  Kinds kinds = KindsOf(proof);
  if (proof.windingSeconds >= 1.25 * proof.announcedSeconds)
    std::erase(kinds, std::pair<std::string, int>("time", 0));
  return kinds;
}

// Leaves one line out that moves the carriage in a layer.
std::string WithoutATraverse(const std::string& program, Dice& dice) {
  std::vector<std::size_t> lines;
  for (auto at = program.find("\nG1 Z"); at != std::string::npos; at = program.find("\nG1 Z", at + 1))
    if (program.find("D0 GM=", at) != std::string::npos) lines.push_back(at + 1);
  if (lines.size() < 3) return {};
  const auto at = lines[static_cast<std::size_t>(dice.To(static_cast<int>(lines.size()) - 2))];
  return program.substr(0, at) + program.substr(program.find('\n', at) + 1);
}

// As many designs for each setting as are asked for, or enough for every day.
int DesignsEach() {
  const char* asked = std::getenv("TORVANE_SWEEP");
  return asked == nullptr ? 30 : std::max(1, std::atoi(asked));
}

TEST_F(Sweep, OfMandrelShifts) {
  const int each = DesignsEach();
  Dice dice(20260302);
  int designs = 0, broken = 0;
  for (const char* settings :
       {"", "--setting txtUseProportionalFilamentSpacingYN=N", "--setting gIsLHDrive=True",
        "--setting txtAddPasses=3 --setting txt2AXAdd360YN=Y",
        "--setting txtMandrelRotateAfterLayerCompletion=90 --setting txtAddExtra360AtFarEndYN=Y",
        "--setting chkPreWrap1=1 --setting chkPreWrap2=1 --setting chkHeatGunApp=0",
        "--setting chkPromptForHST=0 --setting chkHeatGunApp=0"}) {
    std::map<std::string, std::vector<Row>> written;
    for (int i = 0; i < each; ++i) {
      const double left = dice.Between(1.5, 12);
      const double right = dice.To(2) == 0 ? left : left * dice.Between(0.5, 0.9);
      std::vector<Row> rows(static_cast<std::size_t>(1 + dice.To(4)));
      for (Row& row : rows)
        row = {dice.Of({"90", "30", "45", "54.7", "60", "26.4", "71"}), dice.Of({"slow", "med", "fast"}),
               "ms", dice.Of({"0", "0", "45", "-30", "0.4"})};
      const std::string name = "d" + std::to_string(designs++);
      Put(name + ".t2d", TwoAxisDesign(dice.To(3) == 0, left, right, dice.Between(10, 40),
                                       dice.Of({0.125, 0.25, 0.375, 0.5}), dice.Between(2, 6), rows));
      written[name] = rows;
    }
    Write(settings);
    for (const auto& [name, rows] : written) {
      const std::string program = ProgramText(name + ".T2G");
      const Proof proof = Prove(program, Limits());
      Kinds expected;
      for (std::size_t r = 0; r < rows.size(); ++r)
        if (rows[r].angle == "90") expected.emplace_back("hoop-dwell", static_cast<int>(r) + 1);
      EXPECT_EQ(KindsButTime(proof), expected) << settings << "\n" << name << "\n" << Report(proof);
      EXPECT_EQ(proof.layers.size(), rows.size());
      const std::string without = WithoutATraverse(program, dice);
      if (without.empty()) continue;
      EXPECT_GT(Prove(without, Limits()).findings.Count(Level::Fault), 0) << name;
      ++broken;
    }
  }
  EXPECT_EQ(designs, 7 * each);
  EXPECT_GT(broken, 5 * each);
}

TEST_F(Sweep, OfWhatTheRulesLeaveBare) {
  Dice dice(7);
  std::map<std::string, std::string> written;
  for (int i = 0; i < 30; ++i) {
    const bool shift = i % 2 == 0;
    const std::string name = (shift ? "shift" : "thick") + std::to_string(i);
    const double left = dice.Between(1.5, 3), length = dice.Between(14, 20);
    const std::vector<Row> rows(2, {dice.Of({"45", "60"}), "med", shift ? "cs" : "ms", "0"});
    // Passes are counted round the left end: twice as thick at the right, half of it stays bare.
    Put(name + ".t2d", TwoAxisDesign(false, left, shift ? left : 2 * left, length, 0.25, 4, rows));
    written[name] = shift ? "shift-ends" : "bare-strips";
  }
  Write("");
  for (const auto& [name, kind] : written) {
    const Proof proof = Prove(ProgramText(name + ".T2G"), Limits());
    EXPECT_EQ(KindsButTime(proof), (Kinds{{kind, 1}, {kind, 2}})) << name << "\n" << Report(proof);
  }
}

TEST_F(Sweep, OfFourAxes) {
  Dice dice(4);
  std::vector<Written4> written;
  for (int i = 0; i < 90; ++i) {
    const std::string type = dice.Of({"FLAT", "HEMI", "2AX"});
    const bool millimetres = dice.To(3) == 0, noWrap = type == "2AX";
    const double unit = millimetres ? 25 : 1;
    const double diameter = dice.Between(2, 8) * unit, length = dice.Between(12, 30) * unit;
    const double home = dice.Between(5, 8) * unit,
                 band = dice.Of({0.125, 0.25, 0.375}) * (millimetres ? 25.4 : 1);
    const std::string wrap = dice.Of({"180", "170", "200"});
    std::vector<std::string> patterns;
    if (!noWrap) {
      ASSERT_EQ(Start(TORVANE_PROGRAM, "patterns --locale point --diameter " + Fixed(diameter, 3) +
                                           " --band " + Fixed(band, 3) + " --length " + Fixed(length, 3) +
                                           " --wrap " + wrap + (millimetres ? " --mm" : "") + " --json"),
                0);
      std::istringstream lines(Out());
      for (std::string line; std::getline(lines, line);)
        if (const auto at = line.find("\"pattern\": \""); at != std::string::npos)
          patterns.push_back(line.substr(at + 12, line.find_last_of('|') - at - 12) + "| " + wrap + "\xb0");
      if (patterns.empty()) continue;
    }
    Written4 design{"f" + std::to_string(i), {}, diameter / unit / 2 + 1.5};
    std::string rows;
    for (int r = 1 + dice.To(3); r > 0; --r) {
      const bool hoop = dice.To(4) == 0;
      const std::string pattern =
          hoop     ? "HOOP"
          : noWrap ? dice.Of({"30", "45", "60"})
                   : patterns[static_cast<std::size_t>(dice.To(static_cast<int>(patterns.size())))];
      design.rows.emplace_back(hoop ? "HOOP" : noWrap ? "2AX" : "REG", pattern);
      rows += Tag("Layer", std::to_string(design.rows.size()) + ";" + design.rows.back().first + ";0;6;4;" +
                               pattern +
                               (noWrap ? ";N/A;N/A"
                                : hoop ? ";;"
                                       : ";" + wrap + "\xb0;45\xb0"));
    }
    const auto pair = [](double a, double b) { return Fixed(a, 3) + ";" + Fixed(b, 3); };
    const double end = type == "HEMI" ? diameter / 2 : 0, inch = unit;
    Put(design.name + ".t4d",
        Tag("DecimalComma", "NO") + Tag("Version", "420.000") + Tag("Type", type) +
            Tag("Units", millimetres ? "mm" : "in") + Tag("Length_Total", Fixed(length, 2)) +
            Tag("Band_Width", Fixed(band, 3)) + Tag("Band_Thickness", "0.012") +
            Tag("Diameter", pair(diameter, diameter)) +
            Tag("Z_Coords", pair(home + length + end, home - end / 2)) +
            Tag("Hemi_Coords", noWrap ? "0;0" : pair(home + length, home)) +
            Tag("Opening_Diameter", pair(diameter / 4, diameter / 4)) + Tag("Skirt_Length", "0;0") +
            Tag("Winding_Rate", dice.Of({"SLOW", "MED", "FAST"})) +
            Tag("DHPath_Offsets", pair(0.75 * inch, home + length + 2 * inch) + ";" +
                                      pair(home + length, 1.5 * inch) + ";" + pair(home, home - 1.5 * inch) +
                                      ";" + Fixed(0.75 * inch, 3)) +
            Tag("Number_of_Layers", std::to_string(design.rows.size())) + rows);
    written.push_back(design);
  }
  Write("");
  std::size_t patterns = 0, exact = 0;
  for (const Written4& design : written) {
    const Proof proof = Prove(ProgramText(design.name + ".T4G"), Limits());
    ASSERT_EQ(proof.layers.size(), design.rows.size()) << design.name << "\n" << Report(proof);
    std::set<int> noted;
    for (const auto& [kind, layer] : KindsButTime(proof)) {
      const bool rounded = kind == "rounding" || kind == "rounded-strips";
      const auto& [type, pattern] = design.rows[static_cast<std::size_t>(std::max(layer, 1) - 1)];
      // Some mandrels are too thick for a head that retracts to 4.4375 in from their axis.
      if (kind == "head-travel" && design.headY > Limits().headRetracted) continue;
      // A pattern's winding angle is rounded to two decimals, and its first traverse comes from the lead-in.
      // A no-wrap design that was just opened has no minutes for its last winding row.
      const bool known = layer == 0 ? kind == "time" && design.rows[0].first != "REG"
                                    : type == "REG" && (rounded || kind == "first-traverse");
      EXPECT_TRUE(known) << kind << " in layer " << layer << " of " << design.name << "\n" << Report(proof);
      if (rounded) noted.insert(layer);
    }
    for (std::size_t r = 0; r < design.rows.size(); ++r)
      if (design.rows[r].first == "REG") {
        ++patterns;
        if (noted.count(static_cast<int>(r) + 1) != 0) continue;
        ++exact;
        EXPECT_GT(proof.layers[r].coveredShare, 0.99) << design.name << "\n" << Report(proof);
      }
  }
  EXPECT_GT(written.size(), 80U);
  EXPECT_GT(exact, patterns / 3);
}

TEST_F(Station, RunsTheDryRunAsAProgram) {
  const fs::path good = folder_ / "with blanks.T2G";
  std::ofstream(good, std::ios::binary) << ProgramOf({});
  std::ofstream(folder_ / "bad.T2G", std::ios::binary) << ProgramOf({.farZ = 60});
  std::ofstream(folder_ / "none.T2G", std::ios::binary) << "\x01\x02 nothing\n";
  std::string station = good.string();
  for (char& c : station)
    if (c == '/') c = '\\';
  EXPECT_EQ(Start(EXECUTOR_PROGRAM, "--check " + good.string() + " " + Store()), 0);  // two words
  EXPECT_NE(Out().find("0 faults, 0 notes"), std::string::npos);
  EXPECT_EQ(Start(EXECUTOR_PROGRAM, "--check " + Quoted(station) + " --json " + Store()), 0);
  EXPECT_NE(Out().find("\"faults\": 0"), std::string::npos);
  EXPECT_EQ(Start(EXECUTOR_PROGRAM, "--check " + Quoted((folder_ / "bad.T2G").string()) + " " + Store()), 1);
  EXPECT_NE(Out().find("  fault  line 14: The carriage is sent to Z=60.00"), std::string::npos) << Out();
  std::ofstream(folder_ / "store.ini")
      << "[TV2_Calibration]\ncMaxTravel=60.00\n[TV2_Calibration_DC]\ncMaxTravel=60,00\n";
  EXPECT_EQ(Start(EXECUTOR_PROGRAM, "--check " + Quoted((folder_ / "bad.T2G").string()) + " " + Store()), 0);
#ifndef _WIN32
  // The environment names the store as well.
  setenv("TORVANE_STORE", (folder_ / "store.ini").c_str(), 1);
  EXPECT_EQ(Start(EXECUTOR_PROGRAM, "--check " + Quoted((folder_ / "bad.T2G").string())), 0);
  unsetenv("TORVANE_STORE");
#endif
  for (const std::string& none :
       {"--check " + Quoted((folder_ / "none.T2G").string()), std::string("--check /no/such"),
        std::string("--check"), std::string("TRACE"), std::string(), std::string("--what")})
    EXPECT_EQ(Start(EXECUTOR_PROGRAM, none), 2) << none;
}

}  // namespace
}  // namespace torvane::executor
