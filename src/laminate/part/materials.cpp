#include "laminate/part/materials.h"

#include <algorithm>
#include <functional>
#include <map>
#include <optional>

#include "laminate/part/table.h"

namespace torvane::laminate {

namespace {

// What a figure can be.
enum class Sign { Positive, Any, Share, Ratio };

struct Column {
  std::string_view head;
  double unit;  // times the cell's figure
  Sign sign;
  std::function<double&(Material&)> figure;
};

constexpr double kGiga = 1e9, kMega = 1e6;

const std::vector<Column>& Columns() {
  static const std::vector<Column> kColumns = {
      {"Linear density (tex)", 1e-6, Sign::Positive, [](Material& m) -> double& { return m.linearDensity; }},
      {"Density (g/cm3)", 1e3, Sign::Positive, [](Material& m) -> double& { return m.density; }},
      {"Fibre share (% of volume)", 0.01, Sign::Share, [](Material& m) -> double& { return m.fibreShare; }},
      {"E1 (GPa)", kGiga, Sign::Positive, [](Material& m) -> double& { return m.ply.E1; }},
      {"E2 (GPa)", kGiga, Sign::Positive, [](Material& m) -> double& { return m.ply.E2; }},
      {"G12 (GPa)", kGiga, Sign::Positive, [](Material& m) -> double& { return m.ply.G12; }},
      {"nu12", 1, Sign::Ratio, [](Material& m) -> double& { return m.ply.nu12; }},
      {"Tension along (MPa)", kMega, Sign::Positive, [](Material& m) -> double& { return m.strength.Xt; }},
      {"Compression along (MPa)", kMega, Sign::Positive,
       [](Material& m) -> double& { return m.strength.Xc; }},
      {"Tension across (MPa)", kMega, Sign::Positive, [](Material& m) -> double& { return m.strength.Yt; }},
      {"Compression across (MPa)", kMega, Sign::Positive,
       [](Material& m) -> double& { return m.strength.Yc; }},
      {"Shear (MPa)", kMega, Sign::Positive, [](Material& m) -> double& { return m.strength.S; }},
      {"Expansion along (1e-6/K)", 1e-6, Sign::Any, [](Material& m) -> double& { return m.ply.alpha1; }},
      {"Expansion across (1e-6/K)", 1e-6, Sign::Any, [](Material& m) -> double& { return m.ply.alpha2; }},
      {"Price (per kg)", 1, Sign::Positive, [](Material& m) -> double& { return m.price; }},
      {"Spool (m)", 1, Sign::Positive, [](Material& m) -> double& { return m.spool; }},
      {"Hardener (parts to 100)", 0.01, Sign::Positive, [](Material& m) -> double& { return m.hardener; }},
  };
  return kColumns;
}

constexpr std::string_view kName = "Name", kKind = "Kind", kSource = "Source";

std::string Shown(const std::string& text) {
  return '"' + (text.size() > 40 ? text.substr(0, 40) + "..." : text) + '"';
}

// What is wrong with the figure of a cell; nothing where it will do.
std::optional<std::string> TroubleOf(Sign sign, double figure) {
  if (sign == Sign::Positive && figure <= 0) return "must be above 0";
  if (sign == Sign::Share && (figure <= 0 || figure >= 1)) return "must lie between 0 and 100";
  if (sign == Sign::Ratio && (figure <= -1 || figure >= 1)) return "must lie between -1 and 1";
  return std::nullopt;
}

struct Heads {
  std::vector<const Column*> figures;  // null where the column is a text
  int name = -1, kind = -1, source = -1;
  std::string fault;
};

Heads HeadsOf(const TableRow& row) {
  Heads heads;
  for (std::size_t i = 0; i < row.cells.size(); ++i) {
    const std::string& cell = row.cells[i];
    const auto known = std::find_if(Columns().begin(), Columns().end(),
                                    [&](const Column& column) { return column.head == cell; });
    heads.figures.push_back(known == Columns().end() ? nullptr : &*known);
    const int index = static_cast<int>(i);
    if (cell == kName)
      heads.name = index;
    else if (cell == kKind)
      heads.kind = index;
    else if (cell == kSource)
      heads.source = index;
    else if (known == Columns().end() && !cell.empty() && heads.fault.empty())
      heads.fault = "no column of the materials is called " + Shown(cell) + "; its unit stands in its name";
  }
  if (heads.fault.empty() && (heads.name < 0 || heads.kind < 0))
    heads.fault = "the materials need the columns Name and Kind in their first line";
  return heads;
}

std::optional<MaterialKind> KindOf(const std::string& word) {
  if (word == "tow") return MaterialKind::Tow;
  if (word == "resin") return MaterialKind::Resin;
  if (word == "ply") return MaterialKind::Ply;
  return std::nullopt;
}

// A row, or what is wrong with it.
struct ReadRow {
  Material material;
  std::string fault;
};

ReadRow MaterialOf(const TableRow& row, const Heads& heads, char between) {
  const auto text = [&](int column) {
    return column >= 0 && static_cast<std::size_t>(column) < row.cells.size()
               ? row.cells[static_cast<std::size_t>(column)]
               : std::string();
  };
  ReadRow read;
  read.material.name = text(heads.name);
  read.material.source = text(heads.source);
  if (row.cells.size() > heads.figures.size()) return {{}, "it has more cells than the first line"};
  if (read.material.name.empty()) return {{}, "it has no name"};
  const auto kind = KindOf(text(heads.kind));
  if (!kind) return {{}, Shown(text(heads.kind)) + " is no kind: there are tow, resin and ply"};
  read.material.kind = *kind;
  for (std::size_t i = 0; i < row.cells.size(); ++i) {
    const Column* column = heads.figures[i];
    if (column == nullptr || row.cells[i].empty()) continue;
    const std::optional<double> number = NumberIn(row.cells[i], between);
    const std::string head(column->head);
    if (!number) return {{}, head + ": " + Shown(row.cells[i]) + " is not a number"};
    const double figure = *number * column->unit;
    if (const auto trouble = TroubleOf(column->sign, figure)) return {{}, head + " " + *trouble};
    column->figure(read.material) = figure;
  }
  return read;
}

}  // namespace

Fibre Material::AsFibre() const {
  return {ply.E1, ply.E2, ply.G12, ply.nu12, ply.alpha1, ply.alpha2, density, strength.Xt, strength.Xc};
}

Resin Material::AsResin() const {
  return {ply.E1, ply.nu12, ply.G12, ply.alpha1, density, strength.Xt, strength.Xc, strength.S};
}

const Material* Materials::Find(MaterialKind kind, std::string_view name) const {
  for (const Material& row : rows)
    if (row.kind == kind && row.name == name) return &row;
  return nullptr;
}

Materials ReadMaterials(std::string_view text) {
  Materials materials;
  const Table table = ReadTable(text);
  if (table.rows.empty()) {
    materials.faults.emplace_back("the materials are empty");
    return materials;
  }
  const Heads heads = HeadsOf(table.rows.front());
  if (!heads.fault.empty()) {
    materials.faults.push_back(heads.fault);
    return materials;
  }
  for (const int line : table.open)
    materials.faults.push_back("line " + std::to_string(line) + ": a quotation mark is not closed");
  for (std::size_t i = 1; i < table.rows.size(); ++i) {
    const TableRow& row = table.rows[i];
    ReadRow read = MaterialOf(row, heads, table.between);
    if (read.fault.empty() && materials.Find(read.material.kind, read.material.name) != nullptr)
      read.fault = Shown(read.material.name) + " stands further up already";
    if (read.fault.empty())
      materials.rows.push_back(std::move(read.material));
    else
      materials.faults.push_back("line " + std::to_string(row.line) + ": " + read.fault);
  }
  return materials;
}

namespace {

constexpr std::string_view kPercent = "must lie between 0 and 100";

// Sets a figure in percent, or says why not.
std::string TakeShare(const std::string& cell, char between, double& share, bool zero) {
  const std::optional<double> number = NumberIn(cell, between);
  if (!number) return Shown(cell) + " is not a number";
  if (*number < 0 || *number >= 100 || (*number == 0 && !zero)) return std::string(kPercent);
  share = *number / 100;
  return "";
}

std::string TakeItem(Choice& choice, const std::string& item, const std::string& value, char between) {
  if (item == "Tow") return choice.tow = value, "";
  if (item == "Resin") return choice.resin = value, "";
  if (item == "Ply") return choice.ply = value, "";
  if (item == "Resin share (% of volume)") return TakeShare(value, between, choice.resinShare, false);
  if (item == "Waste (%)") return TakeShare(value, between, choice.waste, true);
  if (item == "Tows in the band") {
    const std::optional<double> number = NumberIn(value, between);
    if (!number || *number < 1 || *number > 1000) return "must be a number from 1 to 1000";
    return choice.tows = *number, "";
  }
  if (item == "Growing diameter") {
    if (value != "yes" && value != "no") return "is yes or no";
    return choice.growth = value == "yes", "";
  }
  return "is not known";
}

}  // namespace

Choice ReadChoice(std::string_view text) {
  Choice choice;
  const Table table = ReadTable(text);
  for (const int line : table.open)
    choice.faults.push_back("line " + std::to_string(line) + ": a quotation mark is not closed");
  for (const TableRow& row : table.rows) {
    const std::string& item = row.cells.front();
    const std::string value = row.cells.size() > 1 ? row.cells[1] : "";
    if (item == "Item" || value.empty()) continue;
    const std::string trouble = TakeItem(choice, item, value, table.between);
    if (!trouble.empty())
      choice.faults.push_back("line " + std::to_string(row.line) + ": " + Shown(item) + " " + trouble);
  }
  return choice;
}

}  // namespace torvane::laminate
