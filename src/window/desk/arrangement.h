// How the station's window is laid out, by its size and by what the operator wants to read.
#pragma once

#include <QSize>
#include <cstdint>

namespace torvane {

enum class Arrangement : std::uint8_t {
  Open,    // everything in view
  Folded,  // a small window: the drawing a strip, the rail a bar
  Large,   // to be read from the machine: figures, drawing, checklist and the button
};

inline constexpr QSize kLeastWindow(800, 600);

constexpr Arrangement ArrangementOf(QSize window, bool large) {
  if (large) return Arrangement::Large;
  return window.width() < 1100 || window.height() < 720 ? Arrangement::Folded : Arrangement::Open;
}

}  // namespace torvane
