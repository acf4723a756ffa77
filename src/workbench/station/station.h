// The station: the one state, the computer it stands on, and the operations between them.
#pragma once

#include <array>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "calc/polar_walk.h"
#include "design/state.h"
#include "gcode/program.h"
#include "persist/four_axis_file.h"
#include "persist/kept_store.h"
#include "persist/two_axis_file.h"
#include "platform/platform.h"
#include "workbench/station/history.h"
#include "workbench/station/open_windows.h"
#include "workbench/station/operations.h"
#include "workbench/station/timers.h"

namespace torvane {

// The copy of an unsaved design that a crash leaves behind.
struct Recovery {
  int number = 1;              // of this station among those that run in its folder
  std::shared_ptr<void> lock;  // by which the others know that it runs
  bool offered = false;        // what a former station left was offered; until then its copy stays
  bool ours = false;           // the copy that lies there is of this station's design
  std::string refusal;         // why it could not be written the last time; empty if it was
};

// A design file as it was when it was opened or saved last.
struct DesignOnDisk {
  std::string path, bytes;
};

// What the operator sets in a row of the four-axis schedule: end wrap, split, type, pattern, pause.
using FourAxisRow = std::array<std::string, 6>;

// The end view of the main window: the row that its title names, the pattern noted for it, and the whole
// picture of that pattern. Row 0: blank.
struct EndView {
  int row = 0;
  std::string pattern;
  std::optional<PolarPattern> measures;  // once it is drawn, where they can be read
  std::vector<PolarFigure> picture;
};

class Station : private ChangeOperations {
 public:
  explicit Station(const Platform& platform);
  Station(const Station&) = delete;
  Station& operator=(const Station&) = delete;

  // Adds a table of operations of a room that this one does not know.
  void Add(std::span<const Operation> operations);

  // The operator replaces the whole text of a field and releases a key in it. A check box takes no keys.
  void Type(Field& field, std::string_view text);
  // The operator picks an entry of a list.
  void Choose(Field& field, std::string_view text);
  // The operator sets a check box or option.
  void Check(Field& field, bool on);
  // Runs the operation of a control; false if there is none.
  bool Run(std::string_view control, Event event, int index = 0);
  // The same from within an open window: where it has such a control, that is the one.
  bool RunIn(Window& window, std::string_view control, Event event, int index = 0);
  // What is said of the control's command: of its click, with the catalogue's words where it has them there.
  CommandWords WordsOf(std::string_view control) const;
  // Whether the command of a control can be given now.
  bool IsUsable(std::string_view control) const;
  // A key was released in a field and left its text as it was.
  void ReleaseKey(const Field& field);
  // What is typed from now on is an operation of its own, also in the field that was typed in last.
  void BeginTyping();
  // Takes back what has been typed since then, if that was in this field alone: as if it had not been.
  void DropTyping(const Field& field);

  // Takes back the last operation of the operator that changed the design, or does it again. False if there
  // is none. A new or opened design begins a new history.
  bool Undo();
  bool Redo();
  bool CanUndo() const { return history_.HasBack(); }
  bool CanRedo() const { return history_.HasForth(); }
  // Begins a new history with the design as it stands.
  void ForgetHistory() { history_.Forget(); }

  // More than five seconds have passed since the start. Until then changes of a design calculate nothing,
  // so that the start can fill the fields.
  bool StartGuardPassed() const;

  // Lets every timer tick that is due by now.
  void Tick();

  // A field of the topmost window that has one of that name, else of the main window; null if there is none.
  Field* FindField(std::string_view name);
  // A flag or value of the station.
  NamedValue FindValue(std::string_view name) const;

  // Says once that the store cannot be written.
  void TellOfStore();

  // As long as the station runs.
  DesignState s;
  KeptStore keptStore;      // in front of the computer's own
  const Platform platform;  // with that store
  Timers timers;
  OpenWindows windows;
  // Nobody has opened this store before, or only a station of version 2 has.
  bool FirstRunOrUpgrade = false;
  // When the start guard began.
  Moment started{};
  bool ended = false;
  // Turns at each click, so that the message of a stop that is too low comes at every other one.
  bool gSlamMessageShown = false;
  // Changes whose operation was left out because their echo would not have come to rest; 0 as far as is
  // known.
  int cutEchoes = 0;

  // As long as a design does.
  DesignOnDisk onDisk;
  Recovery recovery;
  // The operator has accepted values that blinked; builds do not look at them any more.
  bool gWrapValuesAccepted = false;

  // From one design to the next: what the files last read of either family have left for files that lack it,
  // the four-axis row last copied as it was then, and the operator's switch of the all-rows row.
  TwoAxisLists twoAxisLists;
  FourAxisHeld fourAxisHeld;
  std::optional<FourAxisRow> copiedFourAxisRow;
  bool allRowsShown = false;

  // Set by NoteEndView alone.
  EndView endView;

  // As long as a key does: the character of the one last released in a field, 0 if its text became empty; and
  // whether it is a millimetre twin that is typed in, so that the inch field that follows it is not mirrored
  // back.
  char lastKey = 0;
  bool twinIsTyped = false;

  // Told when the settings dialog opens, with its tab.
  std::function<void(int tab)> settingsOpened;
  // Follows each program while it is formed, and may cancel it; null if nobody looks.
  ProgramProgress* programProgress = nullptr;

 private:
  void Changed(const Field& field) override;
  // An event in a field, of its window or of the main one.
  void RunFor(const Field& field, Event event);
  bool RunAnywhere(std::string_view control, Event event, int index);
  bool RunHere(std::string_view control, Event event, int index);

  // Runs what an operator's doing sets off, and remembers the design as it was before. Keys typed one behind
  // the other in the same field are one operation.
  template <class Doing>
  auto Remembered(const Field* typed, Doing doing);
  // What follows a former design that has come back into the fields.
  void FollowFormerDesign();

  History history_;
  bool dirtyBeforeTyping_ = false;
  int operation_ = 0;  // depth of operations inside each other

  std::map<std::pair<std::string_view, Event>, const Operation*> operations_;
  // Change operations by the place of their field in the catalogue, since every write asks for one.
  std::vector<const Operation*> changes_;
  int depth_ = 0;
};

}  // namespace torvane
