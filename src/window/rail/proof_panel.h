// What the proof of the design says, and what of it is too low, too high or missing, worst first.
#pragma once

#include <QWidget>
#include <functional>
#include <vector>

#include "window/desk/binder.h"
#include "window/desk/proof_glyph.h"

class QListView;

namespace torvane {

// A line of the list: a marked field, a warning of what Build would do, or what the proof has found.
struct Note {
  const Field* field = nullptr;  // null: it leads nowhere
  Mark mark = Mark::Plain;
  ProofState state = ProofState::NotJudged;  // of a finding
  QString title, second;
  std::optional<Repair> repair = {};  // proven already, or one that asks
  QString button = {};

  bool operator==(const Note&) const = default;
};
// What AdviceOf tells, as it is shown.
std::vector<Note> NotesOf(const Desk& desk);
// In front of a line, 26 pixels each way.
void PaintNoteIcon(QPainter& p, const Theme& t, const QPointF& at, const Note& note);

// The list below its head. Its lines wrap, and it scrolls. A click or Enter goes to the field; arrow keys go
// through the lines. What mends a line stands beside it as a button, which leaves the focus where it is.
class ProofPanel : public QWidget {
 public:
  explicit ProofPanel(Desk desk, QWidget* parent = nullptr);

  // Where the keys go through the lines.
  QWidget* stop() const;
  QWidget* spools() const { return spools_; }
  // On to the field of the next line that has one, from the last line to the first.
  void GoToNext();

  // Told when the operator wants to see a field.
  std::function<void(const Field&)> goTo;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  class Lines;

  void PaintHead(QPainter& p) const;
  void PaintLimits(QPainter& p) const;
  // Spools and the use of the axes; only where there is room for the list as well.
  int LimitsHeight() const;
  void PlaceList();
  void PlaceButtons();

  Desk desk_;
  Lines* lines_;
  QListView* view_;
  QWidget* spools_;
};

}  // namespace torvane
