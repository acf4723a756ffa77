// What the machine can do.
#pragma once

#include "platform/settings_store.h"

namespace torvane::executor {

// Inches, inches a second, revolutions a minute. 0 where a limit is not known; it is then not watched.
struct Limits {
  double carriageTravel = 48.00;
  double carriageSpeed = 9.04;
  double mandrelSpeed = 90.20;
  double headSpeed = 0;
  // The delivery head's distance from the mandrel's axis when it is fully retracted: as far out as it goes.
  double headRetracted = 4.4375;

  bool operator==(const Limits&) const = default;
};

// The settings, and the calibration of the section that belongs to the computer's decimal sign; what the
// store does not hold keeps the default.
Limits ReadLimits(const SettingsStore& store, char decimal);

}  // namespace torvane::executor
