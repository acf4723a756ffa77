// The bar above everything: files, family, unit, the document, the machine.
#pragma once

#include <QWidget>

#include "look/icons.h"
#include "window/desk/arrangement.h"
#include "window/desk/binder.h"

namespace torvane {

class Button;

class ToolBar : public QWidget {
 public:
  explicit ToolBar(Desk desk, QWidget* parent = nullptr);

  // With large figures the design's name and what the machine does stay, as targets for a glove.
  void Arrange(Arrangement arrangement);
  // Told when the operator leaves the large figures.
  std::function<void()> smallFigures;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  // A tool and from which place in the order it gives its word up; the highest first.
  struct Worded {
    Button* button;
    QString word;
    int rank;
  };

  // A button of a command; its word goes with its rank when there is little room.
  Button* Tool(Icon icon, const char* control, int rank);
  QWidget* MakeFamily();
  QWidget* MakeUnit();
  void ShowWords();

  Desk desk_;
  Arrangement arrangement_ = Arrangement::Open;
  std::vector<Worded> worded_;
  std::vector<QWidget*> small_;  // what large figures leave out
  std::vector<QWidget*> dividers_;
  QWidget* document_ = nullptr;
  int room_ = 0;  // what the design's name asked for when the words were chosen
  Button* leave_ = nullptr;
};

}  // namespace torvane
