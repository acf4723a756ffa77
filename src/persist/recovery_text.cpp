#include "persist/recovery_text.h"

#include <charconv>
#include <vector>

#include "design/catalogue.h"
#include "design/reset.h"

namespace torvane {

namespace {

constexpr std::string_view kHead = "TORVANE RECOVERY COPY 1";
constexpr std::string_view kEnd = "END";

// A line of parts with a tab between them; a tab, a line end or a backslash in a part stands behind a
// backslash.
void AppendLine(std::string& out, const std::vector<std::string>& parts) {
  for (std::size_t i = 0; i < parts.size(); ++i) {
    if (i > 0) out += '\t';
    for (const char c : parts[i]) {
      if (c == '\\')
        out += "\\\\";
      else if (c == '\t')
        out += "\\t";
      else if (c == '\n')
        out += "\\n";
      else
        out += c;
    }
  }
  out += '\n';
}

std::vector<std::string> PartsOf(std::string_view line) {
  std::vector<std::string> parts(1);
  for (std::size_t i = 0; i < line.size(); ++i) {
    if (line[i] == '\t') {
      parts.emplace_back();
    } else if (line[i] == '\\' && i + 1 < line.size()) {
      const char c = line[++i];
      parts.back() += c == 't' ? '\t' : c == 'n' ? '\n' : c;
    } else {
      parts.back() += line[i];
    }
  }
  return parts;
}

// Mark, enabled, shown, bold: a character each.
std::string FlagsOf(const Looks& looks) {
  std::string flags(1, static_cast<char>('0' + static_cast<int>(looks.mark)));
  for (const bool flag : {looks.enabled, looks.shown, looks.bold}) flags += flag ? '1' : '0';
  return flags;
}

constexpr std::size_t kFlags = 4;

// field, name, text, flags, tip, caption, entries
constexpr std::size_t kFirstEntry = 6;

bool ReadField(RecoveredDesign& design, const std::vector<std::string>& parts) {
  if (parts.size() < kFirstEntry || parts[3].size() != kFlags || parts[3][0] < '0' || parts[3][0] > '3')
    return false;
  Looks looks;
  looks.mark = static_cast<Mark>(parts[3][0] - '0');
  looks.enabled = parts[3][1] == '1';
  looks.shown = parts[3][2] == '1';
  looks.bold = parts[3][3] == '1';
  looks.tip = parts[4];
  looks.caption = parts[5];
  if (parts.size() > kFirstEntry)
    looks.entries = std::make_shared<std::vector<std::string>>(parts.begin() + kFirstEntry, parts.end());
  design.fields[parts[1]] = {parts[2], std::move(looks)};
  return true;
}

std::int32_t WholeOf(const std::string& text) {
  std::int32_t value = 0;
  std::from_chars(text.data(), text.data() + text.size(), value);
  return value;
}

bool ReadLine(RecoveredDesign& design, const std::vector<std::string>& parts) {
  if (parts[0] == "field") return ReadField(design, parts);
  if (parts.size() < 3) return false;
  if (parts[0] == "cell") design.cells[parts[1]] = parts[2];
  if (parts[0] == "file") {
    design.filePath = parts[1];
    design.fileName = parts[2];
  }
  if (parts[0] == "family") design.fourAxis = parts[1] == "4";
  if (parts[0] == "time") {
    design.gBuildHours = WholeOf(parts[1]);
    design.gBuildMinutes = WholeOf(parts[2]);
  }
  return true;
}

std::string CellName(char family, int row, int column) {
  return std::string(1, family) + "," + std::to_string(row) + "," + std::to_string(column);
}

template <class Table, class Visit>
void ForEachCell(Table& table, char family, Visit visit) {
  for (int row = 0; row < LayerTable::kRows; ++row)
    for (int column = 0; column < LayerTable::kColumns; ++column)
      visit(table, CellName(family, row, column), row, column);
}

}  // namespace

std::string RecoveryText(const DesignState& s) {
  std::string out(kHead);
  out += '\n';
  AppendLine(out, {"file", s.gFilePath.text(), s.gFileName.text()});
  AppendLine(out, {"family", s.gShow4Axis ? "4" : "2", ""});
  AppendLine(out, {"time", std::to_string(s.gBuildHours), std::to_string(s.gBuildMinutes)});
  ForEachField(s, [&out](const Field& field) {
    if (!IsOfDesign(field.row())) return;
    std::vector<std::string> parts = {"field",     NameOf(field),  field.text(), FlagsOf(field.looks()),
                                      field.tip(), field.caption()};
    parts.insert(parts.end(), field.entries().begin(), field.entries().end());
    AppendLine(out, parts);
  });
  const auto append = [&out](const LayerTable& table, const std::string& name, int row, int column) {
    if (!table(row, column).empty()) AppendLine(out, {"cell", name, table(row, column)});
  };
  ForEachCell(s.LayerTable2Ax, '2', append);
  ForEachCell(s.LayerTable4Ax, '4', append);
  out += kEnd;
  return out;
}

std::optional<RecoveredDesign> ReadRecovery(std::string_view text) {
  RecoveredDesign design;
  bool headed = false;
  while (true) {
    const auto end = text.find('\n');
    const std::string_view line = text.substr(0, end);
    if (!headed && line != kHead) return std::nullopt;
    if (end == std::string_view::npos) break;
    if (headed && !ReadLine(design, PartsOf(line))) return std::nullopt;
    headed = true;
    text.remove_prefix(end + 1);
  }
  if (!headed || text != kEnd) return std::nullopt;
  return design;
}

void Restore(DesignState& s, const RecoveredDesign& design) {
  ShowAxisDisplay(s, design.fourAxis);
  ForEachField(s, [&design](Field& field) {
    const auto found = design.fields.find(NameOf(field));
    if (!IsOfDesign(field.row()) || found == design.fields.end()) return;
    field.Restore(found->second.text);
    field.RestoreLooks(found->second.looks);
  });
  const auto take = [&design](LayerTable& table, const std::string& name, int row, int column) {
    const auto found = design.cells.find(name);
    table.Set(row, column, found == design.cells.end() ? "" : std::string_view(found->second));
  };
  ForEachCell(s.LayerTable2Ax, '2', take);
  ForEachCell(s.LayerTable4Ax, '4', take);
  s.mnuINCH = s.InInches();
  s.mnuMM = !s.mnuINCH;
  s.gBuildHours = design.gBuildHours;
  s.gBuildMinutes = design.gBuildMinutes;
  s.gFilePath = design.filePath;
  s.gFileName = design.fileName;
  s.gGridSync = true;
  if (s.lblStatusBar2.tip().empty()) s.lblStatusBar2.CopyFrom(s.gFileName);
}

}  // namespace torvane
