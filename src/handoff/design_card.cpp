#include "handoff/design_card.h"

#include <algorithm>
#include <chrono>
#include <cmath>

#include "calc/patterns.h"
#include "design/reset.h"
#include "design/units.h"
#include "handoff/launch.h"
#include "persist/settings.h"
#include "text/text.h"
#include "workbench/document/design_commands.h"
#include "workbench/document/startup.h"
#include "workbench/schedule/grids.h"
#include "workbench/schedule/totals.h"
#include "workbench/station/layer_count.h"

namespace torvane {

namespace {

// From here on a layer is a hoop, degrees.
constexpr double kHoop = 89.5;

// The settings of the station in use, of which a glance at a file changes none. It begins with no design.
class GlanceStore : public SettingsStore {
 public:
  GlanceStore(const SettingsStore& under, Family family) : under_(under), family_(family) {}

  std::optional<std::string> Read(std::string_view section, std::string_view key) const override {
    if (section == kSettings && key == "gLastFileInUse") return "";
    if (section == kSettings && key == "mnu2Axis") return family_ == Family::TwoAxes ? "1" : "0";
    return under_.Read(section, key);
  }
  Outcome Write(std::string_view, std::string_view, std::string_view) override {
    return Refusal{"Nothing is stored"};
  }
  std::vector<Entry> All() const override { return under_.All(); }

 private:
  const SettingsStore& under_;
  Family family_;
};

// Nobody is asked and nobody is told.
struct Silent : MessageDialog, MessageBox, FileDialog {
  bool Ask(const Message&) override { return false; }
  void Show(std::string_view, std::string_view, BoxIcon, std::string_view) override {}
  std::optional<std::string> AskOpen(std::string_view, std::string_view) override { return std::nullopt; }
  std::optional<std::string> AskSave(std::string_view, std::string_view, std::string_view) override {
    return std::nullopt;
  }
};

double ValueOf(const Number& number) { return holds(number > 0) ? number.value() : 0; }

double Apart(const Field& one, const Field& other) {
  return ValueOf(number(one)) == 0 || ValueOf(number(other)) == 0
             ? 0
             : std::abs(ValueOf(number(one)) - ValueOf(number(other)));
}

void ReadPart(DesignCard& card, const DesignState& s) {
  if (card.family == Family::TwoAxes) {
    card.length = ValueOf(number(s.txtLengthTotal(0)));
    card.leftDiameter = ValueOf(number(s.txtDiameterLeft));
    card.rightDiameter = ValueOf(number(s.txtDiameterRight));
  } else {
    card.length = Apart(s.txtZ4(0), s.txtZ4(3));
    card.leftDiameter = ValueOf(number(s.txtDia(0)));
    card.rightDiameter = ValueOf(number(s.txtDia(1)));
    if (s.IsHemi()) {
      card.leftCap = Apart(s.txtZ4(0), s.txtZ4(1));
      card.rightCap = Apart(s.txtZ4(2), s.txtZ4(3));
    }
  }
  card.band = ValueOf(number(BandWidthField(s, s.Panel())));
  for (int row = 1; row <= card.layers; ++row) {
    const double angle = ValueOf(card.family == Family::TwoAxes ? number(s.txtWA(row)) : ShownAngle(s, row));
    if (angle >= kHoop) card.hoops = true;
    if (angle > 0 && angle < kHoop && !card.angle) card.angle = angle;
  }
}

}  // namespace

std::optional<Family> FamilyOfDesign(std::string_view path) {
  const std::string ending = UpperCase(path.substr(path.size() - std::min<std::size_t>(path.size(), 4)));
  if (ending == ".T2D") return Family::TwoAxes;
  if (ending == ".T4D") return Family::FourAxes;
  return std::nullopt;
}

std::optional<DesignCard> ReadDesignCard(const Platform& computer, const std::string& path) {
  const std::optional<Family> family = FamilyOfDesign(path);
  if (!family || !computer.files.Exists(path)) return std::nullopt;
  GlanceStore store(computer.store, *family);
  Silent silent;
  WholeStation station(
      {store, computer.clock, computer.locale, computer.files, silent, silent, silent, computer.launcher});
  Form_Load(station);
  station.started -= std::chrono::minutes(1);
  DesignState& s = station.s;
  ShowAxisDisplay(s, *family == Family::FourAxes);
  ClickBesideGrids(station);
  if (OpenDesign(station, path) != Opened::Whole) return std::nullopt;
  DesignCard card;
  card.family = *family;
  card.unit = s.gUnits.text();
  card.minutes = TotalsOf(s, *family).front().figure->text();
  card.layers = LayerRows(s);
  ReadPart(card, s);
  return card;
}

}  // namespace torvane
