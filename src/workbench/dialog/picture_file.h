// The picture of a pattern as a file: its name, its title, and saving it.
#pragma once

#include <string>
#include <string_view>

#include "workbench/station/station.h"

namespace torvane {

// "tube.t4d, layer 2: 18.12 | 4 x 12 | 180" and the degree sign, in the station's characters.
std::string PictureTitle(const DesignState& s, std::string_view layer, std::string_view pattern);

// Asks where the picture of a layer is to go, beside the design and under its name, and writes it. What
// `bytes` are `extension` says, "png" or "svg"; a name gets it where it is missing. Asks before it replaces a
// picture; a refusal is told.
void SavePicture(const Station& station, std::string_view layer, std::string_view extension,
                 std::string_view bytes);

}  // namespace torvane
