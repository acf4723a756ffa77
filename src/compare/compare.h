// Two designs or programs side by side: what the one winds otherwise than the other.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "design/state.h"
#include "executor/proof/proof.h"

namespace torvane {

struct Difference {
  int layer = 0;         // 0: the whole part
  std::string what;      // in the operator's words
  std::string from, to;  // as the window shows it; empty where the one has no such thing
  std::string unit;
  std::optional<double> by = std::nullopt;  // how much a figure grows
};

// One of the two. Its program and proof stand in any case.
struct Compared {
  const DesignState* design = nullptr;  // null where nothing but the program is known
  std::string_view program;
  const executor::Proof& proof;
};

// What the operator typed otherwise, where both are designs; then the figures of the proofs; then the first
// statement that differs. First those of the whole part, then layer by layer. Nothing if both wind the same,
// statement by statement; what stands in comments alone is no difference.
std::vector<Difference> Compare(const Compared& before, const Compared& after);

}  // namespace torvane
