// The lines of a program to be read: only those in view are painted, however many there are.
#pragma once

#include <QAbstractScrollArea>
#include <QFont>
#include <functional>
#include <memory>

#include "look/theme.h"
#include "window/reader/program_text.h"

namespace torvane {

class ProgramView : public QAbstractScrollArea {
 public:
  ProgramView(const Theme& theme, QWidget* parent);

  // Shows another text; the present line stays where it can.
  void SetText(std::unique_ptr<ProgramText> text);
  const ProgramText& text() const { return *text_; }
  int line() const { return line_; }
  int LineOnTop() const;
  // Makes a line the present one, in view, its section unfolded.
  void GoTo(int line);
  void Fold(int line, bool folded);
  void FoldLayers(bool folded);
  // Goes to the next line that holds the words, and marks them. False if none does.
  bool Find(const QString& words, bool forward, bool fromHere = false);
  // The chosen lines as they stand in the file.
  QString Chosen() const;

  // Told when another line is the present one.
  std::function<void()> moved;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  void Fit();
  void Move(int line, bool extends);
  // The line at a height of the viewport.
  int LineUnder(int y) const;
  void PaintLine(QPainter& p, int line, int y) const;
  int RowsInView() const;
  void Reveal();
  void Tell();

  const Theme& theme_;
  QFont mono_;
  int letter_ = 8, gutter_ = 60;
  std::unique_ptr<ProgramText> text_;
  int line_ = 1, anchor_ = 1;
  std::string found_;
};

}  // namespace torvane
