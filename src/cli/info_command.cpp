#include <cstdio>
#include <nlohmann/json.hpp>

#include "cli/commands.h"
#include "cli/designs.h"
#include "design/catalogue.h"
#include "host/code_page.h"

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
    if (!IsUsed(row, field.index(), s.gShow4Axis)) return;
    if (IsScheduleRow(row) && field.index() > rows && field.index() != IndexSet::kAllRows) return;
    object[NameOf(field)] = Report(row.kind, field);
  });
  for (const std::string& name : ReportedValues()) object[name] = FindValue(s, name).text;
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

void PrintPair(const char* caption, const std::string& value, const char* unit) {
  std::printf("  %-20s %s %s\n", caption, Padded(value, 10, true).c_str(), unit);
}

struct Column {
  const char* heading;
  FieldArray Fields::*field;
  int width;
  bool right;
};

constexpr Column kColumns[] = {
    {"Type", &Fields::cmb2AxisLayerType, 7, false},   {"Angle", &Fields::txtWA, 7, true},
    {"Speed", &Fields::cmbSpeed, 6, false},           {"Method", &Fields::cmbMethod, 7, false},
    {"Wrap", &Fields::txtAddRevs, 6, true},           {"Mandrel", &Fields::txtMRPM, 8, true},
    {"Carriage", &Fields::txtCarriageSpeed, 9, true}, {"Passes", &Fields::lblPassesToCover, 7, true},
    {"Minutes", &Fields::lblMinutesToCover, 8, true}, {"Length", &Fields::lblLengthToCover, 9, true},
};

void PrintRow(const DesignState& s, int row, const std::string& number) {
  std::printf("  %s", Padded(number, 5, true).c_str());
  for (const Column& column : kColumns)
    std::printf(" %s", Padded(ToUtf8((s.*column.field)(row).text()), column.width, column.right).c_str());
  std::printf("\n");
}

void PrintTable(const DesignState& s) {
  const bool inches = s.InInches();
  const char* length = inches ? "in" : "mm";
  std::printf("%s\n", ToUtf8(s.gFileName.text()).c_str());
  PrintPair("Left diameter", s.txtDiameterLeft.text(), length);
  PrintPair("Right diameter", s.txtDiameterRight.text(), length);
  PrintPair("Total length", s.txtLengthTotal(0).text(), length);
  PrintPair("Left stop", s.txtZ2(0).text(), length);
  PrintPair("Right stop", s.txtZ2(1).text(), length);
  PrintPair("Winding length", s.txtZ2(2).text(), length);
  PrintPair("Band width", s.txtBandWidth(0).text(), "in");
  PrintPair("", s.txtBandWidthMM(0).text(), "mm");
  PrintPair("Band thickness", s.txtBandThickness(0).text(), "in");
  PrintPair("", s.txtBandThicknessMM(0).text(), "mm");
  PrintPair("Number of Layers", s.txtNumberOfLayers(0).text(), "");
  std::printf("\n  Layer");
  for (const Column& column : kColumns)
    std::printf(" %s", Padded(column.heading, column.width, column.right).c_str());
  std::printf("\n       ");
  for (const Column& column : kColumns) {
    const std::string_view heading = column.heading;
    const char* unit = heading == "Angle" || heading == "Wrap" ? "deg"
                       : heading == "Mandrel"                  ? "RPM"
                       : heading == "Carriage"                 ? (inches ? "in/s" : "mm/s")
                       : heading == "Length"                   ? (inches ? "ft" : "m")
                                                               : "";
    std::printf(" %s", Padded(unit, column.width, column.right).c_str());
  }
  std::printf("\n");
  for (int row = 1; row <= RowsOf(s.txtNumberOfLayers(0)); ++row) PrintRow(s, row, std::to_string(row));
  PrintRow(s, IndexSet::kAllRows, "Total");
  std::printf("\n");
  PrintPair("Est. Build Time", s.lblBuildTime(0).text(), "min");
  PrintPair("Filament Length", s.lblLengthRequired(0).text(), inches ? "ft" : "m");
  PrintPair("Wall Thickness", s.lblFinalThickness(0).text(), "in");
  PrintPair("Part Volume", s.lblFilamentVOlume(0).text(), inches ? "cu in" : "cc");
  PrintPair("Est. Total Wgt.", s.lblEstWeight(0).text(), "lb");
  PrintPair("Est. Glue Wgt.", s.lblTotalGlueWgt(0).text(), "g");
  std::printf("  Program declares %d h %d min\n", s.gBuildHours, s.gBuildMinutes);
}

void PrintBriefHead() {
  std::printf("%-28s %6s %7s %9s %12s\n", "Design", "Layers", "Passes", "Minutes", "Filament");
}

void PrintBrief(const DesignState& s) {
  const int all = IndexSet::kAllRows;
  const int panel = s.Panel();
  std::printf("%s %6s %7s %9s %9s %s\n", Padded(ToUtf8(s.gFileName.text()), 28, false).c_str(),
              s.txtNumberOfLayers(panel).text().c_str(), s.lblPassesToCover(all).text().c_str(),
              s.lblMinutesToCover(all).text().c_str(), s.lblLengthToCover(all).text().c_str(),
              s.InInches() ? "ft" : "m");
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
