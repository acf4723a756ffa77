#include "executor/panel/timeline.h"

#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>
#include <algorithm>
#include <cmath>
#include <iterator>

#include "executor/proof/report.h"
#include "executor/session/words.h"
#include "look/paint.h"
#include "look/text.h"

namespace torvane::dryrun {

using executor::Level;
using executor::Player;
using executor::RunState;

namespace {

constexpr int kHeight = 88, kTop = 9, kSegment = 26, kButtons = 47;
constexpr double kHandle = 18, kTarget = 44, kGlyph = 12, kGlyphTarget = 18;
constexpr double kGlyphTop = kTop + kSegment + 1;
const double kHandleY = kTop + kSegment / 2.0;
const QChar kDash(0x2013);

}  // namespace

Timeline::Timeline(Stand stand, QWidget* parent)
    : Strip(stand, kHeight, parent),
      steps_(new StepBar(stand, this)),
      next_(new PlainButton(stand.theme, ButtonLook::Outline, Icon::Info, QStringLiteral("Next finding"),
                            this)) {
  setObjectName(QStringLiteral("timeline"));
  setAccessibleName(QStringLiteral("Where the run stands"));
  next_->setObjectName(QStringLiteral("nextFinding"));
  next_->setAccessibleName(QStringLiteral("Next finding"));
  next_->setToolTip(QStringLiteral("Takes the run to the next finding (N; back with Shift+N)"));
  next_->setAccessibleDescription(next_->toolTip());
  connect(next_, &PlainButton::clicked, this, [this] { nextFindingAsked(); });
  connect(&stand.session, &Session::Opened, this, &Timeline::Refresh);
  connect(&stand.session, &Session::Proven, this, &Timeline::Refresh);
  connect(&stand.session, &Session::Played, this,
          [this] { setAccessibleDescription(PlaceText(QWIDGETSIZE_MAX)); });
  Refresh();
}

void Timeline::Refresh() {
  FitPieces();
  const auto& remarks = stand_.session.remarks();
  next_->setEnabled(std::any_of(remarks.begin(), remarks.end(),
                                [](const executor::Remark& remark) { return remark.level != Level::Ok; }));
  setAccessibleDescription(PlaceText(QWIDGETSIZE_MAX));
  update();
}

void Timeline::resizeEvent(QResizeEvent*) {
  FitPieces();
  const bool narrow = width() < 1100;
  steps_->SetNarrow(narrow);
  next_->setText(narrow ? QString() : QStringLiteral("Next finding"));
  next_->setFixedWidth(narrow ? 44 : 138);
  next_->move(width() - 8 - next_->width(), kButtons);
  steps_->move((width() - steps_->width()) / 2 + (narrow ? 30 : 9), kButtons);
}

QRectF Timeline::Track() const {
  const double left = width() < 1100 ? 110 : 142, right = width() < 1100 ? 116 : 122;
  return {left, kTop, width() - left - right, kSegment};
}

void Timeline::FitPieces() {
  const executor::Course& course = stand_.player().course();
  const double gap = course.stretches.size() > 60 ? 1 : 3;
  const QRectF room = Track();
  const double count = static_cast<double>(course.stretches.size());
  // Short ones stay visible; what they take is missing from the others in proportion.
  const double least = std::min(4.0, room.width() / std::max(1.0, count) / 2);
  const double spread = room.width() - count * (least + gap) + gap;
  pieces_.clear();
  double x = room.left();
  for (const executor::Stretch& stretch : course.stretches) {
    const double wide = least + std::max(0.0, spread) * stretch.seconds / std::max(1e-9, course.seconds);
    pieces_.push_back({QRectF(x, room.top(), wide, room.height()), &stretch});
    x += wide + gap;
  }
}

double Timeline::XAt(double seconds) const {
  const auto behind = std::partition_point(pieces_.begin(), pieces_.end(), [seconds](const Piece& piece) {
    return piece.stretch->begins <= seconds;
  });
  if (behind == pieces_.begin()) return Track().left();
  const Piece& piece = *std::prev(behind);
  const double share = (seconds - piece.stretch->begins) / piece.stretch->seconds;
  return piece.box.left() + piece.box.width() * std::clamp(share, 0.0, 1.0);
}

double Timeline::SecondsAt(double x) const {
  const auto piece = std::partition_point(pieces_.begin(), pieces_.end(),
                                          [x](const Piece& p) { return p.box.right() <= x; });
  if (piece == pieces_.end()) return stand_.player().course().seconds;
  const double share = std::max(0.0, (x - piece->box.left()) / piece->box.width());
  return piece->stretch->begins + piece->stretch->seconds * share;
}

int Timeline::FindingAt(const QPointF& at) const {
  if (at.y() < kGlyphTop || at.y() > kGlyphTop + kGlyph) return -1;
  const auto& remarks = stand_.session.remarks();
  const auto& times = stand_.session.remarkTimes();
  // The first is the worst.
  for (std::size_t i = 0; i < times.size(); ++i)
    if (remarks[i].level != Level::Ok && times[i] >= 0 &&
        std::abs(XAt(times[i]) - at.x()) <= kGlyphTarget / 2)
      return static_cast<int>(i);
  return -1;
}

void Timeline::mousePressEvent(QMouseEvent* event) {
  const QPointF at = event->position();
  if (event->button() != Qt::LeftButton || stand_.player().program() == nullptr) return;
  if (const int finding = FindingAt(at); finding >= 0) {
    findingChosen(finding);
    return;
  }
  const QRectF track = Track();
  const bool inside = at.x() >= track.left() - kTarget / 2 && at.x() <= track.right() + kTarget / 2;
  if (at.y() > kHandleY + kTarget / 2 || !inside) return;
  dragging_ = true;
  moved_ = false;
  pressedX_ = at.x();
  // Within its target the handle is taken as it stands.
  grip_ = std::abs(HandleX() - at.x()) <= kTarget / 2 ? HandleX() - at.x() : 0;
  if (grip_ == 0) stand_.session.SeekTime(SecondsAt(at.x()));
}

void Timeline::mouseMoveEvent(QMouseEvent* event) {
  if (!dragging_) return;
  const double x = event->position().x();
  if (!moved_ && std::abs(x - pressedX_) < 3) return;
  moved_ = true;
  stand_.session.SeekTime(SecondsAt(x + grip_));
}

void Timeline::mouseReleaseEvent(QMouseEvent* event) {
  // A click beside the handle that has not moved it means that place.
  if (dragging_ && !moved_ && std::abs(grip_) > kHandle / 2) stand_.session.SeekTime(SecondsAt(pressedX_));
  dragging_ = false;
  Strip::mouseReleaseEvent(event);
}

QString Timeline::TipAt(const QPointF& at) const {
  if (const int finding = FindingAt(at); finding >= 0) {
    const executor::Remark& remark = stand_.session.remarks()[static_cast<std::size_t>(finding)];
    return QStringLiteral("%1: %2").arg(Words(remark.subject), Words(remark.text));
  }
  if (at.y() > kTop + kSegment) return {};
  for (const Piece& piece : pieces_) {
    if (!piece.box.contains(at)) continue;
    const executor::Stretch& s = *piece.stretch;
    const QString name = s.layer > 0 ? QStringLiteral("Layer %1").arg(s.layer) : Words(s.name);
    return QStringLiteral("%1: %2").arg(name, QString::fromStdString(executor::TimeText(s.seconds))) +
           QStringLiteral("\n") +
           QStringLiteral("A click takes the run to %1").arg(ClockText(SecondsAt(at.x())));
  }
  return {};
}

bool Timeline::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return Strip::event(event);
  const auto* help = static_cast<QHelpEvent*>(event);
  const QString tip = TipAt(help->pos());
  if (tip.isEmpty())
    QToolTip::hideText();
  else
    QToolTip::showText(help->globalPos(), PlainTip(tip), this);
  return true;
}

// Where there is little room the line goes first, then how many there are.
QString Timeline::PlaceText(int room) const {
  const Player& player = stand_.player();
  const executor::Screen& s = player.screen();
  if (player.program() == nullptr) return {};
  if (player.LineNow() == 0) return QStringLiteral("At the beginning");
  const auto whole = [](double number) { return QString::number(number, 'f', 0); };
  QString place = s.stage.empty() ? QStringLiteral("Start") : Words(s.stage), longer = place;
  if (s.layer > 0) {
    place = QStringLiteral("Layer %1, pass %2").arg(whole(s.layer), whole(s.pass));
    longer = s.passes > 0 ? QStringLiteral("%1 of %2").arg(place, whole(s.passes)) : place;
  }
  const QFontMetrics metrics(stand_.theme.Font(13, Weight::Medium));
  const QString line = QStringLiteral("line %1").arg(player.LineNow());
  for (const QString& text : {longer + QStringLiteral(", ") + line, longer, place})
    if (metrics.horizontalAdvance(text) <= room) return text;
  return s.layer > 0 ? QStringLiteral("Layer %1").arg(whole(s.layer)) : line;
}

void Timeline::PaintTimes(QPainter& p) const {
  const Theme& t = stand_.theme;
  const Player& player = stand_.player();
  const bool known = player.program() != nullptr;
  const auto time = [&](Qt::Alignment side, const QString& caption, const QString& figure) {
    const QRect room = rect().adjusted(9, 0, -9, 0);
    p.setFont(t.Font(12));
    p.setPen(t[Token::Second]);
    p.drawText(QRect(room.left(), 2, room.width(), 18), static_cast<int>(side | Qt::AlignVCenter), caption);
    p.setFont(t.Font(20, Weight::Medium));
    p.setPen(t[known ? Token::Figures : Token::Off]);
    p.drawText(QRect(room.left(), 18, room.width(), 26), static_cast<int>(side | Qt::AlignVCenter), figure);
  };
  time(Qt::AlignLeft, QStringLiteral("Elapsed"), known ? ClockText(player.Elapsed()) : kDash);
  const bool endless = player.EndlessNow() && player.State() != RunState::Finished;
  time(Qt::AlignRight,
       endless                   ? QStringLiteral("Curing")
       : player.course().endless ? QStringLiteral("Until curing")
                                 : QStringLiteral("Remaining"),
       !known    ? QString(kDash)
       : endless ? QStringLiteral("until Stop")
                 : ClockText(player.Remaining()));
  p.setFont(t.Font(13, Weight::Medium));
  p.setPen(t[Token::Text]);
  const int room = steps_->x() - 18;
  p.drawText(QRect(9, kButtons, room, 34), Qt::AlignVCenter, PlaceText(room));
}

void Timeline::PaintFindings(QPainter& p) const {
  const auto& remarks = stand_.session.remarks();
  const auto& times = stand_.session.remarkTimes();
  // From behind, so that the worst lies on top; what would lie on its like is left out.
  std::vector<std::pair<int, Level>> painted;
  for (std::size_t i = times.size(); i-- > 0;) {
    const Level level = remarks[i].level;
    if (level == Level::Ok || times[i] < 0) continue;
    const double x = XAt(times[i]);
    const std::pair<int, Level> place(static_cast<int>(x), level);
    if (std::find(painted.begin(), painted.end(), place) != painted.end()) continue;
    painted.push_back(place);
    PaintIcon(p, GlyphOf(level), QRectF(x - kGlyph / 2, kGlyphTop, kGlyph, kGlyph),
              stand_.theme[InkOf(level)]);
  }
}

void Timeline::PaintHandle(QPainter& p) const {
  const Theme& t = stand_.theme;
  const double x = HandleX();
  p.setPen(QPen(t[Token::Text], 3));
  p.drawLine(QPointF(x, kTop - 5), QPointF(x, kTop + kSegment + 5));
  p.setPen(QPen(t[Token::Text], 2));
  p.setBrush(t[Token::Panel]);
  p.drawEllipse(QPointF(x, kHandleY), kHandle / 2 - 1, kHandle / 2 - 1);
  p.drawLine(QPointF(x, kHandleY - 3), QPointF(x, kHandleY + 3));
}

void Timeline::paintEvent(QPaintEvent*) {
  const Theme& t = stand_.theme;
  const Player& player = stand_.player();
  QPainter p(this);
  PaintPanel(p, t, rect());
  PaintTimes(p);
  if (player.program() == nullptr) return;
  p.setFont(t.Font(12, Weight::Medium));
  for (const Piece& piece : pieces_) {
    const executor::Stretch& s = *piece.stretch;
    const double share = std::clamp((player.Elapsed() - s.begins) / s.seconds, 0.0, 1.0);
    const double radius = std::min(3.0, piece.box.width() / 2);
    const QString name = s.layer > 0 ? QString::number(s.layer) : QString();
    const bool named = p.fontMetrics().horizontalAdvance(name) + 4 < piece.box.width();
    p.setPen(Qt::NoPen);
    p.setBrush(t[Token::Hairline]);
    p.drawRoundedRect(piece.box, radius, radius);
    p.setPen(t[Token::Text]);
    if (named) p.drawText(piece.box, Qt::AlignCenter, name);
    QRectF done = piece.box;
    done.setWidth(done.width() * share);
    p.save();
    p.setClipRect(done);
    p.setPen(Qt::NoPen);
    p.setBrush(t[Token::Accent]);
    p.drawRoundedRect(piece.box, radius, radius);
    p.setPen(t[Token::OnAccent]);
    if (named) p.drawText(piece.box, Qt::AlignCenter, name);
    p.restore();
  }
  PaintFindings(p);
  PaintHandle(p);
}

}  // namespace torvane::dryrun
