// The estimate of a part in words and as JSON; docs/laminate.md describes them.
#pragma once

#include <nlohmann/json.hpp>
#include <string>

#include "laminate/part/estimate.h"
#include "platform/result.h"

namespace torvane::laminate {

// One of the design's units: its name, and what it is of the SI's.
struct ShownUnit {
  const char* name;
  double si;
};
struct ShownUnits {
  ShownUnit length, modulus, pressure, force, torque, bending;
};
// SI, or inch and pound.
const ShownUnits& UnitsOf(bool millimetres);

// A figure that a user gives, with its unit or in the design's own: "20 bar"; 0 for an empty text.
Result<double> LoadOf(const std::string& option, const std::string& text, const ShownUnit& usual);

// What is wound, for the report's head.
struct Named {
  std::string tow, resin, ply;
};

std::string Report(const Estimate& estimate, const Named& named, bool millimetres);
// In base units of the SI, degrees and kilograms.
nlohmann::ordered_json JsonOf(const Estimate& estimate, const Named& named);

}  // namespace torvane::laminate
