// The samples that came with the program, as many side by side as there is room for.
#pragma once

#include <QWidget>

#include "window/desk/binder.h"
#include "window/grid/design_cards.h"

namespace torvane {

class Button;
class SampleCard;
class Word;

class SampleShelf : public QWidget {
 public:
  // `cards` must outlive it.
  SampleShelf(Desk desk, DesignCards& cards, QWidget* parent = nullptr);

  // With its cards, and where they have to do without their pictures.
  static constexpr int kHeight = 132, kLowHeight = 62;

  // Whether there is anything to show.
  bool empty() const { return names_.empty(); }
  // Asks anew what there is.
  void Refresh();

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void Turn(int by);
  void Place();

  Desk desk_;
  DesignCards& cards_;
  std::vector<std::string> names_;
  std::size_t first_ = 0, shown_ = 0;
  std::vector<SampleCard*> places_;
  Word *title_, *second_, *count_;
  Button *back_, *on_;
};

}  // namespace torvane
