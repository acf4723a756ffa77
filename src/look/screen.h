// A window's place on the screen.
#pragma once

#include <QWidget>

namespace torvane {

// Before it is shown: as large as its screen has room for it and its frame, but not below its least size, and
// moved in where it would stand over the edge. A size or place from a larger screen may have been stored.
void KeepOnScreen(QWidget& window);

}  // namespace torvane
