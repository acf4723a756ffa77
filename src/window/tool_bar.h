// The bar above everything: files, family, unit, the document, the machine.
#pragma once

#include <QWidget>

#include "look/icons.h"
#include "window/binder.h"

namespace torvane {

class Button;

class ToolBar : public QWidget {
 public:
  explicit ToolBar(Desk desk, QWidget* parent = nullptr);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  Button* Tool(Icon icon, const QString& word, const char* control, const QString& tip);
  QWidget* Family();
  QWidget* Unit();

  Desk desk_;
  // Icon alone where there is little room.
  std::vector<std::pair<Button*, QString>> worded_;
  QWidget* document_;
};

}  // namespace torvane
