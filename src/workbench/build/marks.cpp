#include "workbench/build/marks.h"

#include <algorithm>

#include "design/catalogue.h"
#include "text/text.h"
#include "workbench/station/layer_count.h"

namespace torvane {

Mark ShownMark(const Field& field) {
  const bool takesNumber = field.row().kind == Kind::Text && field.row().usedBy != UsedBy::Window;
  const bool unreadable = takesNumber && !Trim(field.text()).empty() && !number(field).good();
  return field.mark() == Mark::Plain && unreadable ? Mark::NoNumber : field.mark();
}

std::vector<const Field*> MarkedFields(const DesignState& s) {
  std::vector<const Field*> marked;
  const int rows = LayerRows(s);
  ForEachField(s, [&](const Field& field) {
    const FieldRow& row = field.row();
    if (ShownMark(field) == Mark::Plain || !field.shown() || !IsUsed(row, field.index(), s.family())) return;
    // The drawing repeats two diameters and a length that have fields of their own.
    const bool repeated =
        !s.gShow4Axis && (row.name == "txtDia" || (row.name == "txtZ2" && field.index() == 2));
    if (repeated || (IsScheduleRow(row) && field.index() > rows)) return;
    marked.push_back(&field);
  });
  std::stable_sort(marked.begin(), marked.end(),
                   [](const Field* a, const Field* b) { return ShownMark(*a) > ShownMark(*b); });
  return marked;
}

}  // namespace torvane
