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

  bool operator==(const Note&) const = default;
};
// Faults of the proof, marked fields, warnings that hang on no marked field, notes of the proof. Alike
// findings of several layers are one.
std::vector<Note> NotesOf(const Desk& desk);
// In front of a line, 26 pixels each way.
void PaintNoteIcon(QPainter& p, const Theme& t, const QPointF& at, const Note& note);

// The list below its head. Its lines wrap, and it scrolls. A click or Enter goes to the field; arrow keys go
// through the lines.
class ProofPanel : public QWidget {
 public:
  explicit ProofPanel(Desk desk, QWidget* parent = nullptr);

  // Where the keys go through the lines.
  QWidget* stop() const;

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

  Desk desk_;
  Lines* lines_;
  QListView* view_;
};

}  // namespace torvane
