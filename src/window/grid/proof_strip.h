// What the proof says of one layer, in a line.
#pragma once

#include <QPainter>

#include "window/desk/binder.h"

namespace torvane {

inline constexpr int kProofStrip = 26;

// What has no room leaves from the line's end.
void PaintProofStrip(QPainter& p, const Desk& desk, int layer, const QRect& line);

}  // namespace torvane
