// A field between its two small buttons. They are no stops of the focus: Ctrl+Up and Ctrl+Down press them.
#pragma once

#include "handoff/jog.h"
#include "window/field/button.h"
#include "window/field/field_widgets.h"
#include "window/field/help.h"

namespace torvane {

class Stepper : public QWidget {
 public:
  // `step` does what a press of either button means.
  Stepper(Desk desk, Field& field, int width, Icon less, Icon more,
          const std::function<void(bool more)>& step);
  // Presses the members of a jog, which bear their names: the one that moves to the right or away from the
  // mandrel stands at the right.
  Stepper(Desk desk, Field& field, int width, const JogPair& pair);

  FieldEdit* edit() const { return edit_; }

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  int Side() const { return width() >= 118 ? 33 : 24; }
  // What a screen reader and a tool tip call a button of what the pair is called.
  void Call(bool more, const QString& pair);
  void FollowDrive(const JogPair& pair);

  Desk desk_;
  FieldEdit* edit_;
  Button *less_, *more_;
  QString lessWord_, moreWord_;
  int forward_ = -1;  // the member at the right
};

}  // namespace torvane
