// The design's unit: what follows it, and the captions that say it.
#pragma once

#include <string_view>

#include "design/state.h"

namespace torvane {

inline constexpr double kMillimetresPerInch = 25.4;

// The number under "###0.000"; in a millimetre design times 25.4 first, unless it is in the design's unit
// already. Every unit but "in" counts as millimetres. A failed number gives a failed text.
Masked FormatForUnits(const DesignState& s, Number value, bool alreadyInUnits);
// The same of a text: one that is no number comes back unchanged where nothing is multiplied.
MaybeText FormatForUnits(const DesignState& s, const Field& value, bool alreadyInUnits);
// The number that the text of FormatForUnits reads as: rounded to three decimals.
Number InUnits(const DesignState& s, Number value, bool alreadyInUnits);

// Band width in the design's unit, of the panel given: 0 two axes, 1 four. The field that shows it:
const Field& BandWidthField(const DesignState& s, int panel);
// and its value.
Number BandWidth(const DesignState& s, int panel);
// Worked out of the inch field instead, rounded to three decimals: what steps a hoop on.
Number SteppingBandWidth(const DesignState& s, int panel);
// The same of the working copy, which the field last changed of either family has filled: what a two-axis
// program spaces its passes by.
Number SpacingBandWidth(const DesignState& s);

// Sets the unit, its menu marks and the captions that name it; "Y" for inches, any other text millimetres.
void ShowUnits(DesignState& s, std::string_view inches);

}  // namespace torvane
