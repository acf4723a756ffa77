// A field of few choices with all of them in view, side by side.
#pragma once

#include <QWidget>

#include "window/desk/binder.h"

namespace torvane {

// One stop of the focus: Left and Right choose the neighbour, a letter or digit is typed as into the field's
// own text, or chooses the entry that begins with it. Its object name is the field's name.
class ChoiceSegments : public QWidget {
 public:
  ChoiceSegments(Desk desk, Field& field, std::vector<std::string> choices, const QSize& segment,
                 QWidget* parent = nullptr);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  // The chosen one; -1 if the field's text is none of them.
  int Chosen() const;
  void Choose(int place);

  Desk desk_;
  Field& field_;
  std::vector<std::string> choices_;
  int segment_;  // width of one
};

}  // namespace torvane
