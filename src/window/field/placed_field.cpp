#include "window/field/placed_field.h"

#include "look/text.h"

namespace torvane {

void PlacedField::MoveTo(int x, int y, int width) const {
  caption->setGeometry(x, y - 18, 92, 16);
  field->setGeometry(x, y, width, 30);
  unit->setGeometry(x + width + 4, y + 7, 24, 16);
}

void FollowShown(Desk desk, const Field& field, QWidget* beside) {
  desk.binder.Bind(field, beside, [beside, &field] { ShowAs(*beside, field.shown()); });
}

Word* MakeDesignUnit(Desk desk, QWidget* owner) {
  auto* unit = new Word(desk, {}, 12, Token::Second, Weight::Regular, owner);
  const Field& units = desk.station.s.gUnits;
  desk.binder.Bind(units, unit, [unit, &units] { unit->SetText(Shown(units.text())); });
  return unit;
}

PlacedField Surround(Desk desk, QWidget* shown, const Field& field, const QString& caption, QWidget* owner) {
  auto* word = new Word(desk, caption, 12, Token::Second, Weight::Regular, owner);
  Word* unit = MakeDesignUnit(desk, owner);
  for (QWidget* beside : {word, unit}) FollowShown(desk, field, beside);
  return {word, shown, unit};
}

PlacedField MakePlacedInput(Desk desk, Field& field, const QString& caption, QWidget* owner) {
  return Surround(desk, new FieldEdit(desk, field, Place::Panel, owner), field, caption, owner);
}

}  // namespace torvane
