// The entries of a list, open below what they belong to.
#pragma once

#include <QKeyEvent>
#include <QRect>

#include "window/desk/binder.h"

namespace torvane {

// Opens it below a box in screen coordinates and returns at once. Blank entries are hairlines that the keys
// skip. What is chosen reaches the station as the operator's choice.
void OpenChoices(Desk desk, Field& field, QWidget* parent, const QRect& box);

// Whether a key by itself writes a character.
bool IsCharacter(const QKeyEvent& key);
// The entry that such a key means: the next behind the present one that begins with it; empty if none does.
std::string EntryOf(const Field& field, const QKeyEvent& key);

}  // namespace torvane
