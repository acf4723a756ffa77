#include "workbench/station/messages.h"

#include "persist/settings.h"

namespace torvane {

bool ShowMessageDialog(Station& station, const StationMessage& message, std::string_view value,
                       std::string_view hint) {
  SettingsStore& store = station.platform.store;
  const std::string key = MessageKey(message.number);
  if (GetSetting(store, kSettings, key, "False") == "True") return station.s.gMsgAnswer;
  std::string text(message.text);
  if (const auto place = text.find("%1"); place != std::string::npos) text.replace(place, 2, value);
  const MessageFlags flags = message.flags;
  station.s.gMsgAnswer =
      station.platform.messageDialog.Ask({.text = text,
                                          .number = message.number,
                                          .okOnly = flags.okOnly,
                                          .beep = flags.beep,
                                          .offer = flags.offer,
                                          .ticked =
                                              [&store, &key](bool on) {
                                                if (on) SaveSetting(store, kSettings, key, "True");
                                              },
                                          .hint = std::string(hint)});
  return false;
}

}  // namespace torvane
