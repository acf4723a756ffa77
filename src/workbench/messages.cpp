#include "workbench/messages.h"

#include "persist/settings.h"
#include "workbench/design_commands.h"

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

bool AskToSaveFirst(Station& station) {
  if (!station.s.gDirty) return true;
  ShowMessageDialog(station,
                    "\r\n\r\nThis Torvane Design File has changed.\r\n"
                    " Do you want to save the changes first ?",
                    1, {.beep = true});
  return !station.s.gMsgAnswer || btnSaveAS_Click(station);
}

}  // namespace torvane
