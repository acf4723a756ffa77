#include "window/frame/appearance.h"

namespace torvane {

Appearance StoredAppearance(const SettingsStore& store) {
  return AppearanceOf(store.Read(kAppearanceSection, kAppearanceKey).value_or(""));
}

void StoreAppearance(SettingsStore& store, Appearance appearance) {
  (void)store.Write(kAppearanceSection, kAppearanceKey, StoredAs(appearance));
}

}  // namespace torvane
