// The one record of the open design and of the station it stands in.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "design/fields.h"

namespace torvane {

// A second copy of the schedule's rows, cell by cell: rows 0 to 50, columns 0 to 12, row r is layer r. A cell
// outside reads as empty and takes nothing.
class LayerTable {
 public:
  static constexpr int kRows = 51;
  static constexpr int kColumns = 13;

  const std::string& operator()(int row, int column) const;
  void Set(int row, int column, std::string_view text);
  bool operator==(const LayerTable&) const = default;

 private:
  std::array<std::array<std::string, kColumns>, kRows> cells_;
};

// The fields of a split text: cell 0 the whole text, cells 1 to 100 its fields.
class SplitFields {
 public:
  static constexpr int kLast = 100;

  const std::string& operator()(int cell) const { return cells_[static_cast<std::size_t>(cell)]; }
  // Splits at each character that `separators` holds; blanks round a field are cut off, and fields behind
  // the hundredth separator are dropped.
  void Split(std::string_view text, std::string_view separators);
  bool operator==(const SplitFields&) const = default;

 private:
  std::array<std::string, kLast + 1> cells_;
};

// A design at one time: the texts and looks of its fields, its tables and the marks of its unit. For undo and
// recovery; the station's own constants and choices are no part of it.
struct Snapshot {
  std::vector<std::string> texts;
  std::vector<Looks> looks;
  LayerTable table2Ax, table4Ax;
  bool mnuINCH = true;
  std::int32_t gBuildHours = 0, gBuildMinutes = 0;
};

// What stands behind the fields in no field.
struct DesignValues {
  LayerTable LayerTable2Ax, LayerTable4Ax;
  SplitFields gListFields, gTagFields;
  int gTagLineCount = 0;   // of the two-axis file last read: tags that count toward a sufficient file
  int gCurrentRow = 0;     // the row last pressed
  int gCopyRowSource = 0;  // the two-axis row that a paste takes
  int gPolarRow = 0;       // the row whose pattern is drawn

  // The family in use, and the menu's marks of it and of the unit. Exactly one of a pair is True.
  bool gShow4Axis = false;
  bool mnu2Axis = true;
  bool mnu4Axis = false;
  bool mnuINCH = true;
  bool mnuMM = false;

  bool gDirty = false;
  bool gGridSync = false;          // a change of a grid cell reaches the layer table
  bool gAutoUpdateCells = true;    // an edit of a cell recalculates the row at once
  bool gMirrorOnChange = false;    // a change of an inch field rewrites its millimetre twin
  bool gMsgAnswer = false;         // the last message was answered with Yes
  bool gDecimalComma = false;      // of the computer
  bool gFileDecimalComma = false;  // of the design file last read
  bool gIsLHDrive = false;         // the drive stands at the left, so the far end is at the right
  bool gIsNEMA34 = false;          // the machine has the larger motors
  bool chkShiftLayer = true;       // between layers the mandrel turns on

  // Limits of the machine.
  double cMaxSpeed = 0;    // carriage, inches per second
  double mMaxRPM = 0;      // mandrel, revolutions per minute
  double cMaxTravel = 0;   // carriage, inches
  double dhlMaxSpeed = 0;  // delivery head, inches per second; 0 unknown
  // What the rates slow, medium and fast allow, in the same units.
  std::array<double, 3> iMaxCarriageSpeeds{};  // classes 1 to 3 at 0 to 2
  std::array<double, 3> iMaxMandrelRPM{};
  double gNoListPatternDegrees = 0;                 // patterns of this winding angle and above are not listed
  double gDelayTimeInG456ToWaitForMandrelinMS = 0;  // the other axes end an end wrap so much earlier

  // Winding angle of the four-axis layer in hand, degrees; the lead angle of a hoop.
  Kept gWindAngle;

  // Estimated build time of the program.
  std::int32_t gBuildHours = 0;
  std::int32_t gBuildMinutes = 0;
  std::int32_t gBuildSeconds = 0;

  bool operator==(const DesignValues&) const = default;
};

// All fields, with the values behind them.
struct DesignState : FieldOwner, Fields, DesignValues {
  explicit DesignState(NumberSigns signsOfComputer);
  DesignState(const DesignState&) = delete;
  DesignState& operator=(const DesignState&) = delete;

  // The field that the operator's next key goes to, where a rule has moved it.
  const Field* focus = nullptr;

  bool InInches() const { return gUnits.text() == "in"; }
  // Index of the panel in use: 0 two axes, 1 four.
  int Panel() const { return gShow4Axis ? 1 : 0; }
  Family family() const { return gShow4Axis ? Family::FourAxes : Family::TwoAxes; }
  // The part types, see SelectPartType: hemispherical ends, and no end wraps at all.
  bool IsHemi() const { return gPartType.text() == "HEMI"; }
  bool IsNoWrap() const { return gPartType.text() == "2AX"; }
  Number Read(std::string_view text) const { return ReadNumberText(signs, text); }

  // Takes the texts and values of another state, not its looks; no operation runs. False if they are the
  // same.
  bool TakeFrom(const DesignState& other);

  Snapshot TakeSnapshot() const;
  // Whether the design's fields hold the texts of a snapshot.
  bool HasTextsOf(const Snapshot& snapshot) const;
  // Sets everything of the design at once; no operation runs.
  void Restore(const Snapshot& snapshot);
};

// The layers that a count field stands for: its nearest whole number, a tie going to the even one. A failure
// if it cannot be read.
Number LayersOf(const Field& count);
// Rows of a loop from 1 to that number; none if it cannot be read. No loop over rows has use for more than a
// row number can hold.
int RowsOf(const Field& count);

// A value of the station that is no field (flag, count, limit, table cell, cell of a split text) as text;
// `found` false for an unknown name.
struct NamedValue {
  bool found = false;
  std::string text;
};
NamedValue FindValue(const DesignState& s, std::string_view name);

// Names of the flags and numbers that FindValue knows and a report of a design shows.
std::vector<std::string> ReportedValues();

}  // namespace torvane
