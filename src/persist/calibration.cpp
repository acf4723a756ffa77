#include "persist/calibration.h"

#include <algorithm>

#include "persist/settings.h"
#include "text/text.h"

namespace torvane {

namespace {

constexpr double kHighestListedRPM = 90;

constexpr CalibrationKey kKeys[] = {
    {"FWMandrelHeightAboveRefIN", "0.0", "mandrel above the reference, inches"},
    {"FWDeliveryHeadXPositionMinimumIN", "0.0", "lowest position of the delivery head, inches"},
    {"FWDeliveryHeadXPositionMaximumIN", "0.0", "highest position of the delivery head, inches"},
    {"FWDeliveryHeadMaximumWidthIN", "0.0", "largest width of the delivery head, inches"},
    {"FWDeliveryHeadDistanceFromMandrelChuckPlateinHomePositionIN", "0.0",
     "delivery head to chuck plate, inches"},
    {"gCarriageBoardID", "Select...", "controller board of the carriage", false},
    {"cMaxTravel", "48.00", "carriage travel, inches"},
    {"cMaxSteps", "173904", "carriage travel, steps"},
    {"cClicksPerINpS", "3623", "carriage clicks for an inch per second"},
    {"cMaxSpeed", "9.04", "carriage top speed, in/s"},
    {"cMaxAmps", "2.85", "carriage current, amperes"},
    {"gMandrelBoardID", "Select...", "controller board of the mandrel", false},
    {"mClicksPerREV", "21735.00", "mandrel clicks a revolution"},
    {"mMaxRPM", "90.20", "mandrel top speed, RPM"},
    {"mMaxAmps", "2.85", "mandrel current, amperes"},
    {"dhlMaxSpeed", "0", "delivery head top speed, in/s", true, true},
};

struct Limit {
  std::string_view key;
  double DesignState::*limit;
};
constexpr Limit kLimits[] = {{"cMaxTravel", &DesignState::cMaxTravel},
                             {"cMaxSpeed", &DesignState::cMaxSpeed},
                             {"mMaxRPM", &DesignState::mMaxRPM},
                             {"dhlMaxSpeed", &DesignState::dhlMaxSpeed}};

void ReadLimit(DesignState& s, double DesignState::*limit, std::string_view text) {
  const Number read = s.Read(text);
  if (read.good()) s.*limit = read.value();
}

std::vector<std::string> SpeedList(double mMaxRPM) {
  std::vector<std::string> speeds = {"2", "4", "6", "8"};
  const double limit = std::min(mMaxRPM, kHighestListedRPM);
  for (int rpm = 10; rpm <= limit; rpm += 5) speeds.push_back(std::to_string(rpm));
  return speeds;
}

}  // namespace

std::span<const CalibrationKey> CalibrationKeys() { return kKeys; }

std::string_view CalibrationSection(const DesignState& s, const CalibrationKey& key) {
  if (key.ofFourAxes) return kFourAxisCalibration;
  if (!s.gDecimalComma) return kPointCalibration;
  return key.key == "gCarriageBoardID" ? kCommaBoardCalibration : kCommaCalibration;
}

std::string CalibrationDefault(const CalibrationKey& key, bool decimalComma) {
  return decimalComma && key.isNumber ? Replaced(key.fallback, '.', ',') : std::string(key.fallback);
}

std::string CalibrationText(const DesignState& s, const SettingsStore& store, const CalibrationKey& key) {
  return GetSetting(store, CalibrationSection(s, key), key.key, CalibrationDefault(key, s.gDecimalComma));
}

void OpenCalibrationFile(DesignState& s, const SettingsStore& store) {
  for (const CalibrationKey& key : kKeys) {
    const std::string text = CalibrationText(s, store, key);
    if (key.key == "gCarriageBoardID") s.gCarriageBoardID = text;
    if (key.key == "gMandrelBoardID") s.gMandrelBoardID = text;
    for (const Limit& limit : kLimits)
      if (limit.key == key.key) ReadLimit(s, limit.limit, text);
  }
  const std::vector<std::string> speeds = SpeedList(s.mMaxRPM);
  for (Field* list : {&s.cmbPreWrapRPM(1), &s.cmbPreWrapRPM(2), &s.cmbHGRPM, &s.cmbHSTRPM})
    list->SetEntries(speeds);
  s.cmbPreWrapRPM(1) = GetSetting(store, kSettings, "cmbPreWrapRPM1", "40");
  s.cmbPreWrapRPM(2) = GetSetting(store, kSettings, "cmbPreWrapRPM2", "40");
  s.cmbHGRPM = GetSetting(store, kSettings, "cmbHGRPM", "10");
  s.cmbHSTRPM = GetSetting(store, kSettings, "cmbHSTRPM", "20");
}

}  // namespace torvane
