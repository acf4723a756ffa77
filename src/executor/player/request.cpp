#include "executor/player/request.h"

#include "executor/program/number.h"
#include "host/files/paths.h"
#include "text/code_page.h"

namespace torvane::executor {

std::string ProgramAsTyped(const std::vector<std::string>& words) {
  std::string typed;
  for (const std::string& word : words) typed += (typed.empty() ? "" : " ") + word;
  return typed;
}

Request ReadRequest(const std::vector<std::string>& words) {
  if (words.empty()) return {};
  if (words.size() == 1 && words[0] == "TRACE") return {Request::Kind::Trace, {}};
  if (words.size() == 1 && words[0] == "MANUAL") return {Request::Kind::Manual, {}};
  return {Request::Kind::Program, ProgramAsTyped(words)};
}

Result<std::string> PathOf(const std::string& asTyped) {
  if (asTyped.empty() || asTyped[0] != '\\') return asTyped;
  const auto station = FromUtf8(asTyped);
  return station ? HostPath(station.value()) : Result<std::string>(Refusal{station.reason()});
}

ManualSetup ReadManualSetup(const SettingsStore& store, const Limits& limits) {
  const auto number = [&store](const char* key, double fallback) {
    const auto text = store.Read("Settings", key);
    const auto value = text ? ReadNumber(*text, ',') : std::nullopt;
    return value.value_or(fallback);
  };
  ManualSetup setup;
  setup.homeZ = number("gCarriageOffsetFromRMPFace", 1.875);
  setup.homeY = number("gDHYtoMandrelCenter", 4.4375);
  setup.travel = limits.carriageTravel;
  if (limits.carriageSpeed > 0) setup.carriageSpeed = limits.carriageSpeed;
  setup.fourAxes = store.Read("Settings", "mnu2Axis").value_or("1") != "1";
  setup.millimetres = store.Read("Settings", "Units").value_or("in") == "mm";
  return setup;
}

}  // namespace torvane::executor
