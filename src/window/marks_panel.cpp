#include "window/marks_panel.h"
#include "look/paint.h"

#include <QMouseEvent>
#include <algorithm>

#include "design/catalogue.h"
#include "look/icons.h"
#include "look/text.h"
#include "window/field_paint.h"
#include "window/help.h"
#include "window/layer_columns.h"

namespace torvane {

namespace {

constexpr int kLine = 34;

}  // namespace

std::vector<const Field*> MarkedFields(DesignState& s) {
  std::vector<const Field*> marked;
  const int rows = LayerRows(s);
  ForEachField(s, [&](const Field& field) {
    const FieldRow& row = field.row();
    if (field.mark() == Mark::Plain || !field.shown() || !IsUsed(row, field.index(), s.gShow4Axis)) return;
    // The drawing repeats two diameters and a length that have fields of their own.
    const bool repeated =
        !s.gShow4Axis && (row.name == "txtDia" || (row.name == "txtZ2" && field.index() == 2));
    if (repeated || (IsScheduleRow(row) && field.index() > rows)) return;
    marked.push_back(&field);
  });
  std::stable_sort(marked.begin(), marked.end(),
                   [](const Field* a, const Field* b) { return a->mark() > b->mark(); });
  return marked;
}

MarksPanel::MarksPanel(Desk desk, QWidget* parent) : QWidget(parent), desk_(desk) {
  setObjectName(QStringLiteral("marks"));
  setMinimumHeight(50);
  desk.binder.BindAll(this, [this] { update(); });
}

void MarksPanel::paintEvent(QPaintEvent*) {
  const Theme& t = desk_.theme;
  QPainter p(this);
  PaintPanel(p, t, rect());
  p.setRenderHint(QPainter::Antialiasing, false);
  const auto marked = MarkedFields(desk_.station.s);
  const auto line = [&](int y, const QString& title, const QString& second) {
    p.setFont(t.Font(13, Weight::Medium));
    p.setPen(t[Token::Text]);
    const QRect box(48, y, width() - 60, 17);
    p.drawText(box, Qt::AlignLeft | Qt::AlignVCenter,
               p.fontMetrics().elidedText(title, Qt::ElideRight, box.width()));
    p.setFont(t.Font(12));
    p.setPen(t[Token::Second]);
    p.drawText(box.translated(0, 16), Qt::AlignLeft | Qt::AlignVCenter,
               p.fontMetrics().elidedText(second, Qt::ElideRight, box.width()));
  };
  if (marked.empty()) {
    PaintIcon(p, Icon::Check, {15, 12, 22, 22}, t[Token::Ok]);
    line(8, QStringLiteral("Nothing marked"), QStringLiteral("No value is missing, too high or too low."));
    return;
  }
  const int room = std::max(1, (height() - 12) / kLine);
  int y = 8;
  for (int i = 0; i < static_cast<int>(marked.size()); ++i) {
    const Field& field = *marked[static_cast<std::size_t>(i)];
    const int left = static_cast<int>(marked.size()) - i;
    InputLook look{field.mark(), true, false, false};
    PaintInput(p, t, QRectF(14, y, 26, 26), look);
    if (i == room - 1 && left > 1) {
      line(y - 2, QStringLiteral("%1 more marked fields").arg(left),
           HelpOf(field).name + QStringLiteral(" ..."));
      break;
    }
    line(y - 2, HelpOf(field).name + QStringLiteral(" ") + Shown(field.text()),
         QString::fromLatin1(WordsOf(field.mark())));
    y += kLine;
  }
}

void MarksPanel::mousePressEvent(QMouseEvent* event) {
  const auto marked = MarkedFields(desk_.station.s);
  const auto line = static_cast<std::size_t>(std::max(0, (event->pos().y() - 8) / kLine));
  if (line < marked.size() && goTo) goTo(*marked[line]);
}

}  // namespace torvane
