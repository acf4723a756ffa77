// Strips of read-outs: what the program displays, and where the axes are.
#pragma once

#include <QWidget>

#include "executor/session/session.h"

namespace torvane::dryrun {

// A panel that is painted from the player.
class Strip : public QWidget {
 public:
  Strip(Stand stand, int height, QWidget* parent);

 protected:
  Stand stand_;
};

class DisplayStrip : public Strip {
 public:
  explicit DisplayStrip(Stand stand, QWidget* parent = nullptr);

 protected:
  void paintEvent(QPaintEvent* event) override;
};

class AxesStrip : public Strip {
 public:
  explicit AxesStrip(Stand stand, QWidget* parent = nullptr);

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace torvane::dryrun
