// Which palette the windows take: the desktop's, or one that the operator chose.
#pragma once

#include "look/appearance.h"
#include "platform/settings_store.h"

namespace torvane {

Appearance StoredAppearance(const SettingsStore& store);
// A store that refuses keeps the former choice for the next start; the windows change all the same.
void StoreAppearance(SettingsStore& store, Appearance appearance);

}  // namespace torvane
