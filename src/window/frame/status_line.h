// Left the focused field and one sentence about it, right the machine's limits and the version.
#pragma once

#include <QWidget>

#include "window/desk/binder.h"

namespace torvane {

class Word;

class StatusLine : public QWidget {
 public:
  explicit StatusLine(Desk desk, QWidget* parent = nullptr);

  // Says what has the keys.
  void Describe(const QString& name, const QString& sentence);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  QString Limits() const;

  Desk desk_;
  Word *name_, *sentence_, *limits_, *version_;
};

}  // namespace torvane
