#include "window/door/handover.h"

#include <QCryptographicHash>
#include <QDeadlineTimer>
#include <QDir>
#include <QLocalServer>
#include <QLocalSocket>
#include <QStandardPaths>
#include <thread>

#include "host/files/paths.h"

namespace torvane {

namespace {

using namespace std::chrono_literals;

constexpr char kTaken[] = "taken";
constexpr int kMostCallers = 8;

}  // namespace

CallingPlace CallingPlaceOf(std::string_view stationFolder) {
#ifdef Q_OS_WIN
  const QString own = QDir::tempPath();
#else
  const QString own = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
#endif
  if (own.isEmpty()) return {};
  std::error_code error;
  // The folder may be there only once the station has started.
  const auto full = AbsolutePath(stationFolder);
  const std::filesystem::path named = SystemPath(full ? full.value() : std::string(stationFolder));
  std::filesystem::path folder = std::filesystem::weakly_canonical(named, error);
  if (error) folder = named;
  if (!folder.has_filename()) folder = folder.parent_path();
  const QByteArray said = QByteArray::fromStdString(HostText(folder)) + '\0' + own.toUtf8();
  const QString name =
      QStringLiteral("torvane-") +
      QString::fromLatin1(QCryptographicHash::hash(said, QCryptographicHash::Sha256).toHex().left(16));
  const QString path = QDir(own).filePath(name);
#ifdef Q_OS_WIN
  const QString& socket = name;
#else
  const QString& socket = path;
#endif
  return {socket, SystemPath((path + QStringLiteral(".lock")).toStdString())};
}

std::unique_ptr<FileLock> TakePlace(const CallingPlace& place) {
  if (place.socket.isEmpty()) return nullptr;
  auto lock = std::make_unique<FileLock>(place.lock, 0ms);
  return lock->Kept() ? nullptr : std::move(lock);
}

bool HandOver(const CallingPlace& place, const std::string& path, std::unique_ptr<FileLock>& taken,
              std::chrono::milliseconds patience) {
  if (place.socket.isEmpty() || path.size() > kLongestHandover) return false;
  const QDeadlineTimer end(patience);
  const auto left = [&end] { return static_cast<int>(end.remainingTime()); };
  QLocalSocket station;
  for (station.connectToServer(place.socket); !station.waitForConnected(left());
       station.connectToServer(place.socket)) {
    taken = TakePlace(place);
    if (taken != nullptr || end.hasExpired()) return false;
    std::this_thread::sleep_for(20ms);
  }
  station.write(path.c_str(), static_cast<qint64>(path.size()) + 1);
  while (station.bytesToWrite() > 0)
    if (!station.waitForBytesWritten(left())) return false;
  while (station.bytesAvailable() < static_cast<qint64>(sizeof kTaken - 1))
    if (!station.waitForReadyRead(left())) return false;
  return station.readAll() == kTaken;
}

Doorkeeper::Doorkeeper(CallingPlace place, std::unique_ptr<FileLock> taken,
                       std::function<bool(const std::string& path)> called,
                       std::chrono::milliseconds patience)
    : place_(std::move(place)),
      called_(std::move(called)),
      patience_(patience),
      lock_(std::move(taken)),
      server_(std::make_unique<QLocalServer>()) {
  if (place_.socket.isEmpty()) return;
  server_->setSocketOptions(QLocalServer::UserAccessOption);
  connect(server_.get(), &QLocalServer::newConnection, this, [this] { Receive(); });
  again_.setInterval(patience_);
  connect(&again_, &QTimer::timeout, this, [this] { Listen(); });
  Listen();
}

Doorkeeper::~Doorkeeper() { server_->disconnect(this); }

bool Doorkeeper::listens() const { return server_->isListening(); }

void Doorkeeper::Listen() {
  again_.stop();
  if (lock_ == nullptr) lock_ = TakePlace(place_);
  if (lock_ == nullptr) return again_.start();
  if (!lock_->Taken()) return;
  QLocalServer::removeServer(place_.socket);
  server_->listen(place_.socket);
}

void Doorkeeper::Receive() {
  while (QLocalSocket* caller = server_->nextPendingConnection()) {
    if (callers_ == kMostCallers) {
      caller->abort();
      caller->deleteLater();
      continue;
    }
    ++callers_;
    caller->setReadBufferSize(kLongestHandover + 2);
    connect(caller, &QObject::destroyed, this, [this] { --callers_; });
    connect(caller, &QLocalSocket::disconnected, caller, &QObject::deleteLater);
    connect(caller, &QLocalSocket::readyRead, this, [this, caller] { Read(*caller); });
    QTimer::singleShot(patience_, caller, [caller] { caller->abort(); });
    Read(*caller);
  }
}

// One path with a NUL behind it.
void Doorkeeper::Read(QLocalSocket& caller) {
  const QByteArray said = caller.peek(kLongestHandover + 2);
  const auto end = said.indexOf('\0');
  if (end < 0) return;
  disconnect(&caller, &QLocalSocket::readyRead, this, nullptr);
  caller.readAll();
  const std::string path = said.left(end).toStdString();
  const bool one = end == said.size() - 1 && end <= kLongestHandover && SystemPath(path).is_absolute();
  if (!one || !called_(path)) return caller.abort();
  caller.write(kTaken);
  caller.disconnectFromServer();
}

}  // namespace torvane
