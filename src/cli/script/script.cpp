#include "cli/script/script.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <ostream>

#include "advice/repairs.h"
#include "cli/computer/computer.h"
#include "design/catalogue.h"
#include "handoff/launch.h"
#include "text/code_page.h"
#include "text/text.h"
#include "workbench/document/startup.h"
#include "workbench/station/recovery.h"

namespace torvane {

namespace {

enum class Button { Left, Right };

Button ButtonOf(const std::string& word) {
  if (word == "left") return Button::Left;
  if (word == "right") return Button::Right;
  throw ScriptError{"a button is left or right"};
}

}  // namespace

std::string OneLine(std::string_view text) {
  std::string lines;
  for (std::size_t i = 0; i < text.size(); ++i)
    if (text.substr(i, 2) != "\r\n") lines += text[i];
  return Printable(ToUtf8(lines));
}

std::pair<std::string, std::string> Script::FirstWord(const std::string& text) {
  const auto blank = text.find(' ');
  if (blank == std::string::npos) return {text, ""};
  return {text.substr(0, blank), text.substr(blank + 1)};
}

struct Script::Command {
  std::string_view word;
  void (Script::*follow)(const std::string& rest);
};

const Script::Command* Script::Find(std::string_view word) {
  static constexpr Command kCommands[] = {
      {"store", &Script::Store},
      {"locale", &Script::SetLocale},
      {"start", &Script::Start},
      {"type", &Script::Type},
      {"set", &Script::Set},
      {"choose", &Script::Choose},
      {"check", &Script::Check},
      {"click", &Script::Click},
      {"get", &Script::Get},
      {"list", &Script::List},
      {"mark", &Script::ShowMark},
      {"shown", &Script::Shown},
      {"enabled", &Script::Enabled},
      {"caption", &Script::Caption},
      {"tip", &Script::Tip},
      {"bold", &Script::Bold},
      {"answer", &Script::Answer},
      {"file", &Script::File},
      {"wait", &Script::Wait},
      {"setting", &Script::ShowSetting},
      {"cat", &Script::Cat},
      {"nostart", &Script::NoStart},
      {"doubleclick", &Script::DoubleClick},
      {"press", &Script::Press},
      {"release", &Script::Release},
      {"drawing", &Script::Drawing},
      {"focus", &Script::Focus},
      {"quit", &Script::Quit},
      {"undo", &Script::Undo},
      {"redo", &Script::Redo},
      {"warnings", &Script::Warnings},
      {"hint", &Script::Hint},
      {"cancel", &Script::Cancel},
      {"crash", &Script::Crash},
  };
  for (const Command& command : kCommands)
    if (command.word == word) return &command;
  return nullptr;
}

Script::Script(Stage& stage, const Platform& computer, std::ostream& out)
    : stage_(stage), computer_(computer), out_(out) {
  Watch();
}

// The end of a script is no crash.
Script::~Script() {
  if (station_) DropRecovery(*station_);
}

void Script::Watch() {
  stage_.messageDialog.observer = [this](const Message& message) {
    out_ << "message " << message.number << (message.okOnly ? " ok-only" : " yes-no")
         << (message.beep ? " beep" : "") << (message.offer ? " offer" : "") << ": " << OneLine(message.text)
         << "\n";
  };
  stage_.messageBox.observer = [this](const StagedMessageBox::Box& box) {
    out_ << "box " << OneLine(box.title) << ": " << OneLine(box.text) << "\n";
    if (!box.detail.empty()) out_ << "  " << WithoutHome(OneLine(box.detail)) << "\n";
  };
  stage_.fileDialog.observer = [this](const StagedFileDialog::Request& request) {
    out_ << "dialog " << (request.save ? "save " : "open ") << OneLine(request.filter) << "\n";
  };
  stage_.launcher.startObserver = [this](const StagedLauncher::Started& started) {
    if (started.failed) return;
    out_ << "start: " << WithoutHome(started.commandLine) << "\n";
  };
  stage_.launcher.linkObserver = [this](const std::string& url) { out_ << "link " << OneLine(url) << "\n"; };
}

void Script::SkipPrinter::Skipped(const Field& field, std::string_view routine) {
  out_ << "skipped: " << NameOf(field);
  if (!routine.empty()) out_ << " in " << routine;
  out_ << "\n";
}

std::string Script::WithoutHome(std::string line) const {
  const std::string home = computer_.files.ProgramFolder();
  constexpr std::string_view kHome = "<home>";
  for (auto at = line.find(home); !home.empty() && at != std::string::npos;
       at = line.find(home, at + kHome.size()))
    line.replace(at, home.size(), kHome);
  return OneLine(line);
}

void Script::Follow(const std::string& line) {
  if (line.empty() || line.front() == '#') return;
  const auto [word, rest] = FirstWord(line);
  const Command* command = Find(word);
  if (command == nullptr) throw ScriptError{"there is no command " + word};
  (this->*command->follow)(rest);
}

Station& Script::Running() {
  if (!station_) throw ScriptError{"the station has not been started"};
  return *station_;
}

Field& Script::FieldOf(const std::string& name) {
  Field* field = Running().FindField(name);
  if (field == nullptr) throw ScriptError{"there is no field " + name};
  return *field;
}

void Script::Store(const std::string& rest) {
  if (station_) throw ScriptError{"the store is written before the start"};
  const auto [section, behind] = FirstWord(rest);
  const auto [key, value] = FirstWord(behind);
  const Outcome written = computer_.store.Write(StationText(section), StationText(key), StationText(value));
  if (!written) throw ScriptError{ToUtf8(written.reason())};
}

void Script::SetLocale(const std::string& rest) {
  if (station_) throw ScriptError{"the locale is set before the start"};
  if (rest != "comma" && rest != "point") throw ScriptError{"a locale is comma or point"};
  stage_.locale.signs.decimal = rest == "comma" ? ',' : '.';
}

void Script::Start(const std::string&) {
  if (station_) throw ScriptError{"the station is started already"};
  prepare();
  station_ = std::make_unique<WholeStation>(computer_);
  station_->Add(RepairOperations());
  if (traces_) station_->s.skips = &skips_;
  station_->settingsOpened = [this](int tab) { out_ << "settings tab " << tab << "\n"; };
  Form_Load(*station_);
}

void Script::Type(const std::string& rest) {
  const auto [name, text] = FirstWord(rest);
  Running().Type(FieldOf(name), StationText(text));
}

void Script::Set(const std::string& rest) {
  const auto [name, text] = FirstWord(rest);
  FieldOf(name) = StationText(text);
}

void Script::Choose(const std::string& rest) {
  const auto [name, text] = FirstWord(rest);
  Running().Choose(FieldOf(name), StationText(text));
}

void Script::Check(const std::string& rest) {
  const auto [name, state] = FirstWord(rest);
  if (state != "on" && state != "off") throw ScriptError{"a check box is set on or off"};
  Running().Check(FieldOf(name), state == "on");
}

void Script::SetOff(const std::string& name, Event event) {
  const auto control = TakeApart(name);
  const bool isField = Running().FindField(name) != nullptr;
  if (!control || control->count > 1 || (!Running().Run(control->name, event, control->index[0]) && !isField))
    throw ScriptError{"there is no control " + name};
}

void Script::Click(const std::string& rest) {
  // The part drawing is clicked in its left or its right half.
  if (rest == "picType left" || rest == "picType right")
    Running().Run("picType", Event::Release, rest == "picType right" ? 1 : 0);
  else
    SetOff(rest, Event::Click);
}

void Script::DoubleClick(const std::string& rest) { SetOff(rest, Event::DoubleClick); }

void Script::Press(const std::string& rest) {
  const auto [name, button] = FirstWord(rest);
  SetOff(name, ButtonOf(button) == Button::Right ? Event::PressRight : Event::Press);
}

void Script::Release(const std::string& rest) {
  const auto [name, button] = FirstWord(rest);
  SetOff(name, ButtonOf(button) == Button::Right ? Event::ReleaseRight : Event::Release);
}

void Script::Answer(const std::string& rest) {
  const auto [answer, tick] = FirstWord(rest);
  if ((answer != "yes" && answer != "no") || (!tick.empty() && tick != "noshow"))
    throw ScriptError{"an answer is yes or no, and perhaps noshow"};
  stage_.messageDialog.answers.push_back({answer == "yes", tick == "noshow"});
}

std::string Script::HomePath(const std::string& relative) const {
  const std::string path = Replaced(StationText(relative), '/', '\\');
  if (path.empty()) throw ScriptError{"a path is missing"};
  std::string_view rest = path;
  bool leaves = rest.starts_with('\\') || rest.substr(1, 1) == ":";
  while (!rest.empty()) {
    const auto end = std::min(rest.find('\\'), rest.size());
    const std::string_view name = rest.substr(0, end);
    // Windows takes no note of blanks and points at the end of a name.
    leaves = leaves || (name.find_first_not_of(". ") == std::string_view::npos &&
                        std::count(name.begin(), name.end(), '.') > 1);
    rest.remove_prefix(std::min(end + 1, rest.size()));
  }
  if (leaves) throw ScriptError{relative + ": the path does not stay in the station's folder"};
  return computer_.files.ProgramFolder() + "\\" + path;
}

void Script::File(const std::string& rest) {
  if (rest == "cancel")
    stage_.fileDialog.answers.emplace_back(std::nullopt);
  else
    stage_.fileDialog.answers.emplace_back(HomePath(rest));
}

void Script::Wait(const std::string& rest) {
  int milliseconds = 0;
  const auto read = std::from_chars(rest.data(), rest.data() + rest.size(), milliseconds);
  if (read.ec != std::errc() || read.ptr != rest.data() + rest.size() || milliseconds < 0)
    throw ScriptError{"a wait is a number of milliseconds"};
  StagedClock& clock = stage_.clock;
  const Moment end = clock.Now() + std::chrono::milliseconds(milliseconds);
  while (station_) {
    const auto next = station_->timers.NextTick();
    if (!next || *next > end) break;
    clock.Set(*next);
    station_->Tick();
  }
  clock.Set(end);
}

void Script::Undo(const std::string&) { Running().Undo(); }

void Script::Redo(const std::string&) { Running().Redo(); }

void Script::Cancel(const std::string&) { Running().programProgress = &canceller_; }

bool Script::Canceller::GoOn(double) {
  script_.out_ << "cancelled\n";
  script_.station_->programProgress = nullptr;  // the next program alone
  return false;
}

void Script::Crash(const std::string&) {
  Running();
  station_.reset();
}

void Script::Quit(const std::string&) { Form_Unload(Running()); }

void Script::NoStart(const std::string&) { stage_.launcher.FailNext("it was told to fail"); }

}  // namespace torvane
