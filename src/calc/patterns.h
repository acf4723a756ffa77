// Winding patterns that close evenly on a mandrel.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "design/state.h"

namespace torvane {

// What a row shows while no pattern is chosen.
inline constexpr std::string_view kNoPattern = "Select ...";

// The part as the search sees it, in design units and degrees.
struct PatternPart {
  double circumference = 0;
  double bandWidth = 0;
  double traverseLength = 0;
  double wrapAngle = 0;     // mandrel turn at each end
  double highestAngle = 0;  // patterns of this winding angle and above are not listed
};

// A circuit of `groups` passes lays one band in each of as many places round the mandrel; `circuits` circuits
// lay the bands of a group side by side until the groups meet.
struct Pattern {
  double groups = 0;
  double circuits = 0;
  double angle = 0;  // degrees, two decimals

  bool blank() const { return groups == 0; }
};

// The closing patterns by rising groups, a blank one behind each run of equal groups; 100 entries at most.
// At each whole angle up to 45 degrees, bands of W / cos lie round the mandrel, one more than fit whole;
// where that count is groups times circuits, a pass may turn the mandrel by k whole turns and 1 / groups of
// one. What the two end wraps leave of this the two traverses share, and the angle whose tangent is the
// surface's way over the traverse follows. It counts if it lies within 5 degrees of the angle that gave the
// bands. None without band width or traverse.
std::vector<Pattern> ClosingPatterns(NumberSigns signs, const PatternPart& part);

// "18.12 | 4 x 12 | 180" and the degree sign; a blank pattern gives an empty text.
std::string PatternText(NumberSigns signs, const Pattern& pattern, double wrapAngle);

// What stands between the fields of a pattern: "|", "x" in either case, and the degree sign.
inline constexpr std::string_view kPatternSeparators = "|xX\xB0";

// A pattern's fields, as they stand in its text; those that it lacks are empty.
struct PatternFields {
  std::string angle, groups, circuits, wrapAngle;
};

// Splits a pattern's text, and leaves its fields in `gTagFields` as well.
PatternFields SplitPatternFields(DesignState& s, std::string_view text);

// Whether a four-axis row's type is a hoop, in either case of letters.
bool IsHoopRow(const DesignState& s, int row);

// Winding angle that a four-axis row shows, degrees: a hoop's 90, or what stands alone in its cell or in
// front of its pattern. Fails where no number stands there.
Number ShownAngle(const DesignState& s, int row);

// The number in a text less its last character, the degree sign.
Number Degrees(const DesignState& s, const Field& field);

// Turn of the mandrel, degrees, across which a straight band tangent to the polar opening passes over the
// end: the angle of the chord of the end's circle, radius R, that touches the opening's, radius r. Half the
// chord is the root of R^2 - r^2, so half the angle has that over R as its sine. Fails of an opening wider
// than the end.
Number GrazingAngle(Number diameter, Number openingDiameter);

// Rebuilds the list of a row. The pattern that the row had in its file stays chosen while the list still
// offers its angle; otherwise the row needs a choice.
void PopulatePatternCombo(DesignState& s, int row);

// Rebuilds the lists of all rows, then calculates their figures.
void Refresh4AXGrid(DesignState& s);

// Part types by index: flat ends, hemispherical ends, no end wraps.
inline constexpr const char* kPartTypes[] = {"FLAT", "HEMI", "2AX"};

// Selects a part type by index: throws the rows' patterns away and refills their lists.
void SelectPartType(DesignState& s, int index);

// Shows the fields and the drawing that a part type uses, by index; no value changes.
void ShowPartType(DesignState& s, int index);

}  // namespace torvane
