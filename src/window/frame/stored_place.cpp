#include "window/frame/stored_place.h"

#include <QGuiApplication>

#include "look/screen.h"

namespace torvane {

namespace {

constexpr int kTwipsPerPixel = 15;

int Pixels(const Field& twips) {
  const Number value = number(twips);
  return holds(value > -60000) && holds(value < 600000) ? static_cast<int>(value.value()) / kTwipsPerPixel
                                                        : 0;
}

std::string Twips(int pixels) { return std::to_string(pixels * kTwipsPerPixel); }

}  // namespace

void TakeStoredPlace(QWidget& window, const DesignState& s) {
  window.resize(QSize(Pixels(s.meWidth), Pixels(s.meHeight)).expandedTo(window.minimumSize()));
  const QPoint place(Pixels(s.meLeft), Pixels(s.meTop));
  if (QGuiApplication::screenAt(place + QPoint(40, 10)) != nullptr) window.move(place);
  KeepOnScreen(window);
  if (s.meWasMaximized.text() == "1") window.setWindowState(Qt::WindowMaximized);
}

void StorePlace(const QWidget& window, DesignState& s) {
  s.meWasMaximized = window.isMaximized() ? "1" : "0";
  if (window.isMaximized() || window.isFullScreen()) return;
  s.meWidth = Twips(window.width());
  s.meHeight = Twips(window.height());
  s.meLeft = Twips(window.x());
  s.meTop = Twips(window.y());
}

}  // namespace torvane
