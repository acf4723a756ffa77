// The lines of the settings dialog, as a window shows them.
#pragma once

#include <span>
#include <string_view>

#include "persist/settings.h"

namespace torvane {

struct DialogLine {
  SettingLine setting;
  // Shown, not typed.
  bool readOut = false;
  // Of a line without fields: it stands over those that follow.
  std::string_view head = {};
  std::string_view twinHead = {};

  bool yesNo() const {
    return setting.entry == SettingEntry::YesNo || setting.entry == SettingEntry::YesNoKey;
  }
  // Offers the large picture.
  bool picture() const { return setting.entry == SettingEntry::Offset; }
  // Behind the field in millimetres.
  std::string_view TwinUnit() const;
};

// Tab after tab, in the order in which they stand there.
std::span<const DialogLine> DialogLines();

}  // namespace torvane
