#include "window/appearance.h"

#include <QApplication>
#include <QPalette>

namespace torvane {

namespace {

constexpr std::string_view kSection = "Designer_Window", kKey = "Appearance";

}  // namespace

Appearance StoredAppearance(const SettingsStore& store) {
  const std::string stored = store.Read(kSection, kKey).value_or("");
  if (stored == "light") return Appearance::Light;
  if (stored == "dark") return Appearance::Dark;
  return Appearance::System;
}

void StoreAppearance(SettingsStore& store, Appearance appearance) {
  const char* const words[] = {"system", "light", "dark"};
  (void)store.Write(kSection, kKey, words[static_cast<std::size_t>(appearance)]);
}

bool IsDark(Appearance appearance) {
  if (appearance != Appearance::System) return appearance == Appearance::Dark;
  QApplication::setPalette(QPalette());
  return QApplication::palette().color(QPalette::Window).lightness() < 128;
}

}  // namespace torvane
