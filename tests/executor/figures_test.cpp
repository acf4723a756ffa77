// What a program takes: tow, spools, time, and the angle that it lays; held to figures worked out otherwise.
#include <gtest/gtest.h>

#include <map>

#include "executor/measure/cover_map.h"
#include "executor/measure/run.h"
#include "executor/proof/report.h"
#include "programs.h"

namespace torvane::executor {
namespace {

std::string Everywhere(std::string text, const std::string& what, const std::string& other) {
  for (auto at = text.find(what); at != std::string::npos; at = text.find(what, at + other.size()))
    text.replace(at, what.size(), other);
  return text;
}

// By a mandrel so much faster, which the display tells as well or not.
std::string Faster(double factor, bool told) {
  const std::string text =
      Everywhere(ProgramOf({}), "M4 S" + Fixed(kTestRpm, 8), "M4 S" + Fixed(kTestRpm * factor, 8));
  return told ? Everywhere(text, "RPM=28.6", "RPM=" + Fixed(kTestRpm * factor, 2)) : text;
}

TEST(Angle, ThatIsLaidIsHeldToTheAskedOne) {
  const auto kinds = [](double factor) { return KindsOf(Prove(Faster(factor, true), Limits())); };
  EXPECT_EQ(kinds(1.3), (Kinds{{"wrong-angle", 1}}));
  EXPECT_EQ(kinds(0.7)[0], (std::pair<std::string, int>("wrong-angle", 1)));
  EXPECT_EQ(kinds(1.1), (Kinds{{"angle-off", 1}}));
  EXPECT_EQ(kinds(1.01), Kinds{}) << "0.3 degrees";
  Limits limits;
  limits.angleNote = limits.angleFault = 0;
  EXPECT_EQ(KindsOf(Prove(Faster(1.3, true), limits)), Kinds{});
  limits.angleFault = 2;
  EXPECT_EQ(KindsOf(Prove(Faster(1.1, true), limits)), (Kinds{{"wrong-angle", 1}}));
  const Proof proof = Prove(Faster(1.3, true), Limits());
  EXPECT_NEAR(proof.layers[0].angle.median, std::atan(1.3) * 180 / kTestPi, 1e-6);
  EXPECT_NE(Report(proof).find("Layer 1 is laid at 52.4 degrees where 45.0 are asked"), std::string::npos)
      << Report(proof);
  // What the display tells of the speeds is another matter.
  EXPECT_EQ(KindsOf(Prove(Faster(1.01, false), Limits())), (Kinds{{"other-speed", 1}}));
  const std::string slow = Everywhere(ProgramOf({}), "G1 F6 ", "G1 F5.99 ");
  EXPECT_EQ(KindsOf(Prove(slow, Limits())), (Kinds{{"other-speed", 1}}));
}

TEST(Angle, OfATaperIsThatOfItsMeanDiameter) {
  const std::string head = "[GENERAL PART DESCRIPTION: LeftDia=4.000 RightDia=2.000 ]\n";
  const auto asked = [&](const std::string& angle) {
    return Prove(head + Everywhere(ProgramOf({}), "WA=45", "WA=" + angle), Limits());
  };
  const Proof proof = asked("36.87");  // three quarters of the surface speed
  EXPECT_EQ(KindsOf(proof), Kinds{}) << Report(proof);
  EXPECT_NEAR(proof.layers[0].angle.median, std::atan(0.75) * 180 / kTestPi, 1e-6);
  EXPECT_NEAR(proof.layers[0].angle.alongPart.low, std::atan(0.5) * 180 / kTestPi, 1e-6);
  EXPECT_NEAR(proof.layers[0].angle.alongPart.high, 45, 1e-6);
  EXPECT_EQ(KindsOf(asked("45")), (Kinds{{"wrong-angle", 1}}));
  // With a delivery head, of the left end.
  std::string head4 = head + Everywhere(ProgramOf({}), "T2 Z1.875", "T4 Z1.875 Y4.4375");
  EXPECT_EQ(KindsOf(Prove(Everywhere(head4, "G28 F1", "G28 E1 F1"), Limits())), Kinds{});
}

TEST(Displays, AreHeldToTheLayer) {
  const std::string good = ProgramOf({});
  std::string band = good;
  band.replace(band.rfind("FW=0.25"), 7, "FW=0.20");
  EXPECT_EQ(KindsOf(Prove(band, Limits()))[0], (std::pair<std::string, int>("other-band", 1)));
  const std::string head = "[GENERAL PART DESCRIPTION: TotLen=24.00 FilaWidth=0.300 ]\n";
  EXPECT_EQ(KindsOf(Prove(head + good, Limits())), (Kinds{{"other-band", 1}}));
  // The second layer goes by where the first one had its far end.
  std::string two = Begun() + LayerOf({}) + LayerOf({});
  const auto second = two.rfind("LA=1_of_1 PA=1_");
  two = two.substr(0, second) + Everywhere(two.substr(second), "LA=1_of_1", "LA=2_of_2") + Ended();
  EXPECT_EQ(KindsOf(Prove(two, Limits())), Kinds{}) << Report(Prove(two, Limits()));
  two.erase(two.rfind("M601\n"), 5);
  const Proof stale = Prove(two, Limits());
  const auto kinds = KindsOf(stale);
  EXPECT_EQ(std::count(kinds.begin(), kinds.end(), std::pair<std::string, int>("stale-register", 2)), 1)
      << Report(stale);
}

TEST(Tow, OnAConeIsTheSumOfItsPieces) {
  const Mandrel cone{4, 28, 1, 3};
  for (const double turn : {0.0, 3.0, 400.0, 90000.0}) {
    const Stroke stroke{0, 0, 6, 26, 10, 10 + turn};
    double sum = 0;
    constexpr int kPieces = 200000;
    for (int i = 0; i < kPieces; ++i) {
      const auto at = [&](int k) { return 6 + 20.0 * k / kPieces; };
      const double r0 = cone.RadiusAt(at(i)), r1 = cone.RadiusAt(at(i + 1));
      const double angle = turn / kPieces * kTestPi / 180;
      const double across = std::sqrt(std::max(0.0, r0 * r0 + r1 * r1 - 2 * r0 * r1 * std::cos(angle)));
      sum += std::hypot(20.0 / kPieces, across);
    }
    EXPECT_NEAR(LengthOf(stroke, cone), sum, 1e-5 * sum) << turn;
  }
}

// The ways at 45 degrees are 24 sqrt 2; a pass out and back leaves 295.09 degrees of a turn behind it, and
// its dwell goes on from there.
TEST(Tow, IsCutIntoSpools) {
  const double way = 24 * std::sqrt(2.0);
  const double round = 24 / (4 * kTestPi) * 360 * 2;
  const double dwell = (10 - std::fmod(round, 360) + 360) / 360 * 4 * kTestPi;
  Limits limits;
  const auto first = [&](double inches) {
    limits.spoolLength = inches / 12;
    return Prove(ProgramOf({}), limits);
  };
  const Proof early = first(24);
  const double tow = early.filament;
  EXPECT_NEAR(tow, 36 * (2 * way + dwell), 0.01);
  EXPECT_EQ(early.spools.Count(), static_cast<long long>(std::ceil(tow / 24)));
  EXPECT_NEAR(early.spools.splices()[0].z, 4 + 24 / std::sqrt(2.0), 1e-3);
  EXPECT_FALSE(early.spools.splices()[0].atEnd);
  // On the way back.
  EXPECT_NEAR(early.spools.splices()[1].z, 28 - (48 - way) / std::sqrt(2.0), 1e-3);
  const Proof end = first(2 * way + dwell / 2);
  EXPECT_TRUE(end.spools.splices()[0].atEnd);
  EXPECT_EQ(end.spools.splices()[0].pass, 1);
  EXPECT_NEAR(end.spools.splices()[0].z, 4, 1e-6);
  EXPECT_NE(Report(end).find("spliced in layer 1 pass 1 at Z=4.00 (at an end)"), std::string::npos)
      << Report(end);
  const Proof one = first(tow + 0.01);
  EXPECT_EQ(one.spools.Count(), 1);
  EXPECT_TRUE(one.spools.splices().empty());
  EXPECT_EQ(SpoolText(first(0)), "");
  // A spool shorter than a piece ends several times on it.
  EXPECT_EQ(first(3).spools.Count(), static_cast<long long>(std::ceil(tow / 3)));
}

TEST(Tow, HasAMassWhereItsThicknessIsTold) {
  EXPECT_FALSE(Prove(ProgramOf({}), Limits()).mass.known);
  const std::string head = "[GENERAL PART DESCRIPTION: FilaThickness=0.0100 ]\n";
  Limits limits;
  limits.resinShare = 40;
  limits.fibreDensity = 2;
  limits.resinDensity = 1.5;
  const Proof proof = Prove(head + ProgramOf({}), limits);
  const double volume = proof.filament * 0.25 * 0.01 * 2.54 * 2.54 * 2.54;
  ASSERT_TRUE(proof.mass.known);
  EXPECT_NEAR(proof.mass.fibre, volume * 0.6 * 2, 1e-6);
  EXPECT_NEAR(proof.mass.resin, volume * 0.4 * 1.5, 1e-6);
  limits.fibreDensity = 0;
  EXPECT_FALSE(Prove(head + ProgramOf({}), limits).mass.known);
}

// The turn that is told between two layers is wound as well, and takes its time.
TEST(Tow, CountsTheTurnsBehindALayer) {
  const Proof without = Prove(ProgramOf({}), Limits());
  std::string text = ProgramOf({});
  text.insert(text.find("D0 GM"), "M0\nM4 S10\nG4 C90\n");
  const Proof with = Prove(text, Limits());
  EXPECT_NEAR(with.filament - without.filament, kTestPi, 1e-6);
  EXPECT_NEAR(with.windingSeconds - without.windingSeconds, 1.5, 1e-6);
  EXPECT_NEAR(with.layers[0].seconds - without.layers[0].seconds, 1.5, 1e-6);
}

// In steps of a tenth of a millisecond: each axis gains speed until it must brake to stand at its target.
class StepByStep {
 public:
  StepByStep(double carriage, double mandrel) : carriage_(carriage), mandrel_(mandrel) {}

  double Seconds(const std::string& program) {
    Reader reader(program);
    for (Line line; reader.Next(line);)
      if (line.kind == Line::Kind::Statement) Do(line.statement);
    return static_cast<double>(steps_) * kStep;
  }

 private:
  static constexpr double kStep = 1e-4;

  struct Moving {
    double left = 0, top = 0, gain = 0, speed = 0;
    bool Step() {
      if (left <= 0) return false;
      const bool brake = speed * speed / (2 * gain) >= left;
      speed = brake ? std::max(speed - gain * kStep, gain * kStep / 2) : std::min(top, speed + gain * kStep);
      left -= speed * kStep;
      return left > 0;
    }
  };

  void Tick() {
    const double change = mandrel_ * kStep;
    spin_ = spin_ < target_ ? std::min(target_, spin_ + change) : std::max(target_, spin_ - change);
    angle_ += spin_ * kStep;
    ++steps_;
  }

  void Do(const Statement& statement) {
    const Words& words = statement.words;
    switch (statement.command) {
      case Command::Turn:
        target_ = words.At('S') * 6;
        break;
      case Command::Stop:
        for (target_ = 0; spin_ > 0;) Tick();
        break;
      case Command::SaveFar:
      case Command::SaveHome:
        saved_[statement.command == Command::SaveFar ? 601 : 602] = angle_;
        break;
      case Command::Dwell:
        Dwell(words);
        break;
      case Command::Move:
      case Command::Ellipse:
      case Command::Withdraw:
        Move(statement);
        break;
      default:
        break;
    }
  }

  void Dwell(const Words& words) {
    if (words.Has('P')) {
      for (double t = 0; t < words.At('P') * 1e-4; t += kStep) Tick();
      return;
    }
    double way = words.At('C');
    if (words.Has('L')) {
      way = std::fmod(saved_.at(static_cast<int>(words.At('L'))) + words.At('C') - angle_, 360);
      if (way < 0) way += 360;
    }
    for (const double until = angle_ + way; angle_ < until;) Tick();
  }

  void Move(const Statement& statement) {
    const Words& words = statement.words;
    if (words.Has('F')) feed_ = words.At('F');
    Moving carriage{0, feed_, carriage_}, mandrel{0, words.At('S') * 6, mandrel_};
    if (statement.command == Command::Move) carriage.left = std::abs(words.At('Z') - z_);
    z_ = words.At('Z');
    if (words.Has('C')) mandrel.left = words.At('C');
    for (bool more = true; more;) {
      const bool runs = carriage.Step();
      more = mandrel.Step() || runs;
      Tick();
    }
  }

  double carriage_, mandrel_;
  double angle_ = 0, spin_ = 0, target_ = 0, z_ = 1.875, feed_ = 0;
  std::map<int, double> saved_;
  long long steps_ = 0;
};

// Twelve passes with dwells that no reading makes a revolution of, and ways too short for full speed.
std::string Winding12() {
  std::string text = "M4 S40\nM602\n";
  for (int pass = 1; pass <= 12; ++pass)
    text += PassLine(pass, 12) + "G1 F6 Z28\nG1 F6 Z27.9\nG4 C100\nG1 F5 Z4\nG4 L602 C" +
            std::to_string(90 + 7 * pass) + "\n";
  return text + "M5\nM4 S10\nG4 P20000\nM5\n";
}

std::string Wrapping() {
  std::string text;
  for (int pass = 1; pass <= 6; ++pass)
    text +=
        "G1 F4 Z28 S6.25 C225\nG2 K40 F1 Z30 S4 C135\nG5 K2 F1 Z28 S4 C45\nG1 F4 Z4 S60 C225\nG3 F1 Z2 S4 "
        "C135\n"
        "G6 F1 Z4 S4 C45\n";
  return text;
}

TEST(Acceleration, TakesAsLongAsStepByStep) {
  for (const std::string& program : {Winding12(), Wrapping()}) {
    const std::string text = "X V420 T4 Z1.875 Y4\n" + program;
    for (const auto& [carriage, mandrel] : {std::pair(20.0, 400.0), {3.0, 50.0}, {1.0, 1e6}, {1e5, 20.0}}) {
      Drive drive;
      drive.carriage = carriage;
      drive.mandrel = mandrel;
      const double seconds = RunBy(text, drive, {}).seconds;
      const double steps = StepByStep(carriage, mandrel).Seconds(text);
      EXPECT_NEAR(seconds, steps, 0.005 * steps) << carriage << ' ' << mandrel << '\n' << program;
      EXPECT_GT(seconds, RunBy(text, {}, {}).seconds);
    }
  }
}

TEST(Acceleration, WidensTheTimes) {
  Limits limits;
  const Proof at = Prove(ProgramOf({}), limits);
  EXPECT_EQ(at.winding.low, at.windingSeconds);
  EXPECT_FALSE(at.layers[0].reversal.known);
  EXPECT_FALSE(at.layers[0].slowed);
  limits.carriageAcceleration = 12;  // half a second and 1.5 in to 6 in/s
  const Proof proof = Prove(ProgramOf({}), limits);
  const LayerFigures& layer = proof.layers[0];
  EXPECT_EQ(proof.windingSeconds, at.windingSeconds);
  EXPECT_GT(layer.time.high, layer.time.low);
  EXPECT_TRUE(layer.slowed);
  EXPECT_EQ(layer.slowest, DrivenAxis::Carriage);
  ASSERT_TRUE(layer.reversal.known);
  EXPECT_NEAR(layer.reversal.length, 1.5, 1e-9);
  EXPECT_NEAR(layer.reversal.angle, std::atan(2) * 180 / kTestPi, 1e-6) << "twice the turn over the same way";
  EXPECT_NE(Report(proof).find("it waits longest for the carriage"), std::string::npos) << Report(proof);
}

// The far dwells of a mandrel that is equally thick come to nothing.
TEST(Dwells, ThatAreJustReachedAreReadBothWays) {
  const Proof proof = Prove(ProgramOf({}), Limits());
  const LayerFigures& layer = proof.layers.at(0);
  EXPECT_EQ(layer.twofoldDwells, 35);
  EXPECT_EQ(layer.twofoldLine, 20);
  EXPECT_NEAR(layer.time.high - layer.time.low, 35 * 60 / kTestRpm, 0.01);
  EXPECT_NEAR(layer.tow.high - layer.tow.low, 35 * 4 * kTestPi, 0.01);
  EXPECT_EQ(layer.covered.low, 1);
  EXPECT_NE(Report(proof).find("line 20: 35 dwells wait for an angle of layer 1 that is just reached"),
            std::string::npos)
      << Report(proof);
  // A click of the mandrel, half a hundredth, and what it turns while the carriage makes a click.
  const double near = 0.005 + 360 / 21735.0 + kTestRpm * 6 / 3623 / 6;
  const auto twofold = [](double beyond) {
    const std::string text = Everywhere(ProgramOf({.passes = 2, .step = 10}), "G4 L601 C10.000000",
                                        "G4 L601 C" + Fixed(10 + beyond, 6));
    return Prove(text, Limits()).layers.at(0).twofoldDwells;
  };
  EXPECT_EQ(twofold(near - 1e-4), 1);
  EXPECT_EQ(twofold(near + 1e-4), 0);
  EXPECT_EQ(twofold(1e-4 - near), 1);
  EXPECT_EQ(twofold(-1e-4 - near), 0);
}

// A hemisphere's swing is told two thirds of its way: at 3 in/s the carriage needs 2 s, the mandrel turns
// for 1.
TEST(Swings, MayTakeTheCarriagesTime) {
  const auto layer = [](const std::string& feed) {
    std::string text = Begun() + PassLine(1, 1);
    text.replace(text.find("T2 Z1.875"), 9, "T4 Z1.875 Y4.4375");
    text += "G1 F6 Z28 S28 C225\nG2 F" + feed + " Z34 S30 C180\nG5 F1 Z28 S30 C45\nG1 F6 Z4 S28 C225\n";
    return Prove(text + Ended(), Limits()).layers.at(0);
  };
  const LayerFigures slow = layer("3");
  EXPECT_EQ(slow.twofoldSwings, 1);
  EXPECT_EQ(slow.twofoldDwells, 0);
  EXPECT_NEAR(slow.time.high - slow.time.low, 1, 1e-9);
  EXPECT_EQ(slow.time.low, slow.seconds);
  EXPECT_EQ(slow.tow.low, slow.tow.high);
  EXPECT_NE(TwofoldText(slow, false).find("1 swing round an end of layer 1"), std::string::npos);
  EXPECT_EQ(layer("6").twofoldSwings, 0) << "in time";
}

// Bands of 0.25 over cos 45 degrees, out and back in 36 passes, on a circumference of 4 pi.
TEST(Map, CountsTheBandsOnEachPlace) {
  const CoverMap whole = MapOf(ProgramOf({}), Limits(), false, 96, 720);
  ASSERT_EQ(whole.layers.size(), 1U);
  EXPECT_EQ(whole.zLow, 4);
  EXPECT_EQ(whole.zHigh, 28);
  EXPECT_EQ(whole.Meant(), 2);
  const auto meanOf = [](const CoverMap& map, int row) {
    double sum = 0;
    for (int place = 0; place < map.places; ++place) sum += map.BandsAt(row, place);
    return sum / map.places;
  };
  for (const int row : {0, 40, 95})
    EXPECT_NEAR(meanOf(whole, row), 72 * 0.25 * std::sqrt(2) / (4 * kTestPi), 0.05) << row;
  EXPECT_EQ(whole.layers[0].covered, 1);
  const CoverMap half = MapOf(ProgramOf({.passes = 18, .step = 20}), Limits(), true, 96, 720);
  EXPECT_NEAR(meanOf(half, 40), 36 * 0.25 * std::sqrt(2) / (4 * kTestPi), 0.05);
  EXPECT_LT(half.layers[0].covered, 0.85);
  // A band that went out with the first pass lies where the mandrel stood: at 0 degrees from Z 4 on.
  EXPECT_GT(MapOf(ProgramOf({.passes = 1}), Limits(), false, 96, 720).BandsAt(0, 5), 0);
  EXPECT_EQ(MapOf(ProgramOf({.passes = 1}), Limits(), false, 96, 720).BandsAt(0, 360), 0);
  EXPECT_TRUE(MapOf("G20\n", Limits(), false, 96, 720).empty());
}

TEST(Map, IsWrittenForOtherPrograms) {
  const std::string head = "[GENERAL PART DESCRIPTION: FilaThickness=0.010 ]\n";
  const CoverMap map = MapOf(head + ProgramOf({}), Limits(), false, 3, 4);
  const std::string csv = MapAsCsv(map);
  EXPECT_EQ(csv.substr(0, csv.find('\n')), "z_in,angle_deg,bands,thickness_in,layer1");
  EXPECT_EQ(std::count(csv.begin(), csv.end(), '\n'), 1 + 3 * 4);
  EXPECT_NE(csv.find("\n8.0000,45.000,"), std::string::npos) << csv;
  const std::string vtk = MapAsVtk(map);
  EXPECT_EQ(vtk.substr(0, 26), "# vtk DataFile Version 3.0");
  EXPECT_NE(vtk.find("DATASET STRUCTURED_GRID\nDIMENSIONS 5 3 1\nPOINTS 15 float\n1.41421 1.41421 8.00000\n"),
            std::string::npos)
      << vtk;
  EXPECT_NE(vtk.find("POINT_DATA 15\nSCALARS bands int 1\nLOOKUP_TABLE default\n"), std::string::npos);
  // Points, and three figures at each.
  EXPECT_EQ(std::count(vtk.begin(), vtk.end(), '\n'), 6 + 15 + 1 + 3 * (2 + 15));
}

TEST(Axes, AreToldInShareOfTheirLimits) {
  Limits limits;
  limits.carriageTravel = 0;
  EXPECT_EQ(AxesText(Prove(ProgramOf({}), limits)),
            "carriage speed 66 %, mandrel speed 32 %; carriage travel not checked: no limit is set");
  EXPECT_EQ(AxesText(Prove(Ready() + "G1 E2 Y3\nX99", Limits())),
            "carriage speed 11 %; head speed not checked: no limit is set");
}

TEST(Announced, TowIsToldFromAQuarterMore) {
  Proof proof = Prove(ProgramOf({}), Limits());
  JudgeTow(proof, proof.filament / 1.24);
  EXPECT_EQ(KindsOf(proof), Kinds{});
  JudgeTow(proof, proof.filament / 1.25);
  EXPECT_EQ(KindsOf(proof), (Kinds{{"tow", 0}}));
}

}  // namespace
}  // namespace torvane::executor
