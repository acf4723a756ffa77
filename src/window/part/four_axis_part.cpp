#include "window/part/four_axis_part.h"

#include <QBoxLayout>

#include "look/paint.h"
#include "look/text.h"
#include "window/field/button.h"
#include "window/field/stepper.h"

namespace torvane {

namespace {

constexpr int kTypes = 106, kNarrowTypes = 46;
constexpr int kField = 68, kFieldWithUnit = 92;
constexpr int kStepper = 96;
constexpr int kStrip = 84;   // height of the drawing in a small window
constexpr int kPages = 106;  // width of the switch between its pages

// A part type as a picture with its name.
class TypeButton : public QAbstractButton {
 public:
  TypeButton(Desk desk, int type) : desk_(desk), type_(type) {
    DesignState& s = desk.station.s;
    setObjectName(QStringLiteral("optType(%1)").arg(type));
    setText(Shown(s.optType(type).caption()));
    setAccessibleName(text());
    setToolTip(text());
    setFocusPolicy(Qt::TabFocus);
    connect(this, &QAbstractButton::clicked, this,
            [this, &s] { desk_.binder.Check(s.optType(type_), true); });
    desk.binder.Bind(s.optType(type), this, [this] { update(); });
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    const Theme& t = desk_.theme;
    const bool chosen = desk_.station.s.optType(type_).checked();
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    p.fillRect(rect(), t[chosen ? Token::Selected : Token::Panel]);
    if (chosen) p.fillRect(0, 0, 4, height(), t[Token::Accent]);
    p.setPen(t[Token::Hairline]);
    p.drawLine(0, height() - 1, width(), height() - 1);
    if (hasFocus()) {
      p.setPen(QPen(t[Token::Focus], 2));
      p.drawRect(Inset(rect(), 2));
    }
    // Without room for its name the picture stands alone, and its tool tip names it.
    const bool named = height() > 50;
    const double size = named ? 1 : 0.6;
    p.translate(width() / 2.0, height() / 2.0 - (named ? 13 : 0));
    p.scale(size, size);
    const QRectF part(-22, -9, 44, 18);
    p.setPen(QPen(t[chosen ? Token::Accent : Token::DrawnEdge], 1.6));
    p.drawLine(QPointF(part.left() - 10, part.center().y()), QPointF(part.left(), part.center().y()));
    p.drawLine(QPointF(part.right(), part.center().y()), QPointF(part.right() + 10, part.center().y()));
    const double radius = type_ == 1 ? 9 : 1;
    p.drawRoundedRect(part, radius, radius);
    if (type_ == 0)
      for (const double x : {part.left(), part.right()})
        p.drawLine(QPointF(x, part.top() - 4), QPointF(x, part.bottom() + 4));
    if (type_ == 2) {
      p.setPen(QPen(t[Token::BandOut], 2));
      for (int i = 0; i < 3; ++i)
        p.drawLine(QPointF(part.left() + 4 + i * 13, part.bottom() - 2),
                   QPointF(part.left() + 16 + i * 13, part.top() + 2));
    }
    if (!named) return;
    p.resetTransform();
    p.setFont(t.Font(12, chosen ? Weight::Medium : Weight::Regular));
    p.setPen(t[chosen ? Token::Text : Token::Second]);
    p.drawText(QRectF(4, height() / 2.0 + 6, width() - 6, 20), Qt::AlignCenter, text());
  }

 private:
  Desk desk_;
  int type_;
};

// How far the fields stand from the edges of the drawing.
int EdgeOf(const QRect& area) { return area.width() < 700 ? 8 : 14; }

// What the delivery head offsets are called above their fields.
constexpr const char* kOffsets[] = {"Wrap Y", "Wrap Z", "Left", "Head gap", "Right", "Wrap Z", "Wrap Y"};

}  // namespace

FourAxisPart::FourAxisPart(Desk desk, QWidget* parent) : QWidget(parent), desk_(desk) {
  setObjectName(QStringLiteral("drawing4Axis"));
  setAccessibleName(QStringLiteral("Drawing of the part"));
  DesignState& s = desk.station.s;
  AddTypes();
  places_ = new QWidget(this);
  head_ = new QWidget(this);
  left_ = AddEnd(true);
  right_ = AddEnd(false);
  const struct {
    const char* caption;
    Field& field;
  } places[] = {{"Skirt", s.txtSkirtLeft},     {"Left Z", s.txtZ4(0)},  {"Inner left Z", s.txtZ4(1)},
                {"Inner right Z", s.txtZ4(2)}, {"Right Z", s.txtZ4(3)}, {"Skirt", s.txtSkirtRight}};
  for (const auto& place : places)
    z_.push_back(MakePlacedInput(desk_, place.field, QString::fromLatin1(place.caption), places_));
  stops_ = {left_.diameter.field,  left_.opening.field,  z_[0].field, z_[1].field, z_[2].field,
            right_.diameter.field, right_.opening.field, z_[3].field, z_[4].field, z_[5].field};
  AddLength();
  for (int i = 0; i <= 6; ++i) AddOffset(i);
  AddPages();
  lines_.emplace(desk, std::vector{&s.txtZ4(0), &s.txtZ4(1), &s.txtZ4(2), &s.txtZ4(3)}, this,
                 [this] { FollowScene(); });
  desk.binder.BindAll(this, [this] {
    FourAxisScene scene = SceneOfFourAxes(desk_.station);
    if (scene == scene_) return;
    scene_ = std::move(scene);
    FollowScene();
  });
}

FourAxisPainter FourAxisPart::Painter() const {
  return {desk_.theme, scene_, DrawingArea(), arrangement_, lines_->heldScale()};
}

void FourAxisPart::FollowScene() {
  const FourAxisPainter painter = Painter();
  // Where large figures are to be read from the machine, nobody means to change them by a touch.
  lines_->Follow(painter.sketch(), painter.LinesTop(), arrangement_ != Arrangement::Large);
  update();
}

void FourAxisPart::AddTypes() {
  types_ = new QWidget(this);
  auto* column = new QVBoxLayout(types_);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  for (int type = 0; type <= 2; ++type) {
    auto* button = new TypeButton(desk_, type);
    button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    column->addWidget(button);
  }
}

FourAxisPart::End FourAxisPart::AddEnd(bool left) {
  DesignState& s = desk_.station.s;
  auto* owner = new QWidget(this);
  const PlacedField diameter =
      MakePlacedInput(desk_, s.txtDia(left ? 0 : 1),
                      left ? QStringLiteral("Left diameter") : QStringLiteral("Right diameter"), owner);
  const PlacedField opening =
      MakePlacedInput(desk_, s.txtPODia(left ? 0 : 1), QStringLiteral("Polar opening"), owner);
  return {owner, diameter, opening};
}

void FourAxisPart::AddOffset(int i) {
  Field& field = desk_.station.s.txtAdjust(i);
  auto* stepper = new Stepper(desk_, field, kStepper, OffsetJog(i));
  stepper->setParent(head_);
  stepper->edit()->setTextMargins(0, 0, 0, 0);
  auto* caption =
      new Word(desk_, QString::fromLatin1(kOffsets[i]), 12, Token::Second, Weight::Regular, head_);
  FollowShown(desk_, field, stepper);
  FollowShown(desk_, field, caption);
  offsets_.push_back(stepper);
  offsetCaptions_.push_back(caption);
  headStops_.push_back(stepper->edit());
}

void FourAxisPart::AddPages() {
  pages_ = new QWidget(this);
  auto* row = new QHBoxLayout(pages_);
  row->setContentsMargins(8, 0, 6, 6);
  row->setSpacing(4);
  for (const bool head : {false, true}) {
    auto* button = new Button(desk_, ButtonLook::Outline, Icon::None,
                              head ? QStringLiteral("Head") : QStringLiteral("Ends"), pages_);
    button->setObjectName(head ? QStringLiteral("pageHead") : QStringLiteral("pageEnds"));
    button->setAccessibleName(button->text());
    button->setToolTip(head ? QStringLiteral("Shows the offsets of the delivery head.")
                            : QStringLiteral("Shows the places in Z at the ends of the part."));
    button->setFixedHeight(30);
    button->setMinimumWidth(44);
    connect(button, &QAbstractButton::clicked, this, [this, head] { ShowPage(head); });
    row->addWidget(button, 1, Qt::AlignBottom);
    pageButtons_[head ? 1 : 0] = button;
  }
}

void FourAxisPart::AddLength() {
  lengthOwner_ = new QWidget(places_);
  const Field& field = desk_.station.s.lblLengthTotal;
  auto* length = new ReadOut(desk_, field, 14, lengthOwner_);
  length->SetFilled();
  length_ = Surround(desk_, length, field, QStringLiteral("Length"), lengthOwner_);
}

QRect FourAxisPart::DrawingArea() const {
  switch (arrangement_) {
    case Arrangement::Open:
      return {kTypes, 0, width() - kTypes, height()};
    case Arrangement::Folded:
      return {kNarrowTypes, 0, width() - kNarrowTypes, kStrip};
    case Arrangement::Large:
      break;
  }
  return rect();
}

void FourAxisPart::PlaceOpen() {
  const QRect area = DrawingArea();
  const int axis = static_cast<int>(FourAxisFrame(arrangement_, area).axisY);
  const int edge = EdgeOf(area);
  types_->setGeometry(0, 0, kTypes, height());
  for (const bool left : {true, false}) {
    const End& end = left ? left_ : right_;
    end.owner->setGeometry(left ? area.left() + edge - 2 : area.right() - 95 - edge, axis - 40, 102, 100);
    end.diameter.MoveTo(2, 19, kField);
    end.opening.MoveTo(2, 69, kField);
  }
  places_->setGeometry(area.left() + edge - 2, height() - 54, area.width() - edge, 54);
  // The length and the colours stand in the middle between three places at either side.
  const int pitch = std::clamp(places_->width() / 7, 88, 96);
  for (int i = 0; i < 6; ++i)
    z_[static_cast<std::size_t>(i)].MoveTo(i < 3 ? 2 + i * pitch : places_->width() - (6 - i) * pitch, 19,
                                           std::min(kField, pitch - 28));
  lengthOwner_->setGeometry(std::max(2 + 3 * pitch, area.center().x() - 46 - places_->x()), 0,
                            kFieldWithUnit + 6, 54);
  length_.MoveTo(0, 19, std::min(kField, pitch - 28));
  head_->setGeometry(area.left() + 2, 0, area.width() - 4, 52);
  const double share = head_->width() / 7.0;
  const int stepper = std::clamp(static_cast<int>(share) - 1, 60, kStepper);
  for (std::size_t i = 0; i < offsets_.size(); ++i) {
    const int x = static_cast<int>(share * static_cast<double>(i) + (share - stepper) / 2);
    offsets_[i]->setFixedWidth(stepper);
    offsets_[i]->move(x, 20);
    offsetCaptions_[i]->setGeometry(x + 20, 2, stepper - 20, 16);
  }
}

void FourAxisPart::PlaceFolded() {
  types_->setGeometry(0, 0, kNarrowTypes, kStrip);
  for (const bool left : {true, false}) {
    const End& end = left ? left_ : right_;
    end.owner->setGeometry(left ? kNarrowTypes + 8 : width() - 200, 0, 196, kStrip - 24);
    // Side by side, the diameter outside.
    end.diameter.MoveTo(left ? 0 : 98, 22, kField);
    end.opening.MoveTo(left ? 98 : 0, 22, kField);
  }
  const int below = height() - kStrip;
  pages_->setGeometry(0, kStrip, kPages, below);
  const QRect page(kPages, kStrip, width() - kPages, below);
  places_->setGeometry(page);
  head_->setGeometry(page);
  const int pitch = std::min(page.width() / 6, 150);
  for (std::size_t i = 0; i < z_.size(); ++i)
    z_[i].MoveTo(4 + static_cast<int>(i) * pitch, below - 36, kField);
  const int step = std::min(page.width() / 7, 130);
  for (std::size_t i = 0; i < offsets_.size(); ++i) {
    const int x = static_cast<int>(i) * step;
    offsets_[i]->setFixedWidth(std::clamp(step - 2, 60, kStepper));
    offsets_[i]->move(x, below - 36);
    offsetCaptions_[i]->setGeometry(x + 20, below - 54, kStepper - 20, 16);
  }
}

void FourAxisPart::Place() {
  const bool folded = arrangement_ == Arrangement::Folded, large = arrangement_ == Arrangement::Large;
  for (QWidget* owner : {types_, left_.owner, right_.owner}) owner->setVisible(!large);
  places_->setVisible(!large && !(folded && headPage_));
  head_->setVisible(!large && (!folded || headPage_));
  pages_->setVisible(folded);
  lengthOwner_->setVisible(arrangement_ == Arrangement::Open);
  if (folded)
    PlaceFolded();
  else if (!large)
    PlaceOpen();
  FollowScene();
}

void FourAxisPart::ShowPage(bool head) {
  headPage_ = head;
  for (const bool page : {false, true}) pageButtons_[page ? 1 : 0]->SetFilled(page == head);
  Place();
}

void FourAxisPart::Reveal(const QWidget& field) {
  if (arrangement_ != Arrangement::Folded) return;
  if (head_->isAncestorOf(&field)) ShowPage(true);
  if (places_->isAncestorOf(&field)) ShowPage(false);
}

void FourAxisPart::Arrange(Arrangement arrangement) {
  arrangement_ = arrangement;
  ShowPage(headPage_);
}

void FourAxisPart::resizeEvent(QResizeEvent*) { Place(); }

void FourAxisPart::paintEvent(QPaintEvent*) {
  const Theme& t = desk_.theme;
  const QRect area = DrawingArea();
  QPainter painter(this);
  Painter().Paint(painter);
  if (head_->isVisible())
    for (std::size_t i = 0; i < offsets_.size(); ++i)
      if (!offsets_[i]->isHidden())
        PaintRing(painter, t,
                  head_->pos() + QPointF(offsets_[i]->x() + 8, offsetCaptions_[i]->geometry().center().y()),
                  static_cast<int>(i));
  painter.setRenderHint(QPainter::Antialiasing, false);
  painter.setPen(t[Token::Hairline]);
  if (arrangement_ != Arrangement::Large) painter.drawLine(area.left(), 0, area.left(), area.bottom());
  if (arrangement_ == Arrangement::Folded) painter.drawLine(0, kStrip, width(), kStrip);
  if (arrangement_ != Arrangement::Open) return;
  // The ends' titles.
  const double titles = FourAxisFrame(arrangement_, area).axisY - 63;
  const int edge = EdgeOf(area);
  painter.setPen(t[Token::Text]);
  painter.setFont(t.Font(13, Weight::Medium));
  painter.drawText(QRectF(area.left() + edge, titles, 60, 20), Qt::AlignVCenter | Qt::AlignLeft,
                   QStringLiteral("Left end"));
  painter.drawText(QRectF(area.right() - 60 - edge, titles, 60, 20), Qt::AlignVCenter | Qt::AlignRight,
                   QStringLiteral("Right end"));
}

}  // namespace torvane
