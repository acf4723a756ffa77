// Machine figures of a four-axis schedule.
#pragma once

#include <string_view>

#include "design/state.h"

namespace torvane {

// Arc functions of the wrap geometry, radians. At 1, at -1 and beyond they give 0.
Number ArcSin(Number x);
Number ArcCos(Number x);

// Carriage travel of one traverse, design units: between the points where hemispherical ends begin, else
// between the ends of the part.
Number TraverseLength(const DesignState& s);

// Lead angle of a hoop in degrees: its tangent is the right end's radius over the band width. `bandWidth` in
// the design's unit.
Number HoopLeadAngle(const DesignState& s, Number bandWidth);

// Figures of row `row` for a winding angle in degrees. `mandrelRPM` and `carriageSpeed` are out-values; what
// cannot be worked out stays as the caller gave it. `patternText` is the row's pattern, "HOOP", or under part
// type "2AX" its angle; with an empty text only the speeds are worked out and no field is written.
void CalculateFourAxisRow(DesignState& s, Number windingAngle, Number& mandrelRPM, Number& carriageSpeed,
                          std::string_view patternText, int row);

// Writes the speeds of a row; a failed one leaves its field.
void WriteSpeeds(DesignState& s, int row, Number mandrelRPM, Number carriageSpeed);

// CalculateFourAxisRow from speeds of 0, which are written too: a row that no rate drives stands still.
void CalculateAndShow(DesignState& s, Number windingAngle, std::string_view patternText, int row);

// CalculateAndShow for one row of the grid as it stands: its angle is the first field of its pattern, for a
// hoop the lead angle. A row whose angle is no number keeps its figures.
void RecalculateFourAxisRow(DesignState& s, int row);
// The same for every row from 1 to the number of layers.
void RecalculateFourAxisRows(DesignState& s);

// All rows of a "2AX" schedule, whose patterns are winding angles: passes, minutes, lengths and sums.
void RecalculateAngleLayers(DesignState& s);

}  // namespace torvane
