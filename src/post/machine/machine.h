// A winder that somebody owns: its controller, its axes, and how a program for it is written.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/result.h"
#include "post/motion/event.h"

namespace torvane::post {

enum class Controller : std::uint8_t { LinuxCnc, Grbl, GrblHal, Marlin };
enum class FeedMode : std::uint8_t { InverseTime, PerMinute };
// What a speed in units a minute refers to.
enum class FeedLength : std::uint8_t { AllAxes, LinearFirst };
enum class Comments : std::uint8_t { None, Brackets, Semicolon };
enum class Messages : std::uint8_t { None, Msg, M117 };
enum class Dwell : std::uint8_t { PSeconds, PMilliseconds, SSeconds };
enum class MandrelReset : std::uint8_t { None, G92, G92Native };

// Lengths in the machine's unit, angles in degrees.
struct MachineAxis {
  char letter = 'X';
  bool rotary = false;
  bool reversed = false;              // counts against the program
  std::optional<double> min, max;     // without end where they are missing
  double home = 0;                    // where it stands at its limit switch
  double stepsPerUnit = 0;            // 0 unknown
  double rate = 0, acceleration = 0;  // a second
  int decimals = 3;
};

struct Machine {
  std::string name;
  Controller controller = Controller::LinuxCnc;
  bool inches = false;
  std::array<std::optional<MachineAxis>, kAxes> axes;
  FeedMode feedMode = FeedMode::InverseTime;
  FeedLength feedLength = FeedLength::AllAxes;
  int feedDigits = 5;
  double blocksPerSecond = 50;
  int lookAhead = 15;
  MandrelReset mandrelReset = MandrelReset::None;
  double maxTurns = 0;  // of the mandrel between two resets; 0 without end
  std::size_t lineLength = 79;
  Comments comments = Comments::None;
  Messages messages = Messages::None;
  bool numbers = false;
  bool crlf = false;
  Dwell dwell = Dwell::PSeconds;
  std::string pause = "M0";
  std::string end;
  std::vector<std::string> start;

  const std::optional<MachineAxis>& operator[](Axis axis) const {
    return axes[static_cast<std::size_t>(axis)];
  }
  // Positions are kept in 32 bits.
  bool Floats() const { return controller != Controller::LinuxCnc; }
  // The axis' own coordinate of a place, and back; the axis must be there.
  double CoordinateOf(Axis axis, double place) const;
  double PlaceOf(Axis axis, double coordinate) const;
};

// "carriage", "mandrel", "head", "headRotation"; "linuxcnc" ...
std::string_view NameOf(Axis axis);
std::string_view NameOf(Controller controller);
// Of a program for it: ".ngc" ...
std::string_view EndingOf(Controller controller);

// A machine file, JSON. Refused with the name of what is unknown, missing or senseless in it.
Result<Machine> ReadMachine(std::string_view json);

}  // namespace torvane::post
