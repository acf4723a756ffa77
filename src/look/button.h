// Push buttons, in the four looks that the windows have.
#pragma once

#include <QAbstractButton>

#include "look/icons.h"
#include "look/theme.h"

namespace torvane {

enum class ButtonLook : std::uint8_t {
  Flat,     // a tool: icon and word, no edge
  Outline,  // an edge
  Filled,   // the one that Enter means
  Segment,  // one of a row of choices; filled while chosen
};

class PlainButton : public QAbstractButton {
 public:
  PlainButton(const Theme& theme, ButtonLook look, Icon icon, const QString& caption,
              QWidget* parent = nullptr);

  // Filled is what Enter means, and what is chosen of a row.
  void SetFilled(bool filled);
  void SetLook(ButtonLook look);
  void SetIcon(Icon icon);
  // Behind its word instead of before it: what leads on.
  void SetIconBehind() { iconBehind_ = true; }
  void SetTextSize(int size);
  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void enterEvent(QEnterEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  const Theme& theme_;
  ButtonLook look_;
  Icon icon_;
  bool filled_ = false, iconBehind_ = false;
  int textSize_ = 13;
};

}  // namespace torvane
