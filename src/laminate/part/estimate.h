// What the part will be: an estimate by classical lamination theory for thin tubes, with its assumptions.
// Base units of the SI.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "laminate/mechanics/failure.h"
#include "laminate/mechanics/tube.h"
#include "laminate/part/lay_up.h"

namespace torvane::laminate {

// The load at which the first ply fails, by both criteria, and the layer in which it does.
struct FirstFailure {
  double load = kUnknown;
  int layer = 0;
};
struct FailureLoad {
  std::string_view name;  // "pressure, closed ends"
  FirstFailure tsaiWu, maxStress;
};
enum class LoadCase { ClosedPressure, OpenPressure, Tension, Compression, Torque, Bending };
inline constexpr std::size_t kLoadCases = 6;
std::string_view NameOf(LoadCase loadCase);

// Factors on the load that is given to the failure of a layer, where the wall bears it worst.
struct LayerMargin {
  int layer = 0;
  double tsaiWu = kUnknown, maxStress = kUnknown;
};

struct Estimate {
  LayUp layUp;
  Ply ply;
  Strength strength;
  bool stiff = false;     // the constants are known: the figures of stiffness stand
  bool strong = false;    // the strengths, too
  SheetConstants wall{};  // of the middle section, its bending held as a tube's is
  TubeStiffness tube{};   // of the middle section
  double expansionAxial = kUnknown, expansionHoop = kUnknown;
  std::array<FailureLoad, kLoadCases> failures{};  // the least of all sections
  // The pressure at which the fibres alone reach their strength.
  double nettingClosed = kUnknown, nettingOpen = kUnknown;
  // In compression: when the wall buckles, knocked down by `knockDown`, and the whole tube as a column.
  double knockDown = kUnknown, wallBuckling = kUnknown, columnBuckling = kUnknown;
  std::vector<LayerMargin> margins;  // under the load that is given; none for none
  std::vector<std::string> missing, remarks;
};

// `load` is what the tube is to bear; none is all zeros.
Estimate EstimateOf(const executor::Proof& proof, const Stock& stock, const Choice& choice,
                    const executor::Limits& limits, const TubeLoad& load = {});

}  // namespace torvane::laminate
