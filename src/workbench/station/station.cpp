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

}  // namespace

void SetDirty(Station& station, int) { station.s.gDirty = true; }

Station::Station(const Platform& platform_)
    : s(SignsOf(platform_.locale)),
      keptStore(platform_.store),
      platform(WithStore(platform_, keptStore)),
      timers(platform.clock),
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
  const std::size_t moves = history_.moves();
  const auto result = doing();
  const bool changed = moves != history_.moves() || history_.Remember(s, std::move(before), typed);
  FollowWithRecovery(*this, changed);
  TellOfStore();
  return result;
}

void Station::FollowFormerDesign() {
  ShowAllRowsFields(s, allRowsShown);
  DropStaleEndView(*this);
  s.gDirty = true;
}

bool Station::Undo() {
  if (!history_.GoBack(s)) return false;
  FollowFormerDesign();
  return true;
}

bool Station::Redo() {
  if (!history_.GoForth(s)) return false;
  FollowFormerDesign();
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
  history_.EndTyping();
  dirtyBeforeTyping_ = s.gDirty;
}

void Station::DropTyping(const Field& field) {
  if (!history_.LastTypedIn(field)) return;
  Remembered(nullptr, [&] {
    history_.DropLast(s);
    FollowFormerDesign();
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
  if (Window* const window = windows.OwnerOf(field))
    window->Run(field.row().name, event, field.index());
  else
    RunHere(field.row().name, event, field.index());
}

bool Station::Run(std::string_view control, Event event, int index) {
  return Remembered(nullptr, [&] { return RunAnywhere(control, event, index); });
}

bool Station::RunIn(Window& window, std::string_view control, Event event, int index) {
  return Remembered(nullptr, [&] {
    return (windows.Hold(&window) && window.Run(control, event, index)) || RunAnywhere(control, event, index);
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
  for (std::size_t place = windows.size(); place-- > 0;)
    if (windows[place].Run(control, event, index)) return true;
  return RunHere(control, event, index);
}

bool Station::RunHere(std::string_view control, Event event, int index) {
  const auto found = operations_.find({control, event});
  if (found == operations_.end()) return false;
  found->second->run(*this, index);
  return true;
}

Field* Station::FindField(std::string_view name) {
  for (std::size_t place = windows.size(); place-- > 0;)
    if (Field* field = windows[place].Find(name)) return field;
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

void Station::Tick() {
  const Moment now = platform.clock.Now();
  for (Timer* const timer : timers.All()) {
    if (!timer->due || *timer->due > now) continue;
    timers.Start(*timer);
    RunAnywhere(timer->name, Event::Tick, 0);
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
