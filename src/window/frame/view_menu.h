// The View menu: large figures, the palette, the row for all rows. Nothing in it touches the design.
#pragma once

#include <functional>

#include "window/desk/binder.h"
#include "window/frame/appearance.h"

class QMenu;

namespace torvane {

struct ViewChoices {
  std::function<void(bool)> largeFigures;
  std::function<void(Appearance)> appearance;
  std::function<void()> proof, nextFinding;
};

void FillViewMenu(QMenu& menu, Desk desk, const ViewChoices& choices);

}  // namespace torvane
