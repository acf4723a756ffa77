#include "calc/speed_search.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "design/units.h"

namespace torvane {
namespace {

// A round tube of one diameter on a machine with one speed class.
struct Tube {
  Tube(double diameter, double classSpeed, double limit, bool inches) {
    ShowUnits(s, inches ? "Y" : "N");
    s.Diameter_Left = NumberToText(s.signs, diameter);
    s.Diameter_Right.CopyFrom(s.Diameter_Left);
    s.iMaxCarriageSpeeds.fill(classSpeed);
    s.iMaxMandrelRPM.fill(limit);
  }

  DesignState s{{}};
  Number rpm = Number::Failure();
  Number speed = Number::Failure();

  void Search(double angle) { CalculateSpeedsForAngle(s, rpm, speed, angle, 1); }
};

// The search as an operator would do it, one step of 0.025 after the other.
struct Stepped {
  double rpm, speed;
  bool ends;
};
Stepped StepByStep(const DesignState& s, double angle, double limit) {
  const double classSpeed = InUnits(s, s.iMaxCarriageSpeeds[0], false).value();
  const double circumference = (number(s.Diameter_Right).value() + number(s.Diameter_Left).value()) * kPi / 2;
  const double ceiling = s.InInches() ? 20.0 : 500.0;
  const double tangent = std::tan(angle * kPi / 180);
  double speed = classSpeed;
  for (long rounds = 0; rounds < 3'000'000; ++rounds) {
    const double surface = tangent * speed;
    const double rpm = 60 * surface / circumference;
    if (!(rpm > limit)) return {rpm, speed, true};
    speed -= 0.025;
    if (speed >= 0.025 && speed <= ceiling) continue;
    limit += 5;
    speed = classSpeed;
  }
  return {0, 0, false};
}

TEST(SpeedSearch, GivesTheDigitsOfTheSteps) {
  std::mt19937 random(20261124);
  const auto pick = [&random](std::initializer_list<double> values) {
    return values.begin()[random() % values.size()];
  };
  std::uniform_real_distribution<double> anyAngle(1, 89.9), anyDiameter(0.2, 12);
  int compared = 0;
  for (int i = 0; i < 3000; ++i) {
    const bool inches = random() % 2 == 0;
    const double classSpeed = pick({0.02, 0.05, 2, 4, 6, 6.001, 18, 19.99, 20.02, 20.5, 25});
    const double limit = pick({0.1, 1, 15, 30, 45, 60, 90.2, -7.3});
    const double angle = random() % 4 == 0 ? pick({80, 85, 88.5, 89.5, 0.5, 91, -10, 179}) : anyAngle(random);
    Tube tube(anyDiameter(random) * (inches ? 1 : 25.4), classSpeed, limit, inches);
    const Stepped stepped = StepByStep(tube.s, angle, limit);
    if (!stepped.ends) continue;
    tube.Search(angle);
    ASSERT_TRUE(tube.rpm.good());
    ASSERT_EQ(tube.rpm.value(), stepped.rpm) << angle << " at " << classSpeed << " under " << limit;
    ASSERT_EQ(tube.speed.value(), stepped.speed) << angle << " at " << classSpeed << " under " << limit;
    ++compared;
  }
  EXPECT_GT(compared, 2900);
}

TEST(SpeedSearch, NearlyAHoopRaisesTheLimitFarAndEndsAtOnce) {
  Tube tube(1, 6, 15, true);
  tube.Search(89.99);
  const Stepped stepped = StepByStep(tube.s, 89.99, 15);
  ASSERT_TRUE(stepped.ends);
  EXPECT_EQ(tube.rpm.value(), stepped.rpm);
  EXPECT_EQ(tube.speed.value(), stepped.speed);
  // The tangent just below a right angle is past any machine: a limit in steps of 5 still gets there.
  tube.Search(89.9999999);
  EXPECT_TRUE(tube.rpm.good());
}

TEST(SpeedSearch, ThatNoLongerMovesLeavesItsValues) {
  Tube tube(1e-17, 6, 15, true);
  tube.Search(60);
  EXPECT_FALSE(tube.rpm.good());
  EXPECT_FALSE(tube.speed.good());
}

TEST(SpeedSearch, WorkedExamples) {
  Tube slow(1, 6, 60, true);
  slow.Search(60);
  EXPECT_EQ(FormatNumberText({}, slow.speed.value(), "#0.00"_mask), "1.80");
  EXPECT_EQ(FormatNumberText({}, slow.rpm.value(), "##0.0"_mask), "59.5");

  Tube none(0, 6, 60, true);
  none.Search(45);
  EXPECT_EQ(none.rpm.value(), 0);
  EXPECT_EQ(none.speed.value(), 6);

  // The class speed goes through three decimals before it is used.
  Tube metric(100, 6.0001, 60, false);
  metric.Search(45);
  EXPECT_EQ(metric.speed.value(), 152.403);

  Tube hoop(4, 6, 45, true);
  hoop.s.txtBandWidth(0) = "0.25";
  hoop.Search(90);
  EXPECT_EQ(hoop.rpm.value(), 45);
  EXPECT_EQ(hoop.speed.value(), 0.1875);
}

}  // namespace
}  // namespace torvane
