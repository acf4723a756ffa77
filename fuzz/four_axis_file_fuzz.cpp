// Any bytes as a four-axis design file.
#include "design_file_fuzz.h"
#include "persist/four_axis_file.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace torvane;
  FourAxisHeld held;
  return FuzzDesignFile(
      {reinterpret_cast<const char*>(data), size}, "C:\\Torvane\\a.t4d",
      [&held](DesignState& s, const Platform& platform, const std::string& path) {
        return bool(OpenTorvaneFileVer40(s, held, platform, path));
      },
      [](const DesignState& s, const Platform& platform, const std::string& path) {
        return bool(SaveTorvaneMakeFileVer40(s, platform, path));
      });
}
