// Icons and mark glyphs, painted from paths on a grid of 20, so that they follow palette and scale.
#pragma once

#include <QPainter>
#include <cstdint>

namespace torvane {

enum class Icon : std::uint8_t {
  None,
  New,
  Open,
  Save,
  Document,
  Trace,
  Home,
  Wheel,
  Gear,
  Play,
  Pause,
  Redo,
  Undo,
  Refresh,
  Plus,
  Minus,
  Left,
  Right,
  Up,
  Down,
  Pencil,
  TooHigh,
  TooLow,
  Warning,
  Info,
  Question,
  Check,
  Cross,
  Picture,
  Video,
  Chevron,
  Pattern,
  Stop,
  Press,
  Enlarge,
  PassBack,
  PassOn,
  LayerBack,
  LayerOn,
};

// Strokes and fills an icon in one colour, scaled to the box. `None` paints nothing.
void PaintIcon(QPainter& painter, Icon icon, const QRectF& box, const QColor& colour);

}  // namespace torvane
