#include "window/grid/proof_strip.h"

#include <vector>

#include "executor/program/number.h"
#include "look/text.h"
#include "window/desk/proof_glyph.h"

namespace torvane {

namespace {

struct Figure {
  const char* caption;
  QString text;
  const char* unit;
};

std::vector<Figure> FiguresOf(const executor::LayerFigures& layer, NumberSigns signs, bool millimetres) {
  const auto fixed = [signs](double value, int decimals) {
    return Shown(executor::Fixed(value, decimals)).replace(QLatin1Char('.'), QLatin1Char(signs.decimal));
  };
  std::vector<Figure> figures;
  if (layer.judged) figures.push_back({"covers", fixed(100 * layer.coveredShare, 1), "%"});
  if (layer.judged && layer.fits) {
    const executor::Pattern& pattern = layer.pattern;
    if (pattern.bands > 1) figures.push_back({"closes to", fixed(pattern.miss, 2), "\xB0"});
    const bool gap = pattern.largestGap > 0;
    figures.push_back({gap ? "gaps" : "overlap", fixed(gap ? pattern.largestGap : -pattern.smallestGap, 3),
                       millimetres ? "mm" : "in"});
  }
  if (layer.angle.known) figures.push_back({"laid", fixed(layer.angle.median, 1), "\xB0"});
  if (layer.askedAngle > 0) figures.push_back({"asked", fixed(layer.askedAngle, 1), "\xB0"});
  const auto range = [&fixed](const executor::Range& r, double unit) {
    const QString low = fixed(r.low / unit, 1), high = fixed(r.high / unit, 1);
    return low == high ? low : low + QStringLiteral(" to ") + high;
  };
  figures.push_back({"runs", range(layer.time, 60), "min"});
  figures.push_back({"tow", range(layer.tow, millimetres ? 1000 : 12), millimetres ? "m" : "ft"});
  return figures;
}

}  // namespace

void PaintProofStrip(QPainter& p, const Desk& desk, int layer, const QRect& line) {
  const Theme& t = desk.theme;
  p.fillRect(line, t[Token::Panel]);
  p.setPen(t[Token::Hairline]);
  p.drawLine(line.topLeft(), line.topRight());
  const LiveResult* result = desk.live == nullptr ? nullptr : desk.live->result();
  PaintProofState(p, t, QPointF(line.x() + 19, line.center().y() + 1),
                  desk.live == nullptr ? ProofState::NotJudged : RowState(*desk.live, layer), 16);
  double x = line.x() + 36;
  const auto word = [&](const QString& text, Token token, Weight weight, int behind) {
    p.setFont(t.Font(12, weight));
    const int wide = p.fontMetrics().horizontalAdvance(text);
    p.setPen(t[token]);
    p.drawText(QRectF(x, line.y(), wide + 2, line.height()), Qt::AlignVCenter | Qt::AlignLeft, text);
    x += wide + behind;
  };
  word(QStringLiteral("Layer %1").arg(layer), Token::Text, Weight::Medium, 14);
  const executor::LayerFigures* figures = result == nullptr ? nullptr : result->LayerOf(layer);
  if (figures == nullptr) return word(QStringLiteral("not proven"), Token::Second, Weight::Regular, 0);
  const bool pale = desk.live->proving();
  for (const Figure& figure : FiguresOf(*figures, desk.station.s.signs, result->proof.millimetres)) {
    const QString unit = QString::fromLatin1(figure.unit);
    const bool degrees = unit == QStringLiteral("\u00B0");
    const QFontMetrics metrics(t.Font(12, Weight::Medium));
    const int wide = metrics.horizontalAdvance(QString::fromLatin1(figure.caption) + figure.text + unit) + 24;
    if (x + wide > line.right()) return;
    word(QString::fromLatin1(figure.caption), Token::Second, Weight::Regular, 4);
    const bool asked = figure.caption == std::string_view("asked");
    word(figure.text,
         pale    ? Token::Off
         : asked ? Token::Text
                 : Token::Figures,
         Weight::Medium, degrees ? 0 : 3);
    word(unit, Token::Second, Weight::Regular, 14);
  }
}

}  // namespace torvane
