// Tables that an operator edits in a spreadsheet: cells between commas, semicolons or tabs.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace torvane::laminate {

struct TableRow {
  int line = 0;
  std::vector<std::string> cells;
};

struct Table {
  std::vector<TableRow> rows;  // the head first; empty ones are left out
  char between = ',';
  std::vector<int> open;  // lines whose quotation mark is not closed; they are no rows
};

// The sign between the cells is the one that the first row has most of. A cell with one in it stands in
// quotation marks.
Table ReadTable(std::string_view text);

// A number of such a table; with a decimal comma too where no comma stands between cells. Nothing for other
// text.
std::optional<double> NumberIn(const std::string& cell, char between);

}  // namespace torvane::laminate
