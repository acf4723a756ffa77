// Figures of one layer that two-axis schedules and four-axis schedules of winding angles share.
#pragma once

#include "design/state.h"

namespace torvane {

// From length units to what a filament is measured in: feet or metres.
inline Number LengthDivisor(const DesignState& s) { return s.InInches() ? 12 : 1000; }

// Writes a length in feet or metres under the unit's mask; a failed one leaves the field.
void WriteLength(const DesignState& s, Field& field, Number length);

// Writes the passes that lay bands side by side round a diameter at an angle in degrees: along the
// circumference a band takes W / cos of the angle, and one band more than fit whole closes the layer. The
// operator's added passes turn the figure bold.
void WritePasses(const DesignState& s, Field& passes, Number diameter, Number windingAngle, Number bandWidth);

// Minutes of a layer: for each pass the carriage there and back, and half a turn of the mandrel at each end,
// with an allowance of 15 % for slowing down and speeding up. `length` over `carriageSpeed` are seconds,
// `mandrelRPM` revolutions a minute.
Number MinutesOfPasses(Number length, Number carriageSpeed, Number mandrelRPM, Number passes);

// Filament of a hoop, in the unit of the lengths: turns side by side over a span, there and back.
Number HoopLength(Number meanDiameter, Number span, Number bandWidth);

// Filament of a helix over a span, there and back for every pass, and a circumference a pass for the
// turnarounds, in the unit of the lengths. One way is the hypotenuse of what the surface and what the
// carriage run while the mandrel turns span / pitch times, the pitch being the carriage's way in one turn.
Number HelixLength(Number meanDiameter, Number span, Number carriageSpeed, Number mandrelRPM, Number passes);

// Sum of the row texts, as rounded; a row that holds no number adds nothing.
Number SumOfRows(const FieldArray& column, int rows);

}  // namespace torvane
