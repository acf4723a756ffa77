// The list of marks: what is too low, too high or missing, worst first, and where.
#pragma once

#include <QWidget>
#include <functional>

#include "window/desk/binder.h"

class QListView;

namespace torvane {

// Its lines wrap, and it scrolls. A click or Enter goes to the field; arrow keys go through the lines.
class MarksPanel : public QWidget {
 public:
  explicit MarksPanel(Desk desk, QWidget* parent = nullptr);

  // Where the keys go through the lines.
  QWidget* stop() const;

  // Told when the operator wants to see a marked field.
  std::function<void(const Field&)> goTo;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  class Lines;

  Desk desk_;
  Lines* lines_;
  QListView* view_;
};

// A line of the list: a marked field, or with a plain mark what a build is warned of.
struct Note {
  const Field* field;
  Mark mark = Mark::Plain;
  QString title, second;

  bool operator==(const Note&) const = default;
};
// The marked fields, then the warnings that hang on no marked field.
std::vector<Note> NotesOf(const Station& station);
// In front of a line: a field with that mark, or a warning, 26 pixels each way.
void PaintNoteIcon(QPainter& p, const Theme& t, const QPointF& at, Mark mark);

}  // namespace torvane
