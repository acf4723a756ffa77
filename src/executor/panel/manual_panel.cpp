#include "executor/panel/manual_panel.h"

#include <QPainter>

#include "executor/session/words.h"
#include "look/paint.h"

namespace torvane::dryrun {

using executor::Axis;
using executor::RunState;

namespace {

constexpr int kHead = 36, kLeft = 14, kRowHeight = 54, kStepsTop = 62;
constexpr int kAxesTop = 196;

// The key that does the same, see DryRunWindow::MakeKeys.
QString KeyOf(Axis axis, bool more) {
  switch (axis) {
    case Axis::Carriage:
      return more ? QStringLiteral("Left") : QStringLiteral("Right");
    case Axis::Mandrel:
      return more ? QStringLiteral("Up") : QStringLiteral("Down");
    case Axis::Head:
      return more ? QStringLiteral("Ctrl+Down") : QStringLiteral("Ctrl+Up");
    default:
      return more ? QStringLiteral("Shift+Up") : QStringLiteral("Shift+Down");
  }
}

bool IsLength(Axis axis) { return axis == Axis::Carriage || axis == Axis::Head; }

}  // namespace

ManualPanel::ManualPanel(Stand stand, QWidget* parent)
    : QWidget(parent),
      stand_(stand),
      home_(new PlainButton(stand.theme, ButtonLook::Outline, Icon::Home,
                            QStringLiteral("To the limit switches"), this)) {
  setObjectName(QStringLiteral("manualPanel"));
  AddSteps(lengths_, "lengthStep", kStepsTop);
  AddSteps(angles_, "angleStep", kStepsTop + 64);
  AddAxis(Axis::Carriage, QStringLiteral("Carriage Z"), "jogZ", Icon::Left, Icon::Right);
  AddAxis(Axis::Mandrel, QStringLiteral("Mandrel A"), "jogA", Icon::Minus, Icon::Plus);
  AddAxis(Axis::Head, QStringLiteral("Delivery head Y"), "jogY", Icon::Up, Icon::Down);
  AddAxis(Axis::Rotation, QStringLiteral("Head rotation B"), "jogB", Icon::Minus, Icon::Plus);
  home_->setObjectName(QStringLiteral("jogHome"));
  home_->setAccessibleName(home_->text());
  home_->setToolTip(QStringLiteral("Runs carriage and delivery head home, to their limit switches (Home)"));
  home_->setFixedHeight(42);
  home_->setGeometry(kLeft, kAxesTop + 4 * kRowHeight + 10, home_->sizeHint().width(), 42);
  connect(home_, &PlainButton::clicked, this, [this] { stand_.session.Home(); });
  connect(&stand.session, &Session::Played, this, &ManualPanel::Refresh);
  connect(&stand.session, &Session::Opened, this, &ManualPanel::Refresh);
  Refresh();
}

const std::vector<double>& ManualPanel::Of(const Steps& steps) const {
  return stand_.player().course().millimetres ? steps.millimetres : steps.inches;
}

void ManualPanel::AddSteps(Steps& steps, const char* object, int top) {
  for (std::size_t i = 0; i < steps.inches.size(); ++i) {
    auto* button = new PlainButton(stand_.theme, ButtonLook::Outline, Icon::None, {}, this);
    button->setObjectName(QStringLiteral("%1%2").arg(QString::fromLatin1(object)).arg(i));
    button->setToolTip(QStringLiteral("How far one press of an arrow moves an axis"));
    button->setGeometry(kLeft + static_cast<int>(i) * 68, top + 20, 62, 34);
    connect(button, &PlainButton::clicked, this, [this, i, &steps] {
      steps.chosen = i;
      Refresh();
    });
    steps.buttons.push_back(button);
  }
}

void ManualPanel::Move(Axis axis, bool more) {
  const Steps& steps = IsLength(axis) ? lengths_ : angles_;
  stand_.session.Jog(axis, (more ? 1 : -1) * Of(steps)[steps.chosen]);
}

// The larger Z is at the left, as in the drawings.
void ManualPanel::AddAxis(Axis axis, const QString& name, const char* object, Icon less, Icon more) {
  const int top = kAxesTop + static_cast<int>(rows_.size()) * kRowHeight;
  const bool left = axis == Axis::Carriage;
  const auto add = [&](Icon icon, double sign, const QString& end, int x) {
    auto* button = new PlainButton(stand_.theme, ButtonLook::Outline, icon, {}, this);
    button->setObjectName(QString::fromLatin1(object) + end);
    button->setAccessibleName(name + (sign > 0 ? QStringLiteral(", more") : QStringLiteral(", less")));
    button->setToolTip(QStringLiteral("%1 (%2)").arg(button->accessibleName(), KeyOf(axis, sign > 0)));
    button->setFixedHeight(42);
    button->setGeometry(x, top, 62, 42);
    button->setAutoRepeat(true);
    button->setAutoRepeatDelay(500);
    connect(button, &PlainButton::clicked, this, [this, axis, sign] { Move(axis, sign > 0); });
    return button;
  };
  auto* first = add(less, left ? 1 : -1, left ? QStringLiteral("More") : QStringLiteral("Less"), 150);
  auto* second = add(more, left ? -1 : 1, left ? QStringLiteral("Less") : QStringLiteral("More"), 218);
  rows_.push_back({axis, first, second, name, top});
}

QString ManualPanel::Unit() const {
  return stand_.player().course().millimetres ? QStringLiteral("millimetres") : QStringLiteral("inches");
}

void ManualPanel::Refresh() {
  const executor::Player& player = stand_.player();
  const bool manual = player.State() == RunState::Manual;
  for (const Row& row : rows_) {
    const bool there = row.axis == Axis::Carriage || row.axis == Axis::Mandrel || player.course().head;
    row.less->setEnabled(manual && there);
    row.more->setEnabled(manual && there);
  }
  home_->setEnabled(manual);
  for (Steps* steps : {&lengths_, &angles_})
    for (std::size_t i = 0; i < steps->buttons.size(); ++i) {
      PlainButton* button = steps->buttons[i];
      const double step = Of(*steps)[i];
      button->setText(stand_.Figure(step, step < 0.1 ? 2 : step < 1 ? 1 : 0));
      button->setAccessibleName(steps == &angles_
                                    ? QStringLiteral("Step of %1 degrees").arg(button->text())
                                    : QStringLiteral("Step of %1 %2").arg(button->text(), Unit()));
      button->SetFilled(i == steps->chosen);
    }
  update();
}

void ManualPanel::paintEvent(QPaintEvent*) {
  const Theme& t = stand_.theme;
  QPainter p(this);
  PaintPanelHead(p, t, rect(), kHead, QStringLiteral("Move the machine by hand"));
  p.setFont(t.Font(12));
  p.setPen(t[Token::Second]);
  p.drawText(QRect(kLeft, kStepsTop - 2, width(), 20), Qt::AlignVCenter,
             QStringLiteral("Step of lengths, %1").arg(Unit()));
  p.drawText(QRect(kLeft, kStepsTop + 62, width(), 20), Qt::AlignVCenter,
             QStringLiteral("Step of angles, degrees"));
  p.setFont(t.Font(14, Weight::Medium));
  for (const Row& row : rows_) {
    p.setPen(t[row.less->isEnabled() ? Token::Text : Token::Off]);
    p.drawText(QRect(kLeft, row.top, 132, 42), Qt::AlignVCenter, row.name);
    if (row.less->isEnabled()) continue;
    p.drawText(QRect(292, row.top, width() - 300, 42), Qt::AlignVCenter,
               QStringLiteral("not on this machine"));
  }
}

}  // namespace torvane::dryrun
