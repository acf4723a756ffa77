#include "workbench/document/design_commands.h"

#include <algorithm>

#include "calc/patterns.h"
#include "design/catalogue.h"
#include "design/reset.h"
#include "gcode/session.h"
#include "persist/settings.h"
#include "persist/tagged_text.h"
#include "text/text.h"
#include "workbench/dialog/preview.h"
#include "workbench/document/recent_files.h"
#include "workbench/station/layer_count.h"
#include "workbench/station/messages.h"
#include "workbench/station/recovery.h"

namespace torvane {

namespace {

// The number under which the system reports a file that cannot be read.
constexpr std::string_view kFileAccessError = "75";

void ShowName(DesignState& s, const char* caption) {
  s.frmMain.SetCaption(caption);
  if (s.lblStatusBar2.tip().empty()) s.lblStatusBar2.CopyFrom(s.gFileName);
}

std::string DesignFolder(Station& station) {
  return station.platform.files.ProgramFolder() + std::string(kDesignFolder);
}

// The family in use decides the reader, not the file.
Opened OpenFile(Station& station, const std::string& path, bool twoAxis) {
  // Read first: what changes in between counts as changed.
  const Result<std::string> bytes = station.platform.files.ReadAtMost(path, kLargestText);
  station.onDisk = bytes ? DesignOnDisk{path, bytes.value()} : DesignOnDisk{};
  const Result<DesignRead> read =
      twoAxis ? OpenTorvaneFileVer20(station.s, station.twoAxisLists, station.platform, path)
              : OpenTorvaneFileVer40(station.s, station.fourAxisHeld, station.platform, path);
  MessageBox& box = station.platform.messageBox;
  if (!read) {
    box.Show("Torvane Designer",
             "Unexpected Opening File" + std::string(kFileAccessError) + " : " + read.reason(),
             BoxIcon::None);
    return Opened::No;
  }
  if (read.value() == DesignRead::Whole) return Opened::Whole;
  box.Show("Input File Error", "Input File Lacks Sufficient Data", BoxIcon::None);
  return Opened::LacksData;
}

void NoteRecent(Station& station, const std::string& path) {
  NoteRecentFile(station.keptStore, path);
  station.timers.Start(station.timers.tmrStore);
}

// The family of the file's ending, if it has one of ours.
void ChooseFamilyOf(Station& station, const std::string& path) {
  const std::string ending = UpperCase(path.substr(path.size() - std::min<std::size_t>(path.size(), 4)));
  if (ending == ".T2D") ChooseFamily(station, Family::TwoAxes);
  if (ending == ".T4D") ChooseFamily(station, Family::FourAxes);
}

// A design of the other family has been opened past the operator's own switch: the lists of what closes on
// the former mandrel go with that.
void ForgetPatterns(DesignState& s) {
  if (!s.mnu2Axis) return;
  for (int row = 1; row <= 26; ++row) s.cmbPattern(row).SetEntries({});
  s.lblGrazeAngle = "";
}

bool IsTwoAxisName(std::string_view name) { return UpperCase(name).ends_with("T2D"); }

}  // namespace

void ChooseFamily(Station& station, Family family) {
  const bool fourAxes = family == Family::FourAxes;
  DesignState& s = station.s;
  SaveSetting(station.platform.store, kSettings, "mnu2Axis", fourAxes ? "0" : "1");
  if (fourAxes != s.mnu4Axis) ShowAxisDisplay(s, fourAxes);
}

void MakeStationFolders(
    Files& files, const std::function<void(const std::string& folder, const std::string& reason)>& refused) {
  constexpr std::string_view kPrograms = kProgramFolder.substr(0, kProgramFolder.size() - 1);
  files.RemoveLeftovers(files.ProgramFolder());
  for (const std::string_view folder : {kDesignFolder, kPrograms}) {
    const std::string path = files.ProgramFolder() + std::string(folder);
    const Outcome made = files.MakeFolder(path);
    if (!made) refused(path, made.reason());
    files.RemoveLeftovers(path);
  }
}

const std::string& DesignName(const DesignState& s) {
  return s.lblStatusBar2.empty() ? s.gFileName.text() : s.lblStatusBar2.text();
}

bool AskToSaveFirst(Station& station) {
  if (!station.s.gDirty) return true;
  const std::string& name = DesignName(station.s);
  ShowMessageDialog(station, messages::kSaveFirst, {},
                    (name.empty() ? std::string("Yes asks for a name and saves the design")
                                  : "Yes saves " + name + " under the name that you choose") +
                        ". No goes on without saving.");
  return !station.s.gMsgAnswer || btnSaveAS_Click(station);
}

void mnuNewFile_Click(Station& station) {
  DesignState& s = station.s;
  s.gGridSync = false;
  if (!AskToSaveFirst(station)) {
    s.gGridSync = true;
    return;
  }
  s.gFileName = "";
  s.gFilePath = "";
  ShowName(s, "Torvane Designer");
  BlankInputs(s, 2);
  BlankInputs(s, 4);
  BlankEndView(station);
  s.gDirty = false;
  s.gGridSync = true;
  station.ForgetHistory();
}

Opened OpenDesign(Station& station, const std::string& path) {
  DesignState& s = station.s;
  s.gMirrorOnChange = true;
  s.gFilePath = path;
  s.gLastFileInUse = path;
  s.gFileName = BehindLastBackslash(path);
  ShowName(s, "Torvane Designer ");
  station.ForgetHistory();
  BlankEndView(station);
  const Opened opened = OpenFile(station, path, s.mnu2Axis);
  if (opened == Opened::No) return opened;
  s.gDirty = false;
  Refresh4AXGrid(s);
  NoteRecent(station, path);
  return opened;
}

void btnOPen_Click(Station& station) {
  DesignState& s = station.s;
  if (!AskToSaveFirst(station)) return;
  s.gMirrorOnChange = true;
  const auto path = station.platform.fileDialog.AskOpen(
      s.mnu2Axis ? "Torvane 2Ax Design File (*.t2d)|*.t2d|" : "Torvane 4Ax Design File (*.t4d)|*.t4d|",
      DesignFolder(station));
  if (path) OpenDesign(station, *path);
}

namespace {

// A value that shares its line of the file with others.
bool StandsInAList(const FieldRow& row) {
  for (const std::string_view name :
       {"txtZ2", "txtZ4", "txtDia", "txtPODia", "txtAdjust", "txtSkirtLeft", "txtSkirtRight"})
    if (row.name == name) return true;
  return IsScheduleRow(row);
}

// Texts that the file holds otherwise than the window, each on a line of its own.
std::string ChangedInFile(const DesignState& s) {
  std::string changed;
  ForEachField(s, [&](const Field& field) {
    const FieldRow& row = field.row();
    if ((row.kind != Kind::Text && row.kind != Kind::List) || !IsOfDesign(row) ||
        !IsUsed(row, field.index(), s.family()) || (IsScheduleRow(row) && field.index() > LayerRows(s)))
      return;
    const std::string& text = field.text();
    const bool separates = StandsInAList(row) && text.find(';') != std::string::npos;
    if (!separates && std::none_of(text.begin(), text.end(), EndsValue)) return;
    changed += "\r\n";
    if (IsScheduleRow(row)) changed += "Layer " + std::to_string(field.index()) + ": ";
    changed += text;
  });
  return changed;
}

// Asks before the file of the design in hand is replaced if another program or station has written it since.
bool MayReplaceOnDisk(const Station& station, const std::string& path) {
  const Files& files = station.platform.files;
  if (path != station.onDisk.path && !files.AreOne(path, station.onDisk.path)) return true;
  const Result<std::string> standing = files.ReadAtMost(path, kLargestText);
  if (!standing || standing.value() == station.onDisk.bytes) return true;
  Message question;
  question.text = "\r\nAnother program or station has changed this design since it was opened here:\r\n" +
                  path + "\r\n\r\nDo you want to replace it by yours ?";
  return station.platform.messageDialog.Ask(question);
}

}  // namespace

Result<std::string> WriteDesign(Station& station, std::string& path) {
  const DesignState& s = station.s;
  const Result<SavedDesign> saved = s.mnu2Axis ? SaveTorvaneMakeFileVer20(s, station.platform, path)
                                               : SaveTorvaneMakeFileVer40(s, station.platform, path);
  if (!saved) return Refusal{saved.reason()};
  const SavedDesign& now = saved.value();
  if (!now.copyRefusal.empty())
    station.platform.messageBox.Show("Torvane Designer",
                                     "The design is saved, but its former state could not be kept:\r\n" +
                                         now.formerCopy + "\r\n" + now.copyRefusal,
                                     BoxIcon::None);
  return now.bytes;
}

bool SaveDesign(Station& station, const std::string& path) {
  DesignState& s = station.s;
  if (!MayReplaceOnDisk(station, path)) return false;
  const std::string formerPath = s.gFilePath.text();
  const std::string formerLast = s.gLastFileInUse.text();
  s.gFilePath = path;
  s.gLastFileInUse = path;
  std::string name = path;
  const Result<std::string> saved = WriteDesign(station, name);
  if (!saved) {
    s.gFilePath = formerPath;
    s.gLastFileInUse = formerLast;
    station.platform.messageBox.Show(
        "Error", "The design file was not written:\r\n" + name + "\r\n" + saved.reason(), BoxIcon::Stop);
    return false;
  }
  s.gFilePath = name;
  station.onDisk = {name, saved.value()};
  if (s.mnu2Axis) WriteProgram(station);
  s.gDirty = false;
  s.gFileName = BehindLastBackslash(s.gFilePath.text());
  ShowName(s, "Torvane Designer ");
  NoteRecent(station, name);
  if (const std::string changed = ChangedInFile(s); !changed.empty())
    station.platform.messageBox.Show(
        "Torvane Designer",
        "The design is saved, but its file cannot hold these texts as they stand. "
        "A blank stands for each ; or < of them:" +
            changed,
        BoxIcon::None);
  return true;
}

Written WriteProgram(Station& station) {
  ProgramProgress* const progress = station.programProgress;
  if (progress != nullptr) progress->Begin();
  const Written written = WriteGCode(station.s, station.platform, progress);
  if (progress != nullptr) progress->End();
  if (written.angleUndefined) TellOfUndefinedAngle(station);
  if (!written.refusal.empty())
    station.platform.messageBox.Show(
        "Error",
        "The G-code file was not written:\r\n" + station.s.gGCodeFilePath.text() + "\r\n" + written.refusal,
        BoxIcon::Stop);
  return written;
}

void TellOfUndefinedAngle(Station& station) {
  station.platform.messageBox.Show("Winding Angle Error", "Winding Angle Undefined", BoxIcon::None);
}

void OpenNamedDesign(Station& station, const std::string& path) {
  if (!station.platform.files.Exists(path)) {
    station.platform.messageBox.Show("Torvane Designer", "There is no such file any more:\r\n" + path,
                                     BoxIcon::None);
    ForgetRecentFile(station.keptStore, path);
    station.timers.Start(station.timers.tmrStore);
    return;
  }
  if (!AskToSaveFirst(station)) return;
  const bool fourAxesBefore = station.s.mnu4Axis;
  ChooseFamilyOf(station, path);
  if (OpenDesign(station, path) != Opened::No && fourAxesBefore) ForgetPatterns(station.s);
  FollowWithRecovery(station, false);
}

void OpenRecentDesign(Station& station, const std::string& path) {
  if (station.platform.files.Exists(path)) return OpenNamedDesign(station, path);
  Message question;
  question.text = "\r\nThere is no such file any more:\r\n" + path +
                  "\r\n\r\nDo you want to take it off the list of recent designs ?";
  if (!station.platform.messageDialog.Ask(question)) return;
  ForgetRecentFile(station.keptStore, path);
  station.timers.Start(station.timers.tmrStore);
}

void OpenSample(Station& station, const std::string& path) {
  if (!AskToSaveFirst(station)) return;
  DesignState& s = station.s;
  const bool fourAxesBefore = s.mnu4Axis;
  ChooseFamilyOf(station, path);
  const std::string formerLast = s.gLastFileInUse.text();
  s.gMirrorOnChange = true;
  BlankEndView(station);
  OpenFile(station, path, s.mnu2Axis);
  if (fourAxesBefore) ForgetPatterns(s);
  station.onDisk = {};
  s.gFileName = "";
  s.gFilePath = "";
  s.gLastFileInUse = formerLast;
  s.lblStatusBar1 = "";
  s.lblStatusBar2 = "";
  ShowName(s, "Torvane Designer");
  s.gDirty = false;
  Refresh4AXGrid(s);
  station.ForgetHistory();
  FollowWithRecovery(station, false);
}

void mnuRecent_Click(Station& station, int index) {
  const std::vector<std::string> recent = RecentFiles(station.platform.store);
  if (index >= 1 && index <= static_cast<int>(recent.size()))
    OpenNamedDesign(station, recent[static_cast<std::size_t>(index) - 1]);
}

bool btnSaveAS_Click(Station& station) {
  const DesignState& s = station.s;
  const auto path = station.platform.fileDialog.AskSave(
      s.mnu2Axis ? "Torvane 2-Ax Design File (*.t2d)|*.t2d|" : "Torvane 4-Ax Design File (*.t4d)|*.t4d|",
      DesignFolder(station), WithoutLast(s.gFileName.text(), 4));
  return !path || SaveDesign(station, *path);
}

void OpenLastDesignerFileInUse(Station& station) {
  DesignState& s = station.s;
  const Platform& platform = station.platform;
  mnuNewFile_Click(station);
  const std::string last = GetSetting(platform.store, kSettings, "gLastFileInUse", "");
  s.gFileName = BehindLastBackslash(last);
  const bool twoAxis = GetSetting(platform.store, kSettings, "mnu2Axis", "0") == "1";
  s.mnu2Axis = twoAxis;
  s.mnu4Axis = !twoAxis;
  s.optX(twoAxis ? 0 : 1) = "True";
  s.optX(twoAxis ? 1 : 0) = "False";
  s.optX(twoAxis ? 0 : 1).SetBold(true);
  s.optX(twoAxis ? 1 : 0).SetBold(false);

  const std::string name = s.gFileName.text();
  if (!name.empty() && !UpperCase(last).ends_with("TVD")) {
    const bool twoAxisName = IsTwoAxisName(name);
    ShowAxisDisplay(s, !twoAxisName);
    const std::string path = DesignFolder(station) + "\\" + name;
    if (!twoAxisName || platform.files.Exists(path)) {
      OpenFile(station, path, twoAxisName);
      s.gLastFileInUse = path;
    }
  }
  s.gFileName = BehindLastBackslash(s.gLastFileInUse.text());
  s.lblStatusBar2.CopyFrom(s.gFileName);
}

namespace {

void Open_Click(Station& station, int) { btnOPen_Click(station); }
void Save_Click(Station& station, int) { btnSaveAS_Click(station); }

constexpr CommandWords kOpen{"Open...", "Opens a design.", 'O', "Ctrl+O"};
constexpr CommandWords kSave{"Save...", "Saves the design.", 'S', "Ctrl+S"};
constexpr CommandWords kSaveAs{"Save As...", "Saves the design under another name.", 'A', "Ctrl+Shift+S"};
constexpr CommandWords kUndo{"Undo", "Takes the last change back.", 'U', "Ctrl+Z",
                             [](const Station& station) { return station.CanUndo(); }};
constexpr CommandWords kRedo{"Redo", "Makes the change that was taken back.", 'R', "Ctrl+Shift+Z; Ctrl+Y",
                             [](const Station& station) { return station.CanRedo(); }};

constexpr Operation kOperations[] = {
    {"mnuNewFile",
     Event::Click,
     [](Station& station, int) { mnuNewFile_Click(station); },
     {"New", "Begins a new design.", 'N', "Ctrl+N"}},
    {"btnOPen", Event::Click, Open_Click, kOpen},
    {"mnuOpenFile", Event::Click, Open_Click, kOpen},
    {"btnSaveAS", Event::Click, Save_Click, kSave},
    {"mnuSaveFile", Event::Click, Save_Click, kSave},
    {"mnuSaveAsFile", Event::Click, Save_Click, kSaveAs},
    {"mnuRecent", Event::Click, mnuRecent_Click},
    {"mnuUndo", Event::Click, [](Station& station, int) { station.Undo(); }, kUndo},
    {"mnuRedo", Event::Click, [](Station& station, int) { station.Redo(); }, kRedo},
};

}  // namespace

std::span<const Operation> DesignOperations() { return kOperations; }

}  // namespace torvane
