// Lines that return again and again with other numbers in the same places, as those of a pass do.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "text/mask.h"

namespace torvane {

// The part of a line that is another number each time.
struct Slot {
  std::size_t number = 0;  // which of those that are told
  Mask mask{};
  bool blank = false;  // a failed number leaves the place empty; else it costs the line
};

// Spelled by Program::Spelled, of which Program::Repeat fills the slots.
class Passage {
 public:
  int lines() const { return lines_; }
  // Without what its slots are filled with.
  std::size_t bytes() const { return text_.size(); }

 private:
  friend class Program;
  struct Gap {
    Slot slot;
    std::size_t at = 0;
    std::size_t line = 0, behindLine = 0;  // where its line begins and where the next one does
  };

  std::string text_;
  std::vector<Gap> gaps_;
  int lines_ = 0;
};

}  // namespace torvane
