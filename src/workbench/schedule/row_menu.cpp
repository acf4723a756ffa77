#include "workbench/schedule/row_menu.h"

#include "workbench/station/layer_count.h"

namespace torvane {

namespace {

constexpr std::string_view kTwoAxisEntries[] = {"mnuCopy",      "mnuPaste",        "mnuClearRow",
                                                "mnuDeleteRow", "mnuReCalcSpeeds", "mnuRecalcAllRows"};
constexpr std::string_view kFourAxisEntries[] = {"mnuCopy4Ax", "mnuPaste4Ax", "mnuClear4Ax", "mnuDelete4Ax"};

}  // namespace

bool ARowIsPressed(const Station& station) { return PressedRow(station.s) > 0; }

std::vector<RowMenuEntry> RowMenu(const Station& station) {
  const bool fourAxis = station.s.gShow4Axis;
  std::vector<RowMenuEntry> entries{{"mnuWhatsThis", station.WordsOf("mnuWhatsThis").sentence}};
  // These work on two-axis rows alone, whichever schedule is in use.
  for (const std::string_view control : kTwoAxisEntries)
    entries.push_back(
        {control, fourAxis ? "Works on the row of the 2-axis schedule." : station.WordsOf(control).sentence,
         control == "mnuCopy" || control == "mnuReCalcSpeeds"});
  if (!fourAxis) return entries;
  for (const std::string_view control : kFourAxisEntries)
    entries.push_back({control, station.WordsOf(control).sentence, control == "mnuCopy4Ax"});
  return entries;
}

void CloseRowMenu(Station& station) { station.s.mnuPopMenu.Show(false); }

}  // namespace torvane
