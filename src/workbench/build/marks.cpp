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

const char* WordsOf(Mark mark) {
  switch (mark) {
    case Mark::NeedsInput:
      return "needs input";
    case Mark::TooHigh:
      return "Blinking Red Values Seem Too High.";
    case Mark::StopTooLow:
      return "Carriage will slam Limit Switch.";
    case Mark::NoNumber:
      return "This is no number.";
    case Mark::Plain:
      break;
  }
  return "";
}

std::string CalledName(const Field& field) {
  std::string name(torvane::WordsOf(field).name);
  if (name.empty()) return NameOf(field);
  if (IsScheduleRow(field.row()) && field.index() != IndexSet::kAllRows)
    name += ", layer " + std::to_string(field.index());
  return name;
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
