// What the station knows of its machine: limits and controller boards.
#pragma once

#include <span>
#include <string_view>

#include "design/state.h"
#include "platform/settings_store.h"

namespace torvane {

// The sections of the store that hold calibration: of a decimal-point computer, of a decimal-comma one but
// for the carriage's board, that board's, and the four axes' whatever the sign.
inline constexpr std::string_view kPointCalibration = "TV2_Calibration";
inline constexpr std::string_view kCommaCalibration = "TV2_Calibration_DC";
inline constexpr std::string_view kCommaBoardCalibration = "TV2_Calibratio_DCn";
inline constexpr std::string_view kFourAxisCalibration = "TV4_Calibration";
inline constexpr std::string_view kCalibrationSections[] = {kPointCalibration, kCommaCalibration,
                                                            kCommaBoardCalibration, kFourAxisCalibration};

struct CalibrationKey {
  std::string_view key;
  std::string_view fallback;  // in the form of a decimal-point computer
  std::string_view meaning;
  bool isNumber = true;
  bool ofFourAxes = false;
};
// In the order in which they are shown.
std::span<const CalibrationKey> CalibrationKeys();

// The section that holds a calibration key, chosen by the computer's decimal sign.
std::string_view CalibrationSection(const DesignState& s, const CalibrationKey& key);

// A key's default in the number form of a computer with that decimal sign.
std::string CalibrationDefault(const CalibrationKey& key, bool decimalComma);

// What the store holds of a key, or its default in the computer's number form.
std::string CalibrationText(const DesignState& s, const SettingsStore& store, const CalibrationKey& key);

// Reads the machine's limits and boards, and makes the speed lists of pre-wraps and finishing passes anew
// from the mandrel's top speed.
void OpenCalibrationFile(DesignState& s, const SettingsStore& store);

}  // namespace torvane
