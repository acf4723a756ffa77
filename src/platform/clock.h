// The computer's clock, in local time.
#pragma once

#include <chrono>

namespace torvane {

using Moment = std::chrono::local_time<std::chrono::milliseconds>;

class Clock {
 public:
  virtual ~Clock() = default;
  virtual Moment Now() const = 0;
};

}  // namespace torvane
