#include "window/part/part_line.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <algorithm>
#include <cmath>

#include "design/catalogue.h"
#include "look/paint.h"
#include "look/text.h"
#include "text/number_text.h"
#include "window/field/field_widgets.h"
#include "window/field/help.h"

namespace torvane {

namespace {

constexpr double kStepInches = 0.05, kStepMillimetres = 1;
constexpr double kFine = 10;       // of the finer steps in one
constexpr double kReach = 9;       // to either side of the line
constexpr double kLeastReach = 3;  // where two lines stand close together
constexpr double kBelow = 12;      // the foot on the ruler

// A place that is a multiple of the step to within rounding is one.
double Multiples(double z, double step) { return std::round(z / step * 1e6) / 1e6; }

}  // namespace

PartLine::PartLine(Desk desk, Field& field, QWidget* drawing, std::function<void()> moved)
    : QWidget(drawing), desk_(desk), field_(field), moved_(std::move(moved)) {
  setObjectName(QStringLiteral("line of ") + QString::fromStdString(NameOf(field)));
  const QString sentence = QStringLiteral(
      "Drag it, or move it with the keys Left and Right. With Shift it goes by a tenth of that; Esc ends a "
      "drag where it began.");
  setAccessibleName(HelpOf(field).name + QStringLiteral(", its line"));
  setStatusTip(sentence);
  setToolTip(HelpOf(field).name + QLatin1Char('\n') + sentence);
  setWhatsThis(accessibleName() + QLatin1Char('\n') + sentence);
  setFocusPolicy(Qt::StrongFocus);
  setCursor(Qt::SizeHorCursor);
  setAttribute(Qt::WA_Hover);
  hide();
}

void PartLine::Follow(const LineTrack& track) {
  track_ = track;
  setAccessibleDescription(Shown(field_.text()) + QLatin1Char(' ') + Shown(desk_.station.s.gUnits.text()) +
                           QStringLiteral(". ") + statusTip());
  update();
}

double PartLine::Step(bool fine) const {
  const double step = desk_.station.s.InInches() ? kStepInches : kStepMillimetres;
  return fine ? step / kFine : step;
}

void PartLine::MoveTo(double z, double most, bool fine) {
  const double step = Step(fine);
  const double last = std::floor(Multiples(std::min(most, track_.most), step));
  const double first = std::ceil(Multiples(std::max(track_.least, Step(true)), step));
  if (first > last) return;
  const double at = std::clamp(std::round(Multiples(z, step)), first, last) * step;
  const NumberSigns signs = desk_.station.s.signs;
  // As the station writes a place, with a third digit only where it says something.
  const std::string text = FormatNumberText(signs, at, "###0.00#"_mask);
  if (number(field_).value() != at && text != field_.text()) desk_.binder.Type(field_, Shown(text));
}

void PartLine::mousePressEvent(QMouseEvent* event) {
  const std::optional<double> z = DrawnValue(field_);
  if (event->button() != Qt::LeftButton || !z) return;
  drag_ = Drag{parentWidget()->mapFromGlobal(event->globalPosition()).x(), track_.zero + *z * track_.perUnit};
  desk_.station.BeginTyping();
  moved_();
}

void PartLine::mouseMoveEvent(QMouseEvent* event) {
  if (!drag_) return;
  const double x = parentWidget()->mapFromGlobal(event->globalPosition()).x();
  if (!drag_->going && std::abs(x - drag_->pressed) < 3) return;
  drag_->going = true;
  MoveTo((drag_->line + x - drag_->pressed - track_.zero) / track_.perUnit, track_.furthest,
         (event->modifiers() & Qt::ShiftModifier) != 0);
}

void PartLine::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) EndDrag();
}

void PartLine::EndDrag() {
  if (!drag_) return;
  drag_.reset();
  desk_.station.BeginTyping();
  moved_();
  update();
}

void PartLine::keyPressEvent(QKeyEvent* event) {
  const int key = event->key();
  if (key == Qt::Key_Escape && drag_) {
    desk_.binder.Do([this] { desk_.station.DropTyping(field_); });
    EndDrag();
    return;
  }
  const std::optional<double> z = DrawnValue(field_);
  if ((key != Qt::Key_Left && key != Qt::Key_Right) || drag_ || !z) {
    QWidget::keyPressEvent(event);
    return;
  }
  const bool fine = (event->modifiers() & Qt::ShiftModifier) != 0;
  const bool grows = (key == Qt::Key_Right) == (track_.perUnit > 0);
  const double steps = Multiples(*z, Step(fine));
  MoveTo((grows ? std::floor(steps) + 1 : std::ceil(steps) - 1) * Step(fine), track_.most, fine);
}

void PartLine::focusInEvent(QFocusEvent* event) {
  desk_.station.BeginTyping();
  QWidget::focusInEvent(event);
}

void PartLine::focusOutEvent(QFocusEvent* event) {
  desk_.station.BeginTyping();
  QWidget::focusOutEvent(event);
}

// A window that folds in the middle of a drag takes the line away.
void PartLine::hideEvent(QHideEvent*) { EndDrag(); }

void PartLine::paintEvent(QPaintEvent*) {
  const bool taken = drag_.has_value();
  if (!underMouse() && !hasFocus() && !taken) return;
  const std::optional<double> z = DrawnValue(field_);
  if (!z) return;
  const Theme& t = desk_.theme;
  QPainter p(this);
  p.setRenderHint(QPainter::Antialiasing);
  const double x = track_.zero + *z * track_.perUnit - this->x();
  QColor ground = t[Token::Accent];
  ground.setAlphaF(taken ? 0.3F : 0.18F);
  p.setPen(Qt::NoPen);
  p.setBrush(ground);
  p.drawRoundedRect(Inset(rect(), 1), 4, 4);
  p.setPen(QPen(t[Token::Accent], 3, Qt::SolidLine, Qt::FlatCap));
  p.drawLine(QPointF(x, 2), QPointF(x, height() - kBelow));
  if (hasFocus()) PaintFocus(p, t[Token::Focus], Inset(rect(), 1));
}

PartLines::PartLines(Desk desk, const std::vector<Field*>& fields, QWidget* drawing,
                     const std::function<void()>& moved) {
  for (Field* field : fields) {
    lines_.push_back(new PartLine(desk, *field, drawing, moved));
    stops_.push_back(lines_.back());
  }
}

std::optional<double> PartLines::heldScale() const {
  const bool any = std::any_of(lines_.begin(), lines_.end(), [](PartLine* line) { return line->dragged(); });
  return any ? std::optional(scale_) : std::nullopt;
}

void PartLines::Follow(const PartSketch& sketch, double top, bool usable) {
  scale_ = sketch.scale();
  const SketchFrame& frame = sketch.frame();
  std::vector<PartLine*> drawn;
  for (PartLine* line : lines_) {
    const std::optional<double> z = DrawnValue(line->field());
    const double x = z ? sketch.XOf(*z) : 0;
    if (usable && z && line->field().enabled() && x >= frame.postLeft - 1 && x <= frame.postRight + 1)
      drawn.push_back(line);
    else
      line->hide();
  }
  const auto zOf = [](const PartLine* line) { return *DrawnValue(line->field()); };
  const double perUnit = sketch.XOf(1) - sketch.XOf(0);
  for (std::size_t i = 0; i < drawn.size(); ++i) {
    const double z = zOf(drawn[i]), x = sketch.XOf(z);
    LineTrack track{sketch.XOf(0), perUnit, 0, 1e6, (frame.postRight - frame.postLeft) / sketch.scale()};
    double left = x - kReach, right = x + kReach;
    // A line goes up to its neighbours, and shares the room between them.
    for (const bool atRight : {false, true}) {
      if (atRight ? i + 1 == drawn.size() : i == 0) continue;
      const double other = zOf(drawn[atRight ? i + 1 : i - 1]), middle = (x + sketch.XOf(other)) / 2;
      const double gap = 1e-3;
      if (atRight == (perUnit > 0)) {
        if (other >= z) track.most = other - gap;
      } else if (other <= z) {
        track.least = other + gap;
      }
      if (atRight && middle >= x) right = std::min(right, std::max(middle, x + kLeastReach));
      if (!atRight && middle <= x) left = std::max(left, std::min(middle, x - kLeastReach));
    }
    const QRectF box(left, top, right - left, frame.rulerY + kBelow - top);
    drawn[i]->setGeometry(box.toAlignedRect());
    drawn[i]->Follow(track);
    drawn[i]->show();
    drawn[i]->raise();
  }
}

}  // namespace torvane
