#include "executor/panel/run_bar.h"

#include <QHBoxLayout>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "look/paint.h"

namespace torvane::dryrun {

using executor::Player;
using executor::RunState;

namespace {

// Ground and ink of the state.
std::pair<QColor, QColor> StateColours(const Theme& t, const Player& player) {
  const QColor dark = t.dark() ? t[Token::OnAccent] : t[Token::Text];
  switch (player.State()) {
    case RunState::Running:
      return {t[Token::Accent], t[Token::OnAccent]};
    case RunState::Waiting:
      return {t[Token::BandOut], dark};
    case RunState::Finished:
      return {t[Token::Ok], t.dark() ? t[Token::OnAccent] : t[Token::Panel]};
    default:
      return {t[Token::Selected], t[Token::Text]};
  }
}

// The row of speeds with one edge round all of them.
class SpeedBox : public QWidget {
 public:
  SpeedBox(const Theme& theme, QWidget* parent) : QWidget(parent), theme_(theme) {}

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(theme_[Token::FieldEdge]);
    p.setBrush(theme_[theme_.dark() ? Token::TableHead : Token::Panel]);
    p.drawRoundedRect(Inset(rect(), 0.5), 4, 4);
    p.setPen(theme_[Token::Hairline]);
    const QList<QWidget*> segments = findChildren<QWidget*>();
    for (qsizetype i = 1; i < segments.size(); ++i) {
      const double x = segments[i]->x() - 0.5;
      p.drawLine(QPointF(x, 1), QPointF(x, height() - 1));
    }
  }

 private:
  const Theme& theme_;
};

}  // namespace

const std::vector<double>& Speeds() {
  static const std::vector<double> speeds = {1, 2, 5, 10, 50, 100, 1000, Player::kToTheEnd};
  return speeds;
}

RunBar::RunBar(Stand stand, QWidget* parent)
    : QWidget(parent),
      stand_(stand),
      open_(new PlainButton(stand.theme, ButtonLook::Flat, Icon::Open, QStringLiteral("Open"))),
      stop_(new PlainButton(stand.theme, ButtonLook::Outline, Icon::Stop, QStringLiteral("Stop"))),
      title_(new QWidget),
      speedBox_(new SpeedBox(stand.theme, this)) {
  setFixedHeight(56);
  open_->setObjectName(QStringLiteral("openButton"));
  open_->setToolTip(QStringLiteral("Open a program (Ctrl+O)"));
  stop_->setObjectName(QStringLiteral("stopButton"));
  stop_->setToolTip(QStringLiteral("End the run where it stands"));
  stop_->setFixedHeight(38);
  title_->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  title_->setAttribute(Qt::WA_TransparentForMouseEvents);
  speedBox_->setFixedHeight(38);
  auto* segments = new QHBoxLayout(speedBox_);
  segments->setContentsMargins(1, 1, 1, 1);
  segments->setSpacing(1);
  for (const double speed : Speeds()) {
    const bool end = speed >= Player::kToTheEnd;
    const QString words = end ? QStringLiteral("to the end") : QStringLiteral("%1x").arg(speed);
    auto* segment = new PlainButton(stand.theme, ButtonLook::Segment, Icon::None, words, speedBox_);
    segment->setObjectName(
        QStringLiteral("speed%1").arg(end ? QStringLiteral("End") : QString::number(speed)));
    segment->setAccessibleName(end ? QStringLiteral("Play to the end, past the waits")
                                   : QStringLiteral("Speed %1 times").arg(speed));
    segment->setToolTip(end ? QStringLiteral("Plays the rest at once and does not wait for the button")
                            : QStringLiteral("%1 times as fast as the machine (+ and -)").arg(speed));
    segment->setFixedHeight(36);
    connect(segment, &PlainButton::clicked, this, [this, speed] { stand_.session.SetSpeed(speed); });
    speeds_.push_back(segment);
    segments->addWidget(segment);
  }
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(12, 0, 10, 0);
  row->setSpacing(12);
  row->addWidget(open_);
  row->addWidget(title_, 1);
  row->addWidget(speedBox_);
  row->addWidget(stop_);
  connect(open_, &PlainButton::clicked, this, [this] { openAsked(); });
  connect(stop_, &PlainButton::clicked, this, [this] { stand_.session.Stop(); });
  connect(&stand.session, &Session::Played, this, &RunBar::Refresh);
  Refresh();
}

void RunBar::SetNarrow(bool narrow) {
  narrow_ = narrow;
  for (PlainButton* segment : speeds_) segment->SetTextSize(narrow ? 12 : 13);
  layout()->setSpacing(narrow ? 6 : 12);
  Refresh();
}

void RunBar::Step(int by) {
  if (by > 0 && stand_.player().Speed() >= Player::kToTheEnd) return;
  const auto& speeds = Speeds();
  const auto at = std::lower_bound(speeds.begin(), speeds.end(), stand_.player().Speed()) - speeds.begin();
  // To the end is a choice of its own, not one step more.
  const auto last = static_cast<std::ptrdiff_t>(speeds.size()) - 2;
  const auto to = std::clamp<std::ptrdiff_t>(at + by, 0, last);
  stand_.session.SetSpeed(speeds[static_cast<std::size_t>(to)]);
}

void RunBar::Refresh() {
  const Player& player = stand_.player();
  const RunState state = player.State();
  const bool over = state == RunState::Stopped || state == RunState::Finished;
  stop_->setText(narrow_ ? QString() : QStringLiteral("Stop"));
  stop_->setAccessibleName(QStringLiteral("Stop"));
  open_->setText(narrow_ ? QString() : QStringLiteral("Open"));
  open_->setAccessibleName(QStringLiteral("Open"));
  stop_->setFixedWidth(narrow_ ? 40 : 90);
  const bool manual = state == RunState::Manual;
  stop_->setEnabled(manual ? player.JogsLeft() > 0 : state != RunState::Empty && !over);
  speedBox_->setVisible(!manual);
  const auto& speeds = Speeds();
  for (std::size_t i = 0; i < speeds.size(); ++i) speeds_[i]->SetFilled(player.Speed() == speeds[i]);
  update();
}

QString RunBar::StateText() const {
  const Player& player = stand_.player();
  switch (player.State()) {
    case RunState::Empty:
      return {};
    case RunState::Ready:
      return QStringLiteral("Ready");
    case RunState::Running:
      return player.EndlessNow() ? QStringLiteral("Running until stopped") : QStringLiteral("Running");
    case RunState::Paused:
      return QStringLiteral("Paused");
    case RunState::Waiting:
      return QStringLiteral("Waiting for the button");
    case RunState::Stopped:
      return QStringLiteral("Stopped");
    case RunState::Finished:
      return QStringLiteral("Finished");
    default:
      return player.JogsLeft() > 0 ? QStringLiteral("Moving") : QStringLiteral("Standing");
  }
}

void RunBar::paintEvent(QPaintEvent*) {
  const Theme& t = stand_.theme;
  const Player& player = stand_.player();
  QPainter p(this);
  p.fillRect(rect(), t[Token::Bars]);
  p.setPen(t[Token::Hairline]);
  p.drawLine(0, height() - 1, width(), height() - 1);
  const QString state = StateText();
  const QRect room = title_->geometry();
  p.setFont(t.Font(13, Weight::Medium));
  const int chip = state.isEmpty() ? 0 : p.fontMetrics().horizontalAdvance(state) + 24;
  const bool beside = !narrow_ && chip > 0 && room.width() > chip + 150;
  QString name = stand_.session.name();
  if (player.State() == RunState::Empty && name.isEmpty()) name = QStringLiteral("No program");
  if (player.State() == RunState::Manual) name = QStringLiteral("Manual operation");
  const int most = room.width() - (beside ? chip + 22 : 0);
  p.setFont(t.Font(15, Weight::Medium));
  p.setPen(t[Token::Text]);
  const QString shown = p.fontMetrics().elidedText(name, Qt::ElideMiddle, most);
  p.drawText(QRect(room.left(), 8, most, 24), Qt::AlignVCenter, shown);
  const int nameWidth = p.fontMetrics().horizontalAdvance(shown);
  p.setFont(t.Font(12));
  const QString second = beside || state.isEmpty() ? QStringLiteral("dry run, no machine moves") : state;
  p.setPen(beside || state.isEmpty() ? t[Token::Second] : t[Token::Figures]);
  p.drawText(QRect(room.left(), 28, most, 18), Qt::AlignVCenter,
             p.fontMetrics().elidedText(second, Qt::ElideRight, most));
  if (!beside) return;
  const auto [ground, ink] = StateColours(t, player);
  const int after = std::max(nameWidth, p.fontMetrics().horizontalAdvance(second));
  const QRectF box(room.left() + after + 22, 14, chip, 28);
  p.setRenderHint(QPainter::Antialiasing);
  p.setPen(Qt::NoPen);
  p.setBrush(ground);
  p.drawRoundedRect(box, 4, 4);
  p.setPen(ink);
  p.setFont(t.Font(13, Weight::Medium));
  p.drawText(box, Qt::AlignCenter, state);
}

}  // namespace torvane::dryrun
