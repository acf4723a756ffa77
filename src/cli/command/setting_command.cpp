#include <cstdio>

#include "cli/command/commands.h"
#include "persist/calibration.h"
#include "persist/settings.h"
#include "text/code_page.h"

namespace torvane {

namespace {

// The default of a known key; nothing for an unknown one.
std::optional<std::string> DefaultOf(std::string_view section, std::string_view key) {
  if (section == kSettings) {
    for (const Setting& setting : Settings())
      if (setting.key == key) return std::string(setting.fallback);
    if (IsMessageKey(key)) return "False";
    return std::nullopt;
  }
  for (const CalibrationKey& known : CalibrationKeys())
    if (known.key == key && known.ofFourAxes == (section == kFourAxisCalibration))
      return CalibrationDefault(known, section == kCommaCalibration);
  return std::nullopt;
}

// Throws UsageError for what no station stores.
void Check(std::string_view section, std::string_view key) {
  bool known = section == kSettings;
  std::string sections(kSettings);
  for (const std::string_view name : kCalibrationSections) {
    known = known || name == section;
    sections += ", " + std::string(name);
  }
  if (!known) throw UsageError{"there is no section " + ToUtf8(section) + "; the sections are " + sections};
  if (!DefaultOf(section, key))
    throw UsageError{"section " + ToUtf8(section) + " has no key " + ToUtf8(key) +
                     "; `torvane setting list` names them"};
}

void Print(const SettingsStore& store, std::string_view section, std::string_view key,
           std::string_view fallback, std::string_view meaning) {
  const auto value = store.Read(section, key);
  const std::string shown = value ? ToUtf8(*value) : std::string(fallback) + " (default)";
  std::printf("%-20.*s %-42.*s %-20s %.*s\n", static_cast<int>(section.size()), section.data(),
              static_cast<int>(key.size()), key.data(), shown.c_str(), static_cast<int>(meaning.size()),
              meaning.data());
}

}  // namespace

int RunSettingList(Computer& computer) {
  const SettingsStore& store = computer.RealStore();
  for (const Setting& setting : Settings())
    Print(store, kSettings, setting.key, setting.fallback, setting.meaning);
  for (const SettingsStore::Entry& entry : store.All())
    if (entry.section == kSettings && IsMessageKey(entry.key))
      Print(store, kSettings, entry.key, "False", "True: this message is not shown any more");
  for (const CalibrationKey& key : CalibrationKeys())
    Print(store, key.ofFourAxes ? kFourAxisCalibration : kPointCalibration, key.key, key.fallback,
          key.meaning);
  std::printf(
      "\nOn a computer with a decimal comma the calibration stands in TV2_Calibration_DC, its\n"
      "gCarriageBoardID in TV2_Calibratio_DCn, with commas in the numbers.\n");
  return kDone;
}

int RunSettingGet(Computer& computer, const std::string& section, const std::string& key) {
  const std::string sectionText = StationText(section);
  const std::string keyText = StationText(key);
  Check(sectionText, keyText);
  const std::string value =
      GetSetting(computer.RealStore(), sectionText, keyText, DefaultOf(sectionText, keyText).value_or(""));
  std::printf("%s\n", ToUtf8(value).c_str());
  return kDone;
}

int RunSettingSet(Computer& computer, const std::string& section, const std::string& key,
                  const std::string& value) {
  const std::string sectionText = StationText(section);
  const std::string keyText = StationText(key);
  Check(sectionText, keyText);
  const Outcome written = computer.RealStore().Write(sectionText, keyText, StationText(value));
  if (written) return kDone;
  Complain(Because("the setting was not stored", written.reason()));
  return kFailed;
}

}  // namespace torvane
