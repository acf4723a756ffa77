#include "window/field/help.h"

#include "design/catalogue.h"
#include "look/text.h"
#include "window/field/field_paint.h"
#include "workbench/build/marks.h"
#include "workbench/station/number_hint.h"

namespace torvane {

Help HelpOf(const Field& field) {
  const FieldWords& words = WordsOf(field);
  if (words.name.empty()) return {QString::fromStdString(NameOf(field)), {}};
  QString name = Shown(words.name);
  if (IsScheduleRow(field.row()) && field.index() != IndexSet::kAllRows)
    name += QStringLiteral(", layer %1").arg(field.index());
  return {name, Shown(words.sentence)};
}

QString TipOf(const Field& field, NumberSigns signs) {
  if (const std::string hint = NumberHint(field, signs); !hint.empty()) return Shown(hint);
  if (const Mark mark = ShownMark(field); mark != Mark::Plain) return QString::fromLatin1(WordsOf(mark));
  return field.tip().empty() ? HelpOf(field).sentence : Shown(field.tip());
}

void Explain(QWidget& widget, const Field& field) {
  const Help help = HelpOf(field);
  widget.setAccessibleName(help.name);
  widget.setWhatsThis(help.sentence.isEmpty() ? help.name : help.name + QStringLiteral("\n") + help.sentence);
}

}  // namespace torvane
