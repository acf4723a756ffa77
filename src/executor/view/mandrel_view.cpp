#include "executor/view/mandrel_view.h"

#include <QEvent>
#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <cmath>

#include "executor/program/number.h"
#include "look/paint.h"

namespace torvane::dryrun {

using executor::Fixed;
using executor::RunState;

namespace {

constexpr int kSurfaceRows = 720;
// What one frame may spend on bands; the rest of a redrawn layer follows in the next ones.
constexpr int kPaintMilliseconds = 12;
// The mandrel is seen turning as long as the eye can follow; a frame is a sixtieth of a second.
constexpr double kFollowed = 25;  // degrees a frame

// A step of 1, 2, 4 or 5 that leaves the marks at least that far apart.
double RulerStep(double length, double pixels, double apart) {
  double step = std::pow(10, std::floor(std::log10(length * apart / pixels)));
  for (const double by : {1.0, 2.0, 4.0, 5.0, 10.0})
    if (step * by * pixels / length >= apart) return step * by;
  return step * 10;
}

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
  setAccessibleName(tr("The mandrel, unrolled and from the side"));
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

double MandrelView::RadiusAt(double z) const {
  if (z >= part_.zRight && z <= part_.zLeft) return part_.RadiusAt(z);
  const double beyond = z > part_.zLeft ? z - part_.zLeft : part_.zRight - z;
  if (beyond >= dome_) return 0;
  const double share = beyond / dome_;
  return part_.RadiusAt(z) * std::sqrt(1 - share * share);
}

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
  const double head = 40, ruler = 22, sideHead = 44, foot = 10;
  const double height = std::max(40.0, this->height() - head - ruler - sideHead - foot);
  const double perLength = (right - left) / (high - low + 2 * edge);
  const double diameter = Known() ? 2 * std::max(part_.leftRadius, part_.rightRadius) * perLength : 0;
  const double side = std::clamp(diameter, height * 0.25, height * 0.5);
  room.unrolled = QRectF(left, head, right - left, std::floor(height - side));
  room.side = QRectF(left, room.unrolled.bottom() + ruler + sideHead, right - left, std::floor(side));
  room.rail = room.side.top() - 22;
  shades_ = Shades(stand_.theme);
  const double ratio = devicePixelRatioF();
  unrolled_ = Blank(room.unrolled.size(), ratio);
  side_ = Blank(room.side.size(), ratio);
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

double MandrelView::ContactAngle() const { return stand_.player().At().mandrel - turned_ + 90; }

QString MandrelView::Summary() const {
  const executor::Player& player = stand_.player();
  const executor::Layer* layer = player.LayerShown();
  if (layer == nullptr || !player.Cover().Known()) return {};
  const QString name = tr("Layer %1: ").arg(layer->number);
  const auto percent = [](double share) { return QString::number(std::floor(share * 100 + 0.05)); };
  QString text = name + tr("%1 % covered").arg(percent(player.Cover().Once()));
  if (player.Cover().Twice() > 0.005) text += tr(", %1 % twice").arg(percent(player.Cover().Twice()));
  const bool whole = player.LaidSoFar().strokes == layer->strokes.size() &&
                     layer->passes.size() >= static_cast<std::size_t>(layer->passes.front().announced);
  if (!whole || stand_.session.proof() == nullptr) return text;
  for (const executor::LayerFigures& figures : stand_.session.proof()->layers)
    if (figures.number == layer->number && figures.judged && figures.fits && figures.pattern.bands > 1)
      return name + tr("%1 % covered, closing error %2%3")
                        .arg(percent(figures.coveredShare))
                        .arg(QString::fromStdString(Fixed(figures.pattern.miss, 2)))
                        .arg(QChar(0xB0));
  return text;
}

void MandrelView::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  PaintPanel(painter, stand_.theme, rect());
  PaintHead(painter);
  PaintUnrolled(painter);
  PaintRuler(painter);
  PaintSide(painter);
  if (!surface_.UpToDate())
    QMetaObject::invokeMethod(
        this, [this] { Follow(kPaintMilliseconds); }, Qt::QueuedConnection);
}

void MandrelView::PaintHead(QPainter& p) const {
  const Theme& t = stand_.theme;
  const QString title = tr("Unrolled");
  p.setFont(t.Font(14, Weight::Medium));
  p.setPen(t[Token::Text]);
  p.drawText(QRectF(14, 0, 120, 34), Qt::AlignVCenter, title);
  double x = 14 + p.fontMetrics().horizontalAdvance(title) + 18;
  const QString summary = Summary();
  p.setFont(t.Font(12, Weight::Medium));
  const double room = width() - 14 - p.fontMetrics().horizontalAdvance(summary);
  p.setPen(t[Token::Figures]);
  p.drawText(QRectF(0, 0, width() - 14, 34), Qt::AlignVCenter | Qt::AlignRight, summary);
  p.setFont(t.Font(12));
  const auto word = [&](const QString& text, Token ink) {
    const double end = x + p.fontMetrics().horizontalAdvance(text);
    if (end + 12 > room) return false;
    p.setPen(t[ink]);
    p.drawText(QRectF(x, 0, end - x + 2, 34), Qt::AlignVCenter, text);
    x = end + 18;
    return true;
  };
  if (room - x > 300) word(tr("mandrel angle against Z"), Token::Second);
  for (const auto& [text, band] :
       {std::pair(tr("out"), Token::BandOut), std::pair(tr("back"), Token::BandBack)}) {
    if (x + 60 > room) break;
    p.fillRect(QRectF(x, 14, 20, 6), t[band]);
    x += 26;
    word(text, Token::Second);
  }
}

void MandrelView::PaintUnrolled(QPainter& p) const {
  const Theme& t = stand_.theme;
  const QRectF& box = room_.unrolled;
  p.fillRect(box, t[Token::Drawing]);
  const auto xAt = [this](double z) { return room_.scale.XAt(z); };
  p.setRenderHint(QPainter::Antialiasing, false);
  if (Known())
    p.fillRect(QRectF(QPointF(xAt(part_.zLeft), box.top()), QPointF(xAt(part_.zRight), box.bottom())),
               t[Token::MandrelMid]);
  p.drawImage(box.topLeft(), unrolled_);
  p.setFont(t.Font(11));
  for (int degrees = 0; degrees <= 360; degrees += 90) {
    const double y = std::round(box.bottom() - box.height() * degrees / 360);
    if (degrees % 360 != 0) {
      p.setPen(QPen(t[Token::Off], 1, Qt::DashLine));
      p.setOpacity(0.55);
      p.drawLine(QPointF(box.left(), y), QPointF(box.right(), y));
      p.setOpacity(1);
    }
    p.setPen(t[Token::Second]);
    if (box.height() >= 60 || degrees % 180 == 0)
      p.drawText(QRectF(0, y - 8, box.left() - 6, 16), Qt::AlignRight | Qt::AlignVCenter,
                 QString::number(degrees) + QChar(0xB0));
  }
  p.setPen(t[Token::FieldEdge]);
  p.setBrush(Qt::NoBrush);
  p.drawRect(box);
  if (Known()) {
    p.setPen(QPen(t[Token::Accent], 1.5, Qt::DashLine));
    for (const double z : {part_.zLeft, part_.zRight})
      p.drawLine(QPointF(xAt(z), box.top()), QPointF(xAt(z), box.bottom()));
  }
  p.setRenderHint(QPainter::Antialiasing);
  const executor::Player& player = stand_.player();
  const double x = xAt(player.At().carriage);
  if (player.State() == RunState::Empty || x < box.left() || x > box.right()) return;
  p.setPen(QPen(t[Token::Text], 1.4));
  p.drawLine(QPointF(x, box.top()), QPointF(x, box.bottom()));
  const double turn = player.At().mandrel / 360;
  p.setPen(QPen(t[Token::Text], 2));
  p.setBrush(t[Token::Panel]);
  p.drawEllipse(QPointF(x, box.bottom() - box.height() * (turn - std::floor(turn))), 5, 5);
}

void MandrelView::PaintRuler(QPainter& p) const {
  const Theme& t = stand_.theme;
  const QRectF& box = room_.unrolled;
  if (stand_.player().State() == RunState::Empty) return;
  const ZScale& scale = room_.scale;
  const double step = RulerStep(scale.zLeft - scale.zRight, box.width(), 80);
  p.setFont(t.Font(11));
  for (double z = std::ceil(scale.zRight / step) * step; z <= scale.zLeft; z += step) {
    const double x = std::round(scale.XAt(z));
    p.setPen(t[Token::FieldEdge]);
    p.drawLine(QPointF(x, box.bottom()), QPointF(x, box.bottom() + 4));
    if (x > box.right() - 24) continue;
    p.setPen(t[Token::Second]);
    p.drawText(QRectF(x - 40, box.bottom() + 4, 80, 16), Qt::AlignCenter,
               QString::fromStdString(Fixed(z, step < 1 ? 1 : 0)));
  }
  p.setPen(t[Token::Second]);
  p.drawText(QRectF(box.right() - 40, box.bottom() + 4, 40, 16), Qt::AlignRight | Qt::AlignVCenter,
             stand_.player().course().millimetres ? tr("Z mm") : tr("Z in"));
}

void MandrelView::PaintSide(QPainter& p) const {
  const Theme& t = stand_.theme;
  const QRectF& box = room_.side;
  const double middle = box.center().y();
  p.setFont(t.Font(14, Weight::Medium));
  p.setPen(t[Token::Text]);
  p.drawText(QRectF(14, room_.rail - 16, 120, 24), Qt::AlignVCenter, tr("Side view"));
  const executor::Player& player = stand_.player();
  if (player.State() == RunState::Empty) return;
  // The shaft between the posts, behind the mandrel.
  const double thick = std::min(8.0, box.height() / 8);
  p.setPen(QPen(t[Token::DrawnEdge], 1));
  p.setBrush(t[Token::Steel]);
  p.drawRect(QRectF(6.5, std::round(middle - thick / 2) + 0.5, width() - 13, thick));
  if (Known()) {
    p.drawImage(box.topLeft(), side_);
    QPainterPath outline;
    const double widest = std::max(part_.leftRadius, part_.rightRadius);
    const double from = room_.scale.XAt(part_.zLeft + dome_), to = room_.scale.XAt(part_.zRight - dome_);
    QPolygonF upper, lower;
    for (double x = from;; x = std::min(x + 1, to)) {
      const double radius = RadiusAt(room_.scale.ZAt(x)) / widest * box.height() / 2;
      upper << QPointF(x, middle - radius);
      lower.prepend(QPointF(x, middle + radius));
      if (x >= to) break;
    }
    p.setPen(QPen(t[Token::DrawnEdge], 1.2));
    p.setBrush(Qt::NoBrush);
    p.drawPolygon(upper + lower);
  }
  // The rail, the carriage on it, and the filament from the head to the mandrel.
  p.setPen(QPen(t[Token::DrawnEdge], 1.6));
  p.drawLine(QPointF(100, room_.rail), QPointF(box.right(), room_.rail));
  const double x = std::clamp(room_.scale.XAt(player.At().carriage), 100.0, box.right() - 4);
  const double radius = RadiusAt(player.At().carriage);
  if (Known() && radius > 0) {
    const double widest = std::max(part_.leftRadius, part_.rightRadius);
    const double angle = ContactAngle() * executor::kRadians;
    // A contact point behind the mandrel is hidden: the filament is seen as far as the upper rim.
    const double up = std::cos(angle) >= -1e-9 ? std::sin(angle) : 1;
    p.setPen(QPen(t[Token::Text], 1.6));
    p.drawLine(QPointF(x, room_.rail + 6), QPointF(x, middle - up * radius / widest * box.height() / 2));
  }
  QColor carriage = t[Token::BandOut];
  p.setPen(QPen(carriage, 1.5));
  carriage.setAlphaF(0.28F);
  p.setBrush(t[Token::Panel]);
  const QRectF body(x - 17, room_.rail - 7.5, 34, 15);
  p.drawRoundedRect(body, 3, 3);
  p.setBrush(carriage);
  p.drawRoundedRect(body, 3, 3);
}

}  // namespace torvane::dryrun
