// The winder seen from above with its carriage at home: where the settings are measured.
#pragma once

#include <QPainter>

#include "look/theme.h"

namespace torvane {

// Which of the settings the letters stand for: those of a tab of the settings dialog.
enum class MachineLetters : std::uint8_t {
  General,   // A approach to the limit switch, B and C turns of the mandrel
  TwoAxis,   // A carriage offset, B turn of the mandrel
  FourAxis,  // A carriage offset, B width of the head, C its distance from the mandrel's axis
  Speeds,    // A carriage, B mandrel
};

inline constexpr QSizeF kMachinePicture(276, 254);

// Scaled to the box, which keeps the proportions of kMachinePicture.
void PaintMachine(QPainter& painter, const Theme& theme, const QRectF& box, MachineLetters letters);

// A letter in its ring, as beside the sentence that it belongs to.
void PaintLetter(QPainter& painter, const Theme& theme, const QPointF& centre, double radius, char letter);

}  // namespace torvane
