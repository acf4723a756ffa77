#include "workbench/dialog/settings_lines.h"

#include <algorithm>
#include <tuple>
#include <vector>

namespace torvane {

namespace {

using Entry = SettingEntry;
using Line = SettingLine;

// What stands over the fields and over their twins.
DialogLine Heads(int place, char letter, std::string_view overFields, std::string_view overTwins) {
  return {{"", Entry::Plain, Line::Speeds, place, letter}, false, overFields, overTwins};
}

DialogLine Limit(int place, std::string_view field, std::string_view unit, std::string_view twin) {
  return {{field, Entry::Plain, Line::Speeds, place, 0, unit, twin, "The machine's own limit"}, true};
}

std::vector<DialogLine> AllLines() {
  std::vector<DialogLine> lines = {
      // The offset's second place.
      {{"Text3", Entry::Offset, Line::TwoAxes, 1, 'A', "in", "Text2",
        "Z-distance from delivery head mid point to closest face of right mandrel post when carriage "
        "activates the limit switch (home position). Measure all Z distances from this right mandrel post "
        "reference point.",
        "(Default for Model #2T-23 is between 2-3 inches inches depending on exact location of limit "
        "switch)"}},
      Heads(1, 'A', "Carriage Speed Limit (in/s)", "Carriage Speed Limit (mm/s)"),
      Limit(5, "lblcMaxSpeed", "in/s", "lblcMaxSpeedMM"),
      Heads(6, 'B', "Mandrel RPM Limit (1/min)", "Mandrel RPM Limit (1/min)"),
      Limit(10, "lblmMaxRPM", "1/min", "lblmMaxRPMMM"),
  };
  for (const Setting& setting : Settings())
    if (!setting.line.field.empty() && setting.line.tab != Line::Hidden) lines.push_back({setting.line});
  std::sort(lines.begin(), lines.end(), [](const DialogLine& a, const DialogLine& b) {
    return std::tie(a.setting.tab, a.setting.place) < std::tie(b.setting.tab, b.setting.place);
  });
  return lines;
}

}  // namespace

std::string_view DialogLine::TwinUnit() const {
  if (setting.twin.empty()) return {};
  if (setting.unit == "in") return "mm";
  return setting.unit == "in/s" ? "mm/s" : setting.unit;
}

std::span<const DialogLine> DialogLines() {
  static const std::vector<DialogLine> lines = AllLines();
  return lines;
}

}  // namespace torvane
