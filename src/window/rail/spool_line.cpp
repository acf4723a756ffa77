#include "window/rail/spool_line.h"

#include <QInputDialog>

#include "executor/program/number.h"
#include "look/paint.h"
#include "look/text.h"
#include "persist/settings.h"
#include "window/desk/live_watch.h"

namespace torvane {

namespace {

constexpr double kMetresPerFoot = 0.3048;
constexpr double kLongest = 1e6;

}  // namespace

SpoolLine::SpoolLine(Desk desk, QWidget* parent) : QAbstractButton(parent), desk_(desk) {
  setObjectName(QStringLiteral("spools"));
  setFocusPolicy(Qt::TabFocus);
  setCursor(Qt::PointingHandCursor);
  setToolTip(QStringLiteral("Asks for the length of a spool."));
  connect(this, &QAbstractButton::clicked, this, [this] { AskLength(); });
  desk.binder.BindAll(this, [this] {
    setAccessibleName(QStringLiteral("Spools: ") + Words());
    update();
  });
}

QString SpoolLine::Words() const {
  const LiveResult* result = desk_.live == nullptr ? nullptr : desk_.live->result();
  if (result == nullptr || !result->formed) return QStringLiteral("\u2013");
  const executor::Proof& proof = result->proof;
  if (!(proof.spoolLength > 0)) return QStringLiteral("how long is one?");
  const double length = proof.spoolLength / (proof.millimetres ? 1000 : 12);
  const QString of = QStringLiteral(" of %1 %2")
                         .arg(Shown(executor::Fixed(length, 0)),
                              proof.millimetres ? QStringLiteral("m") : QStringLiteral("ft"));
  const auto& splices = proof.spools.splices();
  if (splices.empty()) return QString::number(proof.spools.Count()) + of + QStringLiteral(" is enough");
  return QString::number(proof.spools.Count()) + of +
         QStringLiteral(", splice in layer %1, pass %2").arg(splices[0].layer).arg(qRound(splices[0].pass));
}

void SpoolLine::AskLength() {
  const DesignState& s = desk_.station.s;
  SettingsStore& store = desk_.station.platform.store;
  const double unit = s.InInches() ? 1 : kMetresPerFoot;
  const double feet = executor::ReadLimits(store, s.signs.decimal).spoolLength;
  bool given = false;
  const double length = QInputDialog::getDouble(
      this, QStringLiteral("Spools"),
      s.InInches() ? QStringLiteral("Length of a spool in feet, 0 for one without end:")
                   : QStringLiteral("Length of a spool in metres, 0 for one without end:"),
      feet * unit, 0, kLongest, 1, &given);
  if (!given) return;
  desk_.binder.Do(
      [&] { SaveSetting(store, kSettings, "gProofSpoolLength", NumberToText(s.signs, length / unit)); });
}

void SpoolLine::paintEvent(QPaintEvent*) {
  const Theme& t = desk_.theme;
  QPainter p(this);
  p.setFont(t.Font(12));
  p.setPen(t[Token::Second]);
  p.drawText(rect(), Qt::AlignLeft | Qt::AlignVCenter, QStringLiteral("Spools"));
  p.setFont(t.Font(12, Weight::Medium));
  const bool pale = desk_.live == nullptr || desk_.live->proving();
  p.setPen(t[pale ? Token::Off : Token::Figures]);
  const QRect room = rect().adjusted(54, 0, 0, 0);
  p.drawText(room, Qt::AlignRight | Qt::AlignVCenter,
             p.fontMetrics().elidedText(Words(), Qt::ElideRight, room.width()));
  if (hasFocus()) PaintFocus(p, t[Token::Focus], Inset(rect(), 1));
}

}  // namespace torvane
