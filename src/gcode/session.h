// One program from its head to its last line.
#pragma once

#include "design/state.h"
#include "gcode/program.h"
#include "platform/platform.h"

namespace torvane {

// Where and when a program is formed, as its head tells it.
struct ProgramPlace {
  std::string folder;  // the station's
  Moment now{};
};

// What the writers of one program share; it lives as long as one call of FormProgram. The last commanded
// values carry over between start position, passes and end wraps.
struct GCodeSession {
  DesignState& s;
  Program& program;

  Kept gMandrelAngle{};       // running angle of the mandrel, degrees; never reset between layers
  Kept gMandrelStartAngle{};  // where it stands at the start of the first pass
  Kept gMoveZ{};              // carriage
  Kept gMoveY{};              // delivery head, in and out
  Kept gMoveB{};              // delivery head, rotation in degrees
  Kept gWrapRPM{};            // mandrel speed of the end move in hand
  Kept ellipseAngle{};        // mandrel turn of an ellipse, degrees

  bool angleUndefined = false;  // see Formed
};

// Of the two ends of the part the one at home, where the drive stands, and the one away from it.
template <class End>
const End& HomeOf(const DesignState& s, const End& left, const End& right) {
  return s.gIsLHDrive ? left : right;
}
template <class End>
const End& FarOf(const DesignState& s, const End& left, const End& right) {
  return s.gIsLHDrive ? right : left;
}

// Of the programs, below the station's folder.
inline constexpr std::string_view kProgramFolder = "\\TV_G-Code_Files\\";

// The name of the program of the design's file: the same with the ending of the family's programs.
std::string ProgramName(const DesignState& s);

// What forming a program came to.
struct Formed {
  bool named = false;  // else the design has no file name to name a program after, and nothing is formed
  // The first layer winds a pattern that names no winding angle: the way to its start is left out.
  bool angleUndefined = false;

  explicit operator bool() const { return named; }
};

// Forms the program of the design in hand and sets the names that belong to it (`gGCodeFilePath` and its
// like). A program that was refused or cancelled says so in its refusal.
Formed FormProgram(DesignState& s, const ProgramPlace& place, Program& program);
// In the station's folder, now.
Formed FormProgram(DesignState& s, const Platform& platform, Program& program);

// What writing a program came to.
struct Written {
  enum class How : std::uint8_t {
    Whole,
    Cancelled,  // by whoever followed it
    No,
  };
  using enum How;

  How how = No;
  bool angleUndefined = false;  // see Formed
  std::string refusal = {};     // why there is no new file; empty of a design without a name

  bool operator==(How other) const { return how == other; }
};

// Writes the program under `TV_G-Code_Files` while it is formed, replacing the former one. The former file
// stays unless the new one is whole.
Written WriteGCode(DesignState& s, const Platform& platform, ProgramProgress* progress = nullptr);

// Has the executor tell the operator that the winding is complete, where the operator wants to be told.
void NotifyWindingComplete(GCodeSession& session);

// The number of a field in plain text.
MaybeText PlainOf(const DesignState& s, const Field& field);

}  // namespace torvane
