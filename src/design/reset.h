// The blank design, and which family and drive side the window shows.
#pragma once

#include "design/state.h"

namespace torvane {

inline constexpr char kDegreeSign = '\xB0';
// End wrap and split angle of a blank row.
inline constexpr const char* kDefaultWrap = "180\xB0";
inline constexpr const char* kDefaultSplit = "45\xB0";

// Blanks the design fields of one family: 2 the two-axis family, any other value the four-axis family.
void BlankInputs(DesignState& s, int axes);

// Puts the rows in their first state and blanks the two-axis design.
void InitializeAsNew(DesignState& s);

// Selects the machine family. No value of a design changes.
void ShowAxisDisplay(DesignState& s, bool show4Axis);

// All fields of one row of a schedule.
void ShowTwoAxisRow(DesignState& s, int row, bool shown);
void ShowFourAxisRow(DesignState& s, int row, bool shown);

// The yellow of a field that reads 0, an empty text included; a text that is no number changes no mark.
void MarkIfZero(Field& field);

}  // namespace torvane
