// How the fields of a design show each quantity. Masks that differ by a sign of their integer part do so in
// the fields too: an empty place stands where the one shows a 0.
#pragma once

#include "text/mask.h"

namespace torvane::mask {

// The part.
inline constexpr Mask kDiameter = "##0.00"_mask;
inline constexpr Mask kOpenedDiameter = "##0.000"_mask;
inline constexpr Mask kOpenedDiameterMM = "##0.0"_mask;
inline constexpr Mask kOpenedLength = "##.00"_mask;
inline constexpr Mask kLengthLine = "##00.0"_mask;
inline constexpr Mask kStop = "##0.00"_mask;
inline constexpr Mask kSpan = "####.00"_mask;
inline constexpr Mask kOffset = "##0.00"_mask;
inline constexpr Mask kOffsetMM = "##0.0"_mask;

// The band.
inline constexpr Mask kBandWidth = "#0.000"_mask;
inline constexpr Mask kBandThickness = "#0.0000"_mask;
inline constexpr Mask kBandMM = "##0.000"_mask;

// The schedule's cells.
inline constexpr Mask kAngle = "##.0"_mask;
inline constexpr Mask kCell =
    "##.00"_mask;  // as the all-rows row hands it down, and as a file's lists show it
inline constexpr Mask kAddedTurns = "##0"_mask;

// A layer's figures.
inline constexpr Mask kMandrelSpeed = "##0.0"_mask;
inline constexpr Mask kCarriageSpeed = "#0.00"_mask;
inline constexpr Mask kAskedCarriageSpeed = "##.00"_mask;  // behind a typed mandrel speed
inline constexpr Mask kFourAxisSpeed = "##0.00"_mask;
inline constexpr Mask kPasses = "####"_mask;
inline constexpr Mask kPassesOfAll = "#####"_mask;
inline constexpr Mask kMinutes = "##0.0"_mask;
inline constexpr Mask kFilament = "#####.0"_mask;
inline constexpr Mask kFilamentMM = "#####.00"_mask;
inline constexpr Mask kFourAxisFilament = "#####0.0"_mask;
inline constexpr Mask kFigureOfAll = "####0.0"_mask;
inline constexpr Mask kGrazingAngle = "###.0"_mask;

// The finished part.
inline constexpr Mask kWall = "0.##0"_mask;
inline constexpr Mask kVolume = "###0.#0"_mask;
inline constexpr Mask kWeight = "##0.#0"_mask;
inline constexpr Mask kGlue = "####0"_mask;

// The machine and the choices of a build.
inline constexpr Mask kLimit = "##0.00"_mask;
inline constexpr Mask kFastestCarriage = "#0.0"_mask;
inline constexpr Mask kFastestCarriageMM = "###0.00"_mask;
inline constexpr Mask kSpeedClass = "#00"_mask;
inline constexpr Mask kWrapAdvance = "##0.00"_mask;
inline constexpr Mask kStoredTwinMM = "##0.0"_mask;
inline constexpr Mask kJogged = "###0.00"_mask;
inline constexpr Mask kJoggedFine = "###0.000"_mask;
inline constexpr Mask kJoggedMM = "###0.0"_mask;

// A length or speed on its way into a program, in the unit of the design.
inline constexpr Mask kInUnits = "###0.000"_mask;

}  // namespace torvane::mask
