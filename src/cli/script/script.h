// The station driven by text: a command a line, what it causes printed as it happens.
#pragma once

#include <functional>
#include <iosfwd>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "stage/stage.h"
#include "workbench/station/station.h"

namespace torvane {

// A line that cannot be followed.
struct ScriptError {
  std::string reason;
};

// A text of the station as a script prints it: a line's end as "\n", other control characters escaped too.
std::string OneLine(std::string_view text);

class Script {
 public:
  // The operator's part is played on `stage`; `computer` is what the station stands on.
  Script(Stage& stage, const Platform& computer, std::ostream& out);

  ~Script();
  Script(const Script&) = delete;
  Script& operator=(const Script&) = delete;

  // One line in UTF-8; throws ScriptError.
  void Follow(const std::string& line);

  // Prints the field of each statement that is skipped, too, and the routine it stands in. Before the start.
  void Trace() { traces_ = true; }

  // Null before the start and behind a crash.
  Station* station() { return station_.get(); }

  // Makes the computer ready for a station; called before each start.
  std::function<void()> prepare = [] {};

 private:
  struct Command;
  static const Command* Find(std::string_view word);

  void Store(const std::string& rest);
  void SetLocale(const std::string& rest);
  void Start(const std::string& rest);
  void Type(const std::string& rest);
  void Set(const std::string& rest);
  void Choose(const std::string& rest);
  void Check(const std::string& rest);
  void Click(const std::string& rest);
  void DoubleClick(const std::string& rest);
  void Press(const std::string& rest);
  void Release(const std::string& rest);
  void Get(const std::string& rest);
  void List(const std::string& rest);
  void ShowMark(const std::string& rest);
  void Shown(const std::string& rest);
  void Enabled(const std::string& rest);
  void Caption(const std::string& rest);
  void Tip(const std::string& rest);
  void Bold(const std::string& rest);
  void Answer(const std::string& rest);
  void File(const std::string& rest);
  void Wait(const std::string& rest);
  void ShowSetting(const std::string& rest);
  void Cat(const std::string& rest);
  void NoStart(const std::string& rest);
  void Drawing(const std::string& rest);
  void Focus(const std::string& rest);
  void Undo(const std::string& rest);
  void Redo(const std::string& rest);
  void Warnings(const std::string& rest);
  void Hint(const std::string& rest);
  void Cancel(const std::string& rest);
  void Crash(const std::string& rest);
  void Quit(const std::string& rest);

  // Cancels a program as soon as it is asked.
  class Canceller : public ProgramProgress {
   public:
    explicit Canceller(Script& script) : script_(script) {}
    bool GoOn(double share) override;

   private:
    Script& script_;
  };

  class SkipPrinter : public SkipWatcher {
   public:
    explicit SkipPrinter(std::ostream& out) : out_(out) {}
    void Skipped(const Field& field, std::string_view routine) override;

   private:
    std::ostream& out_;
  };

  // The first word and what stands behind the one blank that follows it.
  static std::pair<std::string, std::string> FirstWord(const std::string& text);
  // Sets off an event of the control that a name like "btnLR(0)" says.
  void SetOff(const std::string& name, Event event);
  // Both throw ScriptError: before the start, and for a name that no field has.
  Station& Running();
  Field& FieldOf(const std::string& name);
  // Of a path in the station's folder, with slashes or backslashes; throws ScriptError for none and for one
  // that leaves it.
  std::string HomePath(const std::string& relative) const;
  // On one line, the station's folder named "<home>".
  std::string WithoutHome(std::string line) const;
  // A line of what a name shows; a name that shows nothing prints none.
  void Print(const std::string& name, std::string_view what);
  // Prints what the station asks, tells and starts from here on.
  void Watch();

  Stage& stage_;
  const Platform computer_;
  std::ostream& out_;
  std::unique_ptr<Station> station_;
  Canceller canceller_{*this};
  SkipPrinter skips_{out_};
  bool traces_ = false;
};

}  // namespace torvane
