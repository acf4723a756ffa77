// A mask literal: how many digits a number shows before and behind its decimal sign.
#pragma once

#include <cstddef>
#include <cstdint>

namespace torvane {

// Written as in `"##0.00"_mask`, checked when it is compiled. Only `#`, `0` and one point.
struct Mask {
  std::uint8_t integerZeros = 0;   // digits padded with zeros in front of the point
  std::uint8_t decimals = 0;       // placeholders behind the point, of either kind
  std::uint16_t zeroDecimals = 0;  // bit k: the placeholder k behind the point is a `0`
  bool point = false;
};

consteval Mask operator""_mask(const char* literal, std::size_t length) {
  Mask mask;
  for (std::size_t i = 0; i < length; ++i) {
    const char c = literal[i];
    if (c == '.') {
      if (mask.point) throw "a mask has one point";
      mask.point = true;
    } else if (c != '#' && c != '0') {
      throw "a mask is made of #, 0 and a point";
    } else if (!mask.point) {
      if (mask.integerZeros > 0 && c == '#') throw "a # cannot stand behind a 0 in front of the point";
      if (c == '0') ++mask.integerZeros;
    } else {
      if (c == '0') mask.zeroDecimals = static_cast<std::uint16_t>(mask.zeroDecimals | (1U << mask.decimals));
      ++mask.decimals;
    }
  }
  if (mask.decimals > 9) throw "no mask of the station shows more than nine decimals";
  return mask;
}

}  // namespace torvane
