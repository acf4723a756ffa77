#include "window/rail/polar_panel.h"

#include <QPainter>
#include <algorithm>

#include "design/masks.h"
#include "look/paint.h"
#include "look/text.h"
#include "text/number_text.h"
#include "window/field/button.h"
#include "window/field/field_widgets.h"
#include "window/rail/polar_picture.h"
#include "workbench/schedule/totals.h"
#include "workbench/station/layer_count.h"

namespace torvane {

namespace {

constexpr int kTotals = 58;
// What stands beside the picture: its column's width, with the margins, and its figures.
constexpr int kBesideView = 142, kBesideLines = 192, kFigures = 4;
// A figure below its caption, and beside it in a low panel.
constexpr int kFigureHeight = 34, kFigureLine = 17;
constexpr int kFiguresTop = 36, kLinesTop = 30;

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
  desk.binder.BindAll(layer, [layer, &view = desk.station.endView] {
    layer->SetText(view.row == 0 ? QString() : QStringLiteral("Layer %1").arg(view.row));
  });
  grazing_ = new ReadOut(desk, desk.station.s.lblGrazeAngle, 14, this);
  desk.binder.BindAll(this, [this] {
    PlaceGrazing();
    update();
  });
}

void PolarPanel::resizeEvent(QResizeEvent*) {
  enlarge_->move(width() - enlarge_->width() - 12, height() - kTotals - enlarge_->height() - 12);
  PlaceGrazing();
}

int PolarPanel::Side() const {
  return std::min(width() - (FiguresInLines() ? kBesideLines : kBesideView), height() - kTotals - 40);
}

bool PolarPanel::FiguresInLines() const { return enlarge_->y() - kFiguresTop < kFigures * kFigureHeight; }

// One below the other down to the button; where there is room for less the last of them stays.
QRect PolarPanel::FigureBox(int place) const {
  const bool lines = FiguresInLines();
  const int height = lines ? kFigureLine : kFigureHeight, top = lines ? kLinesTop : kFiguresTop;
  const int room = enlarge_->y() - top, places = std::clamp(room / height, 1, kFigures);
  const int at = place == kFigures - 1 ? places - 1 : place;
  if (at >= places || (at == places - 1 && place < kFigures - 1)) return {};
  const int each = std::min(room / places, height + 8);
  return {16 + Side() + 14, top + at * each, width() - Side() - 40, height};
}

void PolarPanel::PlaceGrazing() {
  const QRect box = FigureBox(kFigures - 1);
  // Its figure stands at its right edge.
  const int wide = grazing_->sizeHint().width();
  if (FiguresInLines())
    grazing_->setGeometry(box.right() + 1 - wide, box.y(), wide, kFigureLine);
  else
    grazing_->setGeometry(box.x() - 2, box.y() + 15, wide, 18);
  grazing_->setVisible(LayerRows(desk_.station.s) > 0);
}

void PolarPanel::PaintFigures(QPainter& p) const {
  const Theme& t = desk_.theme;
  const EndView& view = desk_.station.endView;
  QString groups, circuits, turn;
  if (view.measures) {
    groups = QString::number(view.measures->groups);
    circuits = QString::number(view.measures->circuits);
    turn =
        Shown(FormatNumberText(desk_.station.s.signs, view.measures->traverseRotation, mask::kGrazingAngle) +
              " \xB0");
  }
  const std::pair<const char*, QString> figures[kFigures] = {
      {"Groups:", groups}, {"Circuits per Group:", circuits}, {"Phi Len:", turn}, {"End Grazing Angle:", {}}};
  for (int place = 0; place < kFigures; ++place) {
    const auto& [caption, figure] = figures[place];
    const QRect box = FigureBox(place);
    if (box.isEmpty() || (figure.isEmpty() && (place < kFigures - 1 || grazing_->isHidden()))) continue;
    const bool line = FiguresInLines();
    p.setFont(t.Font(12));
    p.setPen(t[Token::Second]);
    p.drawText(box, Qt::AlignLeft | (line ? Qt::AlignVCenter : Qt::AlignTop), QString::fromLatin1(caption));
    p.setFont(t.Font(14, Weight::Medium));
    p.setPen(t[Token::Figures]);
    p.drawText(line ? box : box.adjusted(0, 15, 0, 0),
               (line ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter, figure);
  }
}

void PolarPanel::mouseReleaseEvent(QMouseEvent*) { desk_.binder.Run("picPolar"); }

void PolarPanel::paintEvent(QPaintEvent*) {
  const Theme& t = desk_.theme;
  const DesignState& s = desk_.station.s;
  QPainter p(this);
  PaintPanel(p, t, rect());
  p.setRenderHint(QPainter::Antialiasing, false);
  const EndView& view = desk_.station.endView;
  const QString tag = Shown(view.pattern);
  p.setPen(t[tag.isEmpty() ? Token::Second : Token::Figures]);
  p.setFont(tag.isEmpty() ? t.Font(12) : t.Font(13, Weight::Medium));
  p.drawText(QRect(view.row == 0 ? 14 : 74, 8, width() - 90, 18), Qt::AlignVCenter | Qt::AlignLeft,
             tag.isEmpty() ? QStringLiteral("Press a row's number to see its pattern.") : tag);
  PaintPolar(p, t, view.picture, QRectF(16, 32, Side(), Side()));
  PaintFigures(p);

  const int top = height() - kTotals;
  p.setPen(t[Token::Hairline]);
  p.drawLine(1, top, width() - 2, top);
  const std::vector<Total> totals = TotalsOf(s, Family::FourAxes);
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
