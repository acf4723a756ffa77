// The window's push buttons, in the four looks that it has.
#pragma once

#include <QAbstractButton>

#include "look/icons.h"
#include "window/binder.h"

namespace torvane {

enum class ButtonLook : std::uint8_t {
  Flat,     // a tool: icon and word, no edge
  Outline,  // an edge
  Filled,   // the one that Enter means
  Segment,  // one of a row of choices; filled while chosen
};

class Button : public QAbstractButton {
 public:
  Button(Desk desk, ButtonLook look, Icon icon, const QString& caption, QWidget* parent = nullptr);

  // Runs an operation of the station when clicked; its name becomes the object name.
  void Runs(const char* control, int index = -1);
  void SetFilled(bool filled);
  void SetTextSize(int size);
  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void enterEvent(QEnterEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  Desk desk_;
  ButtonLook look_;
  Icon icon_;
  bool filled_ = false;
  int textSize_ = 13;
};

}  // namespace torvane
