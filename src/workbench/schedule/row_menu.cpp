#include "workbench/schedule/row_menu.h"

#include "workbench/station/layer_count.h"

namespace torvane {

namespace {

struct Entry {
  std::string_view control;
  const char* caption;
};
constexpr Entry kFourAxisRow[] = {{"mnuCopy4Ax", "Copy 4-Axis Row"},
                                  {"mnuPaste4Ax", "Paste 4-Axis Row"},
                                  {"mnuClear4Ax", "Clear 4-Axis Row"},
                                  {"mnuDelete4Ax", "Delete 4-Axis Row"}};

}  // namespace

std::vector<RowMenuEntry> RowMenu(const DesignState& s) {
  const bool pressed = PressedRow(s) > 0;
  std::vector<RowMenuEntry> entries{{s.mnuWhatsThis.row().name, s.mnuWhatsThis.caption(),
                                     "Then click what you want to know about.", false, true}};
  // These work on two-axis rows alone, whichever schedule is in use.
  for (const Field* entry :
       {&s.mnuCopy, &s.mnuPaste, &s.mnuClearRow, &s.mnuDeleteRow, &s.mnuReCalcSpeeds, &s.mnuRecalcAllRows})
    entries.push_back(
        {entry->row().name, entry->caption(), s.gShow4Axis ? "Works on the row of the 2-axis schedule." : "",
         entry == &s.mnuCopy || entry == &s.mnuReCalcSpeeds, pressed || entry == &s.mnuRecalcAllRows});
  if (!s.gShow4Axis) return entries;
  for (const Entry& entry : kFourAxisRow)
    entries.push_back({entry.control, entry.caption, "", &entry == kFourAxisRow, pressed});
  return entries;
}

void CloseRowMenu(Station& station) { station.s.mnuPopMenu.Show(false); }

}  // namespace torvane
