// The lines of the settings dialog: one for each setting, with what the dialog says of it.
#pragma once

#include <span>

namespace torvane {

struct SettingLine {
  int tab;      // 0 General, 1 2-Axis, 2 4-Axis, 3 Speeds
  char letter;  // in the picture beside the lines; 0 if it has no place there
  const char* sentence;
  const char* note;
  const char* field;
  const char* unit;
  const char* twin;
  const char* twinUnit;
  bool yesNo = false;
  bool readOut = false;
  bool picture = false;  // offers the large picture
  // Of a line without fields: it stands over those that follow.
  const char* head = "";
  const char* twinHead = "";
};

std::span<const SettingLine> SettingLines();

}  // namespace torvane
