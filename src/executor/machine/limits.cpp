#include "executor/machine/limits.h"

#include "executor/program/number.h"

namespace torvane::executor {

Limits ReadLimits(const SettingsStore& store, char decimal) {
  Limits limits;
  const char* section = decimal == ',' ? "TV2_Calibration_DC" : "TV2_Calibration";
  const auto read = [&](const char* from, const char* key, double& limit) {
    const auto text = store.Read(from, key);
    if (!text) return;
    const auto value = ReadNumber(*text, ',');
    limit = value && *value > 0 ? *value : 0;
  };
  read(section, "cMaxTravel", limits.carriageTravel);
  read(section, "cMaxSpeed", limits.carriageSpeed);
  read(section, "mMaxRPM", limits.mandrelSpeed);
  read("TV4_Calibration", "dhlMaxSpeed", limits.headSpeed);
  read("Settings", "gDHYtoMandrelCenter", limits.headRetracted);
  return limits;
}

}  // namespace torvane::executor
