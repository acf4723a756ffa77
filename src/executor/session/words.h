// Words, glyphs and small pieces of paint that the window's parts share.
#pragma once

#include <QFont>
#include <QPainter>
#include <QString>
#include <string_view>

#include "executor/proof/finding.h"
#include "look/icons.h"
#include "look/theme.h"

namespace torvane::dryrun {

// A program's 8-bit text for the eye: nothing in it controls anything.
QString Words(std::string_view text);
// "00:34:24"; hours grow as they need.
QString ClockText(double seconds);
QFont MonoFont(int size);

Icon GlyphOf(executor::Level level);
Token InkOf(executor::Level level);

// A panel with a head of that height and its title.
void PaintPanelHead(QPainter& painter, const Theme& theme, const QRect& box, int head, const QString& title);

}  // namespace torvane::dryrun
