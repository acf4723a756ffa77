#include "window/part/part_drawing.h"

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
  stops_ = {left_.diameter.field, left_.stop.field, right_.diameter.field, right_.stop.field};
  lines_.emplace(desk, std::vector{&desk.station.s.txtZ2(0), &desk.station.s.txtZ2(1)}, this,
                 [this] { FollowScene(); });
  desk.binder.BindAll(this, [this] {
    PartScene scene = SceneOfTwoAxes(desk_.station);
    if (scene == scene_) return;
    scene_ = std::move(scene);
    FollowScene();
  });
}

PartPainter PartDrawing::Painter() const {
  return {desk_.theme, scene_, size(), arrangement_, lines_->heldScale()};
}

void PartDrawing::FollowScene() {
  const PartPainter painter = Painter();
  // Where large figures are to be read from the machine, nobody means to change them by a touch.
  lines_->Follow(painter.sketch(), painter.LinesTop(), arrangement_ != Arrangement::Large);
  update();
}

PartDrawing::End PartDrawing::MakeEnd(bool left) {
  DesignState& s = desk_.station.s;
  auto* owner = new QWidget(this);
  const QString name = left ? QStringLiteral("Left") : QStringLiteral("Right");
  auto* title = new Word(desk_, name + QStringLiteral(" end"), 13, Token::Text, Weight::Medium, owner);
  const auto input = [&](Field& field, const QString& caption) {
    return MakePlacedInput(desk_, field, caption, owner);
  };
  const PlacedField diameter =
      input(left ? s.txtDiameterLeft : s.txtDiameterRight, name + QStringLiteral(" diameter"));
  return {owner, title, diameter, input(s.txtZ2(left ? 0 : 1), name + QStringLiteral(" stop (Z)"))};
}

void PartDrawing::PlaceEnd(const End& end, bool left) {
  const bool folded = arrangement_ == Arrangement::Folded;
  end.owner->setVisible(arrangement_ != Arrangement::Large);
  end.title->setVisible(!folded);
  if (folded) {
    // Side by side, the diameter outside.
    end.owner->setGeometry(left ? kInset : width() - kInset - kPair + 4, 0, kPair + 4, height() - 24);
    end.diameter.MoveTo(left ? 0 : kPair - 96, 23, kFieldWidth);
    end.stop.MoveTo(left ? kPair - 96 : 0, 23, kFieldWidth);
    return;
  }
  const int axis = static_cast<int>(TwoAxisFrame(arrangement_, size()).axisY);
  end.owner->setGeometry(left ? kInset : width() - kInset - kRightEnd, 0, kRightEnd + 10, height());
  end.diameter.MoveTo(0, axis - 15, kFieldWidth);
  end.stop.MoveTo(0, height() - 44, kFieldWidth);
  end.title->setGeometry(left ? 0 : kRightEnd - 58, 4, 60, 18);
}

void PartDrawing::PlaceEnds() {
  PlaceEnd(left_, true);
  PlaceEnd(right_, false);
}

void PartDrawing::Arrange(Arrangement arrangement) {
  arrangement_ = arrangement;
  PlaceEnds();
  FollowScene();
}

void PartDrawing::resizeEvent(QResizeEvent*) {
  PlaceEnds();
  FollowScene();
}

void PartDrawing::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  Painter().Paint(painter);
}

}  // namespace torvane
