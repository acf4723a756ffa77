#include <cstdio>

#include "calc/totals.h"
#include "cli/commands.h"
#include "cli/designs.h"
#include "cli/proof_json.h"
#include "executor/proof/report.h"
#include "text/code_page.h"
#include "workbench/document/design_commands.h"

namespace torvane {

namespace {

// What the station tells of the whole design, in feet or metres, in the design's own unit; 0 where it does
// not.
double AnnouncedTow(const DesignState& s) {
  const FieldArray& lengths = s.gShow4Axis ? s.lblLength : s.lblLengthToCover;
  return s.Read(lengths(IndexSet::kAllRows).text()).valueOr0() * (s.InInches() ? 12 : 1000);
}

std::optional<executor::Proof> ProofOf(Station& station, const OverlayStore& settings) {
  DesignState& s = station.s;
  Program program(s.signs);
  if (!FormProgram(s, station.platform, program)) return std::nullopt;
  if (!program.refusal().empty()) {
    Complain(ToUtf8(program.refusal()));
    return std::nullopt;
  }
  std::string text;
  for (const std::string_view block : program.Text()) text += block;
  executor::Proof proof = executor::Prove(text, executor::ReadLimits(settings, s.gDecimalComma ? ',' : '.'));
  executor::JudgeTow(proof, AnnouncedTow(s));
  return proof;
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
