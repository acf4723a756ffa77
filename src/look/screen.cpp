#include "look/screen.h"

#include <QScreen>
#include <algorithm>

namespace torvane {

namespace {

// What window managers put round a window; it is known only once the window is shown.
constexpr int kTitle = 32, kEdge = 4;

}  // namespace

void KeepOnScreen(QWidget& window) {
  const QRect screen = window.screen()->availableGeometry();
  const QSize frame(2 * kEdge, kTitle + kEdge);
  window.resize(window.size().boundedTo(screen.size() - frame).expandedTo(window.minimumSize()));
  if (!window.testAttribute(Qt::WA_Moved)) return;
  const QSize whole = window.size() + frame;
  const auto inside = [](int at, int length, int from, int to) {
    return std::max(from, std::min(at, to - length));
  };
  window.move(inside(window.x(), whole.width(), screen.left(), screen.right() + 1),
              inside(window.y(), whole.height(), screen.top(), screen.bottom() + 1));
}

}  // namespace torvane
