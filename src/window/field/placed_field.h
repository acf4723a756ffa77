// A field on a drawing: its caption above it and its unit behind it.
#pragma once

#include "window/field/field_widgets.h"

namespace torvane {

struct PlacedField {
  QWidget *caption, *field, *unit;

  // Stands with the field's own corner at a place; `width` is the field's.
  void MoveTo(int x, int y, int width) const;
};

// Shows or hides a widget as the field does: what a part type does not use is absent with its words.
void FollowShown(Desk desk, const Field& field, QWidget* beside);

// Words of the design's unit, "in" or "mm".
Word* MakeDesignUnit(Desk desk, QWidget* owner);

// Puts caption and unit beside a widget that shows a field in the design's unit.
PlacedField Surround(Desk desk, QWidget* shown, const Field& field, const QString& caption, QWidget* owner);

// An input with both.
PlacedField MakePlacedInput(Desk desk, Field& field, const QString& caption, QWidget* owner);

}  // namespace torvane
