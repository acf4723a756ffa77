// Moving the machine by hand.
#pragma once

#include <QWidget>
#include <vector>

#include "executor/session/session.h"
#include "look/button.h"

namespace torvane::dryrun {

class ManualPanel : public QWidget {
  Q_OBJECT

 public:
  explicit ManualPanel(Stand stand, QWidget* parent = nullptr);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  struct Row {
    executor::Axis axis;
    PlainButton *less, *more;
    QString name;
    int top;
  };

  void AddAxis(executor::Axis axis, const QString& name, const char* object, Icon less, Icon more);
  void AddSteps(const std::vector<double>& steps, const char* object, double& chosen,
                std::vector<PlainButton*>& buttons, int top);
  void Refresh();

  Stand stand_;
  std::vector<Row> rows_;
  double lengthStep_ = 0.1, angleStep_ = 10;
  std::vector<PlainButton*> lengths_, angles_;
  PlainButton* home_;
};

}  // namespace torvane::dryrun
