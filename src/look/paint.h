// What several windows paint alike.
#pragma once

#include <QPainter>

#include "look/theme.h"

namespace torvane {

// A box whose edge lies within whole pixels.
inline QRectF Inset(const QRectF& box, double by) { return box.adjusted(by, by, -by, -by); }

// The ground of a panel with its hairline edge. The painter stays antialiased, its pen the hairline.
void PaintPanel(QPainter& painter, const Theme& theme, const QRectF& box);

// The ring round what has the focus.
void PaintFocus(QPainter& painter, const QColor& ink, const QRectF& ring, double radius = 4);

void PaintCheckBox(QPainter& painter, const Theme& theme, const QRectF& box, bool checked, bool enabled,
                   bool focused);

// The program's mark: a mandrel with bands.
void PaintProgramMark(QPainter& painter, const QRectF& box);

}  // namespace torvane
