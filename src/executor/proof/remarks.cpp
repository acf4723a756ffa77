#include "executor/proof/remarks.h"

#include <algorithm>

#include "executor/program/number.h"
#include "executor/proof/report.h"

namespace torvane::executor {

namespace {

bool IsLimit(Kind kind) {
  return kind == Kind::Travel || kind == Kind::CarriageSpeed || kind == Kind::MandrelSpeed ||
         kind == Kind::HeadSpeed;
}

std::string SubjectOf(const Finding& finding) {
  if (finding.layer > 0) return "Layer " + std::to_string(finding.layer);
  if (finding.kind == Kind::Time) return "Time";
  return IsLimit(finding.kind) ? "Limits" : "Program";
}

Remark RemarkOf(const Finding& finding) {
  return {LevelOf(finding.kind), finding.layer, SubjectOf(finding),
          SentenceOf(finding),   finding.line,  finding.kind};
}

Remark RemarkOf(const LayerFigures& layer) {
  std::string text = Counted(layer.passesRun, "pass", "passes");
  if (layer.judged && layer.fits && layer.pattern.bands > 1)
    text += " close to " + Fixed(layer.pattern.miss, 2) + " degrees";
  if (layer.judged) text += ", " + Fixed(100 * layer.coveredShare, 1) + " % covered";
  return {Level::Ok, layer.number, "Layer " + std::to_string(layer.number), text + '.', layer.line};
}

}  // namespace

std::string Printable(std::string text) {
  for (char& c : text)
    if (static_cast<unsigned char>(c) < ' ' || c == '\x7f') c = '?';
  return text;
}

std::string SentenceOf(const Finding& finding) {
  std::string text = Printable(finding.text);
  if (!text.empty() && text[0] >= 'a' && text[0] <= 'z') text[0] = static_cast<char>(text[0] - 'a' + 'A');
  if (finding.alike > 0) text += " (" + std::to_string(finding.alike) + " more of the kind)";
  return text;
}

std::vector<Remark> RemarksOf(const Proof& proof) {
  std::vector<Remark> remarks;
  for (const Finding& finding : proof.findings.all()) remarks.push_back(RemarkOf(finding));
  std::stable_sort(remarks.begin(), remarks.end(),
                   [](const Remark& a, const Remark& b) { return a.level > b.level; });
  for (const LayerFigures& layer : proof.layers)
    if (layer.stands == Level::Ok) remarks.push_back(RemarkOf(layer));
  const auto& all = proof.findings.all();
  if (proof.carriageMoved &&
      std::none_of(all.begin(), all.end(), [](const Finding& f) { return IsLimit(f.kind); }))
    remarks.push_back({Level::Ok, 0, "Limits",
                       "Carriage from Z=" + Fixed(proof.lowestZ, 2) + " to Z=" + Fixed(proof.highestZ, 2) +
                           (proof.millimetres ? " mm" : " in") + ": inside its travel, no speed too high.",
                       0});
  if (const std::string axes = AxesText(proof); !axes.empty())
    remarks.push_back({Level::Ok, 0, "Axes", axes + ".", 0});
  for (const LayerFigures& layer : proof.layers)
    if (const std::string twofold = TwofoldText(layer, proof.millimetres); !twofold.empty())
      remarks.push_back(
          {Level::Ok, layer.number, "Layer " + std::to_string(layer.number), twofold, layer.twofoldLine});
  if (proof.filament > 0)
    remarks.push_back(
        {Level::Ok, 0, "Filament", TowText(proof.filament, proof.mass, proof.millimetres) + ".", 0});
  if (const std::string spools = SpoolText(proof); !spools.empty())
    remarks.push_back({Level::Ok, 0, "Spools", spools + ".", 0});
  return remarks;
}

}  // namespace torvane::executor
