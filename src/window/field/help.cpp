#include "window/field/help.h"

#include "design/catalogue.h"
#include "look/text.h"
#include "window/field/field_paint.h"
#include "workbench/build/marks.h"
#include "workbench/station/number_hint.h"

namespace torvane {

namespace {

constexpr std::pair<std::string_view, const char*> kUnitsInWords[] = {
    {"in", "inches"},
    {"mm", "millimetres"},
    {"in/s", "inches per second"},
    {"mm/s", "millimetres per second"},
    {"ft", "feet"},
    {"m", "metres"},
    {"deg", "degrees"},
    {"RPM", "turns a minute"},
};

}  // namespace

Help HelpOf(const Field& field) { return {Shown(CalledName(field)), Shown(WordsOf(field).sentence)}; }

QString TipOf(const Field& field, NumberSigns signs) {
  if (const std::string hint = NumberHint(field, signs); !hint.empty()) return Shown(hint);
  if (const Mark mark = ShownMark(field); mark != Mark::Plain) return QString::fromLatin1(WordsOf(mark));
  return field.tip().empty() ? HelpOf(field).sentence : Shown(field.tip());
}

QString Spoken(const Field& field, bool inches, const QString& name) {
  QString spoken = name.isEmpty() ? HelpOf(field).name : name;
  spoken.remove(QStringLiteral(", mm"));
  const std::string_view unit = TextOf(WordsOf(field).unit, inches);
  for (const auto& [text, words] : kUnitsInWords)
    if (text == unit) spoken += QStringLiteral(", ") + QString::fromLatin1(words);
  if (const Mark mark = ShownMark(field); mark != Mark::Plain)
    spoken += QStringLiteral(", ") + QString::fromLatin1(WordsOf(mark));
  return spoken;
}

void Explain(Desk desk, QWidget& widget, const Field& field, const QString& name) {
  Explain(widget, field);
  const auto say = [desk, &widget, &field, name] {
    widget.setAccessibleName(Spoken(field, desk.station.s.InInches(), name));
  };
  desk.binder.Bind(field, &widget, say);
  desk.binder.Bind(desk.station.s.gUnits, &widget, say);
}

void Explain(QWidget& widget, const Field& field) {
  const Help help = HelpOf(field);
  widget.setAccessibleName(help.name);
  widget.setWhatsThis(help.sentence.isEmpty() ? help.name : help.name + QStringLiteral("\n") + help.sentence);
}

}  // namespace torvane
