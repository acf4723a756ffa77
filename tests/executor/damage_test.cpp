// Good programs, each damaged in one place: the proof names the damage and its line.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <set>

#include "designs.h"
#include "executor/proof/cover.h"
#include "executor/proof/report.h"
#include "host/temporary_folder.h"
#include "programs.h"

namespace torvane::executor {
namespace {

Proof ProofOf(const std::string& program) { return Prove(program, Limits()); }

// The first of the texts replaced by the second.
std::string With(std::string program, const std::string& text, const std::string& other) {
  const auto at = program.find(text);
  EXPECT_NE(at, std::string::npos) << text;
  return at == std::string::npos ? program : program.replace(at, text.size(), other);
}

std::string Without(const std::string& program, const std::string& text) { return With(program, text, ""); }

std::string Everywhere(std::string program, const std::string& text, const std::string& other) {
  for (auto at = program.find(text); at != std::string::npos; at = program.find(text, at + other.size()))
    program.replace(at, text.size(), other);
  return program;
}

// The only finding: "kind at its line in layer N".
std::string OnlyFinding(const std::string& program) {
  const Proof proof = ProofOf(program);
  const auto& all = proof.findings.all();
  if (all.empty()) return "none";
  const Finding& f = all[0];
  EXPECT_EQ(all.size(), 1U) << Report(proof);
  EXPECT_GT(f.text.size(), 20U);
  return std::string(NameOf(LevelOf(f.kind))) + " " + std::string(NameOf(f.kind)) + " at " +
         std::to_string(f.line) + " in " + std::to_string(f.layer);
}

const std::string kPass2 = "D0 LA=1_of_1 PA=2";  // line 18

TEST(Damage, OfWhatAMachineIsToldFirst) {
  const std::string good = ProgramOf({});
  EXPECT_EQ(OnlyFinding(good), "none");
  EXPECT_EQ(OnlyFinding(Without(good, "G20\n")), "fault units at 5 in 0");
  EXPECT_EQ(OnlyFinding(With(good, kPass2, "G20\n" + kPass2)), "none");
  EXPECT_EQ(KindsOf(ProofOf(With(good, kPass2, "G21\n" + kPass2)))[0],
            (std::pair<std::string, int>("units", 0)));
  EXPECT_EQ(OnlyFinding(Without(good, "X V420.000 T2 Z1.875\n")), "fault identity at 5 in 0");
  EXPECT_EQ(OnlyFinding(With(good, "M17\n", "X V420.000 T2 Z1.875\nM17\n")), "none");
  EXPECT_EQ(OnlyFinding(With(good, "M17\n", "X V420.000 T2 Z2.5\nM17\n")), "fault identity at 5 in 0");
  EXPECT_EQ(OnlyFinding(With(good, "G4 Z", "X V420.000 T2 Z1.875\nG4 Z")), "fault identity at 7 in 0");
  EXPECT_EQ(OnlyFinding(With(good, kPass2, "C C1\n" + kPass2)), "fault number-form at 18 in 0");
  EXPECT_EQ(OnlyFinding(With(good, "C C0\n", "C C1\n")), "none");
  EXPECT_EQ(OnlyFinding(With(good, kPass2, "C C0\n" + kPass2)), "none");
}

TEST(Damage, OfMotorsAndHoming) {
  const std::string good = ProgramOf({});
  EXPECT_EQ(OnlyFinding(Without(good, "M17\n")), "fault motors-off at 5 in 0");
  EXPECT_EQ(OnlyFinding(With(good, "M17\n", "M17\nM18\n")), "fault motors-off at 7 in 0");
  EXPECT_EQ(OnlyFinding(With(good, kPass2, "M18\n" + kPass2)), "fault motors-off at 18 in 1");
  EXPECT_EQ(OnlyFinding(With(good, kPass2, "M18\nM17\n" + kPass2)), "fault motors-off at 18 in 1");
  EXPECT_EQ(OnlyFinding(good + "M18\nX99\n"), "none");
  EXPECT_EQ(OnlyFinding(Without(good, "G28 F1.000\n")), "fault not-homed at 7 in 0");
  // What was let go has no place any more.
  EXPECT_EQ(OnlyFinding(With(good, "G1 F1.000", "M18\nM17\nG1 F1.000")), "fault not-homed at 10 in 0");
  EXPECT_EQ(OnlyFinding(With(good, "G1 F1.000", "M18\nM17\nG28 F1\nG1 F1.000")), "none");
  // Each axis goes to its own switch.
  const std::string head = Ready() + "G1 F1 Z5\nG1 E1 Y3\nG1 R4 B20 Z6\nX99\n";
  EXPECT_EQ(OnlyFinding(head), "none");
  EXPECT_EQ(OnlyFinding(Without(head, " F1")), "fault not-homed at 6 in 0");
  EXPECT_EQ(OnlyFinding(Without(head, "E1 ")), "fault not-homed at 7 in 0");
  EXPECT_EQ(OnlyFinding(Without(head, "R4 ")), "fault not-homed at 8 in 0");
}

TEST(Damage, OfTheOperatorsButton) {
  const std::string good = ProgramOf({});
  EXPECT_EQ(OnlyFinding(Without(good, "M0\n")), "fault no-wait at 11 in 1");
  const std::string wrap = "M4 S40\nG1 F1 Z20\nG4 C1080\nM5\nM0\nG1 Z4\n";
  const auto before = [&](const std::string& text) { return With(good, "D0 ST", text + "D0 ST"); };
  const std::string first = "M0\nD0 ST=Mandrel Pre-Wrap #1 PA=40 WA=1 FL=\n" + wrap;
  const std::string second = "D0 ST=Mandrel Pre-Wrap #2 PA=40 WA=1\n" + wrap;
  EXPECT_EQ(OnlyFinding(before(first + second)), "none");
  EXPECT_EQ(OnlyFinding(before(Without(first, "M0\n"))), "fault no-wait at 10 in 0");
  // As the station writes it where there is no first one.
  EXPECT_EQ(OnlyFinding(before(second)), "note pre-wrap-starts at 10 in 0");
  // A button that was pressed before says nothing of the winding.
  std::string late = before(first);
  late.erase(late.find("M0\n", late.find("Winding Schedule")), 3);
  EXPECT_EQ(OnlyFinding(late), "fault no-wait at 19 in 1");
  // Behind M5 the operator stands at the part.
  EXPECT_EQ(OnlyFinding(before(Without(first, "M5\nM0\n") + "M5\n")), "none");
  EXPECT_EQ(OnlyFinding(before(With(first, "M5\nM0\n", "M5\n"))), "fault no-wait at 15 in 0");
  const std::string gun = "D0 ST=Heat Gun Curing\nM0\nM4 S10\nG1 Z4\nG51 Z4 Z20\n";
  EXPECT_EQ(OnlyFinding(good + gun), "none");
  EXPECT_EQ(KindsOf(ProofOf(good + Without(gun, "M0\n"))), (Kinds{{"no-wait", 0}}));
}

TEST(Damage, OfSpeedsAndAccelerations) {
  const std::string good = ProgramOf({});
  EXPECT_EQ(OnlyFinding(With(good, "G1 F6", "G1 F-6")), "fault negative-speed at 14 in 1");
  EXPECT_EQ(OnlyFinding(With(good, "M4 S", "M4 S-")), "fault negative-speed at 12 in 1");
  EXPECT_EQ(OnlyFinding(With(good, "G28 F", "G28 F-")), "fault negative-speed at 6 in 0");
  EXPECT_EQ(OnlyFinding(With(good, "G4 Z P", "G4 Z P-")), "fault negative-speed at 7 in 0");
  for (const char* sound :
       {"G1 I10 J10 K10 N10 O10 T10\n", "G1 J1.250 K.25 O90 T10\n", "G1 F2 Z4 J1.0 K0.25\n"})
    EXPECT_EQ(OnlyFinding(With(good, "D0 ST", sound + std::string("D0 ST"))), "none") << sound;
  for (const char* bad : {"G1 I1e12 J-5\n", "G1 T1001\n", "G1 J0\n", "G1 N-1\n", "G1 F1 Z4 O2000\n"})
    EXPECT_EQ(OnlyFinding(With(good, "D0 ST", bad + std::string("D0 ST"))), "fault acceleration at 9 in 0")
        << bad;
  EXPECT_EQ(OnlyFinding(Ready() + "G1 E50 Y3\nG1 R600 B9\nX99"), "none");
  EXPECT_EQ(OnlyFinding(Ready() + "G1 E51 Y3\nX99"), "fault head-speed at 6 in 0");
  EXPECT_EQ(OnlyFinding(Ready() + "G1 R601 B9\nX99"), "fault head-speed at 6 in 0");
  EXPECT_EQ(OnlyFinding(Ready("G21", "47.625") + "G1 E1270 Y3\nX99"), "none");
  EXPECT_EQ(OnlyFinding(Ready("G21", "47.625") + "G1 E1280 Y3\nX99"), "fault head-speed at 6 in 0");
  // A machine that says how fast its head is decides itself.
  Limits fast;
  fast.headSpeed = 80;
  EXPECT_EQ(KindsOf(Prove(Ready() + "G1 E79 Y3\nX99", fast)), Kinds{});
}

TEST(Damage, OfTurnsInOnePlace) {
  const auto turning = [](const std::string& angle) {
    return OnlyFinding(With(ProgramOf({}), kPass2, "G4 C" + angle + "\n" + kPass2));
  };
  EXPECT_EQ(turning("18000"), "none");
  EXPECT_EQ(turning("18001"), "fault long-turn at 18 in 1");
  EXPECT_EQ(turning("-360000"), "fault long-turn at 18 in 1");
  // On its way a hoop makes as many as it has bands.
  const std::string hoop =
      Ready() +
      "D0 LA=1_of_1 PA=1_of_1 LD=4 FW=0.25\nG1 F0.13 Z28 S30 C36000\nG1 F0.13 Z1.875 S30 C36000\nM5\n";
  EXPECT_EQ(KindsOf(ProofOf(hoop)), Kinds{});
}

TEST(Damage, OfStops) {
  const std::string good = ProgramOf({});
  const auto last = [&](const std::string& text, const std::string& other) {
    std::string program = good;
    return program.replace(program.rfind(text), text.size(), other);
  };
  EXPECT_EQ(OnlyFinding(last("G1 Z28.00", "G1 Z27.98")), "none");
  EXPECT_EQ(OnlyFinding(last("G1 Z28.00", "G1 Z27.97")), "fault stops-short at 189 in 1");
  EXPECT_EQ(OnlyFinding(last("G1 Z4.00", "G1 Z4.03")), "fault stops-short at 191 in 1");
  EXPECT_EQ(OnlyFinding(last("G1 Z4.00", "G1 Z3.90")), "fault stops-short at 191 in 1");
  const Proof many = ProofOf(Everywhere(good, "G1 Z28.00", "G1 Z27.80"));
  const auto& found = many.findings.all();
  ASSERT_FALSE(found.empty());
  EXPECT_EQ(found[0].kind, Kind::StopsShort);
  EXPECT_EQ(found[0].alike, 34);
}

// The same program with other home dwells: 90 passes, so that chance covers the part.
std::string Dwelling(const std::vector<double>& angles) {
  std::string text = Begun();
  const auto passes = static_cast<int>(angles.size());
  for (int pass = 1; pass <= passes; ++pass) {
    text += PassLine(pass, passes);
    if (pass == 1) text += "M4 S" + Fixed(kTestRpm, 8) + "\nM602\n";
    text += std::string(pass == 1 ? "G1 F6 Z28" : "G1 Z28") + (pass == 1 ? "\nM601\n" : "\nG4 L601\n");
    text += "G1 Z4\nG4 L602 C" + Fixed(angles[static_cast<std::size_t>(pass) - 1], 2) + "\n";
  }
  return text + Ended();
}

bool HasPattern(const std::vector<double>& angles) {
  const auto kinds = KindsOf(ProofOf(Dwelling(angles)));
  return std::none_of(kinds.begin(), kinds.end(),
                      [](const auto& kind) { return kind.first == "no-pattern"; });
}

TEST(Damage, OfPatterns) {
  std::vector<double> even, groups, random, onTop, roundTwice, someOdd;
  unsigned dice = 1;
  for (int i = 1; i <= 1000; ++i) {
    dice = dice * 1664525U + 1013904223U;
    const double chance = dice / 4294967296.0 * 360;
    even.push_back(i * 360.0 / 1000);
    groups.push_back(i * 90.0 + i / 4 * 1.44);
    random.push_back(chance);
    onTop.push_back(i % 2 * 0.01);
    // Rounded, a step of none is one forwards or one of almost a turn.
    roundTwice.push_back(i / 3 * 90.0 + (i % 3 == 1 ? 0.01 : 0));
    someOdd.push_back(i % 10 == 0 ? chance : i * 0.36);
  }
  EXPECT_TRUE(HasPattern(even));
  EXPECT_TRUE(HasPattern(groups));
  EXPECT_TRUE(HasPattern(onTop));
  EXPECT_TRUE(HasPattern(roundTwice));
  EXPECT_TRUE(HasPattern(someOdd));
  EXPECT_FALSE(HasPattern(random));
  const Proof proof = ProofOf(Dwelling(random));
  EXPECT_EQ(KindsOf(proof).back(), (std::pair<std::string, int>("no-pattern", 1))) << Report(proof);
  // A fifth of it beside its place leaves three steps of five.
  for (std::size_t i = 0; i < even.size(); i += 5) even[i] = random[i];
  EXPECT_FALSE(HasPattern(even));
}

TEST(Damage, OfTheBandWidth) {
  EXPECT_EQ(OnlyFinding(Everywhere(ProgramOf({}), "FW=0.25", "FW=0")), "fault no-band at 11 in 1");
  EXPECT_EQ(OnlyFinding(Everywhere(ProgramOf({}), "FW=0.25", "FW=")), "fault no-band at 11 in 1");
  EXPECT_EQ(OnlyFinding(With(ProgramOf({}), "FW=0.25", "FW=0")), "none");
  EXPECT_EQ(OnlyFinding(Everywhere(ProgramOf({}), "FW=0.25", "")), "note unknown at 11 in 1");
}

TEST(Damage, BehindTheEnd) {
  const std::string good = ProgramOf({});  // 195 lines
  EXPECT_EQ(OnlyFinding(good + "[a comment]\n\n"), "none");
  for (const std::string& tail :
       {std::string("G1 F1 Z9\nM5\n"), std::string("M4 S20\nM5\n"), std::string("G1 Z9 S4 C90\nM5\n")})
    EXPECT_EQ(OnlyFinding(good + tail), "fault behind-end at 196 in 0") << tail;
  EXPECT_EQ(OnlyFinding(good + "X99\n\nM5\n"), "fault behind-end at 198 in 0");
  EXPECT_EQ(OnlyFinding(good + "X99\n\n" + std::string(9, '\0')), "fault behind-end at 198 in 0");
  EXPECT_EQ(OnlyFinding(good + std::string(9, '\0')), "fault unreadable at 196 in 0");
  EXPECT_EQ(OnlyFinding(good + "D0 GM=No Heat Gun Application\nM5\n"), "fault behind-end at 197 in 0");
}

TEST(Damage, OfItsBytes) {
  const std::string good = With(ProgramOf({}), "M17", "M17\t[Enable\tSteppers \xe4]");
  EXPECT_EQ(OnlyFinding(good), "none");
  // A reader that ends its lines at a carriage return would turn the mandrel.
  EXPECT_EQ(OnlyFinding(With(good, "Steppers", "Steppers\rM4 S45 [")), "fault control-bytes at 5 in 0");
  EXPECT_EQ(OnlyFinding(With(good, "Steppers", std::string("Steppers\0", 9))),
            "fault control-bytes at 5 in 0");
  EXPECT_EQ(OnlyFinding(Everywhere(good, "\n", "\r\n")), "none");
}

TEST(Damage, ThatLeavesHardlyAProgram) {
  EXPECT_EQ(OnlyFinding("M5"), "fault nothing-moves at 1 in 0");
  EXPECT_EQ(OnlyFinding("\n[a program]\nG20\nX V420 T2 Z1.875\nM17\nM0\nG1 I10\nM5\n"),
            "fault nothing-moves at 3 in 0");
  // Going home is a program.
  EXPECT_EQ(OnlyFinding("C C0\nG20\nX V420 T2 Z1.875\nG90\nM17\nG28 F1\nG4 P10000\nX99\n\n"), "none");
}

// Programs byte for byte as the station writes them. One of them asks its end wraps to take less time than
// none, and says so in its README.
TEST(Damage, IsNoneInWhatTheStationWrites) {
  namespace fs = std::filesystem;
  std::size_t programs = 0;
  for (const auto& entry :
       fs::recursive_directory_iterator(fs::path(SOURCE_FOLDER) / "tests/cases/programs")) {
    if (entry.path().stem() != "program") continue;
    ++programs;
    std::set<std::string> found;
    const Proof proof = ProofOf(Bytes(entry.path()));
    for (const Finding& f : proof.findings.all())
      if ((f.kind >= Kind::Units && f.kind <= Kind::NothingMoves) || f.kind == Kind::PreWrapStarts)
        found.emplace(NameOf(f.kind));
    const bool slow = entry.path().parent_path().filename() == "left_hand_flat";
    EXPECT_EQ(found, slow ? std::set<std::string>{"negative-speed"} : std::set<std::string>{})
        << entry.path() << "\n"
        << Report(proof);
  }
  EXPECT_GE(programs, 11U);
}

// The points of a four-axis part, as the station sends the head there.
TEST(Damage, IsNoneInATrace) {
  for (const char* form : {"C C0\nG20\n", "C C1\nG21\n"}) {
    const std::string trace =
        "[SPOT VERIFY][X,Y,Z]\n" + std::string(form) +
        "X V420 T4 Z1.875 Y4.4375\nG90\nM17 [M18 Disables]\nG1 I10 J10 K10 N10 O10 T10\nG28 E0.500\n"
        "G28 R4 F1\nG4 P10000\nM602\nG1 J1 K1 O10 T10\nG1 F1 Z8 R20 B90\nG1 E0.50 Y2\n\nM0\n\n"
        "G1 E0.50 Y4.438\nG1 F1.5 Z30.00\nX99 [END]\n\n";
    EXPECT_EQ(OnlyFinding(trace), "none") << form;
  }
}

Layer EvenLayer(int strokes) {
  Layer layer;
  for (int i = 0; i < strokes; ++i)
    layer.strokes.push_back({1, i, 0, 24, i * 10.0, i * 10.0 + 687.5, 6, 28, true, true, false});
  layer.passes.resize(static_cast<std::size_t>(strokes), {1, 36, 1, 2, 0, 24, 0, 0, 1, 1});
  layer.band = 0.25;
  return layer;
}

// Thousands of bands on top of each other, before those that cover the part.
TEST(Cover, LooksAtAllBands) {
  Layer layer = EvenLayer(36);
  layer.strokes.insert(layer.strokes.begin(), 5000, layer.strokes[0]);
  const Mandrel mandrel{0, 24, 2, 2};
  EXPECT_EQ(CoveredShare(layer, mandrel, 0, 24, kMostRows, {}),
            CoveredShare(EvenLayer(36), mandrel, 0, 24, kMostRows, {}));
}

// On an even part the bands of a direction are taken together; on a taper, be it one of nothing, each by
// itself.
TEST(Cover, IsThatOfEachBandByItself) {
  constexpr double kNearlyTwo = 2.0000000000000004;
  Dice dice(7);
  for (int i = 0; i < 600; ++i) {
    Layer layer = EvenLayer(1 + dice.To(dice.Of({5, 5, 60})));
    layer.band = dice.Of({0.25, 0.02, 3.0, 3.0, 9.0});
    for (Stroke& stroke : layer.strokes) {
      // Beside another band, nearly on top of it or anywhere; alike, or across the others in many ways.
      stroke.m0 = dice.Of({dice.To(72) * 5.0, dice.To(3) * 1e-11, dice.To(100) * 0.1 - 5});
      const double turn = dice.Of({687.5, 687.5 + dice.To(3) * 1e-11, 692.0, 700.0, -687.5, 687.5 + 360});
      stroke.z0 = dice.Of({0, 0, 0, 6});
      stroke.z1 = dice.Of({24, 24, 24, 12});
      stroke.m1 = stroke.m0 + turn * (stroke.z1 - stroke.z0) / 24;
      if (dice.To(2) == 0) std::swap(stroke.z0, stroke.z1), std::swap(stroke.m0, stroke.m1);
    }
    EXPECT_EQ(CoveredShare(layer, {0, 24, 2, 2}, 0, 24, 200, {}),
              CoveredShare(layer, {0, 24, 2, kNearlyTwo}, 0, 24, 200, {}))
        << i;
  }
}

// What was stopped says nothing, at once.
TEST(Damage, IsNotLookedForBehindAStop) {
  std::stop_source source;
  const std::stop_token running = source.get_token();
  const Layer layer = EvenLayer(36);
  const Mandrel mandrel{0, 24, 2, 2};
  EXPECT_GT(CoveredShare(layer, mandrel, 0, 24, kMostRows, running), 0.9);
  EXPECT_EQ(FindPattern(layer, mandrel, 0, 24, 1, running).bands, 36);
  source.request_stop();
  EXPECT_EQ(CoveredShare(layer, mandrel, 0, 24, kMostRows, running), 0);
  EXPECT_EQ(FindPattern(layer, mandrel, 0, 24, 1, running).bands, 0);
  EXPECT_FALSE(Prove(ProgramOf({}), Limits(), running).anyStatement);
}

}  // namespace
}  // namespace torvane::executor
