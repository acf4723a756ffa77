// The computer as a command of `torvane` sees it: the options that all commands share, made real.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/files/host_files.h"
#include "platform/platform.h"
#include "stage/stage.h"

namespace torvane {

// Wrong usage, in words for the user.
struct UsageError {
  std::string reason;
};

// Something else without which nothing can be done, in words for the user.
struct CannotGoOn {
  std::string reason;
};

enum ExitStatus { kDone = 0, kFailed = 1, kUsage = 2 };

// As typed, in UTF-8.
struct CommonOptions {
  std::string home;   // empty: that of the window's station
  std::string store;  // empty: the user's own
  std::vector<std::string> settings;
  std::string locale;
  std::string now;
  std::vector<std::string> fields;
};

// A "NAME=TEXT" option in the station's text.
struct Assignment {
  std::string name, text;
};

// Text of the station from an argument; throws UsageError for a character outside its code page.
std::string StationText(const std::string& argument);
// Splits an option at its first "="; throws UsageError without one.
Assignment AssignmentOf(const std::string& argument);

// A UTF-8 text on one line, as a terminal can be given it: a line's end is shown as "\n", any other control
// character as "\t", "\r" or "\x" and its number.
std::string Printable(std::string_view utf8);

// Says something went wrong, on standard error.
void Complain(const std::string& text);

// "SUBJECT: REASON"; the reason is the station's text, as the computer gives it.
std::string Because(const std::string& subject, std::string_view reason);

// Real files; a clock that stands at the time of the command; answers to questions from a queue. The
// settings of a run are laid over the user's, which change only where a command is there for that.
class Computer {
 public:
  explicit Computer(const CommonOptions& options);

  // The store itself, for the commands that write it.
  SettingsStore& RealStore() { return *realStore_; }
  // The text of this run's `--field` options goes into these fields.
  const std::vector<Assignment>& fields() const { return fields_; }

  // This computer with a store in the place of its own; refers to both.
  Platform AsPlatform(SettingsStore& store);
  // This run's values over the store.
  OverlayStore RunSettings() const;
  // In a folder that the command line names only those that a program is written to.
  void MakeStationFolders();

  Stage stage;  // clock, locale and dialogs; its store and files are not used

 private:
  std::unique_ptr<SettingsStore> realStore_;
  struct UsualFolder {
    std::string station, program;
  };
  std::optional<UsualFolder> usualFolder_;  // where the command line names no other
  std::optional<HostFiles> files_;
  std::vector<Assignment> settings_;
  std::vector<Assignment> fields_;
};

}  // namespace torvane
