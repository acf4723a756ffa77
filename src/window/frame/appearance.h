// Which palette the windows take: the desktop's, or one that the operator chose. Kept in the store in a
// section of this front end's own.
#pragma once

#include "platform/settings_store.h"

namespace torvane {

enum class Appearance : std::uint8_t { System, Light, Dark };

Appearance StoredAppearance(const SettingsStore& store);
// A store that refuses keeps the former choice for the next start; the windows change all the same.
void StoreAppearance(SettingsStore& store, Appearance appearance);

// Whether the windows are dark. Asks the toolkit for the desktop's own palette, so the one set by the program
// has to be set again behind it.
bool IsDark(Appearance appearance);

}  // namespace torvane
