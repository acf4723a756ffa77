// What the operator does and what the program's writes set off: one table of operations for each part of the
// window. Menus, buttons, lists and scripts all come through the same entries.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace torvane {

class Station;

enum class Event : std::uint8_t {
  Typing,   // a key goes down in the field, before its text changes
  Change,   // the text has changed, typed or written
  Key,      // a key was released in the field
  IdleKey,  // the same, and the text is as it was
  Click,    // a click, or a choice from a list
  DoubleClick,
  Press,
  Release,
  PressRight,  // the same with the right button
  ReleaseRight,
  Tick,    // of a timer
  Resize,  // of a window
};

// What menus, tools and tips say of a command. A control of the catalogue has caption and sentence there.
struct CommandWords {
  std::string_view caption = {};
  std::string_view sentence = {};
  char letter = 0;                                   // of the caption, which calls it in its menu
  std::string_view keys = {};                        // "Ctrl+Shift+Z; Ctrl+Y"
  bool (*usable)(const Station& station) = nullptr;  // null: always
};

// `index` is the index of the field or control, 0 where it has none.
struct Operation {
  std::string_view control;
  Event event;
  void (*run)(Station& station, int index);
  CommandWords words = {};
};

// The operation of a control that makes the design an unsaved one and does nothing else.
void SetDirty(Station& station, int index);

}  // namespace torvane
