// Strokes the picture of a pattern as seen from the part's end.
#pragma once

#include <QPainter>
#include <vector>

#include "calc/polar_walk.h"
#include "look/theme.h"

namespace torvane {

// Scaled so that its largest circle fills the box.
void PaintPolar(QPainter& painter, const Theme& theme, const std::vector<PolarFigure>& figures,
                const QRectF& box);

}  // namespace torvane
