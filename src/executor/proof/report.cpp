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

std::string GramsText(double grams) {
  return grams < 1000 ? Fixed(grams, grams < 100 ? 1 : 0) + " g" : Fixed(grams / 1000, 2) + " kg";
}

// The angle that is laid, and what is asked; on a taper, what it comes to along the part.
std::string AngleText(const LayerFigures& layer) {
  const LaidAngle& angle = layer.angle;
  if (!angle.known) return {};
  constexpr double kShown = 0.05;
  std::string text = " at " + Fixed(angle.median, 1) + " degrees";
  if (layer.askedAngle > 0) text += " (" + Fixed(layer.askedAngle, 1) + " asked)";
  if (layer.hoop) text += " (hoops)";
  const auto range = [&](std::string_view what, const Range& degrees) {
    if (degrees.high - degrees.low > kShown)
      text += ", " + Fixed(degrees.low, 1) + " to " + Fixed(degrees.high, 1) + std::string(what);
  };
  range(" from traverse to traverse", angle.traverses);
  range(" along the part", angle.alongPart);
  return text;
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

std::string TimeText(const Range& seconds) {
  const std::string low = TimeText(seconds.low), high = TimeText(seconds.high);
  return low == high ? low : low + " to " + high;
}

std::string ReversalText(const LayerFigures& layer, bool millimetres) {
  std::string text;
  if (layer.reversal.known)
    text = "beside its reversals the band lies at " + Fixed(layer.reversal.angle, 1) + " degrees over " +
           Fixed(layer.reversal.length, millimetres ? 1 : 2) + (millimetres ? " mm" : " in");
  if (layer.slowed)
    text += std::string(text.empty() ? "" : "; ") + "it waits longest for the " +
            std::string(NameOf(layer.slowest)) + " to gain speed";
  return text;
}

std::string TwofoldText(const LayerFigures& layer, bool millimetres) {
  if (layer.twofoldLine == 0) return {};
  const auto from = [](const std::string& low, const std::string& high) {
    return low == high ? low : low + " to " + high;
  };
  const std::string name = "layer " + std::to_string(layer.number);
  std::string text;
  if (layer.twofoldDwells > 0)
    text += Counted(layer.twofoldDwells, "dwell waits", "dwells wait") + " for an angle of " + name +
            " that is just reached: a controller goes on at once or turns a whole revolution; ";
  if (layer.twofoldSwings > 0)
    text += Counted(layer.twofoldSwings, "swing", "swings") + " round an end of " + name +
            " may take the mandrel's time or the carriage's, which is longer; ";
  return text + TimeText(layer.time) + ", " +
         from(FilamentText(layer.tow.low, millimetres), FilamentText(layer.tow.high, millimetres)) +
         (layer.judged ? ", " + from(Fixed(100 * layer.covered.low, 2), Fixed(100 * layer.covered.high, 2)) +
                             " % covered"
                       : "") +
         ".";
}

std::string AxesText(const Proof& proof) {
  std::string used, open;
  for (const AxisUse& axis : proof.axes) {
    if (axis.limit > 0)
      used += (used.empty() ? "" : ", ") + std::string(axis.what) + ' ' +
              Fixed(100 * axis.most / axis.limit, 0) + " %";
    else
      open += (open.empty() ? "" : ", ") + std::string(axis.what);
  }
  if (!open.empty()) used += (used.empty() ? "" : "; ") + open + " not checked: no limit is set";
  return used;
}

std::string TowText(double length, const TowMass& mass, bool millimetres) {
  std::string text = FilamentText(length, millimetres);
  if (mass.known)
    text += ", " + GramsText(mass.fibre + mass.resin) + " with " + GramsText(mass.resin) + " of resin";
  return text;
}

std::string SpoolText(const Proof& proof) {
  if (!(proof.spoolLength > 0)) return {};
  const std::vector<Splice>& splices = proof.spools.splices();
  constexpr std::size_t kShown = 8;
  std::string text = Counted(proof.spools.Count(), "spool", "spools") + " of " +
                     FilamentText(proof.spoolLength, proof.millimetres);
  for (std::size_t i = 0; i < splices.size() && i < kShown; ++i) {
    const Splice& splice = splices[i];
    text += (i == 0 ? "; spliced in layer " : ", in layer ") + std::to_string(splice.layer) + " pass " +
            Fixed(splice.pass, 0) + " at Z=" + Fixed(splice.z, 2) +
            (splice.atEnd ? " (at an end)" : " (on the traverse)");
  }
  if (splices.size() > kShown) text += " and further";
  return text;
}

std::string LayerSentence(const LayerFigures& layer, bool millimetres) {
  std::string text = std::to_string(layer.passesRun) + " of " + Fixed(layer.passesAnnounced, 0) +
                     (layer.passesAnnounced == 1 ? " pass" : " passes");
  text += AngleText(layer);
  if (layer.carriageShift) text += " by carriage shift";
  text += ", " + TimeText(layer.time) + ", " + TowText(layer.filament, layer.mass, millimetres);
  if (const std::string reversal = ReversalText(layer, millimetres); !reversal.empty())
    text += "; " + reversal;
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
  text += Counted(proof.statements, "statement", "statements") + ", runs " + TimeText(proof.run);
  if (proof.endless) text += " and then without end";
  text += ", the winding " + TimeText(proof.winding);
  if (proof.announcedSeconds > 0) text += " (" + TimeText(proof.announcedSeconds) + " announced)";
  if (proof.carriageMoved)
    text += ", carriage Z=" + Fixed(proof.lowestZ, 2) + " to Z=" + Fixed(proof.highestZ, 2) +
            (proof.millimetres ? " mm" : " in");
  text += ", " + FilamentText(proof.filament, proof.millimetres) + " of tow, " +
          Counted(proof.waits, "wait", "waits") + " for the operator\n";
  for (const LayerFigures& layer : proof.layers) {
    const std::string_view level = NameOf(layer.stands);
    text += "  " + std::string(level) + std::string(7 - level.size(), ' ') + "layer " +
            std::to_string(layer.number) + ": " + LayerSentence(layer, proof.millimetres) + '\n';
  }
  if (proof.filament > 0) text += "  tow    " + TowText(proof.filament, proof.mass, proof.millimetres) + '\n';
  if (const std::string axes = AxesText(proof); !axes.empty()) text += "  axes   " + axes + '\n';
  for (const LayerFigures& layer : proof.layers)
    if (const std::string twofold = TwofoldText(layer, proof.millimetres); !twofold.empty())
      text += "  ok     line " + std::to_string(layer.twofoldLine) + ": " + twofold + '\n';
  if (const std::string spools = SpoolText(proof); !spools.empty()) text += "  spools " + spools + '\n';
  for (const Finding& finding : proof.findings.all()) text += FindingLine(finding);
  return text;
}

}  // namespace torvane::executor
