#include "persist/two_axis_file.h"

#include <algorithm>
#include <chrono>

#include "calc/two_axis.h"
#include "design/masks.h"
#include "design/reset.h"
#include "persist/design_file.h"
#include "persist/tagged_text.h"
#include "text/text.h"

namespace torvane {

namespace {

struct Reader {
  DesignState& s;
  TwoAxisLists& lists;
  const Platform& platform;
};

// One tag: whether it counts toward a sufficient file, what its value does when read, and what is written.
// A tag that only older files have is never written.
struct Tag {
  std::string_view name;
  bool counts;
  void (*read)(Reader&, const std::string& value);
  MaybeText (*write)(const DesignWriter&);
};

template <std::string TwoAxisLists::*list>
void Hold(Reader& r, const std::string& value) {
  r.lists.*list = value;
}

// A list with a text for each layer.
template <class TextOfLayer>
MaybeText ListOf(const DesignState& s, TextOfLayer text) {
  std::vector<std::string> fields;
  const int rows = RowsOf(s.txtNumberOfLayers(0));
  for (int i = 1; i <= rows; ++i) fields.push_back(text(i));
  return {true, JoinList(fields)};
}

template <int column>
MaybeText ColumnList(const DesignWriter& w) {
  return ListOf(w.s, [&w](int i) { return w.s.LayerTable2Ax(i, column); });
}

// The stops of the whole design stand for those of each layer.
template <int stop>
MaybeText StopList(const DesignWriter& w) {
  return ListOf(w.s, [&w](int) { return w.s.txtZ2(stop).text(); });
}

// In the order of a written file.
constexpr Tag kTags[] = {
    {"DecimalComma", false, TakeDecimalComma, DecimalCommaOf},
    {"Filename", false, PassBy, FileNameOf},
    {"Version", false, PassBy, VersionOf},
    {"Date_of_Creation", false, Take<&Fields::Date_of_Creation>, DateOf},
    {"Units", false, TakeUnits, UnitsOf},
    {"Author", false, PassBy, TextOfField<&Fields::Author>},
    {"tv_community_username", false, Take<&Fields::Author>, nullptr},
    {"Author_Email", false, PassBy, TextOfField<&Fields::Author_Email>},
    {"Comments", false, PassBy, TextOfField<&Fields::Comments>},
    {"Diameter_Left", true, Take<&Fields::Diameter_Left>, Trimmed<&Fields::txtDiameterLeft>},
    {"Diameter_Right", true, Take<&Fields::Diameter_Right>, Trimmed<&Fields::txtDiameterRight>},
    {"Length_Total", true, Take<&Fields::Length_Total>, TrimmedAt<&Fields::txtZ2, 2>},
    {"Length_Offset_Right", true, PassBy, nullptr},
    {"Length_Offset_Left", true, PassBy, nullptr},
    {"Band_Width", true, Take<&Fields::Band_Width>, InDesignUnits<&Fields::txtBandWidth, 0>},
    {"Band_Thickness", true, Take<&Fields::Band_Thickness>, InDesignUnits<&Fields::txtBandThickness, 0>},
    {"Number_of_Layers", true, Take<&Fields::Number_of_Layers>, TrimmedAt<&Fields::txtNumberOfLayers, 0>},
    {"Winding_Angles", true, Hold<&TwoAxisLists::Winding_Angles>, ColumnList<1>},
    {"Winding_Right_Offsets", true, Hold<&TwoAxisLists::Winding_Right_Offsets>, nullptr},
    {"Winding_Left_Offsets", true, Hold<&TwoAxisLists::Winding_Left_Offsets>, nullptr},
    {"Winding_Right_Coord", true, Hold<&TwoAxisLists::Winding_Right_Coord>, StopList<1>},
    {"Winding_Left_Coord", true, Hold<&TwoAxisLists::Winding_Left_Coord>, StopList<0>},
    {"Winding_Speed", true, Hold<&TwoAxisLists::Winding_Speed>, ColumnList<4>},
    {"Winding_Method", true, Hold<&TwoAxisLists::Winding_Method>, ColumnList<5>},
    {"Layer_Type", true, Hold<&TwoAxisLists::Layer_Type>,
     [](const DesignWriter& w) {
       return ListOf(w.s, [&w](int i) { return w.s.cmb2AxisLayerType(i).text(); });
     }},
    {"Skip_Width", true, Hold<&TwoAxisLists::Skip_Width>, nullptr},
    {"Add_Revs", true, Hold<&TwoAxisLists::Add_Revs>, ColumnList<10>},
    {"Mandrel_RPM", true, Hold<&TwoAxisLists::Mandrel_RPM>, ColumnList<7>},
    {"Carriage_Speeds", true, Hold<&TwoAxisLists::Carriage_Speeds>, ColumnList<8>},
};

constexpr int kSufficientTags = 12;

void ReadTwoAxisTagLine(Reader& reader, std::string_view line) {
  const Tag* tag = ReadTagLine(kTags, reader, line);
  if (tag != nullptr && tag->counts) ++reader.s.gTagLineCount;
}

// A cell of the layer table through a mask; what has none stands as it is.
struct ListColumn {
  std::string TwoAxisLists::*list;
  int column;
  const Mask* mask;
  // The stop that each cell is written to as well, so the last row's stands.
  Field Fields::*stopText = nullptr;
  int stop = 0;
};

constexpr ListColumn kListColumns[] = {
    {&TwoAxisLists::Winding_Angles, 1, &mask::kAngle},
    {&TwoAxisLists::Winding_Right_Offsets, 2, &mask::kCell},
    {&TwoAxisLists::Winding_Left_Offsets, 3, &mask::kCell},
    {&TwoAxisLists::Winding_Right_Coord, 2, &mask::kCell, &Fields::gRightStopText, 1},
    {&TwoAxisLists::Winding_Left_Coord, 3, &mask::kCell, &Fields::gLeftStopText, 0},
    {&TwoAxisLists::Winding_Speed, 4, &mask::kCell},
    {&TwoAxisLists::Winding_Method, 5, nullptr},
    {&TwoAxisLists::Layer_Type, 12, nullptr},
    {&TwoAxisLists::Skip_Width, 6, nullptr},
    {&TwoAxisLists::Add_Revs, 10, nullptr},
    {&TwoAxisLists::Mandrel_RPM, 7, &mask::kAngle},
    {&TwoAxisLists::Carriage_Speeds, 8, &mask::kCell},
};

void FillLayerTable(DesignState& s, const TwoAxisLists& lists) {
  // A cell behind the hundredth does not exist, whatever the count says.
  const int rows = std::min(RowsOf(s.Number_of_Layers), SplitFields::kLast);
  for (const ListColumn& column : kListColumns) {
    SplitListToFields(s, lists.*column.list);
    for (int i = 1; i <= rows; ++i) {
      const std::string& cell = s.gListFields(i);
      const std::string text = column.mask != nullptr ? FormatNumberText(s.signs, cell, *column.mask) : cell;
      s.LayerTable2Ax.Set(i, column.column, text);
      if (column.stopText == nullptr) continue;
      s.*column.stopText = text;
      s.txtZ2(column.stop).CopyFrom(s.*column.stopText);
    }
  }
}

void FillPart(DesignState& s) {
  s.txtNumberOfLayers(0).CopyFrom(s.Number_of_Layers);
  s.txtDiameterLeft = s.Diameter_Left.through(mask::kOpenedDiameter);
  s.txtDiameterRight = s.Diameter_Right.through(mask::kOpenedDiameter);
  s.txtLengthTotal(0) = s.Length_Total.through(mask::kOpenedLength);
  s.txtZ2(2).CopyFrom(s.Length_Total);
  FillBand(s, 0);
}

void FillRows(DesignState& s) {
  const LayerTable& table = s.LayerTable2Ax;
  for (int i = 1; i <= RowsOf(s.txtNumberOfLayers(0)); ++i) {
    s.txtWA(i) = table(i, 1);
    s.txtRight(i) = table(i, 2);
    s.txtLeft(i) = table(i, 3);
    s.cmbSpeed(i) = table(i, 4);
    s.cmbMethod(i) = table(i, 5);
    s.txtMRPM(i) = table(i, 7);
    s.txtCarriageSpeed(i) = FormatNumberText(s.signs, table(i, 8), mask::kCarriageSpeed);
    s.txtAddRevs(i) = table(i, 10);
    s.cmb2AxisLayerType(i) = table(i, 12).empty() ? "REG" : UpperCase(table(i, 12));
  }
}

DesignRead ReadDesign(Reader& reader, std::string_view text) {
  DesignState& s = reader.s;
  s.gTagLineCount = 0;
  s.gLastFileInUse.CopyFrom(s.gFilePath);
  for (const std::string_view line : LinesOf(text)) ReadTwoAxisTagLine(reader, line);
  if (s.gTagLineCount < kSufficientTags) return DesignRead::LacksData;
  FillPart(s);
  FillLayerTable(s, reader.lists);
  // The rows come from the table: until they are in, it does not follow them.
  s.gGridSync = false;
  FillRows(s);
  s.gGridSync = true;
  s.frmMain.SetCaption("Torvane Designer");
  RecalculateTwoAxisLayers(s, kSpeedsByAngle);
  s.lblStatusBar2.CopyFrom(s.gFileName);
  return DesignRead::Whole;
}

}  // namespace

Result<DesignRead> OpenTorvaneFileVer20(DesignState& s, TwoAxisLists& lists, const Platform& platform,
                                        const std::string& fileName) {
  BlankInputs(s, 4);
  BlankInputs(s, 2);
  const Result<std::string> text = BeginOpen(s, platform.files, fileName);
  if (!text) return Refusal{text.reason()};
  Reader reader{s, lists, platform};
  return platform.files.Exists(fileName) ? ReadDesign(reader, text.value()) : DesignRead::Whole;
}

Result<SavedDesign> SaveTorvaneMakeFileVer20(const DesignState& s, const Platform& platform,
                                             std::string& fileName) {
  if (fileName.ends_with("tvd")) fileName.replace(fileName.size() - 3, 3, "t2d");
  const DesignWriter writer{s, std::chrono::floor<std::chrono::seconds>(platform.clock.Now())};
  TaggedText text;
  WriteHead(text, writer, VersionOf(writer).text, "T2D");
  WriteTags(text, kTags, writer);
  return ReplaceDesign(platform.files, fileName, text.text());
}

}  // namespace torvane
