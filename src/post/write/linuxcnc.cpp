#include "post/write/dialect.h"

namespace torvane::post {

namespace {

std::string Commented(const Machine& machine, const std::string& text) {
  return machine.comments == Comments::Semicolon ? "; " + text : "( " + text + " )";
}

}  // namespace

// Positions have all digits, so that the mandrel's angle may grow without end. A coordinate that is given to
// the mandrel outlives the run; the machine's first lines take the former one back (G92.1).
const Dialect& LinuxCncDialect() {
  static const Dialect kDialect = {
      [](const Machine& machine, const std::string& text) {
        return machine.messages == Messages::Msg ? Lines{"(MSG, " + text + ")"} : Lines{};
      },
      [](const Machine& machine, const std::string& text) {
        return machine.comments == Comments::None ? Lines{} : Lines{Commented(machine, text)};
      },
      [](const Machine& machine, const std::string& text) {
        Lines lines;
        if (machine.messages == Messages::Msg && !text.empty()) lines.push_back("(MSG, " + text + ")");
        lines.push_back(machine.pause);
        return lines;
      },
      [](const Machine&, const std::string& word) { return Lines{"G92 " + word}; },
      [](const std::string& words, const std::string&) { return Lines{"G0 " + words}; },
  };
  return kDialect;
}

}  // namespace torvane::post
