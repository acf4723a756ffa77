// The commands of `torvane`. Each returns the exit status.
#pragma once

#include <string>
#include <vector>

#include "cli/computer/computer.h"

namespace torvane {

// Writes the program of each design into the station's folder, or to standard output.
int RunGCode(Computer& computer, const std::vector<std::string>& designs, bool toStandardOutput);

// Proves the program of each design without writing it; as text, or each as one JSON object. Fails where one
// has a fault. `map` is empty, or the .csv or .vtk file for the bands on each place of a single design's
// part.
int RunProve(Computer& computer, const std::vector<std::string>& designs, bool json, const std::string& map);

// Tells what of two designs or programs winds differently, layer by layer; as text or as one JSON object.
// Done if nothing does, failed if something does.
int RunDiff(Computer& computer, const std::string& before, const std::string& after, bool json);

struct RestartOptions {
  std::string program;
  int layer = 0, pass = 0;
  std::string out;  // empty: beside the station's programs
};
// Writes the program that goes on from a pass of another, and prints its path. What cannot be gone on with is
// a wrong use.
int RunRestart(Computer& computer, const RestartOptions& options);

// Works out the laminate problem of a JSON file (docs/laminate.md); wrong usage where it cannot be.
int RunLaminateCase(Computer& computer, const std::string& file);

// What a part is to bear, as typed, each with its unit or in the design's; and other materials than its own.
struct LaminateOptions {
  std::string pressure, force, torque, moment;
  bool open = false;  // the ends let the pressure out along the axis
  std::string tow, resin, ply;
  bool json = false;
};
// Tells what the part of a design will be: wall, mass, stiffness, strength. Makes the table of materials in
// the station's folder where there is none.
int RunLaminate(Computer& computer, const std::string& design, const LaminateOptions& options);

struct PostOptions {
  std::string program;
  std::string machine;    // the name of one that came with the program, or a file
  std::string out;        // empty: beside the program
  int endlessTurns = 10;  // of a run without end
};
// Writes a program for another winder's controller, and takes its name only once it has been read back and
// does what the program does.
int RunPost(const PostOptions& options);

enum class InfoForm { Table, Brief, Json };
// Prints the part, its layers and its totals, a line, or every field of each design.
int RunInfo(Computer& computer, const std::vector<std::string>& designs, InfoForm form);

// Opens a design and saves it again under another name.
int RunConvert(Computer& computer, const std::string& design, const std::string& out);

// A part without a design: lengths and degrees as typed.
struct PatternOptions {
  std::string diameter, band, length;
  std::string wrap = "180", limit = "25", opening = "0";
  bool millimetres = false;
  bool json = false;
};
// Prints the patterns that close on a part, with the time and filament of each at the rate MED.
int RunPatterns(Computer& computer, const PatternOptions& options);

// Draws the whole picture of a row's pattern into an SVG file.
int RunPreview(Computer& computer, const std::string& design, int row, const std::string& out);

// The settings of the store itself: all that are known, one, and a new text for one.
int RunSettingList(Computer& computer);
int RunSettingGet(Computer& computer, const std::string& section, const std::string& key);
int RunSettingSet(Computer& computer, const std::string& section, const std::string& key,
                  const std::string& value);

// Drives a station by the lines of a file; standard input without a name. `traces`: it prints what is
// skipped, too.
int RunScript(Computer& computer, const std::string& file, bool traces);

}  // namespace torvane
