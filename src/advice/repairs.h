// What one action of the operator's mends.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "executor/proof/remarks.h"
#include "workbench/build/build_warnings.h"

namespace torvane {

// An edit that the operator can have made by one press, as one step of undo. A save and an opening begin a
// new history, as they always do.
struct Repair {
  std::string_view control;  // the station's operation, and what it is given
  int index = 0;
  std::string button;  // "Use fast"
  std::string done;    // "With fast": stands in front of what it has come to
  bool asks = false;   // it leads to a question or a dialog: what it comes to is the operator's affair

  bool operator==(const Repair&) const = default;
};

// Layers as one number, a bit for each.
constexpr int LayerBit(int layer) { return layer > 0 && layer < 31 ? 1 << layer : 0; }

// Each by preference: the first that helps is the one to offer. Of layers that have the same finding.
std::vector<Repair> RepairsOf(const Station& station, executor::Kind kind, int layers);
std::vector<Repair> RepairsOf(const Station& station, const BuildWarning& warning);
// Of a marked field.
std::vector<Repair> RepairsOf(const Station& station, const Field& field);

// The operations that repairs name, for a station that is to know them.
std::span<const Operation> RepairOperations();

}  // namespace torvane
