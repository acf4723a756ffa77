// Figures of one layer that two-axis schedules and four-axis schedules of winding angles share.
#pragma once

#include "design/state.h"

namespace torvane {

// From length units to what a filament is measured in: feet or metres.
inline Number LengthDivisor(const DesignState& s) { return s.InInches() ? 12 : 1000; }

// A length in feet or metres under its mask.
void WriteLength(const DesignState& s, Field& field, Number length);

// Passes that lay bands side by side round a diameter at an angle in degrees, and the operator's added
// passes, which turn the figure bold.
void WritePasses(const DesignState& s, Field& passes, Number diameter, Number windingAngle, Number bandWidth);

// Minutes of a layer: for each pass the carriage there and back, and half a turn of the mandrel at each end,
// with an allowance for slowing down and speeding up.
Number MinutesOfPasses(Number length, Number carriageSpeed, Number mandrelRPM, Number passes);

// Filament of a hoop: turns side by side over a span, there and back.
Number HoopLength(Number meanDiameter, Number span, Number bandWidth);

// Filament of a helix over a span, there and back for every pass, and a circumference a pass for the
// turnarounds.
Number HelixLength(Number meanDiameter, Number span, Number carriageSpeed, Number mandrelRPM, Number passes);

// Sum of the row texts, as rounded; a row that holds no number adds nothing.
Number SumOfRows(const FieldArray& column, int rows);

}  // namespace torvane
