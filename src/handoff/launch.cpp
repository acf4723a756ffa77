#include "handoff/launch.h"

#include "design/masks.h"
#include "gcode/session.h"
#include "handoff/executor.h"
#include "handoff/jog.h"
#include "persist/settings.h"
#include "workbench/build/checklist.h"
#include "workbench/dialog/settings_dialog.h"
#include "workbench/document/design_commands.h"
#include "workbench/part/operations.h"
#include "workbench/schedule/grids.h"
#include "workbench/station/messages.h"

namespace torvane {

namespace {

constexpr std::string_view kExecutor = "Torvane_Executor.exe";
constexpr std::string_view kViewer = "Notepad2.exe";
constexpr double kLeastAngle = 25.0;  // degrees; below it the band slips on a two-axis machine

// `reason` says what the computer had against it.
void ShowError(Station& station, std::string_view text, std::string_view reason = {}) {
  station.platform.messageBox.Show("Error", text, BoxIcon::Stop, reason);
}

Outcome Start(Station& station, std::string_view program, std::string_view arguments) {
  Files& files = station.platform.files;
  return station.platform.launcher.Start(program, arguments, files.ProgramFolder());
}

// False, with the settings dialog open, until the operator has confirmed the carriage offset. Where the
// message is silenced the last answer to any question decides.
bool OffsetIsConfirmed(Station& station, const StationMessage& message) {
  if (IsCarriageOffsetConfirmed(station.platform.store)) return true;
  if (ShowMessageDialog(station, message)) return true;
  OpenSettingsBeside(station, station.s.mnu2Axis ? 1 : 2);
  return false;
}

// Raises rows whose angle is too small, with a warning for each. False if an angle cannot be read.
bool RaiseSmallAngles(Station& station) {
  DesignState& s = station.s;
  if (!number(s.txtNumberOfLayers(0)).good()) return false;
  for (int layer = 1; layer <= RowsOf(s.txtNumberOfLayers(0)); ++layer) {
    const Number angle = s.Read(s.LayerTable2Ax(layer, 1));
    if (!angle.good()) return false;
    if (!holds(angle < kLeastAngle)) continue;
    ShowMessageDialog(station, messages::kFlatAngle);
    // In the computer's sign: "25.0" would read as 250 where the comma is the decimal sign.
    s.txtWA(layer) = Number(kLeastAngle).as(mask::kAngle);
    s.gDirty = true;
    s.focus = &s.txtWA(layer);
  }
  return true;
}

std::string ProgramPath(Station& station) {
  return station.platform.files.ProgramFolder() + std::string(kProgramFolder) + ProgramName(station.s);
}

void imgBUILD_Click(Station& station, int) {
  const std::string_view failed = "Can't Locate TorvaneExecutor.exe or G-Code File.\r\nBuild cannot proceed.";
  if (!OffsetIsConfirmed(station, messages::kMeasureOffsetBeforeBuild)) return;
  if (!RaiseSmallAngles(station)) return ShowError(station, failed);
  if (!station.gWrapValuesAccepted && CheckWrapHGValues(station)) return;
  AskToSaveFirst(station);
  const Written written = WriteProgram(station);
  if (written == Written::Cancelled) return;
  if (written == Written::No) return ShowError(station, failed);
  const Outcome started = StartExecutor(station, ProgramPath(station));
  if (!started) ShowError(station, failed, started.reason());
}

void Command2_Click(Station& station, int) {
  const std::string_view failed =
      "Can't Locate NotePad2.exe to display Torvane G-Code file,\r\n"
      "or Can't Find Torvane G-Code file.";
  const Written written = WriteProgram(station);
  if (written == Written::Cancelled) return;
  if (written != Written::Whole) return ShowError(station, failed);
  const Outcome shown = Start(station, kViewer, ProgramPath(station));
  if (!shown) ShowError(station, failed, shown.reason());
}

void mnuViewDesignFile_Click(Station& station, int) {
  const Outcome shown = Start(station, station.platform.files.ProgramFolder() + "\\" + std::string(kViewer),
                              station.s.gFilePath.text());
  if (!shown)
    ShowError(station,
              "Can't Locate NotePad2.exe to display Torvane Design file\r\n"
              "or Can't locate Torvane Design file",
              shown.reason());
}

void ShowFolder(Station& station, const std::string& folder) {
  const Platform& platform = station.platform;
  platform.launcher.Start(platform.launcher.EnvironmentVariable("windir") + "\\Explorer.exe", folder,
                          platform.files.ProgramFolder());
}

void mnuViewDesignDirectory_Click(Station& station, int) {
  const std::string& path = station.s.gFilePath.text();
  ShowFolder(station, path.substr(0, path.rfind('\\') + 1));
}

void mnuViewGCodeDirectory_Click(Station& station, int) {
  ShowFolder(station, station.platform.files.ProgramFolder() + std::string(kProgramFolder));
}

void mnuManually_Click(Station& station, int) { StartExecutor(station, "MANUAL"); }

void lblManualOperation_Click(Station& station, int) {
  if (OffsetIsConfirmedForManual(station)) mnuManually_Click(station, 0);
}

void mnuLaunchExecutor_Click(Station& station, int) { StartExecutor(station, ""); }

constexpr Operation kOperations[] = {
    {"imgBUILD", Event::Click, imgBUILD_Click},
    {"lblBuild", Event::Click, imgBUILD_Click},
    {"lblBeginBuild", Event::Click, imgBUILD_Click},
    {"mnuBeginWinding", Event::Click, imgBUILD_Click, {.letter = 'B', .keys = "F9"}},
    {"Command2", Event::Click, Command2_Click, {.letter = 'V'}},
    {"lblManualOperation", Event::Click, lblManualOperation_Click},
    {"mnuManually", Event::Click, mnuManually_Click, {.letter = 'M'}},
    {"mnuLaunchExecutor", Event::Click, mnuLaunchExecutor_Click, {.letter = 'L'}},
    {"mnuViewDesignFile",
     Event::Click,
     mnuViewDesignFile_Click,
     {.caption = "View Design File", .letter = 'F'}},
    {"mnuViewDesignDirectory",
     Event::Click,
     mnuViewDesignDirectory_Click,
     {.caption = "View Design Folder", .letter = 'D'}},
    {"mnuViewGCodeDirectory",
     Event::Click,
     mnuViewGCodeDirectory_Click,
     {.caption = "View G-Code Folder", .letter = 'G'}},
    {"mnuViewMakeFile", Event::Click, [](Station&, int) {}},
};

}  // namespace

std::span<const Operation> LaunchOperations() { return kOperations; }

WholeStation::WholeStation(const Platform& computer) : Station(computer) {
  for (const auto& table : Tables()) Add(table);
}

std::vector<std::span<const Operation>> WholeStation::Tables() {
  return {TwoAxisGridOperations(), FourAxisGridOperations(), FourAxisRowOperations(), PartOperations(),
          ChecklistOperations(),   UnitOperations(),         EstimateOperations(),    DesignOperations(),
          WindowOperations(),      LaunchOperations(),       TraceOperations(),       JogOperations()};
}

Outcome StartExecutor(Station& station, std::string_view argument) {
  return Start(station, kExecutor, argument);
}

bool OffsetIsConfirmedForManual(Station& station) {
  return OffsetIsConfirmed(station, messages::kMeasureOffsetBeforeMoving);
}

}  // namespace torvane
