#include "cli/computer/computer.h"

#include <cstdio>

#include "host/files/paths.h"
#include "host/files/station_folder.h"
#include "host/store/default_store.h"
#include "host/system/host_clock.h"
#include "host/system/host_locale.h"
#include "persist/calibration.h"
#include "persist/settings.h"
#include "text/code_page.h"
#include "text/text.h"
#include "workbench/document/design_commands.h"

namespace torvane {

namespace {

// "YYYY-MM-DD hh:mm:ss"
Moment MomentOf(const std::string& text) {
  int year = 0, month = 0, day = 0, hour = 0, minute = 0, second = 0, length = 0;
  const int read = std::sscanf(text.c_str(), "%4d-%2d-%2d %2d:%2d:%2d%n", &year, &month, &day, &hour, &minute,
                               &second, &length);
  const std::chrono::year_month_day date{std::chrono::year(year),
                                         std::chrono::month(static_cast<unsigned>(month)),
                                         std::chrono::day(static_cast<unsigned>(day))};
  if (read != 6 || static_cast<std::size_t>(length) != text.size() || !date.ok() || hour < 0 || hour > 23 ||
      minute < 0 || minute > 59 || second < 0 || second > 59)
    throw UsageError{"--now is written \"YYYY-MM-DD hh:mm:ss\", not \"" + text + "\""};
  return std::chrono::local_days(date) + std::chrono::hours(hour) + std::chrono::minutes(minute) +
         std::chrono::seconds(second);
}

LocaleSigns SignsOf(const std::string& locale) {
  if (locale == "comma") return {','};
  if (locale == "point") return {'.'};
  return HostLocale().Signs();
}

std::string OneLine(const std::string& text) {
  std::string line;
  for (const char c : text) {
    if (c == '\r') continue;
    if (c != '\n')
      line += c;
    else if (!line.empty() && line.back() != ' ')
      line += ' ';
  }
  return std::string(Trim(line));
}

// Every section that knows a key of this name.
std::vector<std::string_view> SectionsOf(std::string_view key) {
  for (const CalibrationKey& known : CalibrationKeys())
    if (known.key == key && known.ofFourAxes)
      return {kFourAxisCalibration};
    else if (known.key == key)
      return {kPointCalibration, kCommaCalibration, kCommaBoardCalibration};
  for (const Setting& known : Settings())
    if (known.key == key) return {kSettings};
  if (IsMessageKey(key)) return {kSettings};
  throw UsageError{"there is no setting " + ToUtf8(key) + "; `torvane setting list` names them"};
}

}  // namespace

std::string StationText(const std::string& argument) {
  const Result<std::string> text = FromUtf8(argument);
  if (!text) throw UsageError{ToUtf8(text.reason())};
  return text.value();
}

Assignment AssignmentOf(const std::string& argument) {
  const auto equals = argument.find('=');
  if (equals == std::string::npos) throw UsageError{"\"" + argument + "\" is not of the form NAME=TEXT"};
  return {StationText(argument.substr(0, equals)), StationText(argument.substr(equals + 1))};
}

std::string Because(const std::string& subject, std::string_view reason) {
  return subject + ": " + ToUtf8(reason);
}

std::string Printable(std::string_view utf8) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string line;
  for (std::size_t i = 0; i < utf8.size(); ++i) {
    auto byte = static_cast<unsigned char>(utf8[i]);
    // The controls above ASCII: in UTF-8, their number stands in the second byte.
    const bool high = byte == 0xC2 && i + 1 < utf8.size() && static_cast<unsigned char>(utf8[i + 1]) < 0xA0;
    if (high) byte = static_cast<unsigned char>(utf8[++i]);
    if (byte == '\n')
      line += "\\n";
    else if (byte == '\r')
      line += "\\r";
    else if (byte == '\t')
      line += "\\t";
    else if (high || byte < 0x20 || byte == 0x7F)
      line += {'\\', 'x', kDigits[byte / 16U], kDigits[byte % 16U]};
    else
      line += utf8[i];
  }
  return line;
}

void Complain(const std::string& text) { std::fprintf(stderr, "torvane: %s\n", Printable(text).c_str()); }

Computer::Computer(const CommonOptions& options) {
  const Result<std::string> program = RunningProgramFolder();
  if (!program) throw UsageError{ToUtf8(program.reason())};
  const Result<std::string> home = StationFolder(options.home, program.value());
  if (!home) throw UsageError{ToUtf8(home.reason())};
  if (options.home.empty()) usualFolder_ = {home.value(), program.value()};
  Result<HostFiles> files = HostFiles::At(home.value());
  if (!files) throw UsageError{Because(home.value(), files.reason())};
  files_.emplace(files.value());
  files_->tell = [](const std::string& text) { Complain(ToUtf8(OneLine(text))); };
  realStore_ = StoreAt(options.store);
  // Another machine's limits and calibration would be another program.
  if (const Outcome readable = realStore_->Readable(); !readable) throw CannotGoOn{ToUtf8(readable.reason())};
  if (const std::string note = MissingStoreNote(options.store); !note.empty()) Complain(note);
  stage.locale.signs = SignsOf(options.locale);
  stage.clock.Set(options.now.empty() ? HostClock().Now() : MomentOf(options.now));
  for (const std::string& setting : options.settings) {
    settings_.push_back(AssignmentOf(setting));
    SectionsOf(settings_.back().name);
  }
  for (const std::string& field : options.fields) fields_.push_back(AssignmentOf(field));
  stage.messageBox.observer = [](const StagedMessageBox::Box& box) {
    Complain(ToUtf8(box.title + ": " + OneLine(box.text) + (box.detail.empty() ? "" : " " + box.detail)));
  };
}

OverlayStore Computer::RunSettings() const {
  OverlayStore store(*realStore_);
  for (const Assignment& setting : settings_)
    for (const std::string_view section : SectionsOf(setting.name))
      SaveSetting(store, section, setting.name, setting.text);
  return store;
}

Platform Computer::AsPlatform(SettingsStore& store) {
  return {store,
          stage.clock,
          stage.locale,
          *files_,
          stage.messageDialog,
          stage.messageBox,
          stage.fileDialog,
          stage.launcher};
}

void Computer::MakeStationFolders() {
  if (usualFolder_) {
    const Outcome ready = PrepareStationFolder(usualFolder_->station, usualFolder_->program);
    if (!ready) Complain(Because(usualFolder_->station, ready.reason()));
  }
  torvane::MakeStationFolders(*files_, [](const std::string& folder, const std::string& reason) {
    Complain(Because(ToUtf8(folder), reason));
  });
}

}  // namespace torvane
