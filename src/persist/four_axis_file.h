// Four-axis design files.
#pragma once

#include <array>
#include <string>

#include "design/state.h"
#include "persist/design_file.h"
#include "platform/platform.h"

namespace torvane {

// The pairs and the rate of the four-axis file last read. A file that lacks one is read with that of the file
// before it, so they live as long as the program.
struct FourAxisHeld {
  using Pair = std::array<std::string, 2>;
  Pair diameter, zCoords, hemiCoords, openingDiameter, skirtLength;
  std::string windingRate;
};

// Reads a design file into the state. A missing file leaves the design blank. Refused, after the blanking, if
// the file cannot be read.
Result<DesignRead> OpenTorvaneFileVer40(DesignState& s, FourAxisHeld& held, const Platform& platform,
                                        const std::string& fileName);

// Writes the design whole; no field changes. A refusal says why the file could not be written.
Result<SavedDesign> SaveTorvaneMakeFileVer40(const DesignState& s, const Platform& platform,
                                             const std::string& fileName);

}  // namespace torvane
