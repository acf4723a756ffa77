// What the drawing of a four-axis part shows, read from the state.
#pragma once

#include <QString>
#include <array>
#include <optional>

#include "workbench/station/station.h"

namespace torvane {

enum class PartEnds : std::uint8_t { Flat, Hemispherical, NoWrap };

struct FourAxisScene {
  using Value = std::optional<double>;  // design units; missing where a field is empty, 0 or not shown

  PartEnds ends = PartEnds::Flat;
  bool homeRight = true;
  std::array<Value, 4> z;  // outer left, inner left, inner right, outer right
  std::array<Value, 2> diameter, opening;
  std::array<Value, 7> offset;  // of the delivery head
  Value band;
  Value angle;           // of the pressed row, degrees; 90 is a hoop
  double endWrap = 180;  // turn of the mandrel at each end, degrees
  QString length, leftText, rightText;

  bool operator==(const FourAxisScene&) const = default;
  bool complete() const { return z[0] && z[3] && *z[0] != *z[3] && diameter[0] && diameter[1]; }
  bool zGrowsLeft() const { return z[0] && z[3] && *z[0] != *z[3] ? *z[0] > *z[3] : homeRight; }
};

FourAxisScene SceneOfFourAxes(const Station& station);

}  // namespace torvane
