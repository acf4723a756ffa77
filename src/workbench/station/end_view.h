// The end view of the main window: which row's pattern stands there.
#pragma once

#include <string>

#include "workbench/station/station.h"

namespace torvane {

// The end view names a row and notes its pattern; its picture is blank until it is drawn.
void NoteEndView(Station& station, int row, const std::string& pattern);
void BlankEndView(Station& station);
// Blanks it where its row holds another pattern by now.
void DropStaleEndView(Station& station);

// The row that a view names; a blank one names none.
std::string RowName(const EndView& view);

}  // namespace torvane
