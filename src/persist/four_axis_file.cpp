#include "persist/four_axis_file.h"

#include <algorithm>

#include "calc/patterns.h"
#include "design/masks.h"
#include "design/reset.h"
#include "persist/design_file.h"
#include "persist/tagged_text.h"
#include "text/text.h"

namespace torvane {

namespace {

struct Reader {
  DesignState& s;
  FourAxisHeld& held;
  const Platform& platform;
};

// One tag: what its value does when read, and what is written. A tag without a writer is not written as one
// line of its own.
struct Tag {
  std::string_view name;
  void (*read)(Reader&, const std::string& value);
  MaybeText (*write)(const DesignWriter&);
};

template <FourAxisHeld::Pair FourAxisHeld::*pair>
void HoldPair(Reader& r, const std::string&) {
  r.held.*pair = {r.s.gTagFields(1), r.s.gTagFields(2)};
}

template <FieldArray Fields::*array, int first, int second>
MaybeText PairOf(const DesignWriter& w) {
  return {true, JoinList({TrimmedAt<array, first>(w).text, TrimmedAt<array, second>(w).text})};
}

// The lists of all rows follow the part type, as when the operator chooses it.
void ReadType(Reader& r, const std::string& value) {
  const std::string type = UpperCase(value);
  for (int i = 0; i <= 2; ++i)
    if (type == kPartTypes[i]) SelectPartType(r.s, i);
}

MaybeText TypeOf(const DesignWriter& w) {
  for (int i = 0; i <= 2; ++i)
    if (w.s.optType(i).checked()) return {true, kPartTypes[i]};
  return {};
}

void ReadOffsets(Reader& r, const std::string&) {
  DesignState& s = r.s;
  for (int i = 0; i <= 6; ++i) {
    const Number offset = s.Read(s.gTagFields(i + 1));
    s.txtAdjust(i) = s.InInches() ? offset.as(mask::kOffset) : offset.as(mask::kOffsetMM);
  }
}

MaybeText OffsetsOf(const DesignWriter& w) {
  std::vector<std::string> offsets;
  for (int i = 0; i <= 6; ++i) offsets.emplace_back(Trim(w.s.txtAdjust(i).text()));
  return {true, JoinList(offsets)};
}

constexpr int kLastLayerField = 12;

void ReadLayer(Reader& r, const std::string&) {
  DesignState& s = r.s;
  const Number row = Int(s.Read(s.gTagFields(1)));
  if (!holds(row >= 0) || !holds(row < LayerTable::kRows)) return;
  for (int field = 2; field <= kLastLayerField; ++field) {
    const std::string& text = s.gTagFields(field);
    const bool asItStands = field >= 3 && field <= 5;  // numbers
    s.LayerTable4Ax.Set(static_cast<int>(row.value()), field - 1, asItStands ? text : UpperCase(text));
  }
}

// In the order of a written file; the layers follow.
constexpr Tag kTags[] = {
    {"DecimalComma", TakeDecimalComma, DecimalCommaOf},
    {"Filename", PassBy, FileNameOf},
    {"Version", PassBy, VersionOf},
    {"Type", ReadType, TypeOf},
    {"Date_of_Creation", Take<&Fields::Date_of_Creation>, DateOf},
    {"Units", TakeUnits, UnitsOf},
    {"Author", PassBy, TextOfField<&Fields::Author>},
    {"tv_community_username", Take<&Fields::Author>, nullptr},
    {"Author_Email", PassBy, TextOfField<&Fields::Author_Email>},
    {"Comments", Take<&Fields::Comments>, TextOfField<&Fields::Comments>},
    {"Length_Total", Take<&Fields::Length_Total>, Trimmed<&Fields::lblLengthTotal>},
    {"Band_Width", Take<&Fields::Band_Width>, InDesignUnits<&Fields::txtBandWidth, 1>},
    {"Band_Thickness", Take<&Fields::Band_Thickness>, InDesignUnits<&Fields::txtBandThickness, 1>},
    {"Diameter", HoldPair<&FourAxisHeld::diameter>, PairOf<&Fields::txtDia, 0, 1>},
    {"Z_Coords", HoldPair<&FourAxisHeld::zCoords>, PairOf<&Fields::txtZ4, 0, 3>},
    {"Hemi_Coords", HoldPair<&FourAxisHeld::hemiCoords>, PairOf<&Fields::txtZ4, 1, 2>},
    {"Opening_Diameter", HoldPair<&FourAxisHeld::openingDiameter>, PairOf<&Fields::txtPODia, 0, 1>},
    {"Skirt_Length", HoldPair<&FourAxisHeld::skirtLength>,
     [](const DesignWriter& w) {
       return MaybeText{
           true, JoinList({Trimmed<&Fields::txtSkirtLeft>(w).text, Trimmed<&Fields::txtSkirtRight>(w).text})};
     }},
    {"Winding_Rate", [](Reader& r, const std::string& v) { r.held.windingRate = UpperCase(v); },
     Trimmed<&Fields::cmbRate>},
    {"DHPath_Offsets", ReadOffsets, OffsetsOf},
    {"Number_of_Layers", Take<&Fields::Number_of_Layers>, TrimmedAt<&Fields::txtNumberOfLayers, 1>},
    {"Layer", ReadLayer, nullptr},
};

void FillPart(DesignState& s, const FourAxisHeld& held) {
  s.txtNumberOfLayers(1).CopyFrom(s.Number_of_Layers);
  s.txtLengthTotal(1) = s.Length_Total.through(mask::kOpenedLength);
  FillBand(s, 1);
  const auto masked = [&s](const std::string& text) {
    return s.InInches() ? FormatNumberText(s.signs, text, mask::kOpenedDiameter)
                        : FormatNumberText(s.signs, text, mask::kOpenedDiameterMM);
  };
  s.txtDia(0) = masked(held.diameter[0]);
  s.txtDia(1) = masked(held.diameter[1]);
  s.txtZ4(0) = masked(held.zCoords[0]);
  s.txtZ4(3) = masked(held.zCoords[1]);
  s.txtZ4(1) = masked(held.hemiCoords[0]);
  s.txtZ4(2) = masked(held.hemiCoords[1]);
  s.txtPODia(0) = masked(held.openingDiameter[0]);
  s.txtPODia(1) = masked(held.openingDiameter[1]);
  s.txtSkirtLeft = masked(held.skirtLength[0]);
  s.txtSkirtRight = masked(held.skirtLength[1]);
  s.cmbRate = held.windingRate;
}

void FillRows(DesignState& s) {
  const LayerTable& table = s.LayerTable4Ax;
  const int rows = std::min(RowsOf(s.Number_of_Layers), LayerTable::kRows - 1);
  if (s.cmb3D(1).text() == "2AX")
    for (int i = 1; i <= rows; ++i) s.btn4XRow(i).Show(false);
  for (int i = 1; i <= rows; ++i) {
    s.cmbPhiW(i) = table(i, 6);
    s.cmbPhiSplit(i) = table(i, 7);
  }
  for (int i = 1; i <= rows; ++i) {
    s.cmb3D(i) = table(i, 1);
    s.chkPause(i) = Whole(s.Read(table(i, 2))).plain();
    if (s.cmb3D(i).text() == "2AX") continue;
    s.lblRPM(i) = FormatNumberText(s.signs, table(i, 3), mask::kFourAxisSpeed);
    s.lblcSpeed(i) = FormatNumberText(s.signs, table(i, 4), mask::kFourAxisSpeed);
  }
  s.frmMain.SetCaption("Torvane Designer ");
  for (int i = 1; i <= RowsOf(s.txtNumberOfLayers(1)); ++i) s.cmbPattern(i) = table(i, 5);
}

MaybeText LayerOf(const DesignState& s, int i) {
  const MaybeText pause = TextOf(s.signs, Whole(number(s.chkPause(i))).plain());
  return {pause.good, JoinList({std::to_string(i), s.cmb3D(i).text(), pause.text, s.lblRPM(i).text(),
                                s.lblcSpeed(i).text(), s.cmbPattern(i).text(), s.cmbPhiW(i).text(),
                                s.cmbPhiSplit(i).text()})};
}

}  // namespace

Result<DesignRead> OpenTorvaneFileVer40(DesignState& s, FourAxisHeld& held, const Platform& platform,
                                        const std::string& fileName) {
  BlankInputs(s, 2);
  BlankInputs(s, 4);
  const Result<std::string> text = BeginOpen(s, platform.files, fileName);
  if (!text) return Refusal{text.reason()};
  if (!platform.files.Exists(fileName)) return DesignRead::Whole;
  Reader reader{s, held, platform};
  for (const std::string_view line : LinesOf(text.value()))
    if (!line.empty() && !line.starts_with("<#")) ReadTagLine(kTags, reader, line);
  FillPart(s, held);
  FillRows(s);
  s.lblStatusBar2.CopyFrom(s.gFileName);
  return DesignRead::Whole;
}

Result<SavedDesign> SaveTorvaneMakeFileVer40(const DesignState& s, const Platform& platform,
                                             const std::string& fileName) {
  const DesignWriter writer{s, std::chrono::floor<std::chrono::seconds>(platform.clock.Now())};
  TaggedText text;
  WriteHead(text, writer, "4.0", "T4D");
  WriteTags(text, kTags, writer);
  for (int i = 1; i <= RowsOf(s.txtNumberOfLayers(1)); ++i) text.Tag("Layer", LayerOf(s, i));
  return ReplaceDesign(platform.files, fileName, text.text());
}

}  // namespace torvane
