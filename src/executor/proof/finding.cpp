#include "executor/proof/finding.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace torvane::executor {

namespace {

struct KindRow {
  Kind kind;
  Level level;
  std::string_view name;
};

constexpr KindRow kKinds[] = {
    {Kind::Unreadable, Level::Fault, "unreadable"},
    {Kind::Travel, Level::Fault, "travel"},
    {Kind::CarriageSpeed, Level::Fault, "carriage-speed"},
    {Kind::MandrelSpeed, Level::Fault, "mandrel-speed"},
    {Kind::HeadSpeed, Level::Fault, "head-speed"},
    {Kind::HeadTravel, Level::Fault, "head-travel"},
    {Kind::HeadStrikes, Level::Fault, "head-strikes"},
    {Kind::Standstill, Level::Fault, "standstill"},
    {Kind::Passes, Level::Fault, "passes"},
    {Kind::BreaksOff, Level::Fault, "breaks-off"},
    {Kind::BandAside, Level::Fault, "band-aside"},
    {Kind::Open, Level::Fault, "open"},
    {Kind::BareStrips, Level::Fault, "bare-strips"},
    {Kind::RoundedStrips, Level::Fault, "rounded-strips"},
    {Kind::ShiftEnds, Level::Fault, "shift-ends"},
    {Kind::RunningAngle, Level::Fault, "running-angle"},
    {Kind::Units, Level::Fault, "units"},
    {Kind::NumberForm, Level::Fault, "number-form"},
    {Kind::Identity, Level::Fault, "identity"},
    {Kind::MotorsOff, Level::Fault, "motors-off"},
    {Kind::NotHomed, Level::Fault, "not-homed"},
    {Kind::NoWait, Level::Fault, "no-wait"},
    {Kind::NegativeSpeed, Level::Fault, "negative-speed"},
    {Kind::Acceleration, Level::Fault, "acceleration"},
    {Kind::LongTurn, Level::Fault, "long-turn"},
    {Kind::StopsShort, Level::Fault, "stops-short"},
    {Kind::NoPattern, Level::Fault, "no-pattern"},
    {Kind::NoBand, Level::Fault, "no-band"},
    {Kind::ControlBytes, Level::Fault, "control-bytes"},
    {Kind::BehindEnd, Level::Fault, "behind-end"},
    {Kind::NothingMoves, Level::Fault, "nothing-moves"},
    {Kind::WrongAngle, Level::Fault, "wrong-angle"},
    {Kind::OtherSpeed, Level::Fault, "other-speed"},
    {Kind::StaleRegister, Level::Fault, "stale-register"},
    {Kind::OtherBand, Level::Fault, "other-band"},
    {Kind::Time, Level::Note, "time"},
    {Kind::Tow, Level::Note, "tow"},
    {Kind::AngleOff, Level::Note, "angle-off"},
    {Kind::FewPasses, Level::Note, "few-passes"},
    {Kind::HoopDwell, Level::Note, "hoop-dwell"},
    {Kind::Rounding, Level::Note, "rounding"},
    {Kind::FirstTraverse, Level::Note, "first-traverse"},
    {Kind::Unknown, Level::Note, "unknown"},
    {Kind::PreWrapStarts, Level::Note, "pre-wrap-starts"},
};
// A row for each kind, where its number says.
static_assert([] {
  std::size_t place = 0;
  for (const KindRow& row : kKinds)
    if (row.kind != static_cast<Kind>(place++)) return false;
  return place == static_cast<std::size_t>(Kind::PreWrapStarts) + 1;
}());

const KindRow& RowOf(Kind kind) {
  const KindRow& row = kKinds[static_cast<std::size_t>(kind)];
  return row;
}

}  // namespace

std::string_view NameOf(Kind kind) { return RowOf(kind).name; }
Level LevelOf(Kind kind) { return RowOf(kind).level; }

std::string_view NameOf(Level level) {
  return level == Level::Ok ? "ok" : level == Level::Note ? "note" : "fault";
}

void Findings::Add(Kind kind, int line, int layer, std::string text) {
  Level& worst = worst_[layer];
  worst = std::max(worst, LevelOf(kind));
  Kept& kept = kept_[{kind, layer}];
  if (kept.count == (kind == Kind::Unreadable ? 20 : 1)) {
    ++all_[kept.last].alike;
    return;
  }
  ++kept.count;
  kept.last = all_.size();
  all_.push_back({kind, line, layer, std::move(text), 0});
}

int Findings::Count(Level level) const {
  return static_cast<int>(
      std::count_if(all_.begin(), all_.end(), [&](const Finding& f) { return LevelOf(f.kind) == level; }));
}

Level Findings::WorstOf(int layer) const {
  const auto worst = worst_.find(layer);
  return worst == worst_.end() ? Level::Ok : worst->second;
}

}  // namespace torvane::executor
