// The proof as a list for the operator: what was found, worst first, and what is in order.
#pragma once

#include <optional>

#include "executor/proof/proof.h"

namespace torvane::executor {

struct Remark {
  Level level = Level::Ok;
  int layer = 0;                            // 0 for the program as a whole
  std::string subject;                      // "Layer 3", "Limits", "Time"
  std::string text;                         // a sentence, in the program's 8-bit text
  int line = 0;                             // 0 where no line is to blame
  std::optional<Kind> kind = std::nullopt;  // of a finding
};

// The findings, faults before notes; then the layers, the limits and the filament that are in order.
std::vector<Remark> RemarksOf(const Proof& proof);

// What was found, with a capital in front and, of several, how many more there are.
std::string SentenceOf(const Finding& finding);

// Without control characters, whatever the program holds.
std::string Printable(std::string text);

}  // namespace torvane::executor
