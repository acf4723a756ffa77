// What the machine can do, and what a proof holds a layer to.
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
  // Inches a second squared, and revolutions a minute gained in a second.
  double carriageAcceleration = 0, headAcceleration = 0;
  double mandrelAcceleration = 0, rotationAcceleration = 0;
  // How finely the motors stand: clicks of a revolution, and of an inch.
  double mandrelClicks = 21735, carriageClicks = 3623;
  // Degrees between the angle that is asked and the one that is laid.
  double angleNote = 0.5, angleFault = 3;
  // Grams in a cubic centimetre, the resin's share of the band in percent, and the feet on a spool.
  double fibreDensity = 1.8, resinDensity = 1.2, resinShare = 50, spoolLength = 0;

  bool operator==(const Limits&) const = default;
};

// The settings, and the calibration of the section that belongs to the computer's decimal sign; what the
// store does not hold keeps the default.
Limits ReadLimits(const SettingsStore& store, char decimal);

}  // namespace torvane::executor
