#include "workbench/station/station.h"

#include <algorithm>

#include "design/catalogue.h"
#include "workbench/station/all_rows.h"
#include "workbench/station/end_view.h"
#include "workbench/station/recovery.h"

namespace torvane {

namespace {

NumberSigns SignsOf(const Locale& locale) {
  const LocaleSigns signs = locale.Signs();
  return {signs.decimal, signs.date, signs.time};
}

Platform WithStore(const Platform& computer, SettingsStore& store) {
  return {store,
          computer.clock,
          computer.locale,
          computer.files,
          computer.messageDialog,
          computer.messageBox,
          computer.fileDialog,
          computer.launcher};
}

constexpr auto kStartGuard = std::chrono::seconds(5);

// A change of every figure of 15 rows sets off fewer changes inside each other than this. What is deeper is
// an echo that would not come to rest: its text stands and sets off nothing more.
constexpr int kDeepestEcho = 100;

struct NamedTimer {
  std::string_view name;
  Timer Station::*timer;
};
constexpr NamedTimer kTimers[] = {
    {"tmrBlink", &Station::tmrBlink},         {"tmrSplash", &Station::tmrSplash},
    {"tmrStartDraw", &Station::tmrStartDraw}, {"tmrDraw", &Station::tmrDraw},
    {"tmrOffer", &Station::tmrOffer},         {"tmrRecovery", &Station::tmrRecovery},
    {"tmrStore", &Station::tmrStore}};

}  // namespace

void SetDirty(Station& station, int) { station.s.gDirty = true; }

Station::Station(const Platform& platform_)
    : s(SignsOf(platform_.locale)),
      keptStore(platform_.store),
      platform(WithStore(platform_, keptStore)),
      changes_(Catalogue().size()) {
  s.operations = this;
}

void Station::Add(std::span<const Operation> operations) {
  for (const Operation& operation : operations)
    operations_[{operation.control, operation.event}] = &operation;
  for (std::size_t i = 0; i < changes_.size(); ++i) {
    const auto found = operations_.find({Catalogue()[i].name, Event::Change});
    changes_[i] = found == operations_.end() ? nullptr : found->second;
  }
}

CommandWords Station::WordsOf(std::string_view control) const {
  const auto found = operations_.find({control, Event::Click});
  CommandWords words = found == operations_.end() ? CommandWords{} : found->second->words;
  if (const Field* field = torvane::FindField(s, control); field != nullptr) {
    if (words.caption.empty()) words.caption = field->caption();
    if (words.sentence.empty()) words.sentence = torvane::WordsOf(*field).sentence;
  }
  return words;
}

bool Station::IsUsable(std::string_view control) const {
  const auto found = operations_.find({control, Event::Click});
  return found != operations_.end() &&
         (found->second->words.usable == nullptr || found->second->words.usable(*this));
}

template <class Doing>
auto Station::Remembered(const Field* typed, Doing doing) {
  struct Depth {
    explicit Depth(int& depth) : depth_(depth) { ++depth_; }
    ~Depth() { --depth_; }
    int& depth_;
  };
  const Depth depth(operation_);
  if (operation_ > 1) return doing();
  Snapshot before = s.TakeSnapshot();
  const std::size_t history = history_;
  const auto result = doing();
  const bool changed = history != history_ || Remember(std::move(before), typed);
  FollowWithRecovery(*this, changed);
  TellOfStore();
  return result;
}

bool Station::Remember(Snapshot before, const Field* typed) {
  constexpr std::size_t kLongestHistory = 100;
  if (s.HasTextsOf(before)) return false;
  const bool goesOn = typed != nullptr && typed == lastTyped_ && !undo_.empty();
  lastTyped_ = typed;
  redo_.clear();
  if (goesOn) return true;
  if (undo_.size() == kLongestHistory) undo_.erase(undo_.begin());
  undo_.push_back(std::move(before));
  return true;
}

void Station::ForgetHistory() {
  undo_.clear();
  redo_.clear();
  lastTyped_ = nullptr;
  ++history_;
}

bool Station::Undo() { return GoBack(undo_, redo_); }

bool Station::Redo() { return GoBack(redo_, undo_); }

bool Station::GoBack(std::vector<Snapshot>& from, std::vector<Snapshot>& to) {
  if (from.empty()) return false;
  to.push_back(s.TakeSnapshot());
  s.Restore(from.back());
  from.pop_back();
  ShowAllRowsFields(s, allRowsShown);
  DropStaleEndView(*this);
  lastTyped_ = nullptr;
  ++history_;  // going back is no operation to remember
  s.gDirty = true;
  return true;
}

void Station::Type(Field& field, std::string_view text) {
  if (field.row().kind == Kind::Check || field.row().kind == Kind::Option) return;
  Remembered(&field, [&] {
    lastKey = text.empty() ? '\0' : text.back();
    RunFor(field, Event::Typing);
    field = text;
    RunFor(field, Event::Key);
    return true;
  });
}

void Station::BeginTyping() {
  lastTyped_ = nullptr;
  dirtyBeforeTyping_ = s.gDirty;
}

void Station::DropTyping(const Field& field) {
  if (lastTyped_ != &field || undo_.empty()) return;
  Remembered(nullptr, [&] {
    std::vector<Snapshot> dropped;
    GoBack(undo_, dropped);
    s.gDirty = dirtyBeforeTyping_;
    return true;
  });
}

void Station::Choose(Field& field, std::string_view text) {
  Remembered(nullptr, [&] {
    field = text;
    RunFor(field, Event::Click);
    return true;
  });
}

void Station::Check(Field& field, bool on) {
  if (field.row().kind == Kind::Option)
    Choose(field, on ? "True" : "False");
  else
    Choose(field, on ? "1" : "0");
}

void Station::RunFor(const Field& field, Event event) {
  for (const auto& window : windows)
    if (window->Owns(field)) {
      window->Run(field.row().name, event, field.index());
      return;
    }
  RunHere(field.row().name, event, field.index());
}

bool Station::Run(std::string_view control, Event event, int index) {
  return Remembered(nullptr, [&] { return RunAnywhere(control, event, index); });
}

bool Station::RunIn(Window& window, std::string_view control, Event event, int index) {
  return Remembered(nullptr, [&] {
    const bool open = std::any_of(windows.begin(), windows.end(),
                                  [&window](const auto& each) { return each.get() == &window; });
    return (open && window.Run(control, event, index)) || RunAnywhere(control, event, index);
  });
}

void Station::ReleaseKey(const Field& field) {
  Remembered(nullptr, [&] {
    RunFor(field, Event::IdleKey);
    return true;
  });
}

bool Station::RunAnywhere(std::string_view control, Event event, int index) {
  // A window may close itself in answer, so the search ends with the one that answers.
  for (auto window = windows.rbegin(); window != windows.rend(); ++window)
    if ((*window)->Run(control, event, index)) return true;
  return RunHere(control, event, index);
}

bool Station::RunHere(std::string_view control, Event event, int index) {
  const auto found = operations_.find({control, event});
  if (found == operations_.end()) return false;
  found->second->run(*this, index);
  return true;
}

Window* Station::OpenWindow(std::string_view name) const {
  for (const auto& window : windows)
    if (window->name() == name) return window.get();
  return nullptr;
}

void Station::Close(Window& window) {
  window.Closing();
  if (windowCloses) windowCloses(window);
  std::erase_if(windows, [&window](const auto& open) { return open.get() == &window; });
}

Field* Station::FindField(std::string_view name) {
  for (auto window = windows.rbegin(); window != windows.rend(); ++window)
    if (Field* field = (*window)->Find(name)) return field;
  return torvane::FindField(s, name);
}

NamedValue Station::FindValue(std::string_view name) const {
  const auto flag = [](bool value) { return NamedValue{true, value ? "True" : "False"}; };
  if (name == "gWrapValuesAccepted") return flag(gWrapValuesAccepted);
  if (name == "gSlamMessageShown") return flag(gSlamMessageShown);
  if (name == "FirstRunOrUpgrade") return flag(FirstRunOrUpgrade);
  return torvane::FindValue(s, name);
}

bool Station::StartGuardPassed() const { return platform.clock.Now() - started > kStartGuard; }

void Station::StartTimer(Timer& timer) {
  timer.due = platform.clock.Now() + timer.interval;
  if (timerStarts) timerStarts();
}

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
    RunAnywhere(named.name, Event::Tick, 0);
  }
  TellOfStore();
}

void Station::TellOfStore() {
  const auto reason = keptStore.TakeRefusal();
  if (!reason) return;
  const char* const what =
      keptStore.LeftAlone()
          ? "The station has started with the defaults: limits and calibration may not be those of\r\n"
            "your machine. What you choose holds until you close it, and the settings stay as they\r\n"
            "are. Have them mended, then start it again."
      : ended ? "What you chose since the start is not kept."
              : "You can go on. What you choose holds until you close the "
                "station, and each\r\nfurther choice tries to store it again.";
  platform.messageBox.Show("Torvane Designer", *reason + "\r\n\r\n" + what, BoxIcon::Stop);
}

void Station::Changed(const Field& field) {
  const auto place = static_cast<std::size_t>(&field.row() - Catalogue().data());
  if (changes_[place] == nullptr) return;
  if (depth_ >= kDeepestEcho) {
    ++cutEchoes;
    return;
  }
  ++depth_;
  changes_[place]->run(*this, field.index());
  --depth_;
}

}  // namespace torvane
