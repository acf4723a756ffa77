// The one table of all fields. Look-up by name, the rows of a report, the silent restore and the front
// ends read it.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <variant>

#include "design/fields.h"

namespace torvane {

enum class Kind : std::uint8_t {
  Text,     // the operator types it
  ReadOut,  // shown, not typed
  List,     // chosen from entries, or typed
  Check,    // "1" or "0"
  Option,   // "True" or "False"
  Value,    // a text of the station that no window edits
  Caption,  // says what stands beside it
  Control,  // a button, menu entry, picture or window
};

// Whose designs use a field.
enum class UsedBy : std::uint8_t {
  TwoAxis,
  FourAxis,
  ByIndex,    // 0 two axes, 1 four
  LowIsFour,  // 0 and 1 four axes, above that two
  Design,     // both, and part of a design
  Station,    // its constants and choices: neither undone nor recovered with a design
  Window,     // no part of a design or of the station's constants
};

// What stands behind a field's figure. The first three follow the design's unit.
enum class FieldUnit : std::uint8_t {
  None,
  Length,    // in or mm
  Speed,     // in/s or mm/s
  Filament,  // ft or m
  Inches,
  Millimetres,
  InchesPerSecond,
  MillimetresPerSecond,
  Degrees,
  Rpm,
};

// What an operator reads and hears of a field.
struct FieldWords {
  std::string_view name;
  std::string_view sentence;
  FieldUnit unit = FieldUnit::None;
  std::string_view caption = {};  // on the control itself, at the start
};

struct FieldRow {
  std::string_view name;
  std::variant<Field Fields::*, FieldArray Fields::*> member;
  Kind kind;
  UsedBy usedBy;
  IndexSet indexes;        // of an array
  std::string_view first;  // the text at the start of the program
  FieldWords words = {};
  std::span<const FieldWords> membersWords = {};  // of an array whose members mean different things
};

// One row for each member of Fields, in the order of reports.
std::span<const FieldRow> Catalogue();

// True of an array whose indexes are rows of a schedule.
constexpr bool IsScheduleRow(const FieldRow& row) { return row.indexes.first == 1 && row.indexes.last >= 18; }

// True of a design's own fields; false of the station's constants, choices and windows.
constexpr bool IsOfDesign(const FieldRow& row) {
  return row.usedBy != UsedBy::Station && row.usedBy != UsedBy::Window;
}

// Whether designs of a family use a field: the row of the catalogue and its index, 0 of a single one.
bool IsUsed(const FieldRow& row, int index, Family family);

const FieldWords& WordsOf(const Field& field);

// "mm/s"; empty where nothing stands behind the figure.
std::string_view TextOf(FieldUnit unit, bool inches);

// "txtWA(3)", "txtDiameterLeft".
std::string NameOf(const Field& field);

// The field of a name as NameOf gives it; null if there is none.
Field* FindField(Fields& fields, std::string_view name);
const Field* FindField(const Fields& fields, std::string_view name);

// Calls `visit` with every field in the order of the catalogue, rows of an array by rising index. Of constant
// fields it gets constant ones.
template <class SomeFields, class Visit>
void ForEachField(SomeFields& fields, Visit visit) {
  for (const FieldRow& row : Catalogue()) {
    if (const auto* single = std::get_if<Field Fields::*>(&row.member)) {
      visit(fields.*(*single));
      continue;
    }
    auto& array = fields.*std::get<FieldArray Fields::*>(row.member);
    for (int place = 0; place < row.indexes.count(); ++place) visit(array(row.indexes.IndexAt(place)));
  }
}

}  // namespace torvane
