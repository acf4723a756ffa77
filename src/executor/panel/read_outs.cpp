#include "executor/panel/read_outs.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

#include "executor/program/number.h"
#include "executor/session/words.h"
#include "look/paint.h"

namespace torvane::dryrun {

using executor::Player;
using executor::RunState;

namespace {

const QChar kDegree(0xB0), kDash(0x2013);

QString Text(double value, int decimals) { return QString::fromStdString(executor::Fixed(value, decimals)); }

// A column of the display: what it is called, its figure, its unit.
struct Cell {
  QString caption, figure, unit;
  double share = 0;
  int keep = 0;  // where there is little room those with the least go first
};

QString Counted(double number) { return number > 0 ? Text(number, 0) : QString(); }

std::vector<Cell> DisplayCells(const Player& player) {
  const executor::Screen& s = player.screen();
  const QString unit = player.course().millimetres ? QStringLiteral("mm/s") : QStringLiteral("in/s");
  const auto of = [](double all) { return all > 0 ? QStringLiteral("of %1").arg(Counted(all)) : QString(); };
  const QString angle = Words(s.windingAngle);
  const bool number = !angle.isEmpty() && angle[0].isDigit();
  QString stage = Words(s.stage);
  QString message = Words(s.message);
  message.replace(QLatin1Char('_'), QLatin1Char(' '));
  return {{message.isEmpty() ? QStringLiteral("Stage") : QStringLiteral("Message"),
           message.isEmpty() ? stage : message,
           {},
           186,
           9},
          {QStringLiteral("Layer"), Counted(s.layer), of(s.layers), 78, 8},
          {QStringLiteral("Pass"), Counted(s.pass), of(s.passes), 90, 7},
          {QStringLiteral("RPM"), Words(s.rpm), {}, 66, 4},
          {QStringLiteral("Carriage Speed"), Words(s.carriageSpeed),
           s.carriageSpeed.empty() ? QString() : unit, 108, 3},
          {QStringLiteral("Winding Angle"), angle, number ? QStringLiteral("deg") : QString(), 106, 5},
          {QStringLiteral("Method"), Words(s.method), {}, 75, 2},
          {QStringLiteral("Minutes Left"), Words(s.minutesLeft), {}, 90, 1}};
}

}  // namespace

Strip::Strip(Stand stand, int height, QWidget* parent) : QWidget(parent), stand_(stand) {
  setFixedHeight(height);
  connect(&stand.session, &Session::Opened, this, [this] { update(); });
  connect(&stand.session, &Session::Played, this, [this] { update(); });
}

DisplayStrip::DisplayStrip(Stand stand, QWidget* parent) : Strip(stand, 56, parent) {
  setObjectName(QStringLiteral("display"));
  setAccessibleName(QStringLiteral("What the program displays"));
}

void DisplayStrip::paintEvent(QPaintEvent*) {
  const Theme& t = stand_.theme;
  QPainter p(this);
  PaintPanel(p, t, rect());
  std::vector<Cell> cells = DisplayCells(stand_.player());
  const auto sum = [&cells] {
    double all = 0;
    for (const Cell& cell : cells) all += cell.share;
    return all;
  };
  while (cells.size() > 3 && sum() > width())
    cells.erase(std::min_element(cells.begin(), cells.end(),
                                 [](const Cell& a, const Cell& b) { return a.keep < b.keep; }));
  const double factor = width() / sum();
  double x = 0;
  for (const Cell& cell : cells) {
    const double wide = cell.share * factor;
    if (x > 0) {
      p.setPen(t[Token::Hairline]);
      p.drawLine(QPointF(std::round(x) + 0.5, 1), QPointF(std::round(x) + 0.5, height() - 1));
    }
    const QRectF room(x + 12, 0, wide - 14, height());
    p.setFont(t.Font(12));
    p.setPen(t[Token::Second]);
    p.drawText(QRectF(room.left(), 6, room.width(), 18), Qt::AlignVCenter,
               p.fontMetrics().elidedText(cell.caption, Qt::ElideRight, static_cast<int>(room.width())));
    p.setFont(t.Font(20, Weight::Medium));
    const bool empty = cell.figure.isEmpty();
    // Figure and unit are read together: a long one is written smaller.
    const double unit = cell.unit.isEmpty() ? 0 : QFontMetricsF(t.Font(13)).horizontalAdvance(cell.unit) + 4;
    for (const int size : {16, 14, 12, 11})
      if (!empty && p.fontMetrics().horizontalAdvance(cell.figure) + unit > room.width())
        p.setFont(t.Font(size, Weight::Medium));
    p.setPen(t[empty ? Token::Off : Token::Figures]);
    const QString figure =
        empty ? QString(kDash)
              : p.fontMetrics().elidedText(cell.figure, Qt::ElideRight, static_cast<int>(room.width()));
    p.drawText(QRectF(room.left(), 22, room.width() + 4, 28), Qt::AlignVCenter, figure);
    const double after = room.left() + p.fontMetrics().horizontalAdvance(figure) + 4;
    p.setFont(t.Font(13));
    p.setPen(t[Token::Second]);
    if (after + p.fontMetrics().horizontalAdvance(cell.unit) <= x + wide - 2)
      p.drawText(QRectF(after, 24, 80, 27), Qt::AlignVCenter, cell.unit);
    x += wide;
  }
}

AxesStrip::AxesStrip(Stand stand, QWidget* parent) : Strip(stand, 58, parent) {
  setObjectName(QStringLiteral("axes"));
  setAccessibleName(QStringLiteral("Where the axes are"));
}

void AxesStrip::paintEvent(QPaintEvent*) {
  const Theme& t = stand_.theme;
  const Player& player = stand_.player();
  const executor::Course& course = player.course();
  const executor::Position& at = player.At();
  const bool empty = player.State() == RunState::Empty;
  const bool running = player.State() == RunState::Running || player.State() == RunState::Manual;
  const QString unit = course.millimetres ? QStringLiteral("mm") : QStringLiteral("in");
  struct Row {
    QChar letter;
    bool there;
    QString figure, unit, below;
  };
  const double angle = at.mandrel - std::floor(at.mandrel / 360) * 360;
  QString below = QStringLiteral("at rest");
  if (running && player.Moving() && std::abs(player.TargetZ() - at.carriage) > 0.005)
    below = QStringLiteral("to %1").arg(stand_.Figure(player.TargetZ(), 2));
  else if (std::abs(at.carriage - course.homeZ) < 0.005)
    below = QStringLiteral("at home");
  const double wide = width() / 4.0;
  const bool narrow = wide < 150;
  const QString turn =
      narrow ? QString() : QStringLiteral("turn %1, ").arg(stand_.Figure(std::floor(at.mandrel / 360), 0));
  const bool turns = running && player.Rpm() > 0;
  const Row rows[] = {
      {u'Z', !empty, stand_.Figure(at.carriage, 2), unit, below},
      {u'A', !empty, stand_.Figure(angle >= 359.95 ? 0 : angle, 1), kDegree,
       turn + (turns ? QStringLiteral("%1 RPM").arg(stand_.Figure(player.Rpm(), 1))
                     : QStringLiteral("standing"))},
      {u'Y', course.head, stand_.Figure(at.head, 2), unit, {}},
      {u'B', course.rotation, stand_.Figure(at.rotation, 2), kDegree, {}},
  };
  QPainter p(this);
  PaintPanel(p, t, rect());
  // A narrow strip has room for six figures beside the letter and the unit.
  const double margin = narrow ? 6 : 14, tag = narrow ? 18 : 20, unitRoom = narrow ? 28 : 38;
  for (int i = 0; i < 4; ++i) {
    const Row& row = rows[i];
    const double x = i * wide;
    const QRectF letter(x + margin, 22 - tag / 2, tag, tag);
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(t[Token::Hairline]);
    if (i > 0) p.drawLine(QPointF(std::round(x) + 0.5, 1), QPointF(std::round(x) + 0.5, height() - 1));
    p.setPen(Qt::NoPen);
    p.setBrush(t[row.there ? Token::Accent : Token::Hairline]);
    p.drawRoundedRect(letter, 4, 4);
    p.setFont(t.Font(13, Weight::Medium));
    p.setPen(t[row.there ? Token::OnAccent : Token::Off]);
    p.drawText(letter, Qt::AlignCenter, row.letter);
    p.setFont(t.Font(narrow ? 18 : 25, Weight::Medium));
    p.setPen(t[row.there ? Token::Figures : Token::Off]);
    p.drawText(QRectF(letter.right(), 4, x + wide - unitRoom - 4 - letter.right(), 34),
               Qt::AlignRight | Qt::AlignVCenter, row.there ? row.figure : QString(kDash));
    p.setFont(t.Font(13));
    p.setPen(t[Token::Second]);
    if (row.there)
      p.drawText(QRectF(x + wide - unitRoom, 8, unitRoom, 28), Qt::AlignLeft | Qt::AlignVCenter, row.unit);
    p.setFont(t.Font(11));
    const QString absent = narrow ? QStringLiteral("not there") : QStringLiteral("not on this machine");
    const QString note = empty ? QString() : row.there ? row.below : absent;
    p.drawText(QRectF(x + 10, 36, wide - 52, 16), Qt::AlignRight | Qt::AlignVCenter, note);
  }
}

}  // namespace torvane::dryrun
