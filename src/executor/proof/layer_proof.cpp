#include <cmath>
#include <string>
#include <utility>

#include "executor/program/number.h"
#include "executor/proof/cover.h"
#include "executor/proof/proof.h"

namespace torvane::executor {

namespace {

// Gaps up to this share of a band count as none, as the raster does not show them.
constexpr double kSmallGap = 0.1;
// Enough to show an open layer.
constexpr int kFewRows = 64;
// Stops are written with two decimals.
constexpr double kStopRounding = 0.011;
// A band's width in inches has three.
constexpr double kBandRounding = 0.00051;

constexpr double kCentimetresPerInch = 2.54;

TowMass MassOf(double length, double width, double thickness, const Limits& limits) {
  const double volume = length * width * thickness * std::pow(kCentimetresPerInch, 3);
  const double resin = std::min(1.0, limits.resinShare / 100);
  if (!(volume > 0) || !(limits.fibreDensity > 0) || (resin > 0 && !(limits.resinDensity > 0))) return {};
  return {true, volume * (1 - resin) * limits.fibreDensity, volume * resin * limits.resinDensity};
}

struct LayerProof {
  const Layer& layer;
  const Limits& limits;
  const double unitsPerInch;
  Findings& findings;
  const std::stop_token& stop;
  LayerFigures figures;
  Mandrel mandrel;
  double passesBefore = 0;  // that another program has laid, where this one winds on

  std::string LayerName() const { return "layer " + std::to_string(layer.number); }
  std::string Length(double value) const { return Fixed(value, unitsPerInch == 1 ? 3 : 2); }
  std::string Z(double value) const { return "Z=" + Fixed(value, 2); }
  void Say(Kind kind, int line, std::string text) { findings.Add(kind, line, layer.number, std::move(text)); }

  // How far the mandrel turns on the way out of that pass.
  double TurnOut(int pass) const {
    double turn = 0;
    for (const Stroke& s : layer.strokes)
      if (s.pass == pass && s.out) turn += s.m1 - s.m0;
    return turn;
  }

  void CountPasses();
  void WatchStops();
  void WatchFirstStops();
  void WatchHead();
  void AddTow(double thicknessInches);
  void WatchTold(double bandInches);
  void JudgeAngle();
  void JudgeHoop();
  bool ShiftEndsFit();
  void NarrowToAllPasses();
  void JudgeBands();
  void JudgeGaps(bool few);
};

void LayerProof::CountPasses() {
  const double announced = layer.passes.front().announced;
  figures.passesAnnounced = announced;
  double expected = std::max(1.0, passesBefore + 1);
  for (const Pass& pass : layer.passes) {
    if (stop.stop_requested()) return;
    if (pass.moves == 2) ++figures.passesRun;
    const std::string name = "pass " + Fixed(pass.number, 0);
    if (pass.number != expected || pass.announced != announced) {
      Say(Kind::Passes, pass.line,
          name + " of " + Fixed(pass.announced, 0) + " of " + LayerName() + " is announced where pass " +
              Fixed(expected, 0) + " of " + Fixed(announced, 0) + " would follow.");
    } else if (pass.moves != 2) {
      Say(Kind::Passes, pass.line,
          name + " of " + LayerName() + " is announced and has " +
              (pass.moves == 0 ? "no traverse" : Counted(pass.moves, "traverse", "traverses")) +
              ", where one out and one back make a pass.");
    }
    expected = pass.number + 1;
  }
  const double last = layer.passes.back().number;
  if (last < announced)
    Say(Kind::Passes, layer.passes.back().line,
        Fixed(announced, 0) + " passes of " + LayerName() + " are announced and the last one is pass " +
            Fixed(last, 0) + ".");
}

// The first pass has the stop of the display, and where there is no other pass to compare with, it comes back
// to where it began.
void LayerProof::WatchFirstStops() {
  const Pass& first = layer.passes.front();
  const auto told = [&](double z) { return std::abs(z - layer.toldStop) <= kStopRounding; };
  if (layer.toldStop > 0 && !told(first.farZ) && !told(first.backZ)) {
    Say(Kind::StopsShort, first.farLine,
        "Pass " + Fixed(first.number, 0) + " of " + LayerName() + " turns round at " + Z(first.farZ) +
            " and " + Z(first.backZ) + ", where its display tells " + Z(layer.toldStop) + '.');
  } else if (layer.passes.size() == 1 && !layer.fourAxes && !layer.behindShift &&
             std::abs(first.startZ - first.backZ) > kStopRounding) {
    Say(Kind::StopsShort, first.backLine,
        "The pass of " + LayerName() + " ends at " + Z(first.backZ) + ", where it began at " +
            Z(first.startZ) + '.');
  }
}

// But for a carriage shift all passes of a layer turn round at the stops of its first one.
void LayerProof::WatchStops() {
  const Pass& first = layer.passes.front();
  if (layer.carriageShift || first.moves < 2) return;
  WatchFirstStops();
  const double most = std::max(kStopRounding, kSmallGap * layer.band);
  for (std::size_t i = 1; i < layer.passes.size() && !stop.stop_requested(); ++i) {
    const Pass& pass = layer.passes[i];
    if (pass.moves < 2) continue;
    const bool atFar = std::abs(pass.farZ - first.farZ) <= most;
    if (atFar && std::abs(pass.backZ - first.backZ) <= most) continue;
    Say(Kind::StopsShort, atFar ? pass.backLine : pass.farLine,
        "Pass " + Fixed(pass.number, 0) + " of " + LayerName() + " turns round at " +
            Z(atFar ? pass.backZ : pass.farZ) + ", where the first one does at " +
            Z(atFar ? first.backZ : first.farZ) + ": the part's end gets fewer bands than it should.");
  }
}

// A traverse runs along the whole part, so it meets the thicker end.
void LayerProof::WatchHead() {
  const double radius = std::max(mandrel.leftRadius, mandrel.rightRadius);
  if (layer.headLine == 0 || layer.nearestHead >= radius) return;
  Say(Kind::HeadStrikes, layer.headLine,
      "The delivery head travels along " + LayerName() + " at Y=" + Fixed(layer.nearestHead, 2) +
          ", inside the mandrel, whose radius is " + Fixed(radius, 2) + '.');
}

void LayerProof::AddTow(double thicknessInches) {
  ForEachTow(layer, mandrel, stop, [&](const TowPiece& piece) { figures.filament += piece.length; });
  figures.mass = MassOf(figures.filament / unitsPerInch, layer.band / unitsPerInch, thicknessInches, limits);
}

// What the displays tell of the layer, against what it does.
void LayerProof::WatchTold(double bandInches) {
  if (layer.otherSpeedLine != 0)
    Say(Kind::OtherSpeed, layer.otherSpeedLine,
        (layer.otherRpm ? "The mandrel runs at " : "The carriage runs at ") + Fixed(layer.otherSpeed, 2) +
            " here; the display of " + LayerName() + " tells " +
            Fixed(layer.otherRpm ? layer.toldRpm : layer.toldFeed, 2) + '.');
  if (layer.staleLine != 0)
    Say(Kind::StaleRegister, layer.staleLine,
        LayerName() + " waits for an angle that it has not saved (M" + std::to_string(layer.staleRegister) +
            "): the mandrel stops where an earlier layer had its end.");
  const double told = bandInches * unitsPerInch;
  const bool others = layer.otherBandLine != 0;
  if (others || (layer.band > 0 && told > 0 && std::abs(layer.band - told) > kBandRounding * unitsPerInch))
    Say(Kind::OtherBand, others ? layer.otherBandLine : layer.line,
        "The displays of " + LayerName() + " tell a band of " + Length(layer.band) + " where " +
            (others ? "an earlier one of them tells " + Length(layer.otherBand)
                    : "the head of the program tells " + Length(told)) +
            '.');
}

void LayerProof::JudgeAngle() {
  const LaidAngle& laid = figures.angle;
  if (!laid.known || layer.askedAngle == 0) return;
  const double off =
      std::max({0.0, layer.askedAngle - laid.rounded.high, laid.rounded.low - layer.askedAngle});
  const bool fault = limits.angleFault > 0 && off >= limits.angleFault;
  if (!fault && !(limits.angleNote > 0 && off >= limits.angleNote)) return;
  const bool steep = laid.median > layer.askedAngle;
  std::string text = LayerName() + " is laid at " + Fixed(laid.median, 1) + " degrees where " +
                     Fixed(layer.askedAngle, 1) + " are asked: the mandrel turns too " +
                     (steep ? "fast" : "slowly") + " for the carriage";
  if (mandrel.leftRadius != mandrel.rightRadius)
    text += "; along the part it goes from " + Fixed(laid.alongPart.low, 1) + " to " +
            Fixed(laid.alongPart.high, 1);
  Say(fault ? Kind::WrongAngle : Kind::AngleOff, layer.strokes.front().line, text + '.');
}

// A hoop lays band beside band: its angle tells less than how far it goes along in a turn.
void LayerProof::JudgeHoop() {
  constexpr double kNote = 0.05, kFault = 0.25;  // of a band
  const LaidAngle& laid = figures.angle;
  if (!laid.known || !(layer.band > 0)) return;
  const double rounding = kBandRounding * unitsPerInch;
  const double off = std::max(laid.roundedAdvance.low - layer.band, layer.band - laid.roundedAdvance.high);
  if (off - rounding < kNote * layer.band) return;
  Say(off - rounding >= kFault * layer.band ? Kind::WrongAngle : Kind::AngleOff, layer.strokes.front().line,
      "The hoops of " + LayerName() + " lie " + Length(laid.advance) + " apart where the band is " +
          Length(layer.band) + " wide: the mandrel turns too " +
          (laid.advance < layer.band ? "fast" : "slowly") + " for the carriage.");
}

// By carriage shift every pass runs as far along from the one before, at both ends; from the second pass to
// the last that tells the step.
bool LayerProof::ShiftEndsFit() {
  const Pass& first = layer.passes.front();
  const double later = static_cast<double>(layer.passes.size()) - 2;
  const double shift =
      later > 0 ? (layer.passes.back().farZ - layer.passes[1].farZ) / later : figures.pattern.axialBand;
  const double aside = figures.pattern.axialBand / 2;
  int bad = 0, badLine = 0;
  double farZ = 0, homeZ = 0, number = 0;
  for (std::size_t i = 1; i < layer.passes.size(); ++i) {
    const Pass& pass = layer.passes[i];
    const double expected = shift * static_cast<double>(i);
    if (std::abs(pass.farZ - first.farZ - expected) <= aside &&
        std::abs(pass.endZ - first.endZ - expected) <= aside)
      continue;
    if (bad++ == 0) {
      badLine = pass.line;
      farZ = pass.farZ;
      homeZ = pass.endZ;
      number = pass.number;
    }
  }
  if (bad == 0) return true;
  Say(Kind::ShiftEnds, badLine,
      Counted(bad, "pass", "passes") + " of " + LayerName() + ", from pass " + Fixed(number, 0) + " (" +
          Z(farZ) + " to " + Z(homeZ) + ") on, do not run a band beside the first one (" + Z(first.farZ) +
          " to " + Z(first.endZ) +
          "): the row's ends are stops, where later passes of a carriage shift take them as lengths from the "
          "part's ends. Between the first pass's ends the layer covers " +
          Fixed(100 * figures.coveredShare, 2) + " %.");
  return false;
}

// The passes of a carriage shift step along the part; all of them run over what lies between the last one's
// start and the first one's end.
void LayerProof::NarrowToAllPasses() {
  double low = figures.zLow, high = figures.zHigh;
  for (const Pass& pass : layer.passes) {
    low = std::max(low, std::min(pass.farZ, pass.endZ));
    high = std::min(high, std::max(pass.farZ, pass.endZ));
  }
  if (high - low <= figures.band) return;
  figures.zLow = low;
  figures.zHigh = high;
}

void LayerProof::JudgeBands() {
  const Pattern& pattern = figures.pattern;
  const Stroke& start = layer.strokes.front();
  const Pass& firstPass = layer.passes.front();
  const bool elsewhere = std::abs(firstPass.startZ - firstPass.endZ) > figures.band / 2;
  const bool wrongWay = (start.z1 > start.z0) != (firstPass.farZ > firstPass.endZ);
  bool firstAside = false;
  if (pattern.alikeSteps * 4 < pattern.steps * 3)
    Say(Kind::NoPattern, pattern.oddLine,
        "The passes of " + LayerName() + " follow no pattern: of " + std::to_string(pattern.steps) +
            " steps from band to band " + std::to_string(pattern.alikeSteps) +
            " are alike. What they cover is left to chance.");
  for (const BandAside& band : pattern.aside) {
    if (stop.stop_requested()) return;
    if (band.first && (layer.wraps || elsewhere)) {
      firstAside = true;
      continue;
    }
    Say(Kind::BandAside, band.line,
        "The band of pass " + Fixed(layer.passes[static_cast<std::size_t>(band.pass)].number, 0) + " of " +
            LayerName() + " lies " + Fixed(std::abs(band.degrees), 2) +
            " degrees beside its place; half a band is " + Fixed(pattern.bandDegrees / 2, 2) + " degrees.");
  }
  std::string text;
  if (firstAside || wrongWay) text += "; its band is beside its place until it meets the far end";
  if (layer.startJump != 0)
    text +=
        "; its A word goes " + Fixed(std::abs(layer.startJump), 2) + " degrees out of step with the turns";
  if (!text.empty())
    Say(Kind::FirstTraverse, start.line,
        "The first traverse of " + LayerName() + " begins at " + Z(firstPass.startZ) + " and turns " +
            Fixed(TurnOut(0), 2) + " degrees, where the next one begins at " + Z(firstPass.endZ) +
            " and turns " + Fixed(TurnOut(1), 2) + text + ".");
  if (layer.angleFaultLine != 0)
    Say(Kind::RunningAngle, layer.angleFaultLine,
        "The A word and the sum of the turns of " + LayerName() + " part by " +
            Fixed(std::abs(layer.angleFault), 2) + " degrees here.");
}

void LayerProof::JudgeGaps(bool few) {
  const Pattern& pattern = figures.pattern;
  const double band = figures.band;
  const std::string covered = Fixed(100 * figures.coveredShare, 2) + " % of the surface is covered";
  if (few) {
    Say(Kind::FewPasses, layer.line,
        LayerName() + " is open: it lays " + Counted(pattern.bands, "band", "bands") + " each way where " +
            Fixed(std::ceil(360 / pattern.bandDegrees), 0) + " would lie side by side; " + covered + ".");
    return;
  }
  const double half = pattern.bandDegrees / 2;
  const bool gaps = pattern.largestGap > kSmallGap * band;
  const bool bare = gaps && figures.coveredShare < 1;
  const bool open = gaps && pattern.miss > half;
  const bool bareAnyhow = bare && pattern.roundedGap > kSmallGap * band;
  const bool openAnyhow = open && pattern.miss - pattern.drift > half;
  if ((bare || open) && !bareAnyhow && !openAnyhow) {
    Say(pattern.largestGap > band / 2 ? Kind::RoundedStrips : Kind::Rounding, layer.line,
        LayerName() + " closes to " + Fixed(pattern.miss, 2) + " degrees with gaps of up to " +
            Length(std::max(0.0, pattern.largestGap)) +
            (layer.wraps
                 ? ": its winding angle, and with it the turn of every traverse, is rounded to two decimals; "
                 : ": its speeds and angles are rounded to the last decimals of the program; ") +
            covered + ".");
    return;
  }
  if (openAnyhow)
    Say(Kind::Open, layer.line,
        LayerName() + " does not close: the circuit behind its last one would begin " +
            Fixed(pattern.miss, 2) + " degrees before the next band; half a band is " +
            Fixed(pattern.bandDegrees / 2, 2) + " degrees.");
  if (bareAnyhow)
    Say(Kind::BareStrips, layer.line,
        LayerName() + " leaves bare strips of up to " + Length(pattern.largestGap) + " between bands of " +
            Length(band) + "; " + covered + ".");
}

}  // namespace

LayerFigures ProveLayer(const Layer& layer, const HeadComments& comments, const Limits& limits,
                        double unitsPerInch, int rowsAtMost, Findings& findings,
                        const std::stop_token& stop) {
  LayerProof proof{layer, limits, unitsPerInch, findings, stop, {}, MandrelOf(layer, comments)};
  LayerFigures& figures = proof.figures;
  figures.number = layer.number;
  figures.line = layer.line;
  figures.carriageShift = layer.carriageShift;
  figures.seconds = layer.seconds + layer.secondsBehind;
  figures.hoop = layer.hoop;
  figures.askedAngle = layer.askedAngle;
  figures.band = layer.band;
  figures.mandrel = proof.mandrel;
  figures.thickness = comments.thicknessInches * unitsPerInch;
  const double margin = proof.mandrel.TurnMargin(layer.band);
  figures.zLow = proof.mandrel.zRight + margin;
  figures.zHigh = proof.mandrel.zLeft - margin;
  if (layer.number == comments.restartLayer) proof.passesBefore = comments.restartPass - 1;
  proof.CountPasses();
  proof.WatchStops();
  proof.AddTow(comments.thicknessInches);
  proof.WatchHead();
  if (layer.oddDwellLine != 0)
    proof.Say(
        Kind::HoopDwell, layer.oddDwellLine,
        "A dwell of " + proof.LayerName() + " against a register has " +
            (layer.oddDwellAngle == 0 ? "no angle"
                                      : "an angle of " + Fixed(layer.oddDwellAngle, 2) + " degrees") +
            " behind its C, as in hoop rows by mandrel shift; the mandrel goes on to where that stands.");
  if (layer.strokes.empty()) return figures;
  proof.WatchTold(comments.bandInches);
  figures.angle = MeasureAngle(layer, proof.mandrel, stop);
  layer.hoop ? proof.JudgeHoop() : proof.JudgeAngle();
  if (figures.angle.known)
    figures.reversal = NearReversal(figures.angle.typical, StationRadius(layer, proof.mandrel),
                                    AcceleratingDriveOf(limits), unitsPerInch);
  if (!(figures.band > 0) && layer.noBandLine != 0) {
    proof.Say(Kind::NoBand, layer.noBandLine,
              "The displays of " + proof.LayerName() +
                  " tell a band width (FW) of 0: a band without a width covers nothing.");
    return figures;
  }
  if (!(figures.band > 0) || !(proof.mandrel.leftRadius > 0) || !(figures.zHigh > figures.zLow)) {
    proof.Say(Kind::Unknown, layer.line,
              "The cover of " + proof.LayerName() +
                  " cannot be judged: its band width, diameter or length is not told.");
    return figures;
  }
  // Of a layer that is begun already the cover is not known: its first bands lie on the part, not in the
  // program.
  if (proof.passesBefore > 0) return figures;
  figures.judged = true;
  figures.pattern = FindPattern(layer, proof.mandrel, figures.zLow, figures.zHigh, unitsPerInch, stop);
  const auto few = [&] { return 2 * figures.pattern.bands * figures.pattern.bandDegrees < 360; };
  const auto cover = [&] {
    figures.rows = few() ? std::min(rowsAtMost, kFewRows) : rowsAtMost;
    figures.coveredShare =
        CoveredShare(layer, proof.mandrel, figures.zLow, figures.zHigh, figures.rows, stop);
  };
  if (layer.carriageShift && layer.passes.size() > 1) {
    cover();
    if (!proof.ShiftEndsFit()) return figures;
    proof.NarrowToAllPasses();
    figures.pattern = FindPattern(layer, proof.mandrel, figures.zLow, figures.zHigh, unitsPerInch, stop);
  }
  cover();
  if (stop.stop_requested()) return figures;
  figures.fits = true;
  if (!few()) proof.JudgeBands();
  proof.JudgeGaps(few());
  return figures;
}

}  // namespace torvane::executor
