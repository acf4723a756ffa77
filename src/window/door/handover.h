// A start with a file against the station that runs in the same folder already: the file's name goes to that
// one, through a socket that is its user's alone.
#pragma once

#include <QObject>
#include <QTimer>
#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "host/files/file_system.h"

class QLocalServer;
class QLocalSocket;

namespace torvane {

// Where the stations of a folder are called.
struct CallingPlace {
  QString socket;              // empty where the user has no place of his own for it
  std::filesystem::path lock;  // of who listens there
};
// `stationFolder` is a path of the computer; whatever name leads to a folder, it has one place.
CallingPlace CallingPlaceOf(std::string_view stationFolder);

// The longest path that is handed over, in bytes.
inline constexpr int kLongestHandover = 8192;

// Takes the place for a station that is about to start; null while another station has it.
std::unique_ptr<FileLock> TakePlace(const CallingPlace& place);

// Hands a file, by its full path on the computer, to the station that has the place; one that is still
// starting is waited for. True once it has taken the file. False where no station has the place, which is
// `taken` then, or where the one that has it does not answer within the patience.
bool HandOver(const CallingPlace& place, const std::string& path, std::unique_ptr<FileLock>& taken,
              std::chrono::milliseconds patience = std::chrono::seconds(5));

// Listens at a place. Of several stations in one folder one listens, and another takes over when it ends.
// What a station that died has left there is cleared away. A caller can say one full path and nothing else;
// one that says more, or takes its time, is cut off.
class Doorkeeper : public QObject {
 public:
  // `taken` is the place where it is taken already. `called` is told the path that a caller named, and says
  // whether it is taken. A caller has `patience` to say it; as often the place is asked for while another
  // station has it.
  Doorkeeper(CallingPlace place, std::unique_ptr<FileLock> taken,
             std::function<bool(const std::string& path)> called,
             std::chrono::milliseconds patience = std::chrono::seconds(3));
  ~Doorkeeper() override;

  bool listens() const;

 private:
  void Listen();
  void Receive();
  void Read(QLocalSocket& caller);

  CallingPlace place_;
  std::function<bool(const std::string& path)> called_;
  std::chrono::milliseconds patience_;
  QTimer again_;
  int callers_ = 0;
  std::unique_ptr<FileLock> lock_;
  std::unique_ptr<QLocalServer> server_;  // goes before the lock does
};

}  // namespace torvane
