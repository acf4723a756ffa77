#include "workbench/station/history.h"

#include <utility>

namespace torvane {

bool History::Remember(const DesignState& s, Snapshot before, const Field* typed) {
  constexpr std::size_t kLongest = 100;
  if (s.HasTextsOf(before)) return false;
  const bool goesOn = typed != nullptr && LastTypedIn(*typed);
  typed_ = typed;
  forth_.clear();
  if (goesOn) return true;
  if (back_.size() == kLongest) back_.erase(back_.begin());
  back_.push_back(std::move(before));
  return true;
}

bool History::Go(DesignState& s, std::vector<Snapshot>& from, std::vector<Snapshot>& to) {
  if (from.empty()) return false;
  to.push_back(s.TakeSnapshot());
  s.Restore(from.back());
  from.pop_back();
  typed_ = nullptr;
  ++moves_;
  return true;
}

bool History::DropLast(DesignState& s) {
  std::vector<Snapshot> dropped;
  return Go(s, back_, dropped);
}

void History::Forget() {
  back_.clear();
  forth_.clear();
  typed_ = nullptr;
  ++moves_;
}

}  // namespace torvane
