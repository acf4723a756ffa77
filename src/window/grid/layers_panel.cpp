#include "window/grid/layers_panel.h"

#include <QApplication>
#include <QHeaderView>
#include <QLineEdit>
#include <QPainter>

#include "design/catalogue.h"
#include "look/paint.h"
#include "look/text.h"
#include "window/field/button.h"
#include "window/field/field_widgets.h"
#include "window/field/help.h"
#include "window/grid/proof_strip.h"
#include "window/grid/start_card.h"
#include "workbench/station/layer_count.h"

namespace torvane {

namespace {

constexpr int kFooter = 37;
constexpr int kAllRowsHeight = 38;
constexpr int kAllRows = IndexSet::kAllRows;

}  // namespace

LayersPanel::LayersPanel(Desk desk, Family family, QWidget* parent)
    : QWidget(parent),
      desk_(desk),
      family_(family),
      view_(new LayersView(desk, family, this)),
      card_(new StartCard(desk, family, this)) {
  DesignState& s = desk.station.s;
  auto* recalculate = new Button(
      desk, ButtonLook::Outline, Icon::Refresh,
      family == Family::FourAxes ? QStringLiteral("Pattern Refresh") : Shown(s.btnReCalc.caption()), this);
  recalculate->Runs(family == Family::FourAxes ? "lblRefresh" : "btnReCalc");
  recalculate->setFixedHeight(28);
  recalculate_ = recalculate;
  add_ = new Button(desk, ButtonLook::Flat, Icon::Plus, {}, this);
  add_->Runs("btnMoreLayers");
  add_->setObjectName(QStringLiteral("addLayer"));
  add_->setFixedHeight(28);
  allRows_ = new QWidget(this);
  MakeAllRows();
  view_->arranged = [this] { Place(); };
  desk.binder.BindAll(this, [this] { FollowState(); });
}

void LayersPanel::MakeAllRows() {
  if (family_ == Family::FourAxes) return;
  auto* title = new Word(desk_, QStringLiteral("All rows"), 13, Token::Text, Weight::Medium, allRows_);
  title->setToolTip(QStringLiteral("What is entered here goes to every row."));
  allRowsCells_.emplace_back(0, title);
  for (int column = 1; column < view_->layers().columnCount(); ++column) {
    const LayerColumn& at = view_->layers().Column(column);
    Field& field = (desk_.station.s.*at.cells)(kAllRows);
    if (!IsInput(at.kind) || !field.exists()) continue;
    QWidget* cell = nullptr;
    if (at.kind == CellKind::List)
      cell = new FieldList(desk_, field, allRows_);
    else
      cell = new FieldEdit(desk_, field, Place::Panel, allRows_);
    cell->setAccessibleName(HelpOf(field).name + QStringLiteral(", all rows"));
    allRowsCells_.emplace_back(column, cell);
  }
}

bool LayersPanel::AllRowsInView() const {
  return family_ == Family::TwoAxes && desk_.station.allRowsShown && arrangement_ != Arrangement::Large &&
         LayerRows(desk_.station.s) > 0;
}

void LayersPanel::FollowState() {
  const int rows = LayerRows(desk_.station.s);
  const bool open = arrangement_ == Arrangement::Open;
  // Where the first rows come the keys stay with their number, and its text is not what the next key
  // replaces.
  if (rows > 0 && card_->isAncestorOf(QApplication::focusWidget()))
    if (auto* count = window()->findChild<QLineEdit*>(QString::fromStdString(
            NameOf(desk_.station.s.txtNumberOfLayers(family_ == Family::FourAxes ? 1 : 0)))))
      count->setFocus(Qt::OtherFocusReason);
  card_->setVisible(rows == 0);
  recalculate_->setVisible(rows > 0 && open);
  add_->setVisible(rows > 0 && rows < kMostLayers && arrangement_ != Arrangement::Large);
  add_->setText(QStringLiteral("Add layer %1").arg(rows + 1));
  if (allRows_->isHidden() == AllRowsInView() || footer_ != FooterHeight()) {
    footer_ = FooterHeight();
    allRows_->setVisible(AllRowsInView());
    view_->setGeometry(1, 1, width() - 2, AllRowsTop() - 1);
  }
  Place();
  update();
}

bool LayersPanel::StripInView() const {
  return arrangement_ == Arrangement::Open && desk_.live != nullptr && PressedRow(desk_.station.s) > 0 &&
         LayerRows(desk_.station.s) > 0;
}

int LayersPanel::FooterHeight() const {
  if (arrangement_ != Arrangement::Open) return 1;
  return kFooter + (StripInView() ? kProofStrip : 0);
}

int LayersPanel::AllRowsTop() const {
  return height() - FooterHeight() - (AllRowsInView() ? kAllRowsHeight : 1);
}

void LayersPanel::Arrange(Arrangement arrangement) {
  arrangement_ = arrangement;
  view_->SetArrangement(arrangement);
  FollowState();
  view_->setGeometry(1, 1, width() - 2, AllRowsTop() - 1);
}

// What stands beside the grid follows its rows and columns.
void LayersPanel::Place() {
  const int rows = view_->layers().rowCount();
  const int under = view_->headHeight() + rows * view_->rowHeight() + 1;
  const int bottom = AllRowsTop() - 30;
  add_->setGeometry(6, std::min(under + 4, bottom), add_->sizeHint().width(), 28);
  // In a small window the rows have the room first, and the head above all.
  if (under > bottom && (arrangement_ == Arrangement::Folded || bottom < view_->headHeight())) add_->hide();
  card_->setGeometry(1, view_->headHeight() + 1, width() - 2, height() - view_->headHeight() - 3);
  allRows_->setGeometry(1, AllRowsTop() + 1, width() - 2, kAllRowsHeight - 2);
  for (const auto& [column, cell] : allRowsCells_) {
    const int x = view_->columnViewportPosition(column);
    const int taken = view_->columnWidth(column) + (column == 0 ? view_->columnWidth(1) : 0);
    cell->setGeometry(x + (column == 0 ? 12 : 3), column == 0 ? 9 : 3, taken - (column == 0 ? 14 : 6),
                      column == 0 ? 18 : 30);
  }
}

void LayersPanel::resizeEvent(QResizeEvent*) {
  view_->setGeometry(1, 1, width() - 2, AllRowsTop() - 1);
  recalculate_->move(8, height() - kFooter + 4);
  recalculate_->resize(recalculate_->sizeHint().width(), 28);
  card_->raise();
  Place();
}

void LayersPanel::paintEvent(QPaintEvent*) {
  const Theme& t = desk_.theme;
  QPainter p(this);
  PaintPanel(p, t, rect());
  if (LayerRows(desk_.station.s) == 0) return;
  p.setRenderHint(QPainter::Antialiasing, false);
  const bool open = arrangement_ == Arrangement::Open;
  if (!open && !AllRowsInView()) return;
  const int top = AllRowsTop();
  p.fillRect(1, top + 1, width() - 2, height() - top - 3, t[Token::TableHead]);
  p.setPen(t[Token::FieldEdge]);
  p.drawLine(1, top, width() - 2, top);
  if (!open) return;
  p.setPen(t[AllRowsInView() ? Token::Hairline : Token::FieldEdge]);
  if (StripInView())
    PaintProofStrip(p, desk_, desk_.station.s.gCurrentRow,
                    QRect(1, height() - kFooter - kProofStrip, width() - 2, kProofStrip - 1));
  p.setPen(t[AllRowsInView() ? Token::Hairline : Token::FieldEdge]);
  p.drawLine(1, height() - kFooter - 1, width() - 2, height() - kFooter - 1);
  PaintFooter(p);
}

void LayersPanel::PaintTotal(QPainter& p, int section, const Field& total) const {
  const Theme& t = desk_.theme;
  const int left = view_->columnViewportPosition(section);
  const QRect box(left + 1, height() - kFooter, view_->columnWidth(section) - 10, kFooter - 1);
  p.setFont(t.Font(15, Weight::Medium));
  p.setPen(total.empty() ? t[Token::Off] : t[Token::Figures]);
  p.drawText(box, Qt::AlignRight | Qt::AlignVCenter, FigureOf(total));
}

void LayersPanel::PaintFooter(QPainter& p) const {
  const Theme& t = desk_.theme;
  const DesignState& s = desk_.station.s;
  const int columns = view_->layers().columnCount();
  PaintTotal(p, columns - 4,
             family_ == Family::FourAxes ? s.lblNPasses(kAllRows) : s.lblPassesToCover(kAllRows));
  PaintTotal(p, columns - 3,
             family_ == Family::FourAxes ? s.lblMinutes(kAllRows) : s.lblMinutesToCover(kAllRows));
  PaintTotal(p, columns - 2,
             family_ == Family::FourAxes ? s.lblLength(kAllRows) : s.lblLengthToCover(kAllRows));
  const int y = height() - kFooter;
  p.setFont(t.Font(12));
  p.setPen(t[Token::Second]);
  const int last = view_->columnViewportPosition(columns - 1);
  PaintProofState(p, t, QPointF(last + view_->columnWidth(columns - 1) / 2.0 + 1, y + kFooter / 2.0),
                  view_->layers().ProofOf(0));
  const int before = view_->columnViewportPosition(columns - 4);
  p.drawText(QRect(before - 70, y, 62, kFooter - 1), Qt::AlignRight | Qt::AlignVCenter,
             QStringLiteral("Total"));
  if (family_ == Family::FourAxes || PressedRow(s) == 0) return;
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
