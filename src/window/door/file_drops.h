// Files that are dropped on the windows of the station.
#pragma once

#include <QObject>
#include <functional>
#include <string>

namespace torvane {

// While it lives, each window of the program takes a dropped file, wherever in it: a field would else take
// its name as typed text. A file dialog keeps its own way, which goes to the file.
class FileDrops : public QObject {
 public:
  // `dropped` is told the file's path, as one of the computer.
  explicit FileDrops(std::function<void(const std::string& path)> dropped);

  bool eventFilter(QObject* receiver, QEvent* event) override;

 private:
  std::function<void(const std::string& path)> dropped_;
};

}  // namespace torvane
