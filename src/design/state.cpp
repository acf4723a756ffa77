#include "design/state.h"

#include <algorithm>
#include <variant>

#include "design/catalogue.h"
#include "text/text.h"

namespace torvane {

const std::string& LayerTable::operator()(int row, int column) const {
  static const std::string nothing;
  if (row < 0 || row >= kRows || column < 0 || column >= kColumns) return nothing;
  return cells_[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)];
}

void LayerTable::Set(int row, int column, std::string_view text) {
  if (row < 0 || row >= kRows || column < 0 || column >= kColumns) return;
  cells_[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)] = text;
}

void SplitFields::Split(std::string_view text, std::string_view separators) {
  for (std::string& cell : cells_) cell.clear();
  std::size_t cell = 1;
  std::size_t start = 0;
  while (cell < cells_.size()) {
    const auto end = text.find_first_of(separators, start);
    cells_[cell++] = Trim(text.substr(start, end == std::string_view::npos ? end : end - start));
    if (end == std::string_view::npos) break;
    start = end + 1;
  }
  cells_[0] = text;
}

DesignState::DesignState(NumberSigns signsOfComputer) : FieldOwner(signsOfComputer) {
  for (const FieldRow& row : Catalogue()) {
    if (const auto* single = std::get_if<Field Fields::*>(&row.member))
      (this->*(*single)).Attach(*this, row, 0);
    else
      this->*std::get<FieldArray Fields::*>(row.member) = FieldArray(*this, row, row.indexes);
  }
}

bool DesignState::TakeFrom(const DesignState& other) {
  const DesignValues& values = other;
  bool changed = !(static_cast<const DesignValues&>(*this) == values);
  if (changed) static_cast<DesignValues&>(*this) = values;
  const auto take = [&changed](Field& field, const Field& from) {
    if (field.text() == from.text()) return;
    field.Restore(from.text());
    changed = true;
  };
  for (const FieldRow& row : Catalogue()) {
    if (const auto* single = std::get_if<Field Fields::*>(&row.member)) {
      take(this->*(*single), other.*(*single));
      continue;
    }
    const auto array = std::get<FieldArray Fields::*>(row.member);
    for (int place = 0; place < row.indexes.count(); ++place) {
      const int index = row.indexes.IndexAt(place);
      take((this->*array)(index), (other.*array)(index));
    }
  }
  return changed;
}

Snapshot DesignState::TakeSnapshot() const {
  Snapshot snapshot{{}, {}, LayerTable2Ax, LayerTable4Ax, mnuINCH, gBuildHours, gBuildMinutes};
  ForEachField(*this, [&snapshot](const Field& field) {
    if (!IsOfDesign(field.row())) return;
    snapshot.texts.push_back(field.text());
    snapshot.looks.push_back(field.looks());
  });
  return snapshot;
}

bool DesignState::HasTextsOf(const Snapshot& snapshot) const {
  auto text = snapshot.texts.begin();
  bool same = true;
  ForEachField(*this, [&](const Field& field) {
    if (IsOfDesign(field.row())) same = field.text() == *text++ && same;
  });
  return same;
}

void DesignState::Restore(const Snapshot& snapshot) {
  auto text = snapshot.texts.begin();
  auto looks = snapshot.looks.begin();
  ForEachField(*this, [&](Field& field) {
    if (!IsOfDesign(field.row())) return;
    field.Restore(*text++);
    field.RestoreLooks(*looks++);
  });
  LayerTable2Ax = snapshot.table2Ax;
  LayerTable4Ax = snapshot.table4Ax;
  mnuINCH = snapshot.mnuINCH;
  mnuMM = !snapshot.mnuINCH;
  gBuildHours = snapshot.gBuildHours;
  gBuildMinutes = snapshot.gBuildMinutes;
}

Number LayersOf(const Field& count) { return Whole(count.number()); }

int RowsOf(const Field& count) {
  const Number rows = LayersOf(count);
  if (!holds(rows > 0)) return 0;
  return static_cast<int>(std::min(rows.value(), 32767.0));
}

namespace {

using Member =
    std::variant<bool DesignState::*, int DesignState::*, double DesignState::*, Kept DesignState::*,
                 std::array<double, 3> DesignState::*, LayerTable DesignState::*, SplitFields DesignState::*>;

struct ValueRow {
  std::string_view name;
  Member member;
  bool reported;
};

constexpr ValueRow kValues[] = {
    {"gShow4Axis", &DesignState::gShow4Axis, true},
    {"mnu2Axis", &DesignState::mnu2Axis, true},
    {"mnu4Axis", &DesignState::mnu4Axis, true},
    {"mnuINCH", &DesignState::mnuINCH, false},
    {"mnuMM", &DesignState::mnuMM, false},
    {"gDirty", &DesignState::gDirty, true},
    {"gGridSync", &DesignState::gGridSync, true},
    {"gAutoUpdateCells", &DesignState::gAutoUpdateCells, true},
    {"gMirrorOnChange", &DesignState::gMirrorOnChange, true},
    {"gMsgAnswer", &DesignState::gMsgAnswer, true},
    {"gDecimalComma", &DesignState::gDecimalComma, true},
    {"gFileDecimalComma", &DesignState::gFileDecimalComma, true},
    {"gIsLHDrive", &DesignState::gIsLHDrive, true},
    {"gIsNEMA34", &DesignState::gIsNEMA34, true},
    {"chkShiftLayer", &DesignState::chkShiftLayer, true},
    {"gTagLineCount", &DesignState::gTagLineCount, true},
    {"gCurrentRow", &DesignState::gCurrentRow, true},
    {"gCopyRowSource", &DesignState::gCopyRowSource, true},
    {"gPolarRow", &DesignState::gPolarRow, false},
    {"gBuildHours", &DesignState::gBuildHours, true},
    {"gBuildMinutes", &DesignState::gBuildMinutes, true},
    {"gBuildSeconds", &DesignState::gBuildSeconds, true},
    {"cMaxSpeed", &DesignState::cMaxSpeed, true},
    {"mMaxRPM", &DesignState::mMaxRPM, true},
    {"cMaxTravel", &DesignState::cMaxTravel, true},
    {"dhlMaxSpeed", &DesignState::dhlMaxSpeed, true},
    {"iMaxCarriageSpeeds", &DesignState::iMaxCarriageSpeeds, true},
    {"iMaxMandrelRPM", &DesignState::iMaxMandrelRPM, true},
    {"gNoListPatternDegrees", &DesignState::gNoListPatternDegrees, true},
    {"gDelayTimeInG456ToWaitForMandrelinMS", &DesignState::gDelayTimeInG456ToWaitForMandrelinMS, true},
    {"gWindAngle", &DesignState::gWindAngle, false},
    {"LayerTable2Ax", &DesignState::LayerTable2Ax, false},
    {"LayerTable4Ax", &DesignState::LayerTable4Ax, false},
    {"gListFields", &DesignState::gListFields, false},
    {"gTagFields", &DesignState::gTagFields, false},
};

struct ValueReader {
  const DesignState& s;
  const IndexedName& wanted;

  NamedValue Single(const std::string& text) const { return {wanted.count == 0, text}; }

  NamedValue operator()(bool DesignState::*flag) const { return Single(s.*flag ? "True" : "False"); }
  NamedValue operator()(int DesignState::*count) const { return Single(std::to_string(s.*count)); }
  NamedValue operator()(Kept DesignState::*value) const {
    return Single(NumberToText(s.signs, (s.*value).value()));
  }
  NamedValue operator()(double DesignState::*value) const { return Single(NumberToText(s.signs, s.*value)); }
  NamedValue operator()(std::array<double, 3> DesignState::*classes) const {
    const int index = wanted.index[0];
    if (wanted.count != 1 || index < 1 || index > 3) return {};
    return {true, NumberToText(s.signs, (s.*classes)[static_cast<std::size_t>(index) - 1])};
  }
  NamedValue operator()(LayerTable DesignState::*table) const {
    if (wanted.count != 2) return {};
    return {true, (s.*table)(wanted.index[0], wanted.index[1])};
  }
  NamedValue operator()(SplitFields DesignState::*cells) const {
    const int index = wanted.index[0];
    if (wanted.count != 1 || index < 0 || index > SplitFields::kLast) return {};
    return {true, (s.*cells)(index)};
  }
};

}  // namespace

NamedValue FindValue(const DesignState& s, std::string_view name) {
  const auto wanted = TakeApart(name);
  if (!wanted) return {};
  for (const ValueRow& row : kValues)
    if (row.name == wanted->name) return std::visit(ValueReader{s, *wanted}, row.member);
  return {};
}

std::vector<std::string> ReportedValues() {
  std::vector<std::string> names;
  for (const ValueRow& row : kValues) {
    if (!row.reported) continue;
    if (!std::holds_alternative<std::array<double, 3> DesignState::*>(row.member)) {
      names.emplace_back(row.name);
      continue;
    }
    for (const char* index : {"(1)", "(2)", "(3)"}) names.push_back(std::string(row.name) + index);
  }
  return names;
}

}  // namespace torvane
