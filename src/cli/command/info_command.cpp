#include <cstdio>
#include <nlohmann/json.hpp>
#include <span>

#include "cli/command/commands.h"
#include "cli/computer/designs.h"
#include "design/catalogue.h"
#include "text/code_page.h"
#include "workbench/schedule/totals.h"

namespace torvane {

namespace {

std::string Report(Kind kind, const Field& field) {
  const bool flag = kind == Kind::Check || kind == Kind::Option;
  if (!flag) return ToUtf8(field.text());
  if (kind == Kind::Check) return field.checked() ? "1" : "0";
  return field.checked() ? "True" : "False";
}

// Every field that the family uses, of the rows in use and the row of totals.
nlohmann::ordered_json Everything(DesignState& s) {
  nlohmann::ordered_json object;
  const int rows = RowsOf(s.txtNumberOfLayers(s.Panel()));
  ForEachField(s, [&](const Field& field) {
    const FieldRow& row = field.row();
    if (!IsUsed(row, field.index(), s.family()) || row.kind == Kind::Caption || row.kind == Kind::Control)
      return;
    if (IsScheduleRow(row) && field.index() > rows && field.index() != IndexSet::kAllRows) return;
    object[NameOf(field)] = Report(row.kind, field);
  });
  for (const std::string& name : ReportedValues()) object[name] = FindValue(s, name).text;
  if (!s.gShow4Axis) return object;
  for (int row = 1; row <= rows; ++row) {
    auto list = nlohmann::ordered_json::array();
    for (const std::string& entry : s.cmbPattern(row).entries()) list.push_back(ToUtf8(entry));
    object["list(" + std::to_string(row) + ")"] = list;
  }
  return object;
}

// Columns are padded by characters, not by bytes.
std::string Padded(const std::string& text, int width, bool right) {
  std::size_t characters = 0;
  for (const char c : text) characters += (static_cast<unsigned char>(c) & 0xC0U) != 0x80U ? 1U : 0U;
  const auto wanted = static_cast<std::size_t>(width);
  const std::string blanks(wanted > characters ? wanted - characters : 0, ' ');
  return right ? blanks + text : text + blanks;
}

// All three are the station's text.
void PrintPair(std::string_view caption, std::string_view value, std::string_view unit) {
  std::printf("  %s %s %s\n", Padded(ToUtf8(caption), 20, false).c_str(),
              Padded(ToUtf8(value), 10, true).c_str(), ToUtf8(unit).c_str());
}

// A column of the layers.
struct Column {
  const char* heading;
  FieldArray Fields::*field;
  int width;
  bool right;
  FieldUnit unit = FieldUnit::None;
};

constexpr Column kTwoAxisColumns[] = {
    {"Type", &Fields::cmb2AxisLayerType, 7, false},
    {"Angle", &Fields::txtWA, 7, true, FieldUnit::Degrees},
    {"Speed", &Fields::cmbSpeed, 6, false},
    {"Method", &Fields::cmbMethod, 7, false},
    {"Wrap", &Fields::txtAddRevs, 6, true, FieldUnit::Degrees},
    {"Mandrel", &Fields::txtMRPM, 8, true, FieldUnit::Rpm},
    {"Carriage", &Fields::txtCarriageSpeed, 9, true, FieldUnit::Speed},
    {"Passes", &Fields::lblPassesToCover, 7, true},
    {"Minutes", &Fields::lblMinutesToCover, 8, true},
    {"Length", &Fields::lblLengthToCover, 9, true, FieldUnit::Filament},
};

constexpr Column kFourAxisColumns[] = {
    {"Type", &Fields::cmb3D, 5, false},
    {"Pattern", &Fields::cmbPattern, 24, false},
    {"Wrap", &Fields::cmbPhiW, 5, true},
    {"Split", &Fields::cmbPhiSplit, 5, true},
    {"Pause", &Fields::chkPause, 5, true},
    {"Mandrel", &Fields::lblRPM, 8, true, FieldUnit::Rpm},
    {"Carriage", &Fields::lblcSpeed, 9, true, FieldUnit::Speed},
    {"Passes", &Fields::lblNPasses, 7, true},
    {"Minutes", &Fields::lblMinutes, 8, true},
    {"Length", &Fields::lblLength, 9, true, FieldUnit::Filament},
};

using Columns = std::span<const Column>;

void PrintRow(const DesignState& s, Columns columns, int row, const std::string& number) {
  std::printf("  %s", Padded(number, 5, true).c_str());
  for (const Column& column : columns)
    std::printf(" %s", Padded(ToUtf8((s.*column.field)(row).text()), column.width, column.right).c_str());
  std::printf("\n");
}

void PrintLayers(const DesignState& s, Columns columns) {
  std::printf("\n  Layer");
  for (const Column& column : columns)
    std::printf(" %s", Padded(column.heading, column.width, column.right).c_str());
  std::printf("\n       ");
  for (const Column& column : columns)
    std::printf(" %s",
                Padded(std::string(TextOf(column.unit, s.InInches())), column.width, column.right).c_str());
  std::printf("\n");
  const int rows = RowsOf(s.txtNumberOfLayers(s.Panel()));
  for (int row = 1; row <= rows; ++row) PrintRow(s, columns, row, std::to_string(row));
  PrintRow(s, columns, IndexSet::kAllRows, "Total");
  std::printf("\n");
}

// A field with its name and unit; the second figure of a pair goes without the name.
void PrintField(const DesignState& s, const Field& field, bool named = true) {
  const FieldWords& words = WordsOf(field);
  PrintPair(named ? words.name : "", field.text(), TextOf(words.unit, s.InInches()));
}

void PrintFields(const DesignState& s, std::initializer_list<const Field*> fields) {
  for (const Field* field : fields) PrintField(s, *field);
}

void PrintTwoAxisPart(const DesignState& s) {
  PrintFields(s, {&s.txtDiameterLeft, &s.txtDiameterRight, &s.txtLengthTotal(0), &s.txtZ2(0), &s.txtZ2(1),
                  &s.txtZ2(2)});
}

void PrintFourAxisPart(const DesignState& s) {
  PrintPair("Part type", s.gPartType.text(), "");
  PrintFields(s, {&s.txtDia(0), &s.txtDia(1), &s.txtZ4(0), &s.txtZ4(1), &s.txtZ4(2), &s.txtZ4(3),
                  &s.lblLengthTotal, &s.txtPODia(0), &s.txtPODia(1), &s.lblGrazeAngle, &s.cmbRate});
}

void PrintTable(const DesignState& s) {
  const int panel = s.Panel();
  std::printf("%s\n", ToUtf8(s.gFileName.text()).c_str());
  if (s.gShow4Axis)
    PrintFourAxisPart(s);
  else
    PrintTwoAxisPart(s);
  PrintField(s, s.txtBandWidth(panel));
  PrintField(s, s.txtBandWidthMM(panel), false);
  PrintField(s, s.txtBandThickness(panel));
  PrintField(s, s.txtBandThicknessMM(panel), false);
  PrintField(s, s.txtNumberOfLayers(panel));
  PrintLayers(s, s.gShow4Axis ? Columns(kFourAxisColumns) : Columns(kTwoAxisColumns));
  for (const Total& total : TotalsOf(s, s.family()))
    PrintPair(total.caption, total.figure->text(), total.unit);
  std::printf("  Program declares %d h %d min\n", s.gBuildHours, s.gBuildMinutes);
}

void PrintBriefHead() {
  std::printf("%-28s %6s %7s %9s %12s\n", "Design", "Layers", "Passes", "Minutes", "Filament");
}

void PrintBrief(const DesignState& s) {
  const int all = IndexSet::kAllRows;
  const bool four = s.gShow4Axis;
  const auto column = [](const Field& field, int width) { return Padded(ToUtf8(field.text()), width, true); };
  std::printf("%s %s %s %s %s %s\n", Padded(ToUtf8(s.gFileName.text()), 28, false).c_str(),
              column(s.txtNumberOfLayers(s.Panel()), 6).c_str(),
              column((four ? s.lblNPasses : s.lblPassesToCover)(all), 7).c_str(),
              column((four ? s.lblMinutes : s.lblMinutesToCover)(all), 9).c_str(),
              column((four ? s.lblLength : s.lblLengthToCover)(all), 9).c_str(), s.InInches() ? "ft" : "m");
}

}  // namespace

int RunInfo(Computer& computer, const std::vector<std::string>& designs, InfoForm form) {
  computer.MakeStationFolders();
  int status = kDone;
  if (form == InfoForm::Brief) PrintBriefHead();
  for (const std::string& design : designs) {
    OpenedDesign opened(computer, design);
    if (!opened) {
      status = kFailed;
      continue;
    }
    DesignState& s = opened.station().s;
    if (form == InfoForm::Json)
      std::printf("%s\n", Everything(s).dump(2).c_str());
    else if (form == InfoForm::Brief)
      PrintBrief(s);
    else
      PrintTable(s);
  }
  return status;
}

}  // namespace torvane
