#include "post/write/dialect.h"

namespace torvane::post {

// It has no inverse time, no program end, and M0 takes the text along. Only G92.9, or G92 on a board that is
// built without workspace offsets, sets the position that the planner keeps; it stands before that.
const Dialect& MarlinDialect() {
  static const Dialect kDialect = {
      [](const Machine& machine, const std::string& text) {
        return machine.messages == Messages::M117 ? Lines{"M117 " + text} : Lines{};
      },
      [](const Machine& machine, const std::string& text) {
        return machine.comments == Comments::None ? Lines{} : Lines{"; " + text};
      },
      [](const Machine& machine, const std::string& text) {
        const bool shown = machine.messages == Messages::M117 && !text.empty();
        return Lines{machine.pause + (shown ? " " + text : "")};
      },
      [](const Machine& machine, const std::string& word) {
        const bool native = machine.mandrelReset == MandrelReset::G92Native;
        return Lines{"M400", (native ? "G92.9 " : "G92 ") + word};
      },
      // Its G0 takes the speed of the last move.
      [](const std::string& words, const std::string& speed) { return Lines{"G0 " + words + " F" + speed}; },
  };
  return kDialect;
}

}  // namespace torvane::post
