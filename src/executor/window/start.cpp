#include "executor/window/start.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QMessageBox>

#include "host/store/default_store.h"
#include "host/system/host_locale.h"
#include "look/style.h"
#include "text/code_page.h"

namespace torvane::dryrun {

using executor::Request;

namespace {

// The speeds at which programs and traces begin: at a trace the operator looks where the carriage goes.
constexpr double kProgramSpeed = 50, kTraceSpeed = 1;

std::string AskForFile(QWidget* parent, const QString& folder) {
  return QFileDialog::getOpenFileName(
             parent, QStringLiteral("Open a program"), folder,
             QStringLiteral("Winding programs (*.T2G *.T4G *.TVG *.t2g *.t4g *.tvg);;All files (*)"))
      .toStdString();
}

}  // namespace

bool HasScreen() {
#ifdef Q_OS_LINUX
  return !qEnvironmentVariableIsEmpty("DISPLAY") || !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") ||
         !qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM");
#else
  return true;
#endif
}

void Begin(const Start& start, const SettingsStore& store, Session& session, DryRunWindow& window) {
  session.SetSpeed(start.request.kind == Request::Kind::Trace ? kTraceSpeed : kProgramSpeed);
  switch (start.request.kind) {
    case Request::Kind::Nothing:
      break;
    case Request::Kind::Manual:
      session.BeginManual(executor::ReadManualSetup(store, session.limits()));
      break;
    case Request::Kind::Trace:
      window.Open(start.stationFolder + "/TV_TRACE.TVG");
      break;
    case Request::Kind::Program: {
      const auto path = executor::PathOf(start.request.asTyped);
      if (path)
        window.Open(path.value());
      else
        window.Tell(QString::fromStdString(start.request.asTyped + ": " + path.reason()));
      break;
    }
  }
}

int ShowWindow(int& argc, char** argv, const Start& start) {
  QApplication application(argc, argv);
  QApplication::setApplicationDisplayName(QStringLiteral("Torvane dry run"));
  const std::unique_ptr<SettingsStore> store = StoreAt(start.store);
  const auto wanted = [&start] {
    return AppearanceOf(StoreAt(start.store)->Read(kAppearanceSection, kAppearanceKey).value_or(""));
  };
  Theme theme(IsDark(wanted()));
  Dress(theme);

  const QDir station(QString::fromStdString(start.stationFolder));
  QString programs = station.filePath(QStringLiteral("TV_G-Code_Files"));
  if (!QDir(programs).exists()) programs = station.path();
  const char decimal = HostLocale().Signs().decimal;
  Session session(executor::ReadLimits(*store, decimal), decimal);
  DryRunWindow window(
      theme, session, [programs](QWidget* parent) { return AskForFile(parent, programs); }, wanted);
  window.show();
  if (const Outcome readable = store->Readable(); !readable) {
    QMessageBox box(
        QMessageBox::Warning, QStringLiteral("Torvane dry run"),
        QString::fromStdString(ToUtf8(readable.reason())) +
            QStringLiteral("\n\nThe run is held to a new station's limits, not to your machine's."),
        QMessageBox::Ok, &window);
    box.setTextFormat(Qt::PlainText);
    box.exec();
  }
  Begin(start, *store, session, window);
  return QApplication::exec();
}

}  // namespace torvane::dryrun
