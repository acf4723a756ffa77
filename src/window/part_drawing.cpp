#include "window/part_drawing.h"

#include "look/text.h"
#include "window/field_widgets.h"
#include "window/part_painter.h"

namespace torvane {

namespace {

constexpr int kInset = 12;  // of the left end's fields from the drawing's edge
constexpr int kFieldWidth = 76;
constexpr int kRightInset = 104;

}  // namespace

PartDrawing::PartDrawing(Desk desk, QWidget* parent) : QWidget(parent), desk_(desk) {
  setObjectName(QStringLiteral("drawing2Axis"));
  setAccessibleName(QStringLiteral("Drawing of the part"));
  DesignState& s = desk.station.s;
  left_ = MakeEnd("Left end", "Left", s.txtDiameterLeft, s.txtZ2(0));
  right_ = MakeEnd("Right end", "Right", s.txtDiameterRight, s.txtZ2(1));
  stops_ = {left_.diameter, left_.stop, right_.diameter, right_.stop};
  desk.binder.BindAll(this, [this] {
    scene_ = SceneOfTwoAxes(desk_.station);
    update();
  });
}

PartDrawing::End PartDrawing::MakeEnd(const char* title, const char* side, Field& diameter, Field& stop) {
  const auto word = [this](const QString& text, int size, Token token, Weight weight) {
    return new Word(desk_, text, size, token, weight, this);
  };
  const auto unit = [this, &word] {
    Word* shown = word({}, 12, Token::Second, Weight::Regular);
    const Field& units = desk_.station.s.gUnits;
    desk_.binder.Bind(units, shown, [shown, &units] { shown->SetText(Shown(units.text())); });
    return shown;
  };
  const QString name = QString::fromLatin1(side);
  End end{};
  end.title = word(QString::fromLatin1(title), 13, Token::Text, Weight::Medium);
  end.diameterCaption = word(name + QStringLiteral(" diameter"), 12, Token::Second, Weight::Regular);
  end.diameter = new FieldEdit(desk_, diameter, Place::Panel, this);
  end.diameterUnit = unit();
  end.stopCaption = word(name + QStringLiteral(" stop (Z)"), 12, Token::Second, Weight::Regular);
  end.stop = new FieldEdit(desk_, stop, Place::Panel, this);
  end.stopUnit = unit();
  return end;
}

void PartDrawing::PlaceEnd(const End& end, int x) {
  const int axis = PartPainter::AxisY(height());
  const int field = desk_.theme.Px(kFieldWidth);
  const int stopTop = height() - 44;
  end.diameterCaption->setGeometry(x, axis - 34, 100, 16);
  end.diameter->setGeometry(x, axis - 15, field, 30);
  end.diameterUnit->setGeometry(x + field + 5, axis - 8, 22, 16);
  end.stopCaption->setGeometry(x, stopTop - 19, 100, 16);
  end.stop->setGeometry(x, stopTop, field, 30);
  end.stopUnit->setGeometry(x + field + 5, stopTop + 7, 22, 16);
}

void PartDrawing::resizeEvent(QResizeEvent*) {
  PlaceEnd(left_, kInset);
  PlaceEnd(right_, width() - kRightInset);
  left_.title->setGeometry(kInset, 4, 52, 18);
  right_.title->setGeometry(width() - kInset - 56, 4, 58, 18);
}

void PartDrawing::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  PartPainter(desk_.theme, scene_, size()).Paint(painter);
}

}  // namespace torvane
