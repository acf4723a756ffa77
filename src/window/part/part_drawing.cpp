#include "window/part/part_drawing.h"

#include <QMouseEvent>
#include <QToolTip>

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
  if (desk.live != nullptr) switch_ = new PartSwitch(desk, this);
  setMouseTracking(true);
  desk.binder.BindAll(this, [this] {
    FollowCover();
    PartScene scene = SceneOfTwoAxes(desk_.station);
    if (scene == scene_) return;
    scene_ = std::move(scene);
    FollowScene();
  });
}

PartPainter PartDrawing::Painter() const {
  return {desk_.theme, scene_, size(), arrangement_, lines_->heldScale(), cover()};
}

void PartDrawing::FollowScene() {
  const PartPainter painter = Painter();
  // Where large figures are to be read from the machine, nobody means to change them by a touch.
  lines_->Follow(painter.sketch(), painter.LinesTop(), arrangement_ != Arrangement::Large);
  update();
  if (coverFollows) coverFollows();
}

void PartDrawing::FollowCover() {
  const bool mapped = desk_.live != nullptr && desk_.live->view().mapped();
  if (mapped == cover_.has_value() && (!mapped || cover_->IsOf(desk_))) return;
  cover_.reset();
  if (mapped) cover_.emplace(desk_);
  pointed_.reset();
  setAccessibleDescription(mapped && cover_->Known()
                               ? cover_->Title() +
                                     QStringLiteral(", %1 % covered").arg(100 * cover_->Covered(), 0, 'f', 2)
                               : QString());
  if (coverFollows) coverFollows();
  update();
}

void PartDrawing::mouseMoveEvent(QMouseEvent* event) {
  pointed_.reset();
  if (cover_ && cover_->Known()) pointed_ = Painter().PlaceAt(event->position());
  const QString tip = pointed_ ? cover_->TipAt(*pointed_) : QString();
  if (tip.isEmpty()) pointed_.reset();
  QToolTip::showText(event->globalPosition().toPoint() + QPoint(8, 8), tip, this);
  update();
}

void PartDrawing::leaveEvent(QEvent*) {
  pointed_.reset();
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
  if (switch_ == nullptr) return;
  switch_->setVisible(arrangement_ == Arrangement::Open);
  switch_->PlaceAt(width() - 122, 0);
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
  const PartPainter part = Painter();
  part.Paint(painter);
  if (!pointed_) return;
  if (const auto at = part.PointOf(*pointed_)) {
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(desk_.theme[Token::Text], 1.5));
    painter.drawEllipse(*at, 5, 5);
  }
}

}  // namespace torvane
