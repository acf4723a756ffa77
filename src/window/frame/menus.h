// The menu bar and the row menu. Every entry runs an operation of the station.
#pragma once

#include "window/desk/binder.h"

class QMainWindow;
class QMenu;

namespace torvane {

// `fillView` fills the View menu.
void AddMenus(QMainWindow& window, Desk desk, const std::function<void(QMenu& view)>& fillView);

// The menu of a row, opened at a place on the screen.
void OpenRowMenu(QWidget& parent, Desk desk, const QPoint& at);

}  // namespace torvane
