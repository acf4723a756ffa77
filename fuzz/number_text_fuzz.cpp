// Any bytes as a number: what is read shows as a text that reads as the same number again.
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "text/number_text.h"

namespace {

using namespace torvane;

constexpr Mask kMasks[] = {"####"_mask,    "##0"_mask,     "##.0"_mask,   "##0.00"_mask,
                           "##0.000"_mask, "#0.0000"_mask, "####.0#"_mask};

// 15 digits tell a number to within this share.
constexpr double kShare = 1e-14;

void Judge(NumberSigns signs, std::string_view text) {
  const Number number = ReadNumberText(signs, text);
  if (!number.good()) {
    for (const Mask mask : kMasks)
      if (FormatNumberText(signs, text, mask) != text) std::abort();
    return;
  }
  const double value = number.value();
  const Number again = ReadNumberText(signs, NumberToText(signs, value));
  // The largest doubles round up past the largest.
  if (!again.good() && std::fabs(value) < 1.7e308) std::abort();
  if (again.good() && std::fabs(again.value() - value) > kShare * std::fabs(value)) std::abort();
  for (const Mask mask : kMasks) {
    const std::string shown = FormatNumberText(signs, value, mask);
    if (FormatNumberText(signs, text, mask) != shown) std::abort();
    const Number masked = ReadNumberText(signs, shown);
    // A mask without a 0 shows nothing of a zero.
    if (!masked.good()) {
      if (std::fabs(value) >= 1 && std::fabs(value) < 1.7e308) std::abort();
      continue;
    }
    if (FormatNumberText(signs, masked.value(), mask) != shown) std::abort();
    if (std::fabs(masked.value() - value) > 0.5000001 + kShare * std::fabs(value)) std::abort();
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  Judge({'.', '/', ':'}, text);
  Judge({',', '.', ':'}, text);
  return 0;
}
