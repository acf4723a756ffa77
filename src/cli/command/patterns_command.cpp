#include <cstdio>
#include <nlohmann/json.hpp>

#include "calc/four_axis.h"
#include "calc/patterns.h"
#include "cli/command/commands.h"
#include "design/units.h"
#include "handoff/launch.h"
#include "persist/settings.h"
#include "text/code_page.h"
#include "workbench/document/startup.h"

namespace torvane {

namespace {

Number OptionNumber(const DesignState& s, const char* option, const std::string& text) {
  const Number number = s.Read(StationText(text));
  if (!number.good()) throw UsageError{std::string(option) + " \"" + text + "\" is no number"};
  return number;
}

// A flat-ended part of one row at the default rate.
void DescribePart(Station& station, const PatternOptions& options) {
  DesignState& s = station.s;
  ShowUnits(s, options.millimetres ? "N" : "Y");
  SelectPartType(s, 0);
  s.gNoListPatternDegrees = OptionNumber(s, "--limit", options.limit).value();
  s.cmbRate = "MED";
  const Number band = OptionNumber(s, "--band", options.band);
  s.txtDia(0) = OptionNumber(s, "--diameter", options.diameter).plain();
  s.txtDia(1).CopyFrom(s.txtDia(0));
  s.txtPODia(0) = OptionNumber(s, "--opening", options.opening).plain();
  s.txtZ4(0) = "0";
  s.txtZ4(3) = OptionNumber(s, "--length", options.length).plain();
  s.txtBandWidth(1) = (options.millimetres ? band / kMillimetresPerInch : band).plain();
  s.txtBandWidthMM(1) = (options.millimetres ? band : band * kMillimetresPerInch).plain();
  s.cmbPhiW(1) = NumberToText(s.signs, OptionNumber(s, "--wrap", options.wrap).value()) + "\xB0";
  s.cmbPhiSplit(1) = "45\xB0";
  PopulatePatternCombo(s, 1);
}

nlohmann::ordered_json PatternOf(DesignState& s, const std::string& entry) {
  const PatternFields pattern = SplitPatternFields(s, entry);
  CalculateAndShow(s, s.Read(pattern.angle), entry, 1);
  return {{"pattern", ToUtf8(entry)},          {"angle", pattern.angle},
          {"groups", pattern.groups},          {"circuits", pattern.circuits},
          {"passes", s.lblNPasses(1).text()},  {"endWrap", pattern.wrapAngle},
          {"minutes", s.lblMinutes(1).text()}, {"filament", s.lblLength(1).text()}};
}

void PrintRow(const nlohmann::ordered_json& pattern) {
  const auto text = [&pattern](const char* key) { return pattern[key].get<std::string>(); };
  std::printf("%8s %7s %9s %7s %9s %9s %9s\n", text("angle").c_str(), text("groups").c_str(),
              text("circuits").c_str(), text("passes").c_str(), text("endWrap").c_str(),
              text("minutes").c_str(), text("filament").c_str());
}

}  // namespace

int RunPatterns(Computer& computer, const PatternOptions& options) {
  OverlayStore settings = computer.RunSettings();
  // No design is in hand, the one that was open last neither.
  SaveSetting(settings, kSettings, "gLastFileInUse", "");
  WholeStation station(computer.AsPlatform(settings));
  Form_Load(station);
  DescribePart(station, options);
  DesignState& s = station.s;
  auto patterns = nlohmann::ordered_json::array();
  const std::vector<std::string> entries = s.cmbPattern(1).entries();
  for (const std::string& entry : entries)
    if (!entry.empty()) patterns.push_back(PatternOf(s, entry));
  if (options.json) {
    std::printf("%s\n", nlohmann::ordered_json{{"grazingAngle", ToUtf8(s.lblGrazeAngle.text())},
                                               {"patterns", patterns}}
                            .dump(2)
                            .c_str());
    return kDone;
  }
  std::printf("%8s %7s %9s %7s %9s %9s %9s\n", "Angle", "Groups", "Circuits", "Passes", "End wrap", "Minutes",
              s.InInches() ? "Feet" : "Metres");
  for (const auto& pattern : patterns) PrintRow(pattern);
  if (patterns.empty()) std::printf("No pattern closes on this part.\n");
  return kDone;
}

}  // namespace torvane
