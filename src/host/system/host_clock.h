#pragma once

#include "platform/clock.h"

namespace torvane {

// The computer's clock in the time zone of the user.
class HostClock : public Clock {
 public:
  Moment Now() const override;
};

}  // namespace torvane
