#include "workbench/station/end_view.h"

namespace torvane {

std::string RowName(const EndView& view) { return view.row > 0 ? std::to_string(view.row) : ""; }

void NoteEndView(Station& station, int row, const std::string& pattern) {
  station.endView = {row, pattern, {}, {}};
  station.s.lblLayer = RowName(station.endView);
}

void BlankEndView(Station& station) { NoteEndView(station, 0, ""); }

void DropStaleEndView(Station& station) {
  const EndView& view = station.endView;
  if (view.row > 0 && station.s.cmbPattern(view.row).text() != view.pattern) station.endView = {};
}

}  // namespace torvane
