#include "window/rail/totals_panel.h"

#include <QBoxLayout>
#include <QGridLayout>

#include "executor/program/number.h"
#include "look/paint.h"
#include "look/text.h"
#include "window/field/field_widgets.h"
#include "workbench/schedule/totals.h"

namespace torvane {

namespace {

std::vector<Total> AllTotals(const DesignState& s, Family family) {
  std::vector<Total> totals = TotalsOf(s, family);
  if (family == Family::TwoAxes) return totals;
  const std::vector<Total> more = UncalculatedTotalsOf(s);
  totals.insert(totals.end(), more.begin(), more.end());
  return totals;
}

}  // namespace

QString ProvenText(const Desk& desk, bool minutes) {
  const LiveResult* result = desk.live == nullptr ? nullptr : desk.live->result();
  if (result == nullptr || !result->formed) return {};
  const executor::Proof& proof = result->proof;
  const bool metric = proof.millimetres;
  const executor::Range& range = minutes ? proof.winding : proof.tow;
  const double unitOf = minutes ? 60 : metric ? 1000 : 12;
  QString text = Shown(executor::Fixed(range.low / unitOf, 1));
  if (const QString high = Shown(executor::Fixed(range.high / unitOf, 1)); high != text)
    text += QStringLiteral(" to ") + high;
  text.replace(QLatin1Char('.'), QLatin1Char(desk.station.s.signs.decimal));
  const char* unit = minutes ? "min" : metric ? "m" : "ft";
  return QStringLiteral("proven %1 %2").arg(text, QString::fromLatin1(unit));
}

TotalsPanel::TotalsPanel(Desk desk, Family family, QWidget* parent) : QWidget(parent), desk_(desk) {
  DesignState& s = desk.station.s;
  setMinimumHeight(family == Family::FourAxes ? 190 : 170);
  auto* grid = new QGridLayout(this);
  grid->setContentsMargins(14, 8, 12, 12);
  grid->setHorizontalSpacing(6);
  grid->setVerticalSpacing(4);
  grid->setColumnStretch(1, 1);
  grid->setColumnMinimumWidth(2, 26);
  const std::vector<Total> totals = AllTotals(s, family);
  const std::size_t calculated = TotalsOf(s, family).size();
  for (std::size_t i = 0; i < totals.size(); ++i) {
    // A hairline stands between the first and the others.
    const int row = static_cast<int>(i == 0 ? 0 : i + 1);
    grid->addWidget(CaptionOf(totals[i], i), row, 0, 1, i <= 1 ? 2 : 1, Qt::AlignVCenter);
    auto* figure = new ReadOut(desk_, *totals[i].figure, i == 0 ? 32 : 15);
    figure->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    if (i >= calculated) figure->SetPale();
    grid->addWidget(figure, row, 1);
    auto* unit = new Word(desk_, {}, 12, Token::Second);
    grid->addWidget(unit, row, 2, Qt::AlignVCenter);
    desk_.binder.Bind(s.gUnits, unit,
                      [unit, &s, family, i] { unit->SetText(Shown(AllTotals(s, family)[i].unit)); });
  }
  grid->setRowMinimumHeight(1, 8);
}

// The time and the tow of the program stand below their estimates' captions as soon as they are proven.
QWidget* TotalsPanel::CaptionOf(const Total& total, std::size_t place) {
  auto* caption = new Word(desk_, Shown(total.caption), 13, Token::Second);
  if (desk_.live == nullptr || place > 1) return caption;
  auto* both = new QWidget(this);
  auto* column = new QVBoxLayout(both);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addWidget(caption);
  auto* proven = new Word(desk_, {}, 12, Token::Figures);
  proven->setObjectName(place == 0 ? QStringLiteral("provenMinutes") : QStringLiteral("provenTow"));
  column->addWidget(proven);
  desk_.binder.BindAll(proven, [this, proven, place] {
    const QString words = ProvenText(desk_, place == 0);
    proven->setVisible(!words.isEmpty());
    if (words.isEmpty()) return;
    proven->SetText(words);
    proven->setAccessibleName(words);
  });
  return both;
}

void TotalsPanel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  PaintPanel(painter, desk_.theme, rect());
  painter.setRenderHint(QPainter::Antialiasing, false);
  painter.setPen(desk_.theme[Token::Hairline]);
  const int y = static_cast<QGridLayout*>(layout())->cellRect(1, 0).center().y();
  painter.drawLine(14, y, width() - 14, y);
}

LargeTotals::LargeTotals(Desk desk, QWidget* parent) : QWidget(parent), desk_(desk) {
  setAccessibleName(QStringLiteral("Totals"));
  setMinimumHeight(200);
  desk.binder.BindAll(this, [this] { update(); });
}

void LargeTotals::paintEvent(QPaintEvent*) {
  const Theme& t = desk_.theme;
  QPainter p(this);
  PaintPanel(p, t, rect());
  const std::vector<Total> totals = LargeTotalsOf(desk_.station.s);
  const double part = (height() - 12) / 3.4;  // the first takes more than its third
  double y = 6;
  for (std::size_t i = 0; i < totals.size(); ++i) {
    const double tall = i == 0 ? part * 1.4 : part;
    const Total& total = totals[i];
    if (i > 0) {
      p.setPen(t[Token::Hairline]);
      p.drawLine(QPointF(1, y), QPointF(width() - 1, y));
    }
    p.setFont(t.Font(17));
    p.setPen(t[Token::Second]);
    p.drawText(QRectF(18, y + 6, width() - 30, 24), Qt::AlignLeft | Qt::AlignVCenter, Shown(total.caption));
    const QString figure = FigureOf(*total.figure);
    // Seven digits at full size are wider than the panel.
    int size = static_cast<int>(std::min(tall - 34, i == 0 ? 72.0 : 42.0));
    while (size > 20 && QFontMetrics(t.Font(size, Weight::Medium)).horizontalAdvance(figure) > width() - 90)
      size -= 4;
    p.setFont(t.Font(size, Weight::Medium));
    p.setPen(t[total.figure->empty() ? Token::Off : Token::Figures]);
    const QRectF box(18, y + 26, width() - 24, tall - 28);
    p.drawText(box, Qt::AlignLeft | Qt::AlignVCenter, figure);
    const double after = p.fontMetrics().horizontalAdvance(figure) + 8;
    const double base = box.center().y() + p.fontMetrics().ascent() / 2.0 - p.fontMetrics().descent() / 2.0;
    p.setFont(t.Font(20));
    p.setPen(t[Token::Second]);
    p.drawText(QPointF(18 + after, base), Shown(total.unit));
    y += tall;
  }
}

}  // namespace torvane
