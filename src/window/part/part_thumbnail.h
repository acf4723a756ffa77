// A small picture of a part, to scale, with a circuit of its first layer.
#pragma once

#include <QPainter>

#include "handoff/design_card.h"
#include "look/theme.h"

namespace torvane {

void PaintThumbnail(QPainter& painter, const Theme& theme, const DesignCard& card, const QRectF& box);

}  // namespace torvane
