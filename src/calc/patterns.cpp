#include "calc/patterns.h"

#include <algorithm>
#include <cmath>

#include "calc/four_axis.h"
#include "design/masks.h"
#include "design/units.h"
#include "text/text.h"

namespace torvane {

namespace {

// Rows of each working table; what goes beyond is dropped.
constexpr std::size_t kMostRows = 100;
constexpr int kHighestSearchAngle = 45;
constexpr int kMostWholeTurns = 12;
constexpr double kAnglesApart = 5;
// No mandrel takes more bands than this.
constexpr double kMostBands = 2147483647;

// Bands that go round at a search angle, the band's width round the mandrel being W / cos.
double BandsAround(const PatternPart& part, int searchAngle) {
  const double bandAround = part.bandWidth / std::cos(searchAngle * kShortPi / 180);
  return std::floor(part.circumference / bandAround) + 1;
}

struct Factors {
  double a, b;
};

// The ways to lay `bands` bands as groups times circuits, by rising groups: two and more of each, but for two
// bands.
void Factorise(double bands, std::vector<Factors>& table) {
  table.clear();
  if (!(bands >= 2 && bands <= kMostBands)) return;
  const auto n = static_cast<std::uint32_t>(bands);
  for (std::uint32_t f = 2; f * f <= n; ++f)
    if (n % f == 0) table.push_back({static_cast<double>(f), bands / static_cast<double>(f)});
  for (std::size_t i = table.size(); i-- > 0;)
    if (table[i].a != table[i].b) table.push_back({table[i].b, table[i].a});
  if (n == 2) table.push_back({2, 1});
  if (table.size() > kMostRows) table.resize(kMostRows);
}

// Angles near enough to the search angle whose count of bands they take.
bool CoversAt(double angle, int searchAngle) {
  const double whole = std::floor(angle);
  return searchAngle - kAnglesApart < whole && whole < searchAngle + kAnglesApart;
}

double ToTwoDecimals(NumberSigns signs, double angle) {
  return ReadNumberText(signs, FormatNumberText(signs, angle, "000.#0"_mask)).value();
}

// The winding angle at which the mandrel turns by `rotation` degrees while the carriage runs the traverse.
double WindingAngle(const PatternPart& part, double rotation) {
  return std::atan(rotation * part.circumference / 360 / part.traverseLength) * 180 / kPi;
}

// Adds the patterns of one pair of factors. A pass turns the mandrel by k whole turns and one part of a
// circle; the two traverses take what the two end wraps leave of it.
void AddPatterns(NumberSigns signs, const PatternPart& part, int searchAngle, const Factors& factors,
                 std::vector<Pattern>& found) {
  for (int k = 1; k <= kMostWholeTurns; ++k) {
    const double rotationOfPass = 360 / factors.a + 360.0 * k;
    const double traverseRotation = (rotationOfPass - 2 * part.wrapAngle) / 2;
    const double angle = WindingAngle(part, traverseRotation);
    if (angle > kHighestSearchAngle) return;
    if (!(angle > 1 && angle < part.highestAngle) || !CoversAt(angle, searchAngle)) continue;
    const double rounded = ToTwoDecimals(signs, angle);
    const bool known = std::any_of(found.begin(), found.end(),
                                   [rounded](const Pattern& pattern) { return pattern.angle == rounded; });
    if (!known && found.size() < kMostRows) found.push_back({factors.a, factors.b, rounded});
  }
}

std::vector<Pattern> Sorted(const std::vector<Pattern>& found) {
  std::vector<Pattern> list;
  for (int a = 1; a <= static_cast<int>(kMostRows); ++a) {
    const std::size_t before = list.size();
    std::copy_if(found.begin(), found.end(), std::back_inserter(list),
                 [a](const Pattern& pattern) { return pattern.groups == a; });
    if (list.size() > before) list.emplace_back();
  }
  if (list.size() > kMostRows) list.resize(kMostRows);
  return list;
}

bool SameBeginning(std::string_view a, std::string_view b) {
  constexpr std::size_t kBeginning = 8;
  return EqualNoCase(a.substr(0, kBeginning), b.substr(0, kBeginning));
}

void Choose(DesignState& s, int row, const std::string& stored) {
  s.cmbPattern(row) = stored;
  s.cmbPattern(row).SetMark(Mark::Plain);
  const Number windingAngle = s.Read(SplitPatternFields(s, stored).angle);
  if (windingAngle.good()) CalculateAndShow(s, windingAngle, stored, row);
}

void EnablePhiAndPhiSplitCombos(DesignState& s, bool enable) {
  for (int row = 1; row <= 22; ++row) {
    s.cmbPhiW(row).Enable(enable);
    s.cmbPhiSplit(row).Enable(enable);
  }
}

}  // namespace

std::vector<Pattern> ClosingPatterns(NumberSigns signs, const PatternPart& part) {
  std::vector<Pattern> found;
  if (part.traverseLength == 0 || part.bandWidth == 0) return found;
  std::vector<Factors> factors;
  for (int searchAngle = 1; searchAngle <= kHighestSearchAngle; ++searchAngle) {
    Factorise(BandsAround(part, searchAngle), factors);
    for (const Factors& pair : factors) AddPatterns(signs, part, searchAngle, pair, found);
  }
  return Sorted(found);
}

std::string PatternText(NumberSigns signs, const Pattern& pattern, double wrapAngle) {
  if (pattern.blank()) return {};
  std::string text = NumberToText(signs, pattern.angle);
  if (text.size() == 4) text += '0';
  return text + " | " + NumberToText(signs, pattern.groups) + " x " + NumberToText(signs, pattern.circuits) +
         " | " + NumberToText(signs, wrapAngle) + "\xB0";
}

PatternFields SplitPatternFields(DesignState& s, std::string_view text) {
  s.gTagFields.Split(text, text.find(';') != std::string_view::npos ? "|" : kPatternSeparators);
  return {s.gTagFields(1), s.gTagFields(2), s.gTagFields(3), s.gTagFields(4)};
}

bool IsHoopRow(const DesignState& s, int row) { return EqualNoCase(s.cmb3D(row).text(), "HOOP"); }

Number ShownAngle(const DesignState& s, int row) {
  if (IsHoopRow(s, row)) return 90;
  const std::string_view pattern = s.cmbPattern(row).text();
  return s.Read(Trim(pattern.substr(0, pattern.find_first_of(kPatternSeparators))));
}

Number Degrees(const DesignState& s, const Field& field) { return s.Read(WithoutLast(field.text(), 1)); }

Number GrazingAngle(Number diameter, Number openingDiameter) {
  const Number outer = diameter / 2;
  const Number inner = openingDiameter / 2;
  const Number ratio = Pow((outer - inner) * (outer + inner), 0.5) / outer;
  return ratio.good() ? 2 * (180 / kShortPi) * ArcSin(ratio) : ratio;
}

void PopulatePatternCombo(DesignState& s, int row) {
  const Number wrapAngle = Degrees(s, s.cmbPhiW(row));
  if (!holds(wrapAngle != 0)) return;
  s.gSplitAngle = Degrees(s, s.cmbPhiSplit(row)).plain();
  if (s.cmb3D(row).text() == "HOOP") {
    s.cmbPattern(row).SetEntries({});
    s.cmbPattern(row) = "HOOP";
    return;
  }
  const Number circumference = number(s.txtDia(0)) * kPi;
  const Number bandWidth = BandWidth(s, 1);
  if (!holds(bandWidth != 0)) return;
  const Number traverseLength = TraverseLength(s);
  Kept grazing;
  grazing = GrazingAngle(number(s.txtDia(0)), number(s.txtPODia(0)));
  s.lblGrazeAngle = FormatNumberText(s.signs, grazing.value(), mask::kGrazingAngle) + " \xB0";

  std::vector<Pattern> patterns;
  if (circumference.good() && traverseLength.good())
    patterns = ClosingPatterns(s.signs, {circumference.value(), bandWidth.value(), traverseLength.value(),
                                         wrapAngle.value(), s.gNoListPatternDegrees});
  const std::string stored = s.LayerTable4Ax(row, 5);
  std::vector<std::string> entries;
  bool storedIsValid = false;
  for (const Pattern& pattern : patterns) {
    entries.push_back(PatternText(s.signs, pattern, wrapAngle.value()));
    storedIsValid = storedIsValid || (!pattern.blank() && SameBeginning(entries.back(), stored));
  }
  s.cmbPattern(row).SetEntries(std::move(entries));
  if (storedIsValid) {
    Choose(s, row, stored);
  } else {
    s.cmbPattern(row) = kNoPattern;
    s.cmbPattern(row).SetMark(Mark::NeedsInput);
  }
}

void Refresh4AXGrid(DesignState& s) {
  const int rows = RowsOf(s.txtNumberOfLayers(1));
  for (int row = 1; row <= rows; ++row) PopulatePatternCombo(s, row);
  RecalculateFourAxisRows(s);
}

void SelectPartType(DesignState& s, int index) {
  const bool angles = index == 2;
  for (int i = 0; i <= 2; ++i) s.optType(i) = i == index ? "True" : "False";
  EnablePhiAndPhiSplitCombos(s, !angles);
  s.gPartType = kPartTypes[index];
  s.lblPatternHeading = angles ? "Winding Angle" : "Pattern";
  for (int row = 1; row <= IndexSet::kAllRows; ++row) {
    s.cmb3D(row).SetEntries({angles ? "2AX" : "REG", "HOOP"});
    s.cmb3D(row) = angles ? "2AX" : "REG";
    if (angles) s.cmbPattern(row).SetEntries({});
    s.cmbPattern(row) = angles ? "Input Winding Angle" : "";
    s.cmbPhiW(row) = angles ? "N/A" : "";
    s.cmbPhiSplit(row) = angles ? "N/A" : "";
    s.cmbPhiW(row).Enable(!angles);
    s.cmbPhiSplit(row).Enable(!angles);
  }
  ShowPartType(s, index);
}

void ShowPartType(DesignState& s, int index) {
  const bool angles = index == 2;
  for (int i = 1; i <= 2; ++i) s.txtZ4(i).Show(index == 1);
  for (int i = 0; i <= 1; ++i) {
    s.txtPODia(i).Show(!angles);
    for (FieldArray* jog : {&s.btnRDHZ, &s.btnLDHZ, &s.btnLeftCloser, &s.btnRightCloser})
      (*jog)(i).Show(!angles);
  }
  for (int i = 0; i <= 6; ++i) s.txtAdjust(i).Show(!angles || i == 3);
  const int rows = RowsOf(s.txtNumberOfLayers(1));
  for (int row = 1; row <= rows; ++row) s.btn4XRow(row).Show(!angles);
  s.picFlat.Show(index == 0);
  s.picDome.Show(index == 1);
  s.pic2AxNoWrap.Show(angles);
}

}  // namespace torvane
