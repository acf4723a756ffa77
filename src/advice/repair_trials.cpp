#include "advice/repair_trials.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "executor/program/number.h"
#include "handoff/launch.h"
#include "stage/stage.h"
#include "workbench/build/build_outlook.h"
#include "workbench/build/marks.h"
#include "workbench/document/design_commands.h"

namespace torvane {

namespace {

using executor::Level;

// A program that takes longer to prove is not proven again for each thing that might mend it.
constexpr int kMostStatements = 200'000;
constexpr double kLeastSeconds = 3;  // that are worth telling

Platform With(Stage& stage, SettingsStore& store) {
  return {store,
          stage.clock,
          stage.locale,
          stage.files,
          stage.messageDialog,
          stage.messageBox,
          stage.fileDialog,
          stage.launcher};
}

std::string Become(int before, int after, const std::string& what) {
  return std::to_string(before) + " " + what + (before == 1 ? " becomes " : "s become ") +
         (after == 0 ? "none" : std::to_string(after));
}

std::string WordsOf(const Repair& repair, const executor::Proof& before, const executor::Proof& after) {
  const auto count = [](const executor::Proof& proof, Level level) { return proof.findings.Count(level); };
  std::string words;
  for (const auto& [level, what] : {std::pair(Level::Fault, "fault"), {Level::Note, "note"}})
    if (const int former = count(before, level), now = count(after, level); words.empty() && former != now)
      words = Become(former, now, what);
  const double less = before.windingSeconds - after.windingSeconds;
  if (before.windingSeconds > 0 && std::abs(less) >= kLeastSeconds)
    words += (words.empty() ? "" : ", and ") + executor::Fixed(std::abs(less) / 60, 1) + " min " +
             (less > 0 ? "less" : "more");
  return words.empty() ? words : repair.done + ": " + words + ".";
}

// Whether what the repair is for is still there.
bool Stands(const Advice& advice, const Station& station, const LiveResult& result) {
  const auto& remarks = result.remarks;
  if (advice.kind)
    return std::any_of(remarks.begin(), remarks.end(), [&advice](const executor::Remark& remark) {
      return remark.kind == advice.kind &&
             (advice.layers == 0 || (advice.layers & LayerBit(remark.layer)) != 0);
    });
  if (advice.mark != Mark::Plain) {
    const auto marked = MarkedFields(station.s);
    return std::any_of(marked.begin(), marked.end(), [&advice](const Field* field) {
      return &field->row() == &advice.field->row() && field->index() == advice.field->index();
    });
  }
  const std::vector<BuildWarning> warnings = BuildWarnings(station);
  return std::any_of(warnings.begin(), warnings.end(), [&advice](const BuildWarning& warning) {
    return warning.concern == advice.concern && LayerBit(warning.layer) == advice.layers;
  });
}

}  // namespace

// A station beside the operator's: it reads the same settings, and writes to memory.
struct RepairTrials::Bench {
  explicit Bench(const Station& real) : store(real.platform.store), station(Signed(real)) {
    station.Add(RepairOperations());
  }

  Platform Signed(const Station& real) {
    stage.locale.signs = real.platform.locale.Signs();
    stage.files.MakeFolder(Designs());
    stage.files.MakeFolder(stage.files.ProgramFolder() + std::string(kProgramFolder));
    return With(stage, store);
  }
  std::string Designs() const { return stage.files.ProgramFolder() + std::string(kDesignFolder); }

  // The design as the operator has it, under its name or another.
  void Take(const Station& real) {
    station.s.TakeFrom(real.s);
    if (station.s.gFileName.empty()) station.s.gFileName = "New design.t2d";
    station.s.gFilePath = Designs() + "\\" + station.s.gFileName.text();
    station.gWrapValuesAccepted = real.gWrapValuesAccepted;
  }

  Stage stage;
  OverlayStore store;
  WholeStation station;
};

RepairTrials::RepairTrials(const Station& station, std::function<void()> done)
    : station_(station), proof_(station.s.signs, std::move(done)) {}

RepairTrials::~RepairTrials() = default;

void RepairTrials::Begin(std::shared_ptr<const LiveResult> result, const ProgramPlace& place,
                         const executor::Limits& limits) {
  before_ = std::move(result);
  place_ = place;
  limits_ = limits;
  tried_.clear();
  next_ = 0;
  if (before_ == nullptr || before_->proof.statements > kMostStatements) return;
  for (const Advice& advice : AdviceOf(station_, before_.get()))
    for (const Repair& repair : advice.repairs)
      if (!repair.asks) {
        tried_.push_back({advice, false, {}});
        tried_.back().advice.repairs = {repair};
      }
  Start();
}

void RepairTrials::Start() {
  for (; Trying(); ++next_) {
    Trial& trial = tried_[next_];
    if (bench_ == nullptr) bench_ = std::make_unique<Bench>(station_);
    bench_->Take(station_);
    const Repair& repair = trial.advice.repairs.front();
    bench_->station.Run(repair.control, Event::Click, repair.index);
    proof_.Ask(bench_->station.s, place_, limits_);
    if (proof_.Proving()) return;
    // The same design as the one proven last.
    if (const auto after = proof_.Result()) Note(trial, *after);
  }
}

void RepairTrials::Note(Trial& trial, const LiveResult& after) const {
  const auto faults = [](const LiveResult& result) { return result.proof.findings.Count(Level::Fault); };
  trial.through = true;
  trial.outcome.helps = (after.formed || !before_->formed) && !Stands(trial.advice, bench_->station, after) &&
                        faults(after) <= faults(*before_);
  if (trial.outcome.helps)
    trial.outcome.words = WordsOf(trial.advice.repairs.front(), before_->proof, after.proof);
}

void RepairTrials::Take() {
  if (!Trying() || proof_.Proving()) return;
  if (const auto after = proof_.Result()) Note(tried_[next_], *after);
  ++next_;
  Start();
}

const Repair* RepairTrials::OfferOf(const Advice& advice, RepairOutcome& outcome) const {
  outcome = {};
  for (const Repair& repair : advice.repairs) {
    if (repair.asks) return &repair;
    for (const Trial& trial : tried_)
      if (trial.through && trial.outcome.helps && trial.advice.repairs.front() == repair &&
          trial.advice.kind == advice.kind && trial.advice.concern == advice.concern &&
          trial.advice.layers == advice.layers) {
        outcome = trial.outcome;
        return &repair;
      }
  }
  return nullptr;
}

}  // namespace torvane
