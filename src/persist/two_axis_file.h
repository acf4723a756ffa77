// Two-axis design files.
#pragma once

#include <string>

#include "design/state.h"
#include "persist/design_file.h"
#include "platform/platform.h"

namespace torvane {

// The lists of the two-axis file last read, as texts. A file that lacks one is read with that of the file
// before it, so they live as long as the program.
struct TwoAxisLists {
  std::string Winding_Angles, Winding_Right_Offsets, Winding_Left_Offsets, Winding_Right_Coord,
      Winding_Left_Coord, Winding_Speed, Winding_Method, Layer_Type, Skip_Width, Add_Revs, Mandrel_RPM,
      Carriage_Speeds;
};

// Reads a design file of either generation into the state. A missing file leaves the design blank; one
// with too few tags too. Refused, after the blanking, if the file cannot be read.
Result<DesignRead> OpenTorvaneFileVer20(DesignState& s, TwoAxisLists& lists, const Platform& platform,
                                        const std::string& fileName);

// Writes the design whole. A name that ends in "tvd" is changed to "t2d" first, in the caller's text. The
// state stays as it is; a refusal says why the file could not be written.
Result<SavedDesign> SaveTorvaneMakeFileVer20(const DesignState& s, const Platform& platform,
                                             std::string& fileName);

}  // namespace torvane
