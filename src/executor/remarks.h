// The proof as a list for the operator: what was found, worst first, and what is in order.
#pragma once

#include "executor/proof.h"

namespace torvane::executor {

struct Remark {
  Level level = Level::Ok;
  int layer = 0;        // 0 for the program as a whole
  std::string subject;  // "Layer 3", "Limits", "Time"
  std::string text;     // a sentence, in the program's 8-bit text
  int line = 0;         // 0 where no line is to blame
};

std::vector<Remark> RemarksOf(const Proof& proof);

// Without control characters, whatever the program holds.
std::string Printable(std::string text);

}  // namespace torvane::executor
