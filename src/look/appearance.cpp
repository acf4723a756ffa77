#include "look/appearance.h"

#include "look/theme.h"

namespace torvane {

Appearance AppearanceOf(std::string_view stored) {
  if (stored == "light") return Appearance::Light;
  if (stored == "dark") return Appearance::Dark;
  return Appearance::System;
}

std::string_view StoredAs(Appearance appearance) {
  switch (appearance) {
    case Appearance::Light:
      return "light";
    case Appearance::Dark:
      return "dark";
    default:
      return "system";
  }
}

bool IsDark(Appearance appearance) {
  return appearance == Appearance::System ? DesktopIsDark() : appearance == Appearance::Dark;
}

}  // namespace torvane
