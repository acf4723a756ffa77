#include "window/totals_panel.h"
#include "look/paint.h"

#include <QGridLayout>

#include "window/field_widgets.h"

namespace torvane {

TotalsPanel::TotalsPanel(Desk desk, int panel, QWidget* parent) : QWidget(parent), desk_(desk) {
  DesignState& s = desk.station.s;
  setMinimumHeight(170);
  setMaximumHeight(206);
  auto* grid = new QGridLayout(this);
  grid->setContentsMargins(14, 8, 12, 12);
  grid->setHorizontalSpacing(6);
  grid->setVerticalSpacing(4);
  grid->setColumnStretch(1, 1);
  grid->setColumnMinimumWidth(2, 26);
  const auto line = [&](int row, const QString& caption, const Field& field, int size, const char* inches,
                        const char* millimetres) {
    grid->addWidget(new Word(desk_, caption, 13, Token::Second), row, 0, Qt::AlignVCenter);
    auto* figure = new ReadOut(desk_, field, size);
    figure->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    grid->addWidget(figure, row, 1);
    auto* unit = new Word(desk_, {}, 12, Token::Second);
    grid->addWidget(unit, row, 2, Qt::AlignVCenter);
    desk_.binder.Bind(s.gUnits, unit, [unit, &s, inches, millimetres] {
      unit->SetText(QString::fromUtf8(s.InInches() ? inches : millimetres));
    });
  };
  line(0, QStringLiteral("Est. Build Time :"), s.lblBuildTime(panel), 32, "min", "min");
  grid->setRowMinimumHeight(1, 8);
  line(2, QStringLiteral("Filament Length :"), s.lblLengthRequired(panel), 15, "ft", "m");
  // The wall stands in the inches of the band in either unit.
  line(3, QStringLiteral("Wall Thickness :"), s.lblFinalThickness(panel), 15, "in", "in");
  line(4, QStringLiteral("Part Volume :"), s.lblFilamentVOlume(panel), 15, "in\xC2\xB3", "cm\xC2\xB3");
  line(5, QStringLiteral("Est. Total Wgt. :"), s.lblEstWeight(panel), 15, "lb", "lb");
  line(6, QStringLiteral("Est. Glue Wgt. :"), s.lblTotalGlueWgt(panel), 15, "g", "g");
}

void TotalsPanel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  PaintPanel(painter, desk_.theme, rect());
  painter.setRenderHint(QPainter::Antialiasing, false);
  painter.setPen(desk_.theme[Token::Hairline]);
  painter.drawLine(14, 51, width() - 14, 51);
}

}  // namespace torvane
