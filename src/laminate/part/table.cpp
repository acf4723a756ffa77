#include "laminate/part/table.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace torvane::laminate {

namespace {

std::string Trimmed(std::string_view text) {
  constexpr std::string_view kBlanks = " \t\r";
  const auto begin = text.find_first_not_of(kBlanks);
  if (begin == std::string_view::npos) return "";
  return std::string(text.substr(begin, text.find_last_not_of(kBlanks) - begin + 1));
}

// Nothing where a quotation mark is not closed.
std::optional<std::vector<std::string>> CellsOf(std::string_view line, char between) {
  std::vector<std::string> cells(1);
  bool quoted = false;
  for (std::size_t i = 0; i < line.size(); ++i) {
    const char c = line[i];
    if (c == '"' && quoted && i + 1 < line.size() && line[i + 1] == '"')
      cells.back() += line[++i];
    else if (c == '"')
      quoted = !quoted;
    else if (c == between && !quoted)
      cells.emplace_back();
    else
      cells.back() += c;
  }
  if (quoted) return std::nullopt;
  for (std::string& cell : cells) cell = Trimmed(cell);
  return cells;
}

char SignBetween(std::string_view head) {
  char sign = ',';
  std::ptrdiff_t most = 0;
  for (const char candidate : {',', ';', '\t'}) {
    const std::ptrdiff_t count = std::count(head.begin(), head.end(), candidate);
    if (count > most) sign = candidate;
    most = std::max(most, count);
  }
  return sign;
}

}  // namespace

Table ReadTable(std::string_view text) {
  constexpr std::string_view kMark = "\xEF\xBB\xBF";  // as spreadsheets put it before UTF-8
  if (text.starts_with(kMark)) text.remove_prefix(kMark.size());
  Table table;
  int number = 0;
  while (!text.empty()) {
    const auto end = text.find('\n');
    const std::string_view line = text.substr(0, end);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    ++number;
    if (table.rows.empty()) table.between = SignBetween(line);
    std::optional<std::vector<std::string>> cells = CellsOf(line, table.between);
    if (!cells)
      table.open.push_back(number);
    else if (std::any_of(cells->begin(), cells->end(), [](const std::string& cell) { return !cell.empty(); }))
      table.rows.push_back({number, std::move(*cells)});
  }
  return table;
}

std::optional<double> NumberIn(const std::string& cell, char between) {
  std::string text = cell;
  if (between != ',') std::replace(text.begin(), text.end(), ',', '.');
  const char* begin = text.data() + (text.starts_with('+') ? 1 : 0);
  const char* end = text.data() + text.size();
  double number = 0;
  const auto [stopped, error] = std::from_chars(begin, end, number);
  if (error != std::errc() || stopped != end || !std::isfinite(number)) return std::nullopt;
  return number;
}

}  // namespace torvane::laminate
