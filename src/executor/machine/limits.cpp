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
  read(section, "mClicksPerREV", limits.mandrelClicks);
  read(section, "cClicksPerINpS", limits.carriageClicks);
  read("TV4_Calibration", "dhlMaxSpeed", limits.headSpeed);
  read("Settings", "gDHYtoMandrelCenter", limits.headRetracted);
  for (const auto& [key, limit] : {std::pair("gProofCarriageAcceleration", &Limits::carriageAcceleration),
                                   {"gProofMandrelAcceleration", &Limits::mandrelAcceleration},
                                   {"gProofHeadAcceleration", &Limits::headAcceleration},
                                   {"gProofHeadTurnAcceleration", &Limits::rotationAcceleration},
                                   {"gProofAngleNote", &Limits::angleNote},
                                   {"gProofAngleFault", &Limits::angleFault},
                                   {"gProofFibreDensity", &Limits::fibreDensity},
                                   {"gProofResinDensity", &Limits::resinDensity},
                                   {"gProofResinShare", &Limits::resinShare},
                                   {"gProofSpoolLength", &Limits::spoolLength}})
    read("Settings", key, limits.*limit);
  return limits;
}

}  // namespace torvane::executor
