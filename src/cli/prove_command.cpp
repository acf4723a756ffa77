#include <cstdio>

#include "cli/commands.h"
#include "cli/designs.h"
#include "cli/proof_json.h"
#include "executor/proof/report.h"
#include "live/live_proof.h"
#include "text/code_page.h"
#include "workbench/document/design_commands.h"

namespace torvane {

namespace {

std::optional<executor::Proof> ProofOf(Station& station, const OverlayStore& settings) {
  DesignState& s = station.s;
  const Platform& platform = station.platform;
  LiveResult result = ProveDesign(s, {platform.files.ProgramFolder(), platform.clock.Now()},
                                  executor::ReadLimits(settings, s.gDecimalComma ? ',' : '.'));
  if (!result.refusal.empty()) Complain(ToUtf8(result.refusal));
  if (!result.formed) return std::nullopt;
  return std::move(result.proof);
}

}  // namespace

int RunProve(Computer& computer, const std::vector<std::string>& designs, bool json) {
  computer.MakeStationFolders();
  const OverlayStore settings = computer.RunSettings();
  int status = kDone;
  for (const std::string& design : designs) {
    OpenedDesign opened(computer, design);
    std::optional<executor::Proof> proof;
    if (opened) proof = ProofOf(opened.station(), settings);
    if (!proof || proof->findings.Count(executor::Level::Fault) > 0) status = kFailed;
    if (!proof) continue;
    const std::string text =
        json ? JsonOf(*proof).dump(2) + '\n' : Printable(design) + "\n  " + ToUtf8(executor::Report(*proof));
    std::fwrite(text.data(), 1, text.size(), stdout);
  }
  return status;
}

}  // namespace torvane
