// The View menu: large figures, the palette, the row for all rows. Nothing in it touches the design.
#pragma once

#include <functional>

#include "window/appearance.h"
#include "window/binder.h"

class QMenu;

namespace torvane {

struct ViewChoices {
  std::function<void(bool)> largeFigures;
  std::function<void(Appearance)> appearance;
};

void FillViewMenu(QMenu& menu, Desk desk, const ViewChoices& choices);

}  // namespace torvane
