#include "post/write/dialect.h"

namespace torvane::post {

// It shows nothing to the operator, and acts on bytes in comments: neither is written. A coordinate that is
// given to the mandrel leaves the machine's own, which goes on growing.
const Dialect& GrblDialect() {
  static const Dialect kDialect = {
      [](const Machine&, const std::string&) { return Lines{}; },
      [](const Machine&, const std::string&) { return Lines{}; },
      [](const Machine& machine, const std::string&) { return Lines{machine.pause}; },
      [](const Machine&, const std::string& word) { return Lines{"G92 " + word}; },
      [](const std::string& words, const std::string&) { return Lines{"G0 " + words}; },
  };
  return kDialect;
}

}  // namespace torvane::post
