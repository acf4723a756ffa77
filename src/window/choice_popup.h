// The entries of a list, open below what they belong to.
#pragma once

#include <QRect>

#include "window/binder.h"

namespace torvane {

// Opens it below a box in screen coordinates and returns at once. Blank entries are hairlines that the keys
// skip. What is chosen reaches the station as the operator's choice; `closed` runs in any case.
void OpenChoices(Desk desk, Field& field, QWidget* parent, const QRect& box,
                 std::function<void()> closed = {});

// The entry that a letter means: the next behind the present one that begins with it; null if none does.
const std::string* EntryOf(const Field& field, char letter);

}  // namespace torvane
