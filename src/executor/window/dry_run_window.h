// The dry run's window.
#pragma once

#include <QShortcut>
#include <QStackedWidget>
#include <QWidget>
#include <functional>
#include <vector>

#include "executor/panel/findings_list.h"
#include "executor/panel/manual_panel.h"
#include "executor/panel/press_panel.h"
#include "executor/panel/program_list.h"
#include "executor/panel/read_outs.h"
#include "executor/panel/run_bar.h"
#include "executor/panel/timeline.h"
#include "executor/view/mandrel_view.h"
#include "look/appearance.h"

namespace torvane::dryrun {

class DryRunWindow : public QWidget {
 public:
  // Asks the operator for a program: its path on the computer, empty for none.
  using AskForProgram = std::function<std::string(QWidget* parent)>;

  using Wanted = std::function<Appearance()>;

  // `wanted` is what the operator has chosen by now, asked for when the window comes to the front. With the
  // appearance of the system it follows the desktop's colours.
  DryRunWindow(
      Theme& theme, Session& session, AskForProgram ask, Wanted wanted = [] { return Appearance::System; });

  // Opens a program and runs it. What cannot be opened is told in place.
  void Open(const std::string& hostPath);
  // A sentence at the foot of the window, instead of the help that stands there.
  void Tell(const QString& trouble);
  const QString& Trouble() const { return trouble_; }
  MandrelView& mandrelView() { return *view_; }

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void changeEvent(QEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  void Ask();
  void Refresh();
  void MakeKeys();
  void MakeManualKeys();
  QShortcut* AddKey(const QKeySequence& key, const std::function<void()>& does, bool repeats = true);
  QString Help() const;
  void PressOrPlay();

  Theme& theme_;
  Stand stand_;
  AskForProgram ask_;
  Wanted wanted_;
  Appearance appearance_;
  RunBar* bar_;
  Timeline* timeline_;
  ProgramList* list_;
  PressPanel* press_;
  QWidget* left_;
  QStackedWidget* leftStack_;
  ManualPanel* manual_;
  DisplayStrip* display_;
  AxesStrip* axes_;
  MandrelView* view_;
  FindingsList* findings_;
  std::vector<QShortcut*> runKeys_, manualKeys_;  // those of a program, and of moving by hand
  QString trouble_;
};

}  // namespace torvane::dryrun
