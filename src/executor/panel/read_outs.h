// Strips of read-outs: time and stages, what the program displays, and where the axes are.
#pragma once

#include <QWidget>

#include "executor/session/session.h"

namespace torvane::dryrun {

// A panel that is painted from the player.
class Strip : public QWidget {
  Q_OBJECT

 public:
  Strip(Stand stand, int height, QWidget* parent);

 protected:
  Stand stand_;
};

// Elapsed and remaining time, and a segment for each layer and stage, as wide as its time.
class ProgressStrip : public Strip {
  Q_OBJECT

 public:
  explicit ProgressStrip(Stand stand, QWidget* parent = nullptr);

 protected:
  void paintEvent(QPaintEvent* event) override;
  bool event(QEvent* event) override;

 private:
  struct Piece {
    QRectF box;
    const executor::Stretch* stretch;
  };
  std::vector<Piece> Pieces() const;
};

class DisplayStrip : public Strip {
  Q_OBJECT

 public:
  explicit DisplayStrip(Stand stand, QWidget* parent = nullptr);

 protected:
  void paintEvent(QPaintEvent* event) override;
};

class AxesStrip : public Strip {
  Q_OBJECT

 public:
  explicit AxesStrip(Stand stand, QWidget* parent = nullptr);

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace torvane::dryrun
