#include "post/machine/machine.h"

#include <gtest/gtest.h>

#include "post/posting.h"

namespace torvane::post {
namespace {

TEST(MachineFile, ThoseThatComeWithTheProgramAreRead) {
  for (const char* name : kControllers) {
    const Result<Machine> machine = ReadMachine(MachineText(name));
    ASSERT_TRUE(machine) << name << ": " << machine.reason();
    EXPECT_EQ(NameOf(machine.value().controller), name);
  }
  const Machine hal = MachineNamed("grblhal");
  const MachineAxis& rotation = *hal[Axis::HeadRotation];
  EXPECT_EQ(rotation.letter, 'Z');
  EXPECT_EQ(rotation.home, -90);
  EXPECT_EQ(rotation.rate, 360);
  EXPECT_EQ(hal[Axis::Carriage]->max, 0);
  EXPECT_FALSE(hal[Axis::Mandrel]->max);
  // 100 mm from the switch, on an axis that counts down from it; and back.
  EXPECT_EQ(hal.CoordinateOf(Axis::Carriage, 100), -100);
  EXPECT_EQ(hal.PlaceOf(Axis::Carriage, -100), 100);
  // A head that is drawn in by 10 mm counts down from where it stands at home.
  EXPECT_DOUBLE_EQ(MachineNamed("linuxcnc").CoordinateOf(Axis::Head, -10), 102.7125);
}

TEST(MachineFile, InchesAreThoseOfTheLengthsAlone) {
  Result<Machine> machine = MachineWith("linuxcnc", "\"mm\"", "\"inch\"");
  ASSERT_FALSE(machine);
  EXPECT_EQ(machine.reason(), "start: G21 is not the unit of the file");
  std::string text = MachineText("linuxcnc");
  text.replace(text.find("\"mm\""), 4, "\"inch\"");
  text.replace(text.find("G21"), 3, "G20");
  machine = ReadMachine(text);
  ASSERT_TRUE(machine) << machine.reason();
  EXPECT_EQ(machine.value().CoordinateOf(Axis::Carriage, 254), 10);
  EXPECT_EQ(machine.value().PlaceOf(Axis::Carriage, 10), 254);
  EXPECT_EQ(machine.value().CoordinateOf(Axis::Mandrel, 254), 254);
}

TEST(MachineFile, RefusalsNameWhatIsWrong) {
  const struct {
    const char *machine, *from, *to, *reason;
  } kCases[] = {
      {"linuxcnc", "\"min\": 0, \"max\": 1220", "\"mni\": 0, \"max\": 1220",
       "there is no key axes.carriage.mni"},
      {"linuxcnc", "\"lookAhead\"", "\"look\"", "there is no key feed.look"},
      {"linuxcnc", "\"flow\"", "\"flux\"", "there is no key link.flux"},
      {"linuxcnc", "\"pause\"", "\"halt\"", "there is no key halt"},
      {"linuxcnc", "\"version\": 1", "\"version\": 2", "version: only 1 is known"},
      {"linuxcnc", "\"linuxcnc\"", "\"cnc\"", "controller is none of linuxcnc, grbl, grblhal, marlin: cnc"},
      {"linuxcnc", "\"mandrel\":", "\"spindle\":", "axes.mandrel is missing"},
      {"linuxcnc", "\"letter\": \"A\"", "\"letter\": \"X\"", "axes.mandrel.letter stands there twice: X"},
      {"linuxcnc", "\"max\": 1220", "\"max\": -1", "axes.carriage.min is not below max"},
      {"linuxcnc", "\"max\": 1220", "\"max\": \"far\"", "axes.carriage.max is no number"},
      {"linuxcnc", "\"home\": 112.7125", "\"home\": 130", "axes.head.home lies outside of min and max"},
      {"linuxcnc", "\"maxRatePerMin\": 12000", "\"maxRatePerMin\": 0",
       "axes.carriage.maxRatePerMin makes no sense: 0"},
      {"linuxcnc", "\"letter\": \"A\", \"rotary\": true", "\"letter\": \"A\", \"rotary\": false",
       "axes.mandrel.rotary: this axis turns"},
      {"linuxcnc", "\"mandrelReset\": \"none\"", "\"mandrelReset\": \"G92.9\"",
       "mandrelReset: on this controller it wins nothing or turns the mandrel"},
      {"linuxcnc", "G64 P0.05", "G91", "start: relative positions (G91) add up what is rounded"},
      {"linuxcnc", "G64 P0.05", "(so~)", "start holds a character on which controllers act: (so~)"},
      {"linuxcnc", "\"end\": \"M2\"", "\"end\": \"G28\"",
       "end: G28 would turn a wound mandrel back, or writes the controller's memory"},
      {"grbl", "\"letter\": \"Y\"", "\"letter\": \"A\"",
       "axes.mandrel.letter: the controller has the axes XYZ, not A"},
      {"grbl", "\"maxRatePerMin\": 50000", "\"maxRatePerMin\": 72000",
       "axes.mandrel.maxRatePerMin takes more than 30000 steps a second"},
      {"grbl", "\"decimals\": 3}", "\"decimals\": 1}",
       "axes.carriage.decimals are too few: a step is finer than the last digit"},
      {"grbl", "\"mm\"", "\"inch\"", "units: this controller's programs are written in mm"},
      {"grbl", "\"comments\": \"none\"", "\"comments\": \"paren\"",
       "line.comments: this controller would act on them"},
      {"grbl", "\"eol\": \"lf\"", "\"eol\": \"crlf\"", "line.eol: this controller answers a crlf twice"},
      {"grbl", "\"length\": 79", "\"length\": 80", "line.length makes no sense: 80"},
      {"grbl", "G21 G90 G94", "G21 G94", "start does not say G90"},
      {"grblhal", "\"mandrelReset\": \"none\"", "\"mandrelReset\": \"G92\"",
       "mandrelReset: on this controller it wins nothing or turns the mandrel"},
      {"marlin", "\"per-minute\"", "\"inverse-time\"", "feed.mode: this controller has no inverse-time"},
      {"marlin", "\"numbers\": false", "\"numbers\": true",
       "line.numbers: this controller means something else by N"},
      {"marlin", "\"S-seconds\"", "\"P-seconds\"", "dwell: this controller counts otherwise"},
      {"marlin", "{", "", "this is no JSON"},
  };
  for (const auto& c : kCases) {
    const Result<Machine> machine = MachineWith(c.machine, c.from, c.to);
    ASSERT_FALSE(machine) << c.reason;
    EXPECT_EQ(machine.reason(), c.reason);
  }
}

}  // namespace
}  // namespace torvane::post
