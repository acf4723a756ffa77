// How an input looks: ground, edge, glyph and text colour by its mark, its focus and whether it is enabled.
#pragma once

#include <QPainter>

#include "design/field.h"
#include "look/icons.h"
#include "look/theme.h"

namespace torvane {

struct InputLook {
  Mark mark = Mark::Plain;
  bool enabled = true;
  bool focused = false;
  // Within the grid edges belong to the grid, and an input gets one of its own only with mark or focus.
  bool cell = false;
};

// The colour of what is written in an input; PaintInput paints the rest of it.
QColor InputTextColour(const Theme& theme, const InputLook& look);
void PaintInput(QPainter& painter, const Theme& theme, const QRectF& box, const InputLook& look);

// The text of a calculated figure; a dash where there is none.
QString FigureOf(const Field& field);

// What a marked field shows inside at its left.
Icon GlyphOf(Mark mark);

}  // namespace torvane
