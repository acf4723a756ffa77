#include "workbench/station/messages.h"

#include "persist/settings.h"

namespace torvane {

bool ShowMessageDialog(Station& station, const std::string& text, int number, MessageFlags flags) {
  SettingsStore& store = station.platform.store;
  const std::string key = MessageKey(number);
  if (GetSetting(store, kSettings, key, "False") == "True") return station.s.gMsgAnswer;
  station.s.gMsgAnswer =
      station.platform.messageDialog.Ask({text, number, flags.okOnly, flags.beep, flags.offer,
                                          [&store, &key] { SaveSetting(store, kSettings, key, "True"); }});
  return false;
}

}  // namespace torvane
