// The widgets that show a field: input, list, check box and read-out. Their object name is the field's name.
#pragma once

#include <QAbstractButton>
#include <QLabel>
#include <QLineEdit>

#include "window/desk/binder.h"
#include "window/field/field_paint.h"

namespace torvane {

// Shows or hides a widget as its field says. One that has no parent yet is not shown: it would be a window.
inline void ShowAs(QWidget& widget, bool shown) {
  if (!shown)
    widget.hide();
  else if (widget.parentWidget() != nullptr)
    widget.show();
}

enum class Place : std::uint8_t {
  Panel,  // with an edge of its own
  Cell,   // within the edges of what surrounds it
  Grid,   // the same in the schedule, whose figures can be large
};

// Typed text. Each key reaches the state as it is typed.
class FieldEdit : public QLineEdit {
 public:
  FieldEdit(Desk desk, Field& field, Place place = Place::Panel, QWidget* parent = nullptr);

  Field& field() const { return field_; }

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void keyReleaseEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;

 private:
  void Show();
  InputLook Look() const;
  QString AsTyped(const QString& text) const;

  Desk desk_;
  Field& field_;
  Place place_;
  bool moves_ = false;    // a double click moves the machine
  bool doubled_ = false;  // the release to come ends a double click
  bool idle_ = false;     // the key that is down was pressed here and has changed nothing
  bool entered_ = false;  // the click that is under way brought the keyboard here
};

// A list: its entries open below it; Alt+Down, Down or a click opens them, a letter chooses.
class FieldList : public QAbstractButton {
 public:
  FieldList(Desk desk, Field& field, QWidget* parent = nullptr);

  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void Open();

  Desk desk_;
  Field& field_;
};

// Check box; the whole row is the target. Without a caption only the box shows.
class FieldCheck : public QAbstractButton {
 public:
  FieldCheck(Desk desk, Field& field, const QString& caption, QWidget* parent = nullptr);

  // A second line below the caption, smaller.
  void SetSecondLine(const QString& text);
  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void nextCheckState() override;

 private:
  Desk desk_;
  Field& field_;
  QString second_;
};

// A figure that is shown, not typed: no edge. Empty shows a pale dash.
class ReadOut : public QWidget {
 public:
  ReadOut(Desk desk, const Field& field, int size, QWidget* parent = nullptr);

  // Gives it a ground, as among inputs.
  void SetFilled() { filled_ = true; }
  // A figure that nothing calculates.
  void SetPale() { pale_ = true; }
  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  Desk desk_;
  const Field& field_;
  int size_;
  bool filled_ = false;
  bool pale_ = false;
};

// A plain word beside a field. It shortens with an ellipsis where there is too little room.
class Word : public QWidget {
 public:
  Word(Desk desk, QString text, int size, Token token, Weight weight = Weight::Regular,
       QWidget* parent = nullptr);

  void SetText(const QString& text);
  // Bold, and in the colour of a fault.
  void SetEmphasis(bool emphasis);
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QFont Font() const;

  Desk desk_;
  QString text_;
  int size_;
  Token token_;
  Weight weight_;
  bool emphasis_ = false;
};

}  // namespace torvane
