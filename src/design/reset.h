// The blank design, and which family the window shows.
#pragma once

#include "design/state.h"

namespace torvane {

inline constexpr char kDegreeSign = '\xB0';
// End wrap and split angle of a blank row.
inline constexpr const char* kDefaultWrap = "180\xB0";
inline constexpr const char* kDefaultSplit = "45\xB0";

// Blanks the design fields of one family: 2 the two-axis family, any other value the four-axis family.
void BlankInputs(DesignState& s, int axes);

// Puts the rows in their first state, blanks the two-axis design, and the four axes' rate, skirts and sums.
// The design counts as saved then.
void InitializeAsNew(DesignState& s);

// Selects the machine family. No value of a design changes.
void ShowAxisDisplay(DesignState& s, bool show4Axis);

// Shows or hides the fields of one row of a schedule; a two-axis row's ends and its exact angle stay as they
// are.
void ShowTwoAxisRow(DesignState& s, int row, bool shown);
void ShowFourAxisRow(DesignState& s, int row, bool shown);

// The yellow of a field that reads 0, an empty text included; a text that is no number changes no mark.
void MarkIfZero(Field& field);

}  // namespace torvane
