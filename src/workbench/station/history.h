// The designs that the operator can go back to, and forth again.
#pragma once

#include <cstddef>
#include <vector>

#include "design/state.h"

namespace torvane {

class History {
 public:
  // Keeps the design as it stood before an operation, if that has changed it; false if it has not. Keys typed
  // one behind the other in the same field are one operation: `typed` is that field, null for any other.
  bool Remember(const DesignState& s, Snapshot before, const Field* typed);

  // The design as it was before the last operation, or before that was taken back. False if there is none.
  bool GoBack(DesignState& s) { return Go(s, back_, forth_); }
  bool GoForth(DesignState& s) { return Go(s, forth_, back_); }
  bool HasBack() const { return !back_.empty(); }
  bool HasForth() const { return !forth_.empty(); }
  // The same as going back, and nothing leads forth again.
  bool DropLast(DesignState& s);

  // Nothing of what was leads back or forth any more.
  void Forget();

  // What is typed from now on is an operation of its own, also in the field that was typed in last.
  void EndTyping() { typed_ = nullptr; }
  // Whether the last operation was typing, and in this field.
  bool LastTypedIn(const Field& field) const { return typed_ == &field && HasBack(); }

  // Another number after each way back, forth or to nothing: none of these is an operation to remember.
  std::size_t moves() const { return moves_; }

 private:
  bool Go(DesignState& s, std::vector<Snapshot>& from, std::vector<Snapshot>& to);

  std::vector<Snapshot> back_, forth_;
  const Field* typed_ = nullptr;
  std::size_t moves_ = 0;
};

}  // namespace torvane
