#include "compare/compare.h"

#include <algorithm>
#include <cmath>
#include <set>

#include "design/catalogue.h"
#include "executor/program/number.h"
#include "executor/program/reader.h"
#include "text/text.h"

namespace torvane {

namespace {

using executor::LayerFigures;
using executor::Proof;

class SideBySide {
 public:
  SideBySide(const Compared& before, const Compared& after) : before_(before), after_(after) {}

  std::vector<Difference> All() {
    if (before_.design != nullptr && after_.design != nullptr)
      CompareDesigns(*before_.design, *after_.design);
    CompareProofs();
    CompareStatements();
    std::stable_sort(differences_.begin(), differences_.end(),
                     [](const Difference& a, const Difference& b) { return a.layer < b.layer; });
    return std::move(differences_);
  }

 private:
  void Add(int layer, std::string_view what, std::string from, std::string to, std::string_view unit = {},
           std::optional<double> by = std::nullopt) {
    // A part's diameter stands in two fields.
    const bool told = std::any_of(differences_.begin(), differences_.end(), [&](const Difference& each) {
      return each.layer == layer && each.what == what && each.unit == unit;
    });
    if (from != to && !told)
      differences_.push_back(
          {layer, std::string(what), std::move(from), std::move(to), std::string(unit), by});
  }

  // A figure as far as it is shown; what the one does not have is empty there.
  void AddFigure(int layer, std::string_view what, std::optional<double> from, std::optional<double> to,
                 int decimals, std::string_view unit = {}) {
    const double scale = std::pow(10, decimals);
    for (std::optional<double>* figure : {&from, &to})
      if (*figure) *figure = std::round(**figure * scale) / scale;
    const auto shown = [decimals](std::optional<double> figure) {
      return figure ? executor::Fixed(*figure, decimals) : std::string();
    };
    Add(layer, what, shown(from), shown(to), unit, from && to ? std::optional(*to - *from) : std::nullopt);
  }

  void CompareDesigns(const DesignState& a, const DesignState& b) {
    if (a.family() != b.family()) {
      const auto name = [](const DesignState& s) { return s.gShow4Axis ? "4 axes" : "2 axes"; };
      Add(0, "Family", name(a), name(b));
      return;
    }
    Add(0, "Unit", a.gUnits.text(), b.gUnits.text());
    std::vector<const Field*> fields;
    ForEachField(a, [&fields](const Field& field) { fields.push_back(&field); });
    auto next = fields.begin();
    ForEachField(b, [&](const Field& field) { CompareField(a, **next++, b, field); });
  }

  static bool IsTyped(const DesignState& s, const Field& field) {
    const FieldRow& row = field.row();
    const bool takesText = row.kind == Kind::Text || row.kind == Kind::List || row.kind == Kind::Check ||
                           row.kind == Kind::Option;
    if (!takesText || !IsOfDesign(row) || !IsUsed(row, field.index(), s.family())) return false;
    // Of two twins the one in the design's unit.
    const FieldUnit unit = WordsOf(field).unit;
    const bool inches = unit == FieldUnit::Inches || unit == FieldUnit::InchesPerSecond;
    const bool millimetres = unit == FieldUnit::Millimetres || unit == FieldUnit::MillimetresPerSecond;
    return s.InInches() ? !millimetres : !inches;
  }

  // A row behind the schedule's last one is not there.
  static std::string TextIn(const DesignState& s, const Field& field) {
    if (IsScheduleRow(field.row()) && field.index() > RowsOf(s.txtNumberOfLayers(s.Panel()))) return {};
    if (field.row().kind == Kind::Check || field.row().kind == Kind::Option)
      return field.checked() ? "yes" : "no";
    return field.text();
  }

  void CompareField(const DesignState& a, const Field& before, const DesignState& b, const Field& after) {
    if (!IsTyped(a, before)) return;
    const bool ofRow = IsScheduleRow(before.row());
    if (ofRow && before.index() == IndexSet::kAllRows) return;
    const std::string from = TextIn(a, before), to = TextIn(b, after);
    const Number was = a.Read(from), is = b.Read(to);
    const bool figures = was.good() && is.good();
    if (figures && holds(was == is)) return;
    Add(ofRow ? before.index() : 0, WordsOf(before).name, from, to,
        TextOf(WordsOf(before).unit, a.InInches()),
        figures ? std::optional((is - was).value()) : std::nullopt);
  }

  static double PerInch(const Proof& proof) { return proof.millimetres ? 25.4 : 1; }
  // Tow in feet, or in metres where the first of the two is told in millimetres.
  double Tow(const Proof& proof, double length) const {
    const double inches = length / PerInch(proof);
    return before_.proof.millimetres ? inches * 0.0254 : inches / 12;
  }
  std::string_view TowUnit() const { return before_.proof.millimetres ? "m" : "ft"; }

  void CompareProofs() {
    const Proof &a = before_.proof, &b = after_.proof;
    AddFigure(0, "Minutes", a.windingSeconds / 60, b.windingSeconds / 60, 1, "min");
    AddFigure(0, "Tow", Tow(a, a.filament), Tow(b, b.filament), 1, TowUnit());
    const auto count = [](const Proof& proof, executor::Level level) {
      return std::optional<double>(proof.findings.Count(level));
    };
    AddFigure(0, "Faults", count(a, executor::Level::Fault), count(b, executor::Level::Fault), 0);
    AddFigure(0, "Notes", count(a, executor::Level::Note), count(b, executor::Level::Note), 0);
    std::set<int> numbers;
    for (const Proof* proof : {&a, &b})
      for (const LayerFigures& layer : proof->layers) numbers.insert(layer.number);
    for (const int number : numbers) CompareLayers(number);
  }

  static const LayerFigures* LayerOf(const Proof& proof, int number) {
    const auto found = std::find_if(proof.layers.begin(), proof.layers.end(),
                                    [number](const LayerFigures& layer) { return layer.number == number; });
    return found == proof.layers.end() ? nullptr : &*found;
  }

  void CompareLayers(int number) {
    const LayerFigures* const a = LayerOf(before_.proof, number);
    const LayerFigures* const b = LayerOf(after_.proof, number);
    const auto compare = [&](std::string_view what, int decimals, std::string_view unit, const auto& figure) {
      const auto of = [&figure](const Proof& proof, const LayerFigures* layer) {
        return layer == nullptr ? std::nullopt : std::optional<double>(figure(proof, *layer));
      };
      AddFigure(number, what, of(before_.proof, a), of(after_.proof, b), decimals, unit);
    };
    const auto angle = [](const LayerFigures* layer) {
      return layer != nullptr && layer->angle.known ? std::optional(layer->angle.median) : std::nullopt;
    };
    AddFigure(number, "Angle as laid", angle(a), angle(b), 1, "deg");
    compare("Passes", 0, "", [](const Proof&, const LayerFigures& layer) { return layer.passesRun; });
    compare("Minutes", 1, "min", [](const Proof&, const LayerFigures& layer) { return layer.seconds / 60; });
    compare("Tow", 1, TowUnit(),
            [this](const Proof& proof, const LayerFigures& layer) { return Tow(proof, layer.filament); });
    const auto covered = [](const LayerFigures* layer) {
      return layer != nullptr && layer->judged ? std::optional(layer->coveredShare * 100) : std::nullopt;
    };
    AddFigure(number, "Coverage", covered(a), covered(b), 1, "%");
  }

  // Of a program the statements alone, one after the other; nothing behind the last one.
  struct Statements {
    explicit Statements(std::string_view program) : reader(program) {}

    bool Next() {
      while (reader.Next(line)) {
        text = Trim(line.text.substr(0, line.text.size() - line.comment.size()));
        if (!text.empty()) return true;
      }
      text = {};
      return false;
    }
    std::string Shown() const {
      return text.empty() ? std::string() : "line " + std::to_string(line.number) + ": " + std::string(text);
    }

    executor::Reader reader;
    executor::Line line;
    std::string_view text;
  };

  void CompareStatements() {
    Statements a(before_.program), b(after_.program);
    for (;;) {
      const bool more = a.Next(), moreToo = b.Next();
      if (!more && !moreToo) return;
      if (a.text == b.text) continue;
      Add(0, "First other statement", a.Shown(), b.Shown());
      return;
    }
  }

  const Compared &before_, &after_;
  std::vector<Difference> differences_;
};

}  // namespace

std::vector<Difference> Compare(const Compared& before, const Compared& after) {
  return SideBySide(before, after).All();
}

}  // namespace torvane
