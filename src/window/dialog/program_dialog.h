// How far a program is that takes more than half a second, and the button that cancels it.
#pragma once

#include <QElapsedTimer>
#include <QPointer>
#include <memory>

#include "gcode/program.h"
#include "look/theme.h"

class QDialog;
class QProgressBar;

namespace torvane {

class ProgramDialog : public ProgramProgress {
 public:
  explicit ProgramDialog(const Theme& theme);
  ~ProgramDialog() override;

  void Begin() override;
  // Lets the window breathe; all other windows are shut to the operator meanwhile.
  bool GoOn(double share) override;
  void End() override;

  // A program is on its way: the station must not be asked for anything else.
  bool busy() const { return busy_; }

 private:
  void Open();

  const Theme& theme_;
  std::unique_ptr<QDialog> dialog_;
  QProgressBar* bar_ = nullptr;
  QElapsedTimer since_, shown_;
  bool busy_ = false;
  bool cancelled_ = false;
};

}  // namespace torvane
