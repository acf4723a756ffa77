#include "window/status_line.h"

#include <QPainter>

#include "design/number_text.h"
#include "look/text.h"

namespace torvane {

StatusLine::StatusLine(Desk desk, QWidget* parent) : QWidget(parent), desk_(desk) {
  setObjectName(QStringLiteral("statusLine"));
  setFixedHeight(24);
  desk.binder.BindAll(this, [this] { update(); });
}

void StatusLine::Describe(const QString& name, const QString& sentence) {
  name_ = name;
  sentence_ = sentence;
  update();
}

void StatusLine::paintEvent(QPaintEvent*) {
  const Theme& t = desk_.theme;
  const DesignState& s = desk_.station.s;
  QPainter p(this);
  p.fillRect(rect(), t[Token::Bars]);
  p.setPen(t[Token::Hairline]);
  p.drawLine(0, 0, width(), 0);
  const QString dot = QStringLiteral("  ") + QChar(0xB7) + QStringLiteral("  ");
  const auto limit = [&s](double value) { return Shown(FormatNumberText(s.signs, value, "##0.0"_mask)); };
  // A narrow window has room for the sentence alone.
  const QString limits = QStringLiteral("Mandrel up to ") + limit(s.mMaxRPM) + QStringLiteral(" RPM") + dot +
                         QStringLiteral("carriage up to ") + limit(s.cMaxSpeed) + QStringLiteral(" in/s") +
                         dot;
  const QString right = (width() < 1000 ? QString() : limits) + Shown(s.lblVersion.text());
  p.setFont(t.Font(12));
  p.setPen(t[Token::Second]);
  const int rightWidth = p.fontMetrics().horizontalAdvance(right);
  p.drawText(rect().adjusted(0, 1, -12, 0), Qt::AlignRight | Qt::AlignVCenter, right);
  p.setFont(t.Font(12, Weight::Medium));
  p.setPen(t[Token::Text]);
  p.drawText(rect().adjusted(12, 1, 0, 0), Qt::AlignLeft | Qt::AlignVCenter, name_);
  const int after = 12 + p.fontMetrics().horizontalAdvance(name_) + 8;
  p.setFont(t.Font(12));
  p.setPen(t[Token::Second]);
  const QRect room(after, 1, width() - after - rightWidth - 36, height() - 1);
  p.drawText(room, Qt::AlignLeft | Qt::AlignVCenter,
             p.fontMetrics().elidedText(sentence_, Qt::ElideRight, room.width()));
}

}  // namespace torvane
