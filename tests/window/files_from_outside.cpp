// Files that come from outside: named at the start, dropped on a window, handed over by another start.
#include <QDialog>
#include <QDragEnterEvent>
#include <QFileDialog>
#include <QLocalSocket>
#include <QMenu>
#include <QMimeData>
#include <QMimeDatabase>
#include <QUrl>
#include <fstream>
#include <thread>

#include "on_stage.h"
#include "window/door/handover.h"

namespace torvane {

namespace {

// Where the designs of this computer lie on the stage.
const std::string kTube = "\\srv\\designs\\Tube.t2d", kVessel = "\\srv\\designs\\Vessel.t4d";
constexpr const char* kTubeHere = "/srv/designs/Tube.t2d";
constexpr const char* kVesselHere = "/srv/designs/Vessel.t4d";

std::string Sample(const char* name) {
  std::ifstream file(std::string(SOURCE_FOLDER) + "/samples/" + name, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

struct Desktop : WindowOnStage {
  Desktop() {
    stage.files.Put(kTube, Sample("Tube-4x24.t2d"));
    stage.files.Put(kVessel, Sample("Hemi-Vessel-150mm.t4d"));
  }
  // The start's last turn: who else runs, and what the last station has left.
  void EndStart() {
    stage.clock.Advance(std::chrono::seconds(1));
    program->binder().Do([this] { station().Tick(); });
  }
  std::string Opened() { return s().gFilePath.text(); }
  // Long enough for what waits to come up if it were to.
  static void Wait() { QTest::qWait(150); }
};

bool DragsInto(QWidget& window, const QList<QUrl>& urls, bool drop = true) {
  QMimeData data;
  data.setUrls(urls);
  if (!window.acceptDrops()) return false;
  QDragEnterEvent enter({10, 10}, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, {});
  enter.ignore();
  QApplication::sendEvent(&window, &enter);
  if (!enter.isAccepted() || !drop) return enter.isAccepted();
  // With Shift the other program proposes to move the file.
  QDropEvent dropped({10, 10}, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, Qt::ShiftModifier);
  QApplication::sendEvent(&window, &dropped);
  return dropped.isAccepted() && dropped.dropAction() == Qt::CopyAction;
}

QUrl FileUrl(const char* path) { return QUrl::fromLocalFile(QString::fromLatin1(path)); }

// A place of this test's own, and a doorkeeper's callers.
class Door {
 public:
  Door() {
    qputenv("XDG_RUNTIME_DIR", QFile::encodeName(own_.path()));
    place = CallingPlaceOf(own_.path().toStdString());
  }
  std::function<bool(const std::string&)> Taking() {
    return [this](const std::string& path) {
      taken.push_back(path);
      return takes;
    };
  }
  // From another thread, as from another process, while this one keeps the door.
  bool HandsOver(const std::string& path,
                 std::chrono::milliseconds patience = std::chrono::seconds(20)) const {
    bool done = false, result = false;
    std::thread caller([&] {
      std::unique_ptr<FileLock> lock;
      result = HandOver(place, path, lock, patience);
      QMetaObject::invokeMethod(
          qApp, [&done] { done = true; }, Qt::QueuedConnection);
    });
    while (!done) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    caller.join();
    return result;
  }
  // What a caller hears who says that.
  QByteArray Answer(const QByteArray& said) const {
    QLocalSocket caller;
    caller.connectToServer(place.socket);
    caller.write(said);
    if (!QTest::qWaitFor([&caller] { return caller.state() == QLocalSocket::UnconnectedState; }))
      return "still there";
    return caller.readAll();
  }

  CallingPlace place;
  std::vector<std::string> taken;
  bool takes = true;

 private:
  QTemporaryDir own_;
};

}  // namespace

class FilesFromOutside : public QObject {
  Q_OBJECT

 private slots:
  void ComputersKnowItsFiles();
  void AFileWaitsForTheEndOfTheStart();
  void AFileWaitsForTheAnswerToAQuestion();
  void AProgramStartsTheDryRun();
  void AnyWindowTakesADroppedFile();
  void ANameThatTheStationCannotSayIsTold();
  void AHandedFileIsTaken();
  void OtherBytesAreCutOff();
  void ADeadStationsLeftoverIsCleared();
  void AnotherStationTakesOver();
};

// By the description that packages install: a design also by its first line, since it may be saved under any
// name.
void FilesFromOutside::ComputersKnowItsFiles() {
  const QTemporaryDir share;
  QVERIFY(QDir(share.path()).mkpath(QStringLiteral("mime/packages")));
  QVERIFY(QFile::copy(QStringLiteral(SOURCE_FOLDER "/packaging/torvane-designer.xml"),
                      share.filePath(QStringLiteral("mime/packages/torvane-designer.xml"))));
  const QByteArray former = qgetenv("XDG_DATA_DIRS");
  qputenv("XDG_DATA_DIRS", QFile::encodeName(share.path()));
  const QMimeDatabase known;
  const auto name = [](const char* what) {
    return QStringLiteral("application/x-torvane-") + QLatin1String(what);
  };
  for (const auto& [file, kind] : {std::pair{"a.t2d", "2axis-design"},
                                   {"A.T4D", "4axis-design"},
                                   {"a.T2G", "2axis-program"},
                                   {"a.T4G", "4axis-program"}})
    QCOMPARE(known.mimeTypeForFile(QLatin1String(file), QMimeDatabase::MatchExtension).name(), name(kind));
  for (const auto& [sample, kind] :
       {std::pair{"Tube-4x24.t2d", "2axis-design"}, {"No-Wrap-Mast.t4d", "4axis-design"}})
    QCOMPARE(known.mimeTypeForData(QByteArray::fromStdString(Sample(sample))).name(), name(kind));
  qputenv("XDG_DATA_DIRS", former);
}

void FilesFromOutside::AFileWaitsForTheEndOfTheStart() {
  Desktop desktop;
  QVERIFY(desktop.program->Open(kTubeHere));
  Desktop::Wait();
  QCOMPARE(desktop.Opened(), std::string());
  desktop.station().started = desktop.stage.clock.Now();
  desktop.EndStart();
  Desktop::Wait();
  QVERIFY2(desktop.Opened().empty(), "no figures come yet");
  desktop.stage.clock.Advance(std::chrono::seconds(6));
  QTRY_COMPARE(desktop.Opened(), kTube);
  QVERIFY(desktop.stage.messageBox.shown.empty());
  // Two in a row come one behind the other, each behind its question.
  desktop.Type("txtLengthTotal(0)", "30");
  desktop.program->Open(kVesselHere);
  desktop.program->Open(kTubeHere);
  QTRY_COMPARE(desktop.Opened(), kVessel);
  QCOMPARE(desktop.stage.messageDialog.shown.size(), std::size_t{1});
  QTRY_COMPARE(desktop.Opened(), kTube);
  for (int i = 0; i < 30; ++i) QVERIFY(desktop.program->Open("/srv/0.t2d"));
  for (int i = 0; i < 20; ++i) QVERIFY(desktop.program->Open("/srv/" + std::to_string(i) + ".t2d"));
  QVERIFY2(!desktop.program->Open(kTubeHere), "what waits is bounded");
}

void FilesFromOutside::AFileWaitsForTheAnswerToAQuestion() {
  Desktop desktop;
  desktop.EndStart();
  const auto waits = [&desktop](const char* path, const std::string& opened) {
    const std::string before = desktop.Opened();
    desktop.program->Open(path);
    Desktop::Wait();
    QCOMPARE(desktop.Opened(), before);
    QVERIFY(before != opened);
  };
  // In the middle of a doing, as the station's own questions are.
  desktop.stage.messageDialog.observer = [&](const Message&) { waits(kTubeHere, kTube); };
  desktop.program->binder().Run("imgBUILD");
  desktop.stage.messageDialog.observer = nullptr;
  desktop.program->binder().Run("btnCancel");  // the settings that the question has opened
  QTRY_COMPARE(desktop.Opened(), kTube);
  {
    QDialog modal(&desktop.window());
    modal.open();
    waits(kVesselHere, kVessel);
  }
  QTRY_COMPARE(desktop.Opened(), kVessel);
  {
    QMenu menu;
    menu.addAction(QStringLiteral("entry"));
    menu.popup(desktop.window().pos());
    waits(kTubeHere, kTube);
  }
  QTRY_COMPARE(desktop.Opened(), kTube);
}

void FilesFromOutside::AProgramStartsTheDryRun() {
  Desktop desktop;
  desktop.EndStart();
  desktop.program->dryRun = "\\usr\\bin\\Torvane_Executor.exe";
  desktop.stage.files.Put("\\srv\\Tube.T2G", "X");
  desktop.window().showMinimized();
  desktop.program->Open("/srv/Tube.T2G");
  QTRY_COMPARE(desktop.stage.launcher.starts.size(), std::size_t{1});
  QCOMPARE(desktop.stage.launcher.starts[0].commandLine,
           std::string("\\usr\\bin\\Torvane_Executor.exe \\srv\\Tube.T2G"));
  QVERIFY2(!desktop.window().isMinimized(), "the station comes to the front");
  desktop.program->binder().Run("mnuQuit");
  QVERIFY(!desktop.program->Open(kTubeHere));
}

void FilesFromOutside::AnyWindowTakesADroppedFile() {
  Desktop desktop;
  desktop.EndStart();
  QVERIFY(!DragsInto(desktop.window(), {}));
  QVERIFY2(!DragsInto(desktop.window(), {FileUrl(kTubeHere), FileUrl(kVesselHere)}), "one is open at a time");
  QVERIFY(!DragsInto(desktop.window(), {QUrl(QStringLiteral("sftp://winder/a.t2d"))}));
  QVERIFY(DragsInto(desktop.window(), {FileUrl(kTubeHere)}));
  QTRY_COMPARE(desktop.Opened(), kTube);

  // On a field it is no typed text.
  auto* length = desktop.Find<QLineEdit>(QStringLiteral("txtLengthTotal(0)"));
  const QString text = length->text();
  QVERIFY(DragsInto(*length, {FileUrl(kVesselHere)}));
  QCOMPARE(length->text(), text);
  QTRY_COMPARE(desktop.Opened(), kVessel);

  desktop.program->binder().Run("mnuProperties");
  QWidget* settings = desktop.DialogOf("frmSettings");
  QVERIFY(DragsInto(*settings, {FileUrl(kTubeHere)}));
  desktop.program->binder().Run("btnCancel");
  QTRY_COMPARE(desktop.Opened(), kTube);

  QFileDialog files(&desktop.window());
  files.setOption(QFileDialog::DontUseNativeDialog);
  files.show();
  QVERIFY2(!DragsInto(files, {FileUrl(kVesselHere)}), "it goes to the file");
}

void FilesFromOutside::ANameThatTheStationCannotSayIsTold() {
  Desktop desktop;
  desktop.EndStart();
  desktop.program->Open(kTubeHere);
  QTRY_COMPARE(desktop.Opened(), kTube);
  desktop.program->Open("/srv/\xE6\xBC\xA2.t2d");
  QTRY_COMPARE(desktop.stage.messageBox.shown.size(), std::size_t{1});
  desktop.program->Open("/srv/none.t2d");
  QTRY_COMPARE(desktop.stage.messageBox.shown.size(), std::size_t{2});
  QCOMPARE(desktop.Opened(), kTube);
}

void FilesFromOutside::AHandedFileIsTaken() {
  Door door;
  std::unique_ptr<FileLock> lock, none;
  QVERIFY2(!HandOver(door.place, "/a.t2d", lock), "nobody is there");
  QVERIFY2(lock != nullptr, "this start is the one that others wait for");
  QVERIFY(!HandOver(door.place, "/a.t2d", none, std::chrono::milliseconds(50)) && none == nullptr);
  std::unique_ptr<Doorkeeper> starts;
  QTimer::singleShot(
      100, qApp, [&] { starts = std::make_unique<Doorkeeper>(door.place, std::move(lock), door.Taking()); });
  QVERIFY(door.HandsOver("/first.t2d"));
  const Doorkeeper& keeper = *starts;
  QVERIFY(keeper.listens());
  const std::string longest = "/" + std::string(kLongestHandover - 1, 'x');
  QVERIFY(door.HandsOver("/a b/\xC3\x9C\n.t2d"));
  QVERIFY(door.HandsOver(longest));
  QCOMPARE(door.taken, (std::vector<std::string>{"/first.t2d", "/a b/\xC3\x9C\n.t2d", longest}));
  QVERIFY(!door.HandsOver(longest + "x"));
  door.takes = false;
  QVERIFY2(!door.HandsOver("/b.t2d"), "who is refused opens it himself");
  // Another name of the folder, another folder.
  const std::string folder = QDir::tempPath().toStdString();
  QCOMPARE(CallingPlaceOf(folder + "/none/../").socket, CallingPlaceOf(folder + "/").socket);
  QCOMPARE(CallingPlaceOf("not there yet").socket,
           CallingPlaceOf(QDir::currentPath().toStdString() + "/not there yet").socket);
  QVERIFY(CallingPlaceOf(folder + "/other").socket != CallingPlaceOf(folder).socket);
#ifndef Q_OS_WIN
  const auto rights = QFile::permissions(door.place.socket);
  QVERIFY2(!(rights & (QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther)),
           "no other user can speak to it");
#endif
}

void FilesFromOutside::OtherBytesAreCutOff() {
  Door door;
  const Doorkeeper keeper(door.place, nullptr, door.Taking(), std::chrono::seconds(1));
  const QByteArray nul(1, '\0');
  for (const QByteArray& said :
       {nul, "a.t2d" + nul, "/a.t2d" + nul + "/b.t2d" + nul, "/" + QByteArray(kLongestHandover, 'x') + nul,
        QByteArray(1'000'000, '/'), "/a.t2d" + nul + nul})
    QCOMPARE(door.Answer(said), QByteArray());
  QVERIFY(door.taken.empty());
  // Those who say nothing keep nobody else out for ever.
  std::vector<std::unique_ptr<QLocalSocket>> silent;
  for (int i = 0; i < 8; ++i) {
    silent.push_back(std::make_unique<QLocalSocket>());
    silent.back()->connectToServer(door.place.socket);
    silent.back()->write("/half");
  }
  QCOMPARE(door.Answer("/a.t2d" + nul), QByteArray());
  QTRY_COMPARE(door.Answer("/a.t2d" + nul), QByteArray("taken"));
  for (const auto& caller : silent) QCOMPARE(caller->state(), QLocalSocket::UnconnectedState);
}

void FilesFromOutside::ADeadStationsLeftoverIsCleared() {
#ifdef Q_OS_WIN
  QSKIP("there a pipe goes with its process");
#else
  Door door;
  {
    // A file that is no socket, and a lock that nobody holds.
    std::ofstream(door.place.socket.toStdString()) << "left";
    std::ofstream(door.place.lock) << "left";
  }
  std::unique_ptr<FileLock> lock;
  QVERIFY(!HandOver(door.place, "/a.t2d", lock));
  const Doorkeeper keeper(door.place, std::move(lock), door.Taking());
  QVERIFY(keeper.listens());
  QVERIFY(door.HandsOver("/a.t2d"));
#endif
}

void FilesFromOutside::AnotherStationTakesOver() {
  Door door, others;
  auto first = std::make_unique<Doorkeeper>(door.place, nullptr, door.Taking());
  const Doorkeeper second(door.place, nullptr, others.Taking(), std::chrono::milliseconds(50));
  QVERIFY(first->listens() && !second.listens());
  QVERIFY(door.HandsOver("/a.t2d"));
  QVERIFY(others.taken.empty());
  first.reset();
  QTRY_VERIFY(second.listens());
  QVERIFY(door.HandsOver("/b.t2d"));
  QCOMPARE(others.taken, std::vector<std::string>{"/b.t2d"});
  // Without a place of the user's own there is neither.
  const Doorkeeper nowhere({}, nullptr, door.Taking());
  std::unique_ptr<FileLock> lock;
  QVERIFY(!nowhere.listens() && !HandOver({}, "/c.t2d", lock) && lock == nullptr);
}

}  // namespace torvane

QTEST_MAIN(torvane::FilesFromOutside)
#include "files_from_outside.moc"
