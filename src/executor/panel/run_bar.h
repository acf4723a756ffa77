// The bar at the top: the file, what the run does, its speed, and stop.
#pragma once

#include <QWidget>
#include <functional>
#include <vector>

#include "executor/session/session.h"
#include "look/button.h"

namespace torvane::dryrun {

// The speeds that can be chosen, the last one to the end.
const std::vector<double>& Speeds();

class RunBar : public QWidget {
 public:
  explicit RunBar(Stand stand, QWidget* parent = nullptr);

  // The next faster speed, or slower: + and -.
  void Step(int by);
  // Open and stop without their words, the state beside the file's name.
  void SetNarrow(bool narrow);

  std::function<void()> openAsked;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void Refresh();
  QString StateText() const;

  Stand stand_;
  PlainButton *open_, *stop_;
  QWidget* title_;
  QWidget* speedBox_;
  std::vector<PlainButton*> speeds_;
  bool narrow_ = false;
};

}  // namespace torvane::dryrun
