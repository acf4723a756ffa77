// Any bytes as a two-axis design file.
#include "design_file_fuzz.h"
#include "persist/two_axis_file.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace torvane;
  TwoAxisLists lists;
  return FuzzDesignFile(
      {reinterpret_cast<const char*>(data), size}, "C:\\Torvane\\a.t2d",
      [&lists](DesignState& s, const Platform& platform, const std::string& path) {
        return bool(OpenTorvaneFileVer20(s, lists, platform, path));
      },
      [](const DesignState& s, const Platform& platform, std::string& path) {
        return bool(SaveTorvaneMakeFileVer20(s, platform, path));
      });
}
