#include <cstdio>

#include "cli/command/commands.h"
#include "cli/command/proof_json.h"
#include "cli/computer/designs.h"
#include "executor/proof/report.h"
#include "host/files/paths.h"
#include "live/live_proof.h"
#include "text/code_page.h"
#include "workbench/document/design_commands.h"

namespace torvane {

namespace {

std::optional<LiveResult> ProofOf(Station& station, const OverlayStore& settings, MapFor map) {
  DesignState& s = station.s;
  const Platform& platform = station.platform;
  LiveResult result = ProveDesign(s, {platform.files.ProgramFolder(), platform.clock.Now()},
                                  executor::ReadLimits(settings, s.gDecimalComma ? ',' : '.'), {}, map);
  if (!result.refusal.empty()) Complain(ToUtf8(result.refusal));
  if (!result.formed) return std::nullopt;
  return result;
}

bool IsVtk(const std::string& map) { return map.ends_with(".vtk"); }

// False, with the reason told, where there is nothing to show or no file.
bool WriteMap(Files& files, const executor::CoverMap& map, const std::string& file) {
  if (map.empty()) {
    Complain(file + ": no layer tells its band and its diameter");
    return false;
  }
  const Result<std::string> path = AbsoluteStationPath(file);
  if (!path) throw UsageError{Because(file, path.reason())};
  const std::string text = IsVtk(file) ? executor::MapAsVtk(map) : executor::MapAsCsv(map);
  const Outcome written = files.WriteWhole(path.value(), {text});
  if (!written) Complain(Because(file, written.reason()));
  return static_cast<bool>(written);
}

}  // namespace

int RunProve(Computer& computer, const std::vector<std::string>& designs, bool json, const std::string& map) {
  if (!map.empty() && !IsVtk(map) && !map.ends_with(".csv"))
    throw UsageError{map + ": a map is a .csv or a .vtk file"};
  if (!map.empty() && designs.size() != 1) throw UsageError{"--map takes one design"};
  computer.MakeStationFolders();
  const OverlayStore settings = computer.RunSettings();
  int status = kDone;
  for (const std::string& design : designs) {
    OpenedDesign opened(computer, design);
    std::optional<LiveResult> result;
    if (opened) result = ProofOf(opened.station(), settings, map.empty() ? MapFor::Nobody : MapFor::File);
    if (!result || result->proof.findings.Count(executor::Level::Fault) > 0) status = kFailed;
    if (!result) continue;
    const executor::Proof& proof = result->proof;
    const std::string text =
        json ? JsonOf(proof).dump(2) + '\n' : Printable(design) + "\n  " + ToUtf8(executor::Report(proof));
    std::fwrite(text.data(), 1, text.size(), stdout);
    if (result->map && !WriteMap(opened.station().platform.files, *result->map, map)) status = kFailed;
  }
  return status;
}

}  // namespace torvane
