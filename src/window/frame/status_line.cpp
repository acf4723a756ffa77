#include "window/frame/status_line.h"

#include <QBoxLayout>
#include <QPainter>

#include "design/masks.h"
#include "look/text.h"
#include "text/number_text.h"
#include "window/field/field_widgets.h"

namespace torvane {

namespace {

constexpr int kRoomForLimits = 1000;  // a narrower window has room for the sentence alone

}  // namespace

StatusLine::StatusLine(Desk desk, QWidget* parent)
    : QWidget(parent),
      desk_(desk),
      name_(new Word(desk, {}, 12, Token::Text, Weight::Medium)),
      sentence_(new Word(desk, {}, 12, Token::Second)),
      limits_(new Word(desk, {}, 12, Token::Second)),
      version_(new Word(desk, {}, 12, Token::Second)) {
  setObjectName(QStringLiteral("statusLine"));
  setFixedHeight(24);
  version_->setObjectName(QStringLiteral("lblVersion"));
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(12, 1, 12, 0);
  row->setSpacing(0);
  row->addWidget(name_);
  row->addSpacing(8);
  row->addWidget(sentence_, 1);
  row->addSpacing(24);
  row->addWidget(limits_);
  row->addWidget(version_);
  for (QWidget* whole : {name_, limits_, version_})
    whole->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  desk.binder.BindAll(this, [this] { limits_->SetText(Limits()); });
  const Field& version = desk.station.s.lblVersion;
  desk.binder.Bind(version, this, [this, &version] { version_->SetText(Shown(version.text())); });
}

void StatusLine::Describe(const QString& name, const QString& sentence) {
  name_->SetText(name);
  sentence_->SetText(sentence);
  layout()->activate();
}

QString StatusLine::Limits() const {
  const DesignState& s = desk_.station.s;
  const QString dot = QStringLiteral("  ") + QChar(0xB7) + QStringLiteral("  ");
  const auto limit = [&s](double value) {
    return Shown(FormatNumberText(s.signs, value, mask::kMandrelSpeed));
  };
  return QStringLiteral("Mandrel up to ") + limit(s.mMaxRPM) + QStringLiteral(" RPM") + dot +
         QStringLiteral("carriage up to ") + limit(s.cMaxSpeed) + QStringLiteral(" in/s") + dot;
}

void StatusLine::resizeEvent(QResizeEvent*) { limits_->setVisible(width() >= kRoomForLimits); }

void StatusLine::paintEvent(QPaintEvent*) {
  const Theme& t = desk_.theme;
  QPainter p(this);
  p.fillRect(rect(), t[Token::Bars]);
  p.setPen(t[Token::Hairline]);
  p.drawLine(0, 0, width(), 0);
}

}  // namespace torvane
