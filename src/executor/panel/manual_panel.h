// Moving the machine by hand.
#pragma once

#include <QWidget>
#include <vector>

#include "executor/session/session.h"
#include "look/button.h"

namespace torvane::dryrun {

class ManualPanel : public QWidget {
 public:
  explicit ManualPanel(Stand stand, QWidget* parent = nullptr);

  // One step of an axis, as its buttons make it.
  void Move(executor::Axis axis, bool more);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  struct Row {
    executor::Axis axis;
    PlainButton *less, *more;
    QString name;
    int top;
  };

  // The steps that an axis can be moved by; the chosen one of four.
  struct Steps {
    std::vector<double> inches, millimetres;  // of angles the same degrees
    std::size_t chosen = 1;
    std::vector<PlainButton*> buttons;
  };

  void AddAxis(executor::Axis axis, const QString& name, const char* object, Icon less, Icon more);
  void AddSteps(Steps& steps, const char* object, int top);
  const std::vector<double>& Of(const Steps& steps) const;
  QString Unit() const;
  void Refresh();

  Stand stand_;
  std::vector<Row> rows_;
  Steps lengths_{{0.01, 0.1, 1, 10}, {0.1, 1, 10, 100}, 1, {}};
  Steps angles_{{1, 10, 90, 360}, {1, 10, 90, 360}, 1, {}};
  PlainButton* home_;
};

}  // namespace torvane::dryrun
