#include "window/cover/unrolled_map.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <cmath>

#include "executor/program/number.h"
#include "look/paint.h"
#include "look/text.h"
#include "window/cover/part_switch.h"
#include "window/field/button.h"
#include "workbench/station/layer_count.h"

namespace torvane {

namespace {

constexpr int kTop = 40, kMap = 134, kCurveTop = 186, kCurve = 20;
constexpr int kBeside = 16;  // from the map to the figures at its right

}  // namespace

UnrolledMap::UnrolledMap(Desk desk, std::function<double(double z)> xOf, QWidget* parent)
    : QWidget(parent), desk_(desk), xOf_(std::move(xOf)) {
  setObjectName(QStringLiteral("unrolled"));
  setAccessibleName(QStringLiteral("The part's surface, unrolled"));
  setFixedHeight(kUnrolled);
  setMouseTracking(true);
  setFocusPolicy(Qt::StrongFocus);
  const auto choice = [&](const char* object, bool all) {
    auto* button = new Button(desk, ButtonLook::Segment, Icon::None, QStringLiteral("All layers"), this);
    button->SetTextSize(12);
    button->setObjectName(QString::fromLatin1(object));
    button->setFixedHeight(26);
    connect(button, &QAbstractButton::clicked, this, [this, all] {
      PartView view = desk_.live->view();
      view.allLayers = all;
      ShowPart(desk_, view);
    });
    return button;
  };
  one_ = choice("oneLayer", false);
  all_ = choice("allLayers", true);
  next_ = new Button(desk, ButtonLook::Outline, Icon::Play, QStringLiteral("Next bare place"), this);
  next_->SetTextSize(12);
  next_->setObjectName(QStringLiteral("nextBare"));
  next_->setFixedHeight(30);
  connect(next_, &QAbstractButton::clicked, this, [this] { GoToBare(true); });
  desk.binder.BindAll(this, [this] {
    const int row = PressedRow(desk_.station.s);
    const bool all = row == 0 || desk_.live->view().allLayers;
    one_->setVisible(row > 0);
    one_->setText(QStringLiteral("Layer %1").arg(row));
    one_->SetFilled(!all);
    all_->SetFilled(all);
  });
}

void UnrolledMap::Follow(const CoverPicture* picture) {
  picture_ = picture != nullptr && picture->Known() ? picture : nullptr;
  box_ = {};
  if (picture_ != nullptr) {
    const double low = xOf_(picture_->zLow()), high = xOf_(picture_->zHigh());
    falls_ = high < low;
    box_ = QRectF(std::min(low, high), kTop, std::abs(high - low), kMap);
  }
  next_->setVisible(picture_ != nullptr && picture_->Covered() < 1);
  setAccessibleDescription(
      picture_ == nullptr
          ? QStringLiteral("not proven")
          : picture_->Title() + QStringLiteral(", %1 % covered").arg(100 * picture_->Covered(), 0, 'f', 2));
  update();
}

std::vector<QWidget*> UnrolledMap::stops() { return {one_, all_, next_, this}; }

std::optional<SurfacePlace> UnrolledMap::PlaceAt(const QPointF& at) const {
  if (box_.width() < 1 || !box_.contains(at)) return std::nullopt;
  const double share = (at.x() - box_.left()) / box_.width();
  const double z = picture_->zLow() + (picture_->zHigh() - picture_->zLow()) * (falls_ ? 1 - share : share);
  return SurfacePlace{z, 360 * (box_.bottom() - at.y()) / kMap};
}

QPointF UnrolledMap::PointOf(const SurfacePlace& place) const {
  const double turn = place.degrees / 360 - std::floor(place.degrees / 360);
  return {xOf_(place.z), box_.bottom() - kMap * turn};
}

void UnrolledMap::resizeEvent(QResizeEvent*) {
  const int right = width() - 14;
  next_->resize(next_->sizeHint().width(), 30);
  next_->move(right - next_->width(), kTop + 92);
  all_->resize(all_->sizeHint());
  all_->move(right - all_->width(), 7);
  one_->resize(one_->sizeHint());
  one_->move(all_->x() - one_->width(), 7);
}

void UnrolledMap::mouseMoveEvent(QMouseEvent* event) {
  pointed_ = PlaceAt(event->position());
  update();
}

void UnrolledMap::mousePressEvent(QMouseEvent* event) {
  kept_ = PlaceAt(event->position());
  update();
}

void UnrolledMap::leaveEvent(QEvent*) {
  pointed_.reset();
  update();
}

void UnrolledMap::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Left:
    case Qt::Key_Right:
      return GoToBare(event->key() == Qt::Key_Right);
    case Qt::Key_Escape:
      kept_.reset();
      return update();
    default:
      QWidget::keyPressEvent(event);
  }
}

void UnrolledMap::GoToBare(bool forward) {
  if (picture_ == nullptr) return;
  if (const auto next =
          picture_->NextBare(kept_.value_or(SurfacePlace{picture_->zLow(), 0}), forward != falls_))
    kept_ = next;
  pointed_.reset();
  update();
}

void UnrolledMap::paintEvent(QPaintEvent*) {
  const Theme& t = desk_.theme;
  QPainter p(this);
  p.setPen(t[Token::Hairline]);
  p.drawLine(0, 0, width(), 0);
  p.setFont(t.Font(13, Weight::Medium));
  p.setPen(t[Token::Text]);
  p.drawText(QPointF(12, 24), QStringLiteral("Unrolled"));
  p.setFont(t.Font(12));
  p.setPen(t[Token::Second]);
  p.drawText(QPointF(78, 24), picture_ == nullptr
                                  ? QStringLiteral("not proven")
                                  : QStringLiteral("mandrel angle against Z, on the scale above"));
  const QRectF& box = box_;
  if (box.width() < 1) return;
  const double ratio = devicePixelRatioF();
  const QSize pixels(static_cast<int>(box.width() * ratio), static_cast<int>(kMap * ratio));
  p.drawImage(box, picture_->Draw(pixels, [&](int x, int y) {
    return PlaceAt(box.topLeft() + QPointF((x + 0.5) / ratio, (y + 0.5) / ratio));
  }));
  p.setBrush(Qt::NoBrush);
  p.setPen(t[Token::DrawnEdge]);
  p.drawRect(box);
  p.setFont(t.Font(11));
  p.setPen(t[Token::Second]);
  for (const int degrees : {0, 90, 180, 270, 360})
    p.drawText(QRectF(box.left() - 60, box.bottom() - kMap * degrees / 360.0 - 8, 54, 16),
               Qt::AlignRight | Qt::AlignVCenter, QStringLiteral("%1\u00B0").arg(degrees));
  PaintCovered(p, box);
  PaintFigures(p, box);
  PaintPlace(p, box);
}

// The share that is covered, along Z.
void UnrolledMap::PaintCovered(QPainter& p, const QRectF& box) const {
  const Theme& t = desk_.theme;
  std::vector<double> shares;
  double least = 1;
  for (int x = 0; x <= static_cast<int>(box.width()); x += 3)
    if (const auto place = PlaceAt({std::min(box.left() + x + 0.5, box.right() - 0.5), box.center().y()})) {
      shares.push_back(picture_->CoveredAt(place->z));
      least = std::min(least, shares.back());
    }
  const double bottom = std::min(0.9, std::floor(10 * least) / 10);
  p.setPen(QPen(t[Token::Hairline], 1, Qt::DashLine));
  p.drawLine(QPointF(box.left(), kCurveTop), QPointF(box.right(), kCurveTop));
  QPainterPath curve;
  for (std::size_t i = 0; i < shares.size(); ++i) {
    const QPointF at(box.left() + 3 * static_cast<double>(i),
                     kCurveTop + kCurve * (1 - (shares[i] - bottom) / (1 - bottom)));
    i == 0 ? curve.moveTo(at) : curve.lineTo(at);
  }
  p.setRenderHint(QPainter::Antialiasing);
  p.strokePath(curve, QPen(t[Token::Figures], 2));
  p.setRenderHint(QPainter::Antialiasing, false);
  p.setFont(t.Font(11));
  p.setPen(t[Token::Second]);
  p.drawText(QRectF(box.left() - 60, kCurveTop - 8, 54, 16), Qt::AlignRight | Qt::AlignVCenter,
             QStringLiteral("100 %"));
  p.drawText(QRectF(box.left() - 60, kCurveTop + kCurve - 6, 54, 16), Qt::AlignRight | Qt::AlignVCenter,
             QStringLiteral("%1 %").arg(qRound(100 * bottom)));
  p.setFont(t.Font(12, Weight::Medium));
  p.setPen(t[Token::Text]);
  p.drawText(QPointF(12, kCurveTop + 10), QStringLiteral("Covered"));
}

void UnrolledMap::PaintFigures(QPainter& p, const QRectF& box) const {
  const Theme& t = desk_.theme;
  const double x = box.right() + kBeside;
  p.setFont(t.Font(12));
  p.setPen(t[Token::Second]);
  p.drawText(QPointF(x, kTop + 20), picture_->Title());
  p.drawText(QPointF(x, kTop + 44), QStringLiteral("Covered"));
  p.setFont(t.Font(15, Weight::Medium));
  p.setPen(t[picture_->Covered() < 1 ? Token::Fault : Token::Figures]);
  // Not all of it is never told as 100.
  const double percent = picture_->Covered() < 1 ? std::min(99.99, 100 * picture_->Covered()) : 100;
  QString share = Shown(executor::Fixed(percent, 2));
  share.replace(QLatin1Char('.'), QLatin1Char(desk_.station.s.signs.decimal));
  p.drawText(QPointF(x, kTop + 66), share + QStringLiteral(" %"));
}

// A cross-hair, and four lines of what stands there.
void UnrolledMap::PaintPlace(QPainter& p, const QRectF& box) const {
  const std::optional<SurfacePlace>& place = pointed_ ? pointed_ : kept_;
  if (!place) return;
  const Theme& t = desk_.theme;
  const QPointF at = PointOf(*place);
  p.setPen(t[Token::Text]);
  p.drawLine(QPointF(at.x(), box.top()), QPointF(at.x(), kCurveTop + kCurve));
  p.drawLine(QPointF(box.left(), at.y()), QPointF(box.right(), at.y()));
  p.setRenderHint(QPainter::Antialiasing);
  p.setBrush(t[Token::Panel]);
  p.setPen(QPen(t[Token::Text], 1.5));
  p.drawEllipse(at, 5, 5);
  p.setFont(t.Font(12, Weight::Medium));
  const QString tip = picture_->TipAt(*place);
  const QRectF text = p.fontMetrics().boundingRect(QRect(0, 0, 400, 200), Qt::AlignLeft, tip);
  QRectF note(0, 0, text.width() + 20, text.height() + 12);
  note.moveTo(at.x() - note.width() - 14 > box.left() ? at.x() - note.width() - 14 : at.x() + 14,
              std::clamp(at.y() - note.height() / 2, box.top() + 2, box.bottom() - note.height() - 2));
  p.setPen(t[Token::FieldEdge]);
  p.drawRoundedRect(note, 4, 4);
  p.setPen(t[Token::Text]);
  p.drawText(note.adjusted(10, 6, -6, -4), Qt::AlignLeft, tip);
}

}  // namespace torvane
