// What each field is called and one sentence about it: tool tips, the status line, accessible names.
#pragma once

#include <QString>
#include <QWidget>

#include "design/field.h"

namespace torvane {

struct Help {
  QString name;
  QString sentence;
};

// Without words in the catalogue a field is called by its own name, and nothing is said of it.
Help HelpOf(const Field& field);

// The tool tip of a field: what its number reads as where its signs may mislead, else what its mark says, its
// own tip, or its help.
QString TipOf(const Field& field, NumberSigns signs);

// Gives a field's widget its accessible name, and its what's-this with all that is known of the field.
void Explain(QWidget& widget, const Field& field);

}  // namespace torvane
