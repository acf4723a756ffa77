#include "executor/panel/step_bar.h"

#include <QHBoxLayout>

namespace torvane::dryrun {

using executor::RunState;
using executor::Stride;

namespace {

constexpr int kBar = 34, kPlay = 128, kStep = 92, kNarrowStep = 44;

struct StepLook {
  Icon back, on;
  const char* name;
  QString word, tipBack, tipOn;
};

StepLook LookOf(Stride stride) {
  switch (stride) {
    case Stride::Line:
      return {Icon::Left,
              Icon::Right,
              "Line",
              QStringLiteral("Line"),
              QStringLiteral("Back to the beginning of this line, then to the line before (Left)"),
              QStringLiteral("On to the next line (Right)")};
    case Stride::Pass:
      return {Icon::PassBack,
              Icon::PassOn,
              "Pass",
              QStringLiteral("Pass"),
              QStringLiteral("Back to the beginning of this pass, then to the pass before (Ctrl+Left)"),
              QStringLiteral("On to the next pass (Ctrl+Right)")};
    default:
      return {
          Icon::LayerBack,
          Icon::LayerOn,
          "Layer",
          QStringLiteral("Layer"),
          QStringLiteral("Back to the beginning of this layer or stage, then to the one before (Shift+Left)"),
          QStringLiteral("On to the next layer or stage (Shift+Right)")};
  }
}

}  // namespace

StepBar::StepBar(Stand stand, QWidget* parent)
    : QWidget(parent),
      stand_(stand),
      play_(new PlainButton(stand.theme, ButtonLook::Filled, Icon::Play, QStringLiteral("Play"), this)) {
  setFixedHeight(kBar);
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(6);
  for (const Stride stride : {Stride::Layer, Stride::Pass, Stride::Line})
    row->addWidget(AddStep(stride, false));
  play_->setObjectName(QStringLiteral("runButton"));
  play_->setFixedWidth(kPlay);
  row->addWidget(play_);
  for (const Stride stride : {Stride::Line, Stride::Pass, Stride::Layer})
    row->addWidget(AddStep(stride, true));
  connect(play_, &PlainButton::clicked, this, &StepBar::PlayOrPause);
  connect(&stand.session, &Session::Opened, this, &StepBar::Refresh);
  connect(&stand.session, &Session::Played, this, &StepBar::Refresh);
  SetNarrow(false);
}

PlainButton* StepBar::AddStep(Stride stride, bool on) {
  const StepLook look = LookOf(stride);
  auto* button = new PlainButton(stand_.theme, ButtonLook::Outline, on ? look.on : look.back, {}, this);
  button->setObjectName(QString::fromLatin1(look.name) +
                        (on ? QStringLiteral("On") : QStringLiteral("Back")));
  button->setAccessibleName(on ? QStringLiteral("%1 on").arg(look.word)
                               : QStringLiteral("%1 back").arg(look.word));
  button->setToolTip(on ? look.tipOn : look.tipBack);
  button->setAccessibleDescription(button->toolTip());
  button->setAutoRepeat(true);
  button->setAutoRepeatDelay(500);
  if (on) button->SetIconBehind();
  connect(button, &PlainButton::clicked, this, [this, stride, on] { stand_.session.Step(stride, on); });
  steps_.push_back({button, look.word});
  return button;
}

void StepBar::SetNarrow(bool narrow) {
  narrow_ = narrow;
  for (const StepButton& step : steps_) {
    step.button->setText(narrow ? QString() : step.word);
    step.button->setFixedWidth(narrow ? kNarrowStep : kStep);
  }
  setFixedWidth(kPlay + static_cast<int>(steps_.size()) * ((narrow ? kNarrowStep : kStep) + 6));
  Refresh();
}

void StepBar::PlayOrPause() {
  if (stand_.player().State() == RunState::Running)
    stand_.session.Pause();
  else
    stand_.session.Run();
}

void StepBar::Refresh() {
  const RunState state = stand_.player().State();
  const bool running = state == RunState::Running;
  const bool over = state == RunState::Stopped || state == RunState::Finished;
  play_->SetIcon(running ? Icon::Pause : over ? Icon::Refresh : Icon::Play);
  play_->setText(running ? QStringLiteral("Pause") : over ? QStringLiteral("Again") : QStringLiteral("Play"));
  play_->setAccessibleName(play_->text());
  play_->setToolTip(state == RunState::Waiting ? QStringLiteral("The machine waits: press its button (Space)")
                    : running                  ? QStringLiteral("Halt the run where it is (Space)")
                    : over ? QStringLiteral("Run the program once more from its beginning (Space)")
                           : QStringLiteral("Run on at the speed chosen above (Space)"));
  play_->setAccessibleDescription(play_->toolTip());
  const bool program = stand_.player().program() != nullptr;
  const bool can = program && state != RunState::Waiting;
  play_->setEnabled(can);
  play_->SetFilled(can);
  play_->SetLook(can ? ButtonLook::Filled : ButtonLook::Outline);
  for (const StepButton& step : steps_) step.button->setEnabled(program);
}

}  // namespace torvane::dryrun
