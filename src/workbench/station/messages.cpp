#include "workbench/station/messages.h"

#include "persist/settings.h"

namespace torvane {

bool ShowMessageDialog(Station& station, const StationMessage& message, std::string_view value) {
  SettingsStore& store = station.platform.store;
  const std::string key = MessageKey(message.number);
  if (GetSetting(store, kSettings, key, "False") == "True") return station.s.gMsgAnswer;
  std::string text(message.text);
  if (const auto place = text.find("%1"); place != std::string::npos) text.replace(place, 2, value);
  const MessageFlags flags = message.flags;
  station.s.gMsgAnswer =
      station.platform.messageDialog.Ask({text, message.number, flags.okOnly, flags.beep, flags.offer,
                                          [&store, &key] { SaveSetting(store, kSettings, key, "True"); }});
  return false;
}

}  // namespace torvane
