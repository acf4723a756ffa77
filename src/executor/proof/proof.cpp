#include "executor/proof/proof.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <set>
#include <string>
#include <tuple>

#include "executor/program/number.h"
#include "executor/proof/cover.h"
#include "executor/proof/report.h"
#include "executor/proof/sense.h"

namespace torvane::executor {

namespace {

// Half of the last decimal that a length or speed is written with.
constexpr double kLastDecimal = 0.005;
// Lines between two words on the progress.
constexpr int kLinesBetween = 4096;
// What the winding may take more than is announced, or less.
constexpr double kTooMuch = 1.25, kTooLittle = 4;
// Announced are whole minutes.
constexpr double kLeastSeconds = 60;
// Of the rasters of all layers. A program of more layers than any machine winds gets coarser ones.
constexpr int kRowsInAll = 32 * kMostRows;

// What is wrong with the line, and what its command is for.
std::string Unreadable(const Line& line) {
  constexpr std::size_t kShown = 60;
  std::string text = "Cannot read \"" + std::string(line.text.substr(0, kShown)) +
                     (line.text.size() > kShown ? "..." : "") + "\": " + line.trouble + '.';
  const std::string_view word = line.text.substr(0, line.text.find_first_of(" \t["));
  for (const Form& form : Forms())
    if (form.word == word) text += ' ' + std::string(word) + ": " + std::string(form.sentence);
  return text;
}

class Prover {
 public:
  Prover(const Limits& limits, const std::stop_token& stop, Progress* progress)
      : limits_(limits), stop_(stop), progress_(progress), machine_(DriveOf(limits)) {}

  Proof Run(std::string_view program);

 private:
  void Tell(std::size_t done, std::size_t all) {
    if (progress_ != nullptr) progress_->Tell(done, all);
  }
  void TakeLine(const Line& line);
  void TakeStatement(const Line& line);
  void TakeTrouble(const Line& line, Trouble trouble);
  void WatchLimits(const Line& line);
  void WatchTravel(int line, double z);
  void WatchHead(int line, double y);
  void WatchSpeed(Kind kind, const Line& line, char letter, double limit, std::string_view what,
                  std::string_view unit);
  void JudgeEnd(bool brokenLine);
  void JudgeLayers();
  void JudgeTime();
  void Widen(std::string_view program);
  void WidenBy(const Rerun& run, const Drive& drive);
  void TakeTwofold(const Line& line, const Motion& motion);
  void TellAxes();

  int LayerNow() const { return winding_.OpenLayer() == nullptr ? 0 : winding_.OpenLayer()->number; }
  Place PlaceNow() const {
    const Layer* layer = winding_.OpenLayer();
    return {LayerNow(), winding_.stage(), layer != nullptr && !layer->strokes.empty()};
  }
  std::string Stage() const { return PlaceNow().InBrackets(); }
  std::string_view Unit() const { return machine_.Millimetres() ? "mm" : "in"; }

  Limits limits_;
  const std::stop_token& stop_;
  Progress* progress_;
  Machine machine_;
  Winding winding_;
  Proof proof_;
  Readiness readiness_{proof_.findings};
  std::map<Kind, double> most_;  // the fastest of each axis
  // Of each layer, how many dwells and swings may be read either way, and the first one's line.
  struct Twofold {
    int dwells = 0, swings = 0, line = 0;
  };
  std::map<std::size_t, Twofold> twofold_;
  bool ended_ = false, buildTime_ = false;
  int firstLine_ = 0, lastLine_ = 0;
  std::string_view lastText_;
  Command last_ = Command::Absolute;
};

Proof Prover::Run(std::string_view program) {
  Reader reader(program);
  Line line;
  while (!stop_.stop_requested() && reader.Next(line)) {
    TakeLine(line);
    if (line.number % kLinesBetween == 0) Tell(program.size() - reader.Left(), 2 * program.size());
  }
  proof_.millimetres = machine_.Millimetres();
  if (!proof_.anyStatement) return std::move(proof_);
  const bool broken = !program.empty() && program.back() != '\n' && !line.comment.empty() &&
                      line.comment.find(']') == std::string_view::npos;
  if (!readiness_.AnythingMoved())
    proof_.findings.Add(Kind::NothingMoves, firstLine_, 0,
                        "Nothing in this file moves the machine: it is hardly a program.");
  JudgeEnd(broken);
  JudgeLayers();
  if (stop_.stop_requested()) return std::move(proof_);
  JudgeTime();
  Widen(program);
  TellAxes();
  for (LayerFigures& layer : proof_.layers) layer.stands = proof_.findings.WorstOf(layer.number);
  return std::move(proof_);
}

void Prover::TakeLine(const Line& line) {
  if (!line.comment.empty() && line.kind == Line::Kind::Blank) winding_.TakeComment(line.comment);
  if (line.kind != Line::Kind::Unreadable) WatchBytes(line, proof_.findings);
  if (line.kind == Line::Kind::Blank) return;
  if (ended_) {
    proof_.findings.Add(Kind::BehindEnd, line.number, 0,
                        "This line stands behind the end of the run and is never reached.");
    return;
  }
  if (line.kind == Line::Kind::Unreadable) {
    proof_.findings.Add(Kind::Unreadable, line.number, 0, Unreadable(line));
    return;
  }
  TakeStatement(line);
}

void Prover::TakeStatement(const Line& line) {
  if (!proof_.anyStatement) firstLine_ = line.number;
  proof_.anyStatement = true;
  ++proof_.statements;
  last_ = line.statement.command;
  lastLine_ = line.number;
  lastText_ = line.text;
  const Words& words = line.statement.words;
  ended_ = EndsRun(line.statement, winding_.stage());
  switch (last_) {
    case Command::Wait:
      ++proof_.waits;
      break;
    case Command::BuildTime:
      buildTime_ = true;
      proof_.announcedSeconds = words.At('H') * 3600 + words.At('M') * 60 + words.At('S');
      break;
    case Command::Endless:
      proof_.endless = true;
      WatchTravel(line.number, words.At('Z'));
      WatchTravel(line.number, line.statement.secondZ);
      if (!machine_.Turning())
        proof_.findings.Add(Kind::Standstill, line.number, 0,
                            "The carriage runs to and fro without end while the mandrel stands.");
      break;
    default:
      break;
  }
  const Position before = machine_.At();
  const Motion motion = machine_.Run(line.statement);
  for (std::size_t i = 0; i < motion.count; ++i) proof_.seconds += motion.segments[i].seconds;
  winding_.Take(line, motion, machine_, before);
  if (motion.justReached || motion.slowSwing) TakeTwofold(line, motion);
  readiness_.Take(line, motion, PlaceNow());
  WatchSense(line, motion, PlaceNow(), machine_, limits_, proof_.findings);
  TakeTrouble(line, motion.trouble);
  WatchLimits(line);
}

void Prover::TakeTrouble(const Line& line, Trouble trouble) {
  const char* text = nullptr;
  switch (trouble) {
    case Trouble::None:
      return;
    case Trouble::CarriageStands:
      text = "The carriage is sent on without a speed and never arrives.";
      break;
    case Trouble::MandrelStands:
      text = "A turn of the mandrel is waited for while it stands.";
      break;
    case Trouble::RegisterEmpty:
      text = "The mandrel is to go by an angle that has not been saved.";
      break;
  }
  proof_.findings.Add(Kind::Standstill, line.number, LayerNow(), text);
}

void Prover::WatchTravel(int line, double z) {
  if (!proof_.carriageMoved) proof_.lowestZ = proof_.highestZ = z;
  proof_.carriageMoved = true;
  proof_.lowestZ = std::min(proof_.lowestZ, z);
  proof_.highestZ = std::max(proof_.highestZ, z);
  if (limits_.carriageTravel <= 0) return;
  const double low = machine_.HomeZ(), high = low + limits_.carriageTravel * machine_.UnitsPerInch();
  if (z >= low - kLastDecimal && z <= high + kLastDecimal) return;
  proof_.findings.Add(Kind::Travel, line, LayerNow(),
                      "The carriage is sent to Z=" + Fixed(z, 2) + ", outside its travel from Z=" +
                          Fixed(low, 2) + " (its limit switch) to Z=" + Fixed(high, 2) + Stage() + ".");
}

void Prover::WatchHead(int line, double y) {
  const double out = limits_.headRetracted * machine_.UnitsPerInch();
  if (y < -kLastDecimal) {
    proof_.findings.Add(
        Kind::HeadTravel, line, LayerNow(),
        "The delivery head is sent to Y=" + Fixed(y, 2) + ", past the mandrel's axis" + Stage() + '.');
  } else if (limits_.headRetracted > 0 && y > out + kLastDecimal) {
    proof_.findings.Add(Kind::HeadTravel, line, LayerNow(),
                        "The delivery head is sent to Y=" + Fixed(y, 2) + "; fully retracted it stands " +
                            Fixed(out, 2) + ' ' + std::string(Unit()) + " from the mandrel's axis" + Stage() +
                            '.');
  }
}

void Prover::WatchSpeed(Kind kind, const Line& line, char letter, double limit, std::string_view what,
                        std::string_view unit) {
  const double speed = std::abs(line.statement.words.At(letter));
  double& most = most_[kind];
  most = std::max(most, speed);
  if (limit <= 0 || speed <= limit + kLastDecimal) return;
  proof_.findings.Add(kind, line.number, LayerNow(),
                      std::string(what) + " is to run at " + Fixed(speed, 2) + ' ' + std::string(unit) +
                          "; it does no more than " + Fixed(limit, 2) + Stage() + '.');
}

void Prover::WatchLimits(const Line& line) {
  const std::string perSecond = std::string(Unit()) + "/s";
  switch (line.statement.command) {
    case Command::Move:
    case Command::Ellipse:
    case Command::Withdraw:
      if (line.statement.words.Has('Z')) WatchTravel(line.number, line.statement.words.At('Z'));
      if (line.statement.words.Has('Y')) WatchHead(line.number, line.statement.words.At('Y'));
      break;
    case Command::Turn:
    case Command::Home:
      break;
    default:
      return;
  }
  WatchSpeed(Kind::CarriageSpeed, line, 'F', limits_.carriageSpeed * machine_.UnitsPerInch(), "The carriage",
             perSecond);
  WatchSpeed(Kind::HeadSpeed, line, 'E', limits_.headSpeed * machine_.UnitsPerInch(), "The delivery head",
             perSecond);
  WatchSpeed(Kind::MandrelSpeed, line, 'S', limits_.mandrelSpeed, "The mandrel", "revolutions a minute");
}

// A program ends by X99, in an endless heat gun run, by stopping the mandrel or, behind heat shrink tape, by
// telling that there is no heat gun.
void Prover::JudgeEnd(bool brokenLine) {
  const bool tape = winding_.stage() == "Heat Shrink Tape", gun = winding_.stage() == "Heat Gun Curing";
  const bool done = ended_ || (!gun && !tape && last_ == Command::Stop);
  if (done && !winding_.ScheduleOpen() && !brokenLine) return;
  std::string text = "The program breaks off behind \"" + std::string(lastText_.substr(0, 60)) + '"';
  text += winding_.ScheduleOpen() ? ": the winding has begun and its end is not told."
          : machine_.Turning()    ? ": the mandrel is left turning."
                                  : ": no ending follows.";
  proof_.findings.Add(Kind::BreaksOff, lastLine_, 0, text);
}

void Prover::JudgeLayers() {
  proof_.spoolLength = limits_.spoolLength * 12 * machine_.UnitsPerInch();
  proof_.spools = Spools(proof_.spoolLength);
  std::set<int> seen;
  const auto layers = static_cast<int>(std::min<std::size_t>(winding_.layers().size(), kRowsInAll));
  const int rows = std::clamp(kRowsInAll / std::max(1, layers), kFewestRows, kMostRows);
  for (const Layer& layer : winding_.layers()) {
    if (stop_.stop_requested()) return;
    // The reading was one half.
    Tell(winding_.layers().size() + proof_.layers.size(), 2 * winding_.layers().size());
    if (!seen.insert(layer.number).second)
      proof_.findings.Add(Kind::Passes, layer.line, layer.number,
                          "layer " + std::to_string(layer.number) + " is announced a second time.");
    proof_.layers.push_back(ProveLayer(layer, winding_.comments(), limits_, machine_.UnitsPerInch(), rows,
                                       proof_.findings, stop_));
    const LayerFigures& figures = proof_.layers.back();
    proof_.filament += figures.filament;
    proof_.mass.known = figures.mass.known && (proof_.layers.size() == 1 || proof_.mass.known);
    proof_.mass.fibre += figures.mass.fibre;
    proof_.mass.resin += figures.mass.resin;
    proof_.windingSeconds += figures.seconds;
    ForEachTow(layer, MandrelOf(layer, winding_.comments()), stop_,
               [&](const TowPiece& piece) { proof_.spools.Take(layer, piece); });
  }
  const int before = std::max(0, winding_.comments().restartLayer - 1);
  if (static_cast<double>(seen.size()) + before < winding_.AnnouncedLayers())
    proof_.findings.Add(Kind::Passes, winding_.layers().back().line, 0,
                        Fixed(winding_.AnnouncedLayers(), 0) + " layers are announced and " +
                            Counted(static_cast<long long>(seen.size()), "is", "are") + " there.");
  if (winding_.layers().empty() && winding_.StrayMoves() == 0 && winding_.ScheduleLine() != 0)
    proof_.findings.Add(Kind::Passes, winding_.ScheduleLine(), 0,
                        "The winding begins here and has no layer: nothing is wound.");
  if (winding_.StrayMoves() > 0)
    proof_.findings.Add(Kind::Passes, winding_.StrayLine(), 0,
                        Counted(winding_.StrayMoves(), "traverse", "traverses") +
                            " of the winding stand under no announced pass.");
}

// The announcement is an estimate of the layers alone: for each end of a pass it takes half a turn, where the
// dwells come to none or, with an angle added, to two.
void Prover::JudgeTime() {
  const double announced = proof_.announcedSeconds, run = proof_.windingSeconds;
  // What is announced is the time of the whole winding.
  if (winding_.comments().restartLayer > 0) return;
  if (!buildTime_ || run <= 0 || std::abs(run - announced) < kLeastSeconds) return;
  if (run < kTooMuch * announced && announced <= kTooLittle * run) return;
  proof_.findings.Add(Kind::Time, 0, 0,
                      "The winding takes " + Fixed(run / 60, 1) + " minutes where " +
                          Fixed(announced / 60, 0) + " are announced.");
}

void Prover::TakeTwofold(const Line& line, const Motion& motion) {
  if (winding_.OpenLayer() == nullptr) return;
  Twofold& twofold = twofold_[winding_.layers().size() - 1];
  if (twofold.line == 0) twofold.line = line.number;
  ++(motion.slowSwing ? twofold.swings : twofold.dwells);
}

void Take(Range& range, double value) {
  range.low = std::min(range.low, value);
  range.high = std::max(range.high, value);
}

// Runs the program again as a machine does that takes its time to gain speed, and as controllers do that read
// a dwell the one way and the other.
void Prover::Widen(std::string_view program) {
  proof_.run = {proof_.seconds, proof_.seconds};
  proof_.winding = {proof_.windingSeconds, proof_.windingSeconds};
  proof_.tow = {proof_.filament, proof_.filament};
  for (std::size_t i = 0; i < proof_.layers.size(); ++i) {
    LayerFigures& layer = proof_.layers[i];
    layer.time = {layer.seconds, layer.seconds};
    layer.tow = {layer.filament, layer.filament};
    layer.covered = {layer.coveredShare, layer.coveredShare};
    if (const auto twofold = twofold_.find(i); twofold != twofold_.end()) {
      layer.twofoldDwells = twofold->second.dwells;
      layer.twofoldSwings = twofold->second.swings;
      layer.twofoldLine = twofold->second.line;
    }
  }
  const Drive even = DriveOf(limits_), slow = AcceleratingDriveOf(limits_);
  proof_.accelerates = slow.Accelerates();
  const auto again = [&](Drive drive, Drive::Reading reading) {
    drive.reading = reading;
    if (!stop_.stop_requested()) WidenBy(RunBy(program, drive, stop_), drive);
  };
  if (proof_.accelerates) again(slow, Drive::Reading::Exact);
  if (twofold_.empty()) return;
  for (const Drive::Reading reading : {Drive::Reading::Early, Drive::Reading::Late}) {
    again(even, reading);
    if (proof_.accelerates) again(slow, reading);
  }
}

void Prover::WidenBy(const Rerun& run, const Drive& drive) {
  if (run.winding.layers().size() != proof_.layers.size()) return;
  double seconds = 0, tow = 0;
  for (std::size_t i = 0; i < proof_.layers.size(); ++i) {
    const Layer& layer = run.winding.layers()[i];
    LayerFigures& figures = proof_.layers[i];
    double layerTow = 0;
    const Mandrel mandrel = MandrelOf(layer, run.winding.comments());
    ForEachTow(layer, mandrel, stop_, [&](const TowPiece& piece) { layerTow += piece.length; });
    Take(figures.time, layer.seconds + layer.secondsBehind);
    Take(figures.tow, layerTow);
    seconds += layer.seconds + layer.secondsBehind;
    tow += layerTow;
    if (drive.reading == Drive::Reading::Exact) {
      const auto slowest = std::max_element(layer.lost.begin(), layer.lost.end());
      figures.slowed = *slowest > 0;
      figures.slowest = static_cast<DrivenAxis>(slowest - layer.lost.begin());
    } else if (drive.reading == Drive::Reading::Late && figures.twofoldDwells > 0 && figures.judged &&
               !drive.Accelerates()) {
      Take(figures.covered, CoveredShare(layer, mandrel, figures.zLow, figures.zHigh, figures.rows, stop_));
    }
  }
  Take(proof_.run, run.seconds);
  Take(proof_.winding, seconds);
  Take(proof_.tow, tow);
}

// What the machine does not have is not told of.
void Prover::TellAxes() {
  const double unit = machine_.UnitsPerInch();
  if (proof_.carriageMoved)
    proof_.axes.push_back(
        {"carriage travel", proof_.highestZ - machine_.HomeZ(), limits_.carriageTravel * unit});
  for (const auto& [kind, what, limit] :
       {std::tuple(Kind::CarriageSpeed, "carriage speed", limits_.carriageSpeed * unit),
        {Kind::MandrelSpeed, "mandrel speed", limits_.mandrelSpeed},
        {Kind::HeadSpeed, "head speed", limits_.headSpeed * unit}})
    if (most_[kind] > 0) proof_.axes.push_back({what, most_[kind], limit});
}

}  // namespace

void JudgeTow(Proof& proof, double announced) {
  proof.announcedTow = announced;
  if (!(announced > 0) || proof.filament < kTooMuch * announced) return;
  proof.findings.Add(Kind::Tow, 0, 0,
                     "The winding takes " + FilamentText(proof.filament, proof.millimetres) +
                         " of tow where " + FilamentText(announced, proof.millimetres) + " are announced.");
}

Proof Prove(std::string_view program, const Limits& limits, const std::stop_token& stop, Progress* progress) {
  return Prover(limits, stop, progress).Run(program);
}

}  // namespace torvane::executor
