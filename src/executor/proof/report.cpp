#include "executor/proof/report.h"

#include <cmath>

#include "executor/program/number.h"
#include "executor/proof/remarks.h"

namespace torvane::executor {

namespace {

std::string FindingLine(const Finding& finding) {
  std::string line = LevelOf(finding.kind) == Level::Fault ? "  fault  " : "  note   ";
  if (finding.line > 0) line += "line " + std::to_string(finding.line) + ": ";
  return line + SentenceOf(finding) + '\n';
}

}  // namespace

std::string TimeText(double seconds) {
  const double minutes = seconds / 60;
  if (minutes < 90) return Fixed(minutes, 1) + " min";
  const double hours = std::floor(minutes / 60);
  return Fixed(hours, 0) + " h " + Fixed(minutes - hours * 60, 0) + " min";
}

std::string FilamentText(double length, bool millimetres) {
  return millimetres ? Fixed(length / 1000, 1) + " m" : Fixed(length / 12, 1) + " feet";
}

std::string LayerSentence(const LayerFigures& layer, bool millimetres) {
  std::string text = std::to_string(layer.passesRun) + " of " + Fixed(layer.passesAnnounced, 0) +
                     (layer.passesAnnounced == 1 ? " pass" : " passes");
  if (layer.judged) text += " at " + Fixed(layer.pattern.windingAngle, 1) + " degrees";
  if (layer.carriageShift) text += " by carriage shift";
  text += ", " + TimeText(layer.seconds) + ", " + FilamentText(layer.filament, millimetres);
  if (!layer.judged) return text;
  const int decimals = millimetres ? 2 : 3;
  text += "; covers " + Fixed(100 * layer.coveredShare, 2) + " % from Z=" + Fixed(layer.zLow, 2) +
          " to Z=" + Fixed(layer.zHigh, 2);
  if (!layer.fits) return text;
  if (layer.pattern.bands > 1) text += ", closes to " + Fixed(layer.pattern.miss, 2) + " degrees";
  text += ", gaps " + Fixed(layer.pattern.smallestGap, decimals) + " to " +
          Fixed(layer.pattern.largestGap, decimals) + " beside bands of " + Fixed(layer.band, decimals);
  return text;
}

std::string Report(const Proof& proof) {
  std::string text;
  const int faults = proof.findings.Count(Level::Fault), notes = proof.findings.Count(Level::Note);
  text += Counted(faults, "fault", "faults") + ", " + Counted(notes, "note", "notes") + ": ";
  text += Counted(proof.statements, "statement", "statements") + ", runs " + TimeText(proof.seconds);
  if (proof.endless) text += " and then without end";
  if (proof.announcedSeconds > 0)
    text += " (" + TimeText(proof.announcedSeconds) + " announced for the winding)";
  if (proof.carriageMoved)
    text += ", carriage Z=" + Fixed(proof.lowestZ, 2) + " to Z=" + Fixed(proof.highestZ, 2) +
            (proof.millimetres ? " mm" : " in");
  text += ", " + FilamentText(proof.filament, proof.millimetres) + " of filament, " +
          Counted(proof.waits, "wait", "waits") + " for the operator\n";
  for (const LayerFigures& layer : proof.layers) {
    const std::string_view level = NameOf(layer.stands);
    text += "  " + std::string(level) + std::string(7 - level.size(), ' ') + "layer " +
            std::to_string(layer.number) + ": " + LayerSentence(layer, proof.millimetres) + '\n';
  }
  for (const Finding& finding : proof.findings.all()) text += FindingLine(finding);
  return text;
}

}  // namespace torvane::executor
