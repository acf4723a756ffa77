#include "window/part_drawing.h"

#include "look/text.h"
#include "window/field_widgets.h"
#include "window/part_painter.h"

namespace torvane {

namespace {

constexpr int kInset = 12;  // of an end's fields from the drawing's edge
constexpr int kFieldWidth = 76;
constexpr int kRightEnd = 92, kPair = 194;  // what one field takes with its unit, and two side by side

}  // namespace

PartDrawing::PartDrawing(Desk desk, QWidget* parent) : QWidget(parent), desk_(desk) {
  setObjectName(QStringLiteral("drawing2Axis"));
  setAccessibleName(QStringLiteral("Drawing of the part"));
  left_ = MakeEnd(true);
  right_ = MakeEnd(false);
  stops_ = {left_.diameter, left_.stop, right_.diameter, right_.stop};
  desk.binder.BindAll(this, [this] {
    PartScene scene = SceneOfTwoAxes(desk_.station);
    if (scene == scene_) return;
    scene_ = std::move(scene);
    update();
  });
}

PartDrawing::End PartDrawing::MakeEnd(bool left) {
  DesignState& s = desk_.station.s;
  auto* owner = new QWidget(this);
  const auto word = [&](const QString& text, int size, Token token, Weight weight) {
    return new Word(desk_, text, size, token, weight, owner);
  };
  const auto unit = [&] {
    Word* shown = word({}, 12, Token::Second, Weight::Regular);
    const Field& units = s.gUnits;
    desk_.binder.Bind(units, shown, [shown, &units] { shown->SetText(Shown(units.text())); });
    return shown;
  };
  const QString name = left ? QStringLiteral("Left") : QStringLiteral("Right");
  End end{};
  end.owner = owner;
  end.title = word(name + QStringLiteral(" end"), 13, Token::Text, Weight::Medium);
  end.diameterCaption = word(name + QStringLiteral(" diameter"), 12, Token::Second, Weight::Regular);
  end.diameter = new FieldEdit(desk_, left ? s.txtDiameterLeft : s.txtDiameterRight, Place::Panel, owner);
  end.diameterUnit = unit();
  end.stopCaption = word(name + QStringLiteral(" stop (Z)"), 12, Token::Second, Weight::Regular);
  end.stop = new FieldEdit(desk_, s.txtZ2(left ? 0 : 1), Place::Panel, owner);
  end.stopUnit = unit();
  return end;
}

void PartDrawing::PlaceEnd(const End& end, bool left) {
  const bool folded = arrangement_ == Arrangement::Folded;
  end.owner->setVisible(arrangement_ != Arrangement::Large);
  end.title->setVisible(!folded);
  const auto place = [](QWidget* caption, QWidget* field, QWidget* unit, int x, int y) {
    caption->setGeometry(x, y - 19, 90, 16);
    field->setGeometry(x, y, kFieldWidth, 30);
    unit->setGeometry(x + kFieldWidth + 5, y + 7, 22, 16);
  };
  if (folded) {
    // Side by side, the diameter outside.
    end.owner->setGeometry(left ? kInset : width() - kInset - kPair - 4, 0, kPair + 4, height() - 24);
    place(end.diameterCaption, end.diameter, end.diameterUnit, left ? 0 : kPair - 96, 23);
    place(end.stopCaption, end.stop, end.stopUnit, left ? kPair - 96 : 0, 23);
    return;
  }
  const int axis = static_cast<int>(TwoAxisFrame(arrangement_, size()).axisY);
  end.owner->setGeometry(left ? kInset : width() - kInset - kRightEnd, 0, kRightEnd + 10, height());
  place(end.diameterCaption, end.diameter, end.diameterUnit, 0, axis - 15);
  place(end.stopCaption, end.stop, end.stopUnit, 0, height() - 44);
  end.title->setGeometry(left ? 0 : kRightEnd - 58, 4, 60, 18);
}

void PartDrawing::PlaceEnds() {
  PlaceEnd(left_, true);
  PlaceEnd(right_, false);
}

void PartDrawing::Arrange(Arrangement arrangement) {
  arrangement_ = arrangement;
  PlaceEnds();
  update();
}

void PartDrawing::resizeEvent(QResizeEvent*) { PlaceEnds(); }

void PartDrawing::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  PartPainter(desk_.theme, scene_, size(), arrangement_).Paint(painter);
}

}  // namespace torvane
