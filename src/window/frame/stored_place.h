// The main window's place and size as the settings keep them, in twips.
#pragma once

#include <QWidget>

#include "design/state.h"

namespace torvane {

// Before the window is shown; a place on no screen leaves it to the desktop. A window that was maximized is
// so again, and its size the one that it goes back to.
void TakeStoredPlace(QWidget& window, const DesignState& s);

// A maximized window keeps the place that it goes back to.
void StorePlace(const QWidget& window, DesignState& s);

}  // namespace torvane
