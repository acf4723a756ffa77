// The picture of a pattern as a file of its own, for job sheets.
#pragma once

#include <string>
#include <vector>

#include "calc/polar_walk.h"

namespace torvane {

// An SVG file of 800 pixels, of a picture that begins with the mandrel; `title` is UTF-8.
std::string SvgOf(const std::vector<PolarFigure>& figures, const std::string& title);

}  // namespace torvane
