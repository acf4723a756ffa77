#include "window/frame/appearance.h"

#include "look/theme.h"

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
  return appearance == Appearance::System ? DesktopIsDark() : appearance == Appearance::Dark;
}

}  // namespace torvane
