// What each field is called and one sentence about it: tool tips, the status line, accessible names.
#pragma once

#include <QString>
#include <QWidget>

#include "design/field.h"
#include "window/desk/binder.h"

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

// What a screen reader says of a field: its name, or another one in its place, its unit in words, and what
// its mark says.
QString Spoken(const Field& field, bool inches, const QString& name = {});

// Gives a field's widget its what's-this with all that is known of the field.
void Explain(QWidget& widget, const Field& field);
// That, and an accessible name that follows the field's mark and the design's unit.
void Explain(Desk desk, QWidget& widget, const Field& field, const QString& name = {});

}  // namespace torvane
