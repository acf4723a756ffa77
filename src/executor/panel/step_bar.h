// The run's own buttons: play, and steps by line, pass and layer in both directions.
#pragma once

#include <QWidget>
#include <vector>

#include "executor/session/session.h"
#include "look/button.h"

namespace torvane::dryrun {

class StepBar : public QWidget {
 public:
  explicit StepBar(Stand stand, QWidget* parent = nullptr);

  // The steps without their words.
  void SetNarrow(bool narrow);
  // What Space does where no button is waited for: plays, pauses, or runs a finished program again.
  void PlayOrPause();

 private:
  struct StepButton {
    PlainButton* button;
    QString word;
  };

  PlainButton* AddStep(executor::Stride stride, bool on);
  void Refresh();

  Stand stand_;
  PlainButton* play_;
  std::vector<StepButton> steps_;
  bool narrow_ = false;
};

}  // namespace torvane::dryrun
