// The list of marks: what is too low, too high or missing, worst first, and where.
#pragma once

#include <QWidget>

#include "window/desk/binder.h"

namespace torvane {

class MarksPanel : public QWidget {
 public:
  explicit MarksPanel(Desk desk, QWidget* parent = nullptr);

  // Told when the operator wants to see a marked field.
  std::function<void(const Field&)> goTo;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  bool event(QEvent* event) override;

 private:
  int LineAt(int y) const;

  Desk desk_;
};

// A line of the list: a marked field, or with a plain mark what a build is warned of.
struct Note {
  const Field* field;
  Mark mark = Mark::Plain;
  QString title, second;
};
// The marked fields, then the warnings that hang on no marked field.
std::vector<Note> NotesOf(const Station& station);
// In front of a line: a field with that mark, or a warning, 26 pixels each way.
void PaintNoteIcon(QPainter& p, const Theme& t, const QPointF& at, Mark mark);

}  // namespace torvane
