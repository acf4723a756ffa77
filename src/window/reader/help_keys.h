// F1 and Shift+F1, in every window of the station.
#pragma once

#include <QMainWindow>
#include <QPointer>

#include "window/desk/binder.h"
#include "window/reader/guide_window.h"

namespace torvane {

class HelpKeys : public QObject {
 public:
  // Puts its entries before those of the main window's Help menu. `guideFolder` is read when the guide is
  // opened.
  HelpKeys(Desk desk, QMainWindow& main, const QString& guideFolder);

  // Opens the guide where it tells of a widget, which may be null.
  void OpenGuide(QWidget* about);
  // Shows the sentence about a widget beside it.
  void SayWhatThisIs(QWidget* widget) const;
  // Null until it is opened.
  GuideWindow* guide() const { return guide_; }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  // The field of the grid's present cell, or of a widget of the main window; null of anything else.
  const Field* FieldOf(QWidget* widget) const;

  Desk desk_;
  QMainWindow& main_;
  const QString& guideFolder_;
  QPointer<GuideWindow> guide_;
};

}  // namespace torvane
