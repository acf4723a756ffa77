#include "post/write/dialect.h"

namespace torvane::post {

// Comments count for the length of a line and are sent; only messages are written.
const Dialect& GrblHalDialect() {
  static const Dialect kDialect = {
      [](const Machine& machine, const std::string& text) {
        return machine.messages == Messages::Msg ? Lines{"(MSG," + text + ")"} : Lines{};
      },
      [](const Machine&, const std::string&) { return Lines{}; },
      [](const Machine& machine, const std::string& text) {
        Lines lines;
        if (machine.messages == Messages::Msg && !text.empty()) lines.push_back("(MSG," + text + ")");
        lines.push_back(machine.pause);
        return lines;
      },
      [](const Machine&, const std::string& word) { return Lines{"G92 " + word}; },
      [](const std::string& words, const std::string&) { return Lines{"G0 " + words}; },
  };
  return kDialect;
}

}  // namespace torvane::post
