#include "advice/repairs.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>
#include <optional>
#include <utility>

#include "calc/patterns.h"
#include "design/masks.h"
#include "design/units.h"
#include "text/text.h"
#include "workbench/dialog/settings_dialog.h"
#include "workbench/document/design_commands.h"
#include "workbench/station/layer_count.h"

namespace torvane {

namespace {

using Found = executor::Kind;

// What a button says of a carriage speed and of a pattern's angle.
constexpr Mask kShownSpeed = "##0.0"_mask;
constexpr Mask kShownAngle = "#0.00"_mask;

template <class Doing>
void ForEachLayer(int layers, Doing doing) {
  for (int layer = 1; layer <= kMostLayers; ++layer)
    if ((layers & LayerBit(layer)) != 0) doing(layer);
}

// Whether that holds for each of the layers, and there is one.
template <class Test>
bool OfAll(int layers, Test test) {
  bool all = layers > 1;
  ForEachLayer(layers, [&](int layer) { all = all && test(layer); });
  return all;
}

bool IsHoop(const DesignState& s, int layer) { return holds(number(s.txtWA(layer)) == 90); }
bool IsFast(const DesignState& s, int layer) { return LowerCase(s.cmbSpeed(layer).text()) == "fast"; }

// A name that the operator has given, else the question for one.
void SaveAndOpen(Station& station, int) {
  const DesignState& s = station.s;
  const std::string path = s.gFilePath.text();
  if (!(s.gFileName.empty() ? btnSaveAS_Click(station) : SaveDesign(station, path))) return;
  const std::string saved = s.gFilePath.text();
  if (!s.gFileName.empty() && !s.gDirty) OpenDesign(station, saved);
}

void MeasureOffset(Station& station, int) { OpenSettingsBeside(station, station.s.mnu2Axis ? 1 : 2); }

void TurnRound(Station& station, int) {
  DesignState& s = station.s;
  const std::string left = s.txtDiameterLeft.text(), right = s.txtDiameterRight.text();
  station.Type(s.txtDiameterLeft, right);
  station.Type(s.txtDiameterRight, left);
}

void UseFast(Station& station, int layers) {
  ForEachLayer(layers, [&](int layer) { station.Choose(station.s.cmbSpeed(layer), "fast"); });
}

void UseMandrelShift(Station& station, int layers) {
  ForEachLayer(layers, [&](int layer) { station.Choose(station.s.cmbMethod(layer), "ms"); });
}

void DropAddedWrap(Station& station, int layers) {
  ForEachLayer(layers, [&](int layer) { station.Type(station.s.txtAddRevs(layer), "0"); });
}

void ReCalcAllRows(Station& station, int) { station.Run("btnReCalc", Event::Click); }

void UseLargerMotors(Station& station, int) { station.Run("Form", Event::Click); }

void Save(Station& station, int) { station.Run("mnuSaveFile", Event::Click); }

// The mandrel and carriage speeds of a row at which the carriage keeps its limit. The speeds of a row go
// together: the carriage's follows from a typed one of the mandrel, which has one decimal.
struct LowerSpeeds {
  Number rpm, carriage;
};
LowerSpeeds SpeedsAtLimit(const DesignState& s, int layer) {
  const Number rpm = number(s.txtMRPM(layer)), carriage = number(s.txtCarriageSpeed(layer));
  const Number limit = InUnits(s, s.cMaxSpeed, false);
  const Number slower = Int(rpm * (limit / carriage) * 10) / 10;
  return {slower, carriage * (slower / rpm)};
}

void LowerCarriage(Station& station, int layers) {
  ForEachLayer(layers, [&](int layer) {
    const Number rpm = SpeedsAtLimit(station.s, layer).rpm;
    if (rpm.good())
      station.Type(station.s.txtMRPM(layer),
                   FormatNumberText(station.s.signs, rpm.value(), mask::kMandrelSpeed));
  });
}

// How far the part has to go along Z so that neither stop is beyond what the carriage reaches; a failure
// where it does not fit, 0 where it does already.
Number WayIntoReach(const DesignState& s) {
  const Number home = number(s.gCarriageOffsetFromRMPFace);
  const Number left = number(s.txtZ2(0)), right = number(s.txtZ2(1));
  const Number low = holds(left < right) ? left : right, high = holds(left < right) ? right : left;
  const Number top = home + s.cMaxTravel * (s.InInches() ? 1 : kMillimetresPerInch);
  if (!holds(high - low <= top - home)) return Number::Failure();
  if (holds(low < home)) return home - low;
  return holds(high > top) ? top - high : Number(0);
}

void MovePart(Station& station, int) {
  DesignState& s = station.s;
  const Number way = WayIntoReach(s);
  if (!way.good()) return;
  for (const int end : {0, 1})
    station.Type(s.txtZ2(end), FormatNumberText(s.signs, (number(s.txtZ2(end)) + way).value(), mask::kStop));
}

// A pattern of a row's list.
struct Listed {
  int place = 0;
  double passes = 0, angle = 0;
};
std::optional<Listed> ListedAs(const DesignState& s, int place, const std::string& text) {
  SplitFields fields;
  fields.Split(text, kPatternSeparators);
  const Number angle = s.Read(fields(1)), passes = s.Read(fields(2)) * s.Read(fields(3));
  if (!angle.good() || !passes.good()) return std::nullopt;
  return Listed{place, passes.value(), angle.value()};
}

constexpr int kPlaces = 1000;

// Its index is the layer's thousand and the place in the list.
void UsePattern(Station& station, int index) {
  DesignState& s = station.s;
  Field& pattern = s.cmbPattern(index / kPlaces);
  if (!pattern.exists()) return;
  if (pattern.entries().empty()) PopulatePatternCombo(s, pattern.index());
  const auto place = static_cast<std::size_t>(index % kPlaces);
  if (place < pattern.entries().size()) station.Choose(pattern, std::string(pattern.entries()[place]));
}

// The fields that two families may have a value of their own of.
template <class State>
auto TwofoldFields(State& s) {
  return std::array<decltype(&s.txtDiameterLeft), 5>{
      &s.txtDiameterLeft, &s.txtDiameterRight, &s.txtLengthTotal(0), &s.txtBandWidth(0), &s.txtBandWidth(1)};
}

// What stands there is no new text: it is taken out first.
void TypeAnew(Station& station, int place) {
  if (place < 0 || place >= 5) return;
  Field& field = *TwofoldFields(station.s)[static_cast<std::size_t>(place)];
  const std::string text = field.text();
  station.Type(field, "");
  station.Type(field, text);
}

constexpr Operation kOperations[] = {
    {"btnSaveAndOpen", Event::Click, SaveAndOpen},
    {"btnMeasureOffset", Event::Click, MeasureOffset},
    {"btnTurnPartRound", Event::Click, TurnRound},
    {"btnUseFast", Event::Click, UseFast},
    {"btnUseMandrelShift", Event::Click, UseMandrelShift},
    {"btnDropAddedWrap", Event::Click, DropAddedWrap},
    {"btnRecalculate", Event::Click, ReCalcAllRows},
    {"btnUseLargerMotors", Event::Click, UseLargerMotors},
    {"btnSaveDesign", Event::Click, Save},
    {"btnLowerCarriage", Event::Click, LowerCarriage},
    {"btnMovePart", Event::Click, MovePart},
    {"btnUsePattern", Event::Click, UsePattern},
    {"btnTypeAnew", Event::Click, TypeAnew},
};

const Repair kSaveAndOpen{"btnSaveAndOpen", 0, "Save and open again", "Opened again"};
const Repair kRecalculate{"btnRecalculate", 0, "ReCalc All Rows", "With the rows' own speeds"};

void Append(std::vector<Repair>& repairs, bool fits, Repair repair) {
  if (fits) repairs.push_back(std::move(repair));
}

void AppendMove(const DesignState& s, std::vector<Repair>& repairs) {
  const Number way = WayIntoReach(s);
  if (s.gShow4Axis || !holds(Abs(way) > 0)) return;
  const std::string unit = s.InInches() ? " in" : " mm";
  repairs.push_back({"btnMovePart", 0,
                     "Move the part to " +
                         FormatNumberText(s.signs, (number(s.txtZ2(1)) + way).value(), mask::kStop) + unit,
                     "Moved"});
}

// The patterns of the list whose angle is nearest to the row's.
void AppendPatterns(const DesignState& s, int layer, std::vector<Repair>& repairs) {
  constexpr std::size_t kMostTried = 6;
  constexpr double kNear = 5;  // degrees
  const Field& field = s.cmbPattern(layer);
  const auto now = ListedAs(s, 0, field.text());
  if (!now) return;
  std::vector<Listed> others;
  for (std::size_t i = 0; i < field.entries().size(); ++i) {
    const auto listed = ListedAs(s, static_cast<int>(i), field.entries()[i]);
    if (listed && field.entries()[i] != field.text() && std::abs(listed->angle - now->angle) <= kNear)
      others.push_back(*listed);
  }
  std::stable_sort(others.begin(), others.end(), [&now](const Listed& a, const Listed& b) {
    return std::abs(a.angle - now->angle) < std::abs(b.angle - now->angle);
  });
  others.resize(std::min(others.size(), kMostTried));
  for (const Listed& other : others) {
    const std::string passes = NumberToText(s.signs, other.passes) + " passes";
    const std::string angle = FormatNumberText(s.signs, other.angle, kShownAngle) + "\xB0";
    std::string button = "Use " + passes;
    (button += ", ") += angle;
    repairs.push_back({"btnUsePattern", layer * kPlaces + other.place, std::move(button), "With " + passes});
  }
}

// Strips of the mandrel stay bare, or hoops lie apart.
void AppendForGaps(const DesignState& s, int layers, std::vector<Repair>& repairs) {
  if (s.gShow4Axis) {
    for (int layer = 1; layer <= kMostLayers; ++layer)
      if (layers == LayerBit(layer)) AppendPatterns(s, layer, repairs);
    return;
  }
  Append(repairs, OfAll(layers, [&s](int layer) { return IsHoop(s, layer) && !IsFast(s, layer); }),
         {"btnUseFast", layers, "Use fast", "With fast"});
  Append(repairs, holds(number(s.txtDiameterLeft) < number(s.txtDiameterRight)),
         {"btnTurnPartRound", 0, "Turn part round", "Turned round"});
}

}  // namespace

std::span<const Operation> RepairOperations() { return kOperations; }

std::vector<Repair> RepairsOf(const Station& station, Found kind, int layers) {
  const DesignState& s = station.s;
  std::vector<Repair> repairs;
  switch (kind) {
    case Found::Open:
    case Found::BareStrips:
    case Found::RoundedStrips:
    case Found::Rounding:
      AppendForGaps(s, layers, repairs);
      break;
    case Found::WrongAngle:
    case Found::AngleOff:
      AppendForGaps(s, layers, repairs);
      Append(repairs, !s.gShow4Axis, kRecalculate);
      break;
    case Found::Standstill:
    case Found::MandrelSpeed:
      Append(repairs, !s.gShow4Axis, kRecalculate);
      break;
    case Found::CarriageSpeed:
      Append(repairs, !s.gShow4Axis, kRecalculate);
      for (int layer = 1; layer <= kMostLayers && !s.gShow4Axis; ++layer)
        if (const Number speed = SpeedsAtLimit(s, layer).carriage;
            (layers & LayerBit(layer)) != 0 && speed.good()) {
          repairs.push_back(
              {"btnLowerCarriage", layers,
               "Lower the carriage speed to " + FormatNumberText(s.signs, speed.value(), kShownSpeed),
               "So slow"});
          break;
        }
      break;
    case Found::ShiftEnds:
      Append(repairs, !s.gShow4Axis, {"btnUseMandrelShift", layers, "Use ms", "With ms"});
      break;
    case Found::LongTurn:
      Append(repairs, !s.gShow4Axis, {"btnDropAddedWrap", layers, "Add no wrap", "Without added wrap"});
      break;
    case Found::StopsShort:
      // A row of a design that was opened keeps its stops until the next opening.
      Append(repairs, !s.gShow4Axis && !s.gFileName.empty(), kSaveAndOpen);
      break;
    case Found::Travel:
      AppendMove(s, repairs);
      break;
    default:
      break;
  }
  return repairs;
}

std::vector<Repair> RepairsOf(const Station& station, const BuildWarning& warning) {
  const DesignState& s = station.s;
  switch (warning.concern) {
    case Concern::NoEnds: {
      Repair repair = kSaveAndOpen;
      repair.asks = s.gFileName.empty();
      return {repair};
    }
    case Concern::Unsaved:
      return {{"btnSaveDesign", 0, "Save", "Saved", true}};
    case Concern::OffsetNotMeasured:
      return {{"btnMeasureOffset", 0, "Measure the offset", "Measured", true}};
    case Concern::CarriageShift:
      return {{"btnUseMandrelShift", LayerBit(warning.layer), "Use ms", "With ms"}};
    case Concern::TooFast:
    case Concern::Stands:
    case Concern::TypedSpeed:
    case Concern::BuildTime:
      if (s.gShow4Axis) return {};
      return {kRecalculate};
    case Concern::SmallMotors:
      return {{"btnUseLargerMotors", 0, "Use the larger motors", "With the larger motors"}};
    case Concern::OtherFamily: {
      const auto fields = TwofoldFields(s);
      const auto place = std::find(fields.begin(), fields.end(), warning.field) - fields.begin();
      if (place == std::ssize(fields)) return {};
      return {{"btnTypeAnew", static_cast<int>(place), "Use " + warning.field->text(), "Typed anew"}};
    }
    case Concern::Other:
      break;
  }
  return {};
}

std::vector<Repair> RepairsOf(const Station& station, const Field& field) {
  std::vector<Repair> repairs;
  if (field.mark() == Mark::StopTooLow) AppendMove(station.s, repairs);
  return repairs;
}

}  // namespace torvane
