#include "window/polar_panel.h"

#include <QPainter>

#include "look/paint.h"
#include "look/text.h"
#include "window/button.h"
#include "window/field_widgets.h"
#include "window/polar_picture.h"
#include "workbench/preview.h"
#include "workbench/totals.h"

namespace torvane {

namespace {

constexpr int kTotals = 58;

}  // namespace

PolarPanel::PolarPanel(Desk desk, QWidget* parent) : QWidget(parent), desk_(desk) {
  setObjectName(QStringLiteral("picPolar"));
  setAccessibleName(QStringLiteral("Pattern seen from the end"));
  setMinimumHeight(170);
  auto* enlarge =
      new Button(desk, ButtonLook::Outline, Icon::None, Shown(desk.station.s.Label18.caption()), this);
  enlarge->Runs("Label18");
  enlarge->resize(enlarge->sizeHint());
  enlarge_ = enlarge;
  auto* layer = new Word(desk, {}, 13, Token::Text, Weight::Medium, this);
  layer->setObjectName(QStringLiteral("lblLayer"));
  layer->setGeometry(14, 8, 58, 18);
  const Field& number = desk.station.s.lblLayer;
  desk.binder.Bind(number, layer, [layer, &number] {
    layer->SetText(number.empty() ? QString() : QStringLiteral("Layer ") + Shown(number.text()));
  });
  desk.binder.BindAll(this, [this] {
    enlarge_->setEnabled(!desk_.station.polarTag.empty());
    update();
  });
}

void PolarPanel::resizeEvent(QResizeEvent*) {
  enlarge_->move(width() - enlarge_->width() - 12, height() - kTotals - enlarge_->height() - 12);
}

void PolarPanel::mouseReleaseEvent(QMouseEvent*) { desk_.binder.Run("picPolar"); }

void PolarPanel::paintEvent(QPaintEvent*) {
  const Theme& t = desk_.theme;
  const DesignState& s = desk_.station.s;
  QPainter p(this);
  PaintPanel(p, t, rect());
  p.setRenderHint(QPainter::Antialiasing, false);
  const QString tag = Shown(desk_.station.polarTag);
  p.setPen(t[tag.isEmpty() ? Token::Second : Token::Figures]);
  p.setFont(tag.isEmpty() ? t.Font(12) : t.Font(13, Weight::Medium));
  p.drawText(QRect(s.lblLayer.empty() ? 14 : 74, 8, width() - 90, 18), Qt::AlignVCenter | Qt::AlignLeft,
             tag.isEmpty() ? QStringLiteral("Press a row's number to see its pattern.") : tag);
  const int side = std::min(width() - 130, height() - kTotals - 40);
  PaintPolar(p, t, LastDrawing(desk_.station), QRectF(16, 32, side, side));

  const int top = height() - kTotals;
  p.setPen(t[Token::Hairline]);
  p.drawLine(1, top, width() - 2, top);
  const std::vector<Total> totals = TotalsOf(s, true);
  const int shares[] = {14, 14 + (width() - 28) * 3 / 10, 14 + (width() - 28) * 63 / 100};
  for (std::size_t i = 0; i < 3; ++i) {
    p.setFont(t.Font(12));
    p.setPen(t[Token::Second]);
    p.drawText(QRect(shares[i], top + 6, 120, 16), Qt::AlignLeft | Qt::AlignVCenter,
               Shown(totals[i].caption));
    p.setFont(t.Font(20, Weight::Medium));
    p.setPen(t[totals[i].figure->empty() ? Token::Off : Token::Figures]);
    const QString figure = FigureOf(*totals[i].figure);
    p.drawText(QRect(shares[i], top + 22, 120, 28), Qt::AlignLeft | Qt::AlignVCenter, figure);
    const int after = shares[i] + p.fontMetrics().horizontalAdvance(figure) + 5;
    p.setFont(t.Font(12));
    p.setPen(t[Token::Second]);
    p.drawText(QRect(after, top + 28, 40, 18), Qt::AlignLeft | Qt::AlignVCenter, Shown(totals[i].unit));
  }
}

}  // namespace torvane
