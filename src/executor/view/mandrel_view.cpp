#include "executor/view/mandrel_view.h"

#include <QEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "executor/program/number.h"
#include "look/paint.h"

namespace torvane::dryrun {

namespace {

constexpr int kSurfaceRows = 720;
// What one frame may spend on bands; the rest of a redrawn layer follows in the next ones.
constexpr int kPaintMilliseconds = 12;
// The mandrel is seen turning as long as the eye can follow; a frame is a sixtieth of a second.
constexpr double kFollowed = 25;  // degrees a frame

QImage Blank(const QSizeF& size, double ratio) {
  QImage image((size * ratio).toSize().expandedTo({1, 1}), QImage::Format_ARGB32_Premultiplied);
  image.setDevicePixelRatio(ratio);
  image.fill(Qt::transparent);
  return image;
}

}  // namespace

MandrelView::MandrelView(Stand stand, QWidget* parent)
    : QWidget(parent), stand_(stand), surface_(stand.theme) {
  setObjectName(QStringLiteral("mandrelView"));
  setAccessibleName(QStringLiteral("The mandrel, from the side and unrolled"));
  setAccessibleDescription(QStringLiteral(
      "Up and Down turn the mandrel, Enter gives the machine's angle back; so do a drag and a double click"));
  setToolTip(QStringLiteral("Drag the mandrel to turn it; a double click gives the machine's angle back"));
  setFocusPolicy(Qt::StrongFocus);
  setMinimumSize(300, 170);
  connect(&stand.session, &Session::Opened, this, [this] { Fit(); });
  connect(&stand.session, &Session::Played, this, [this] {
    Follow(kPaintMilliseconds);
    update();
  });
  connect(&stand.session, &Session::Proven, this, [this] { update(); });
  Fit();
}

void MandrelView::resizeEvent(QResizeEvent*) { Fit(); }

void MandrelView::changeEvent(QEvent* event) {
  if (event->type() == QEvent::PaletteChange) Fit();
}

void MandrelView::Finish() { Follow(1'000'000); }

void MandrelView::Fit() {
  const executor::Course& course = stand_.player().course();
  part_ = course.Part();
  dome_ = course.domes ? std::min(part_.leftRadius, part_.rightRadius) : 0;
  double low = part_.zRight - dome_, high = part_.zLeft + dome_;
  if (!Known()) {
    low = std::min(course.lowestZ, course.homeZ);
    high = course.highestZ;
    if (high <= low) high = low + 1;
  }
  const double edge = (high - low) * 0.045;
  Room& room = room_;
  const double left = 40, right = width() - 14;
  room.scale = {high + edge, low - edge, left, right};
  // The side view gets what the mandrel needs to true scale, within what the unrolled one can spare.
  const double head = 34, rail = 20, between = 30, ruler = 26;
  const double height = std::max(40.0, this->height() - head - rail - between - ruler);
  const double perLength = (right - left) / (high - low + 2 * edge);
  const double diameter = Known() ? 2 * std::max(part_.leftRadius, part_.rightRadius) * perLength : 0;
  const double side = std::clamp(diameter, height * 0.25, height * 0.55);
  room.rail = head + 2;
  room.side = QRectF(left, head + rail, right - left, std::floor(side));
  room.unrolled = QRectF(left, room.side.bottom() + between, right - left, std::floor(height - side));
  shades_ = Shades(stand_.theme);
  const double ratio = devicePixelRatioF();
  unrolled_ = Blank(room.unrolled.size(), ratio);
  side_ = Blank(room.side.size(), ratio);
  FitSights();
  // Whole rows of the surface make one of the unrolled picture.
  const int rows =
      unrolled_.height() * std::max(1, (kSurfaceRows + unrolled_.height() - 1) / unrolled_.height());
  ZScale scale = room.scale;
  scale.left = 0;
  scale.right = unrolled_.width();
  surface_.Reshape({unrolled_.width(), rows}, scale);
  RenderSide({0, side_.width()});
  Follow(kPaintMilliseconds);
  update();
}

void MandrelView::Follow(int milliseconds) {
  const executor::Player& player = stand_.player();
  Columns changed = surface_.Follow(player, milliseconds);
  RenderUnrolled(changed);
  const bool slow = player.Rpm() * 6 * player.Speed() / 60 < kFollowed;
  const double turned = slow ? player.At().mandrel : turned_;
  if (std::abs(turned - turned_) > 0.05) changed = {0, side_.width()};
  turned_ = turned;
  RenderSide(changed);
  if (!surface_.UpToDate()) update();
}

Oblique MandrelView::SideGeometry(double ratio) const {
  const double widest = std::max(part_.leftRadius, part_.rightRadius);
  const double perRadius = widest > 0 ? room_.side.height() / 2 / widest * ratio : 0;
  ZScale scale = room_.scale;
  scale.left = 0;
  scale.right = room_.side.width() * ratio;
  return {scale.XAt(part_.zLeft), scale.XAt(part_.zRight), part_.leftRadius * perRadius,
          part_.rightRadius * perRadius, scale.XAt(part_.zRight - dome_) - scale.XAt(part_.zRight)};
}

void MandrelView::TurnTo(double byHand) {
  byHand_ = std::remainder(byHand, 360);
  RenderSide({0, side_.width()});
  update();
}

void MandrelView::mousePressEvent(QMouseEvent* event) {
  dragging_ = event->button() == Qt::LeftButton && Known() && room_.side.contains(event->position());
  draggedFrom_ = event->position().y();
  turnedFrom_ = byHand_;
}

// The surface follows the pointer as if it were rolled.
void MandrelView::mouseMoveEvent(QMouseEvent* event) {
  if (!dragging_) return;
  const double way = (event->position().y() - draggedFrom_) / (room_.side.height() / 2);
  TurnTo(turnedFrom_ + way / executor::kRadians);
}

void MandrelView::mouseReleaseEvent(QMouseEvent*) { dragging_ = false; }

void MandrelView::mouseDoubleClickEvent(QMouseEvent* event) {
  if (room_.side.contains(event->position())) TurnTo(0);
}

void MandrelView::keyPressEvent(QKeyEvent* event) {
  constexpr double kStep = 15;
  if (event->key() == Qt::Key_Up)
    TurnTo(byHand_ - kStep);
  else if (event->key() == Qt::Key_Down)
    TurnTo(byHand_ + kStep);
  else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
    TurnTo(0);
  else
    QWidget::keyPressEvent(event);
}

void MandrelView::focusInEvent(QFocusEvent*) { update(); }
void MandrelView::focusOutEvent(QFocusEvent*) { update(); }

double MandrelView::ContactAngle() const { return stand_.player().At().mandrel - Turned() + 90; }

QString MandrelView::Summary() const {
  const executor::Player& player = stand_.player();
  const executor::Layer* layer = player.LayerShown();
  if (layer == nullptr || !player.Cover().Known()) return {};
  const QString name = QStringLiteral("Layer %1: ").arg(layer->number);
  const auto percent = [](double share) { return QString::number(std::floor(share * 100 + 0.05)); };
  QString text = name + QStringLiteral("%1 % covered").arg(percent(player.Cover().Once()));
  if (player.Cover().Twice() > 0.005)
    text += QStringLiteral(", %1 % twice").arg(percent(player.Cover().Twice()));
  const bool whole = player.LaidSoFar().strokes == layer->strokes.size() &&
                     layer->passes.size() >= static_cast<std::size_t>(layer->passes.front().announced);
  if (!whole || stand_.session.proof() == nullptr) return text;
  for (const executor::LayerFigures& figures : stand_.session.proof()->layers)
    if (figures.number == layer->number && figures.judged && figures.fits && figures.pattern.bands > 1)
      return name + QStringLiteral("%1 % covered, closing error %2%3")
                        .arg(percent(figures.coveredShare))
                        .arg(stand_.Figure(figures.pattern.miss, 2))
                        .arg(QChar(0xB0));
  return text;
}

void MandrelView::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  PaintPanel(painter, stand_.theme, rect());
  PaintHead(painter);
  PaintSide(painter);
  PaintUnrolled(painter);
  PaintRuler(painter);
  if (hasFocus()) PaintFocus(painter, stand_.theme[Token::Focus], Inset(rect(), 2));
  if (!surface_.UpToDate())
    QMetaObject::invokeMethod(
        this, [this] { Follow(kPaintMilliseconds); }, Qt::QueuedConnection);
}

}  // namespace torvane::dryrun
