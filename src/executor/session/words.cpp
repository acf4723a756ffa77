#include "executor/session/words.h"

#include <QPainterPath>
#include <algorithm>
#include <cmath>

#include "executor/proof/remarks.h"
#include "look/paint.h"
#include "look/text.h"

namespace torvane::dryrun {

QString Words(std::string_view text) { return Shown(executor::Printable(std::string(text))); }

QString ClockText(double seconds) {
  const auto whole = static_cast<long long>(std::clamp(std::round(seconds), 0.0, 3.6e9));
  const QChar zero(u'0');
  return QStringLiteral("%1:%2:%3")
      .arg(whole / 3600, 2, 10, zero)
      .arg(whole / 60 % 60, 2, 10, zero)
      .arg(whole % 60, 2, 10, zero);
}

QFont MonoFont(int size) {
  QFont font;
  font.setFamilies({QStringLiteral("JetBrains Mono"), QStringLiteral("DejaVu Sans Mono")});
  font.setStyleHint(QFont::Monospace);
  font.setPixelSize(size);
  return font;
}

Icon GlyphOf(executor::Level level) {
  return level == executor::Level::Ok     ? Icon::Check
         : level == executor::Level::Note ? Icon::Info
                                          : Icon::Cross;
}

Token InkOf(executor::Level level) {
  return level == executor::Level::Ok     ? Token::Ok
         : level == executor::Level::Note ? Token::Note
                                          : Token::Fault;
}

void PaintPanelHead(QPainter& painter, const Theme& theme, const QRect& box, int head, const QString& title) {
  PaintPanel(painter, theme, box);
  QPainterPath ground;
  ground.addRoundedRect(Inset(box, 1), 5, 5);
  painter.save();
  painter.setClipRect(QRect(box.left(), box.top(), box.width(), head));
  painter.fillPath(ground, theme[Token::TableHead]);
  painter.restore();
  painter.setPen(theme[Token::Hairline]);
  painter.drawLine(QPointF(box.left() + 1, box.top() + head - 0.5),
                   QPointF(box.right(), box.top() + head - 0.5));
  painter.setFont(theme.Font(14, Weight::Medium));
  painter.setPen(theme[Token::Text]);
  painter.drawText(QRect(box.left() + 14, box.top(), box.width() - 28, head), Qt::AlignVCenter, title);
}

}  // namespace torvane::dryrun
