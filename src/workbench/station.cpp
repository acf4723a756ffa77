#include "workbench/station.h"

#include "design/catalogue.h"
#include "workbench/captions.h"

namespace torvane {

namespace {

NumberSigns SignsOf(const Locale& locale) {
  const LocaleSigns signs = locale.Signs();
  return {signs.decimal, signs.date, signs.time};
}

constexpr auto kStartGuard = std::chrono::seconds(5);

// A change of every figure of 15 rows sets off fewer changes inside each other than this. What is deeper is
// an echo that would not come to rest: its text stands and sets off nothing more.
constexpr int kDeepestEcho = 100;

struct NamedTimer {
  std::string_view name;
  Timer Station::*timer;
};
constexpr NamedTimer kTimers[] = {{"tmrBlink", &Station::tmrBlink}, {"tmrSplash", &Station::tmrSplash}};

}  // namespace

Station::Station(const Platform& platform_)
    : s(SignsOf(platform_.locale)), platform(platform_), changes_(Catalogue().size()) {
  s.operations = this;
  SetCaptions(s);
  for (const auto& table :
       {TwoAxisGridOperations(), FourAxisGridOperations(), InputCheckOperations(), ChecklistOperations(),
        UnitOperations(), EstimateOperations(), DesignOperations(), WindowOperations()})
    Add(table);
}

void Station::Add(std::span<const Operation> operations) {
  for (const Operation& operation : operations)
    operations_[{operation.control, operation.event}] = &operation;
  for (std::size_t i = 0; i < changes_.size(); ++i) {
    const auto found = operations_.find({Catalogue()[i].name, Event::Change});
    changes_[i] = found == operations_.end() ? nullptr : found->second;
  }
}

void Station::Type(Field& field, std::string_view text) {
  Run(field.row().name, Event::Typing, field.index());
  field = text;
  Run(field.row().name, Event::Key, field.index());
}

void Station::Choose(Field& field, std::string_view text) {
  field = text;
  Run(field.row().name, Event::Click, field.index());
}

bool Station::Run(std::string_view control, Event event, int index) {
  const auto found = operations_.find({control, event});
  if (found == operations_.end()) return false;
  found->second->run(*this, index);
  return true;
}

bool Station::StartGuardPassed() const { return platform.clock.Now() - started > kStartGuard; }

std::optional<Moment> Station::NextTick() const {
  std::optional<Moment> next;
  for (const NamedTimer& named : kTimers) {
    const Timer& timer = this->*named.timer;
    if (timer.due && (!next || *timer.due < *next)) next = timer.due;
  }
  return next;
}

void Station::Tick() {
  const Moment now = platform.clock.Now();
  for (const NamedTimer& named : kTimers) {
    Timer& timer = this->*named.timer;
    if (!timer.due || *timer.due > now) continue;
    StartTimer(timer);
    Run(named.name, Event::Tick);
  }
}

void Station::Changed(const Field& field) {
  const auto place = static_cast<std::size_t>(&field.row() - Catalogue().data());
  if (changes_[place] == nullptr || depth_ >= kDeepestEcho) return;
  ++depth_;
  changes_[place]->run(*this, field.index());
  --depth_;
}

}  // namespace torvane
