#include "window/layers_panel.h"
#include "look/paint.h"

#include <QHeaderView>
#include <QPainter>

#include "look/text.h"
#include "window/button.h"
#include "window/start_card.h"
#include "workbench/layer_count.h"

namespace torvane {

namespace {

constexpr int kFooter = 37;
constexpr int kHead = 40;
constexpr int kAllRows = IndexSet::kAllRows;

}  // namespace

LayersPanel::LayersPanel(Desk desk, bool fourAxis, QWidget* parent)
    : QWidget(parent),
      desk_(desk),
      fourAxis_(fourAxis),
      view_(new LayersView(desk, fourAxis, this)),
      card_(new StartCard(desk, this)) {
  DesignState& s = desk.station.s;
  auto* recalculate =
      new Button(desk, ButtonLook::Outline, Icon::Refresh,
                 fourAxis ? QStringLiteral("Pattern Refresh") : Shown(s.btnReCalc.caption()), this);
  recalculate->Runs(fourAxis ? "lblRefresh" : "btnReCalc");
  recalculate->setFixedHeight(28);
  recalculate_ = recalculate;
  auto* add = new Button(desk, ButtonLook::Flat, Icon::Plus, {}, this);
  add->setObjectName(QStringLiteral("addLayer"));
  add->setFixedHeight(28);
  add_ = add;
  connect(add, &QAbstractButton::clicked, this, [this] {
    DesignState& state = desk_.station.s;
    desk_.binder.Type(state.txtNumberOfLayers(state.Panel()), QString::number(LayerRows(state) + 1));
  });
  view_->arranged = [this] { Arrange(); };
  desk.binder.BindAll(this, [this, add] {
    const int rows = LayerRows(desk_.station.s);
    card_->setVisible(rows == 0);
    recalculate_->setVisible(rows > 0);
    add->setVisible(rows > 0 && rows < kMostLayers);
    add->setText(QStringLiteral("Add layer %1").arg(rows + 1));
    Arrange();
    update();
  });
}

void LayersPanel::Arrange() {
  const int rows = view_->layers().rowCount();
  const int under = kHead + rows * view_->verticalHeader()->defaultSectionSize() + 1;
  add_->setGeometry(6, std::min(under + 4, height() - kFooter - 30), add_->sizeHint().width(), 28);
}

void LayersPanel::resizeEvent(QResizeEvent*) {
  view_->setGeometry(1, 1, width() - 2, height() - kFooter - 2);
  card_->setGeometry(1, kHead + 1, width() - 2, height() - kHead - 3);
  recalculate_->move(8, height() - kFooter + 4);
  recalculate_->resize(recalculate_->sizeHint().width(), 28);
  card_->raise();
  Arrange();
}

void LayersPanel::paintEvent(QPaintEvent*) {
  const Theme& t = desk_.theme;
  QPainter p(this);
  PaintPanel(p, t, rect());
  if (LayerRows(desk_.station.s) == 0) return;
  p.setRenderHint(QPainter::Antialiasing, false);
  p.fillRect(1, height() - kFooter, width() - 2, kFooter - 1, t[Token::TableHead]);
  p.setPen(t[Token::FieldEdge]);
  p.drawLine(1, height() - kFooter - 1, width() - 2, height() - kFooter - 1);
  PaintFooter(p);
}

void LayersPanel::PaintTotal(QPainter& p, int section, const Field& total) const {
  const Theme& t = desk_.theme;
  const int left = view_->columnViewportPosition(section);
  const QRect box(left + 1, height() - kFooter, view_->columnWidth(section) - 10, kFooter - 1);
  p.setFont(t.Font(15, Weight::Medium));
  p.setPen(total.empty() ? t[Token::Off] : t[Token::Figures]);
  p.drawText(box, Qt::AlignRight | Qt::AlignVCenter,
             total.empty() ? QString(QChar(0x2013)) : Shown(total.text()));
}

void LayersPanel::PaintFooter(QPainter& p) const {
  const Theme& t = desk_.theme;
  const DesignState& s = desk_.station.s;
  const int columns = view_->layers().columnCount();
  PaintTotal(p, columns - 3, fourAxis_ ? s.lblNPasses(kAllRows) : s.lblPassesToCover(kAllRows));
  PaintTotal(p, columns - 2, fourAxis_ ? s.lblMinutes(kAllRows) : s.lblMinutesToCover(kAllRows));
  PaintTotal(p, columns - 1, fourAxis_ ? s.lblLength(kAllRows) : s.lblLengthToCover(kAllRows));
  const int y = height() - kFooter;
  p.setFont(t.Font(12));
  p.setPen(t[Token::Second]);
  const int before = view_->columnViewportPosition(columns - 3);
  p.drawText(QRect(before - 70, y, 62, kFooter - 1), Qt::AlignRight | Qt::AlignVCenter,
             QStringLiteral("Total"));
  if (fourAxis_ || s.gCurrentRow < 1 || s.gCurrentRow > LayerRows(s)) return;
  double x = recalculate_->geometry().right() + 14;
  const auto word = [&](const QString& text, bool figure) {
    p.setFont(t.Font(12, figure ? Weight::Medium : Weight::Regular));
    p.setPen(figure ? t[Token::Figures] : t[Token::Second]);
    p.drawText(QRectF(x, y, 200, kFooter - 1), Qt::AlignVCenter | Qt::AlignLeft, text);
    x += p.fontMetrics().horizontalAdvance(text) + (figure ? 12 : 4);
  };
  word(QStringLiteral("Layer %1").arg(s.gCurrentRow), false);
  x += 8;
  word(QStringLiteral("left offset"), false);
  word(Shown(s.lblZ2(1).text()), true);
  word(QStringLiteral("right offset"), false);
  word(Shown(s.lblZ2(2).text()), true);
}

}  // namespace torvane
