// Renders the windows into PNG files of a folder, for looking at them: both families, empty and with a
// sample, light and dark, at every size that lays the window out anew. QT_SCALE_FACTOR scales them.
#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QFileInfo>
#include <QPixmap>
#include <QStyleFactory>
#include <QTemporaryDir>
#include <QThread>
#include <chrono>
#include <cstdio>
#include <fstream>

#include "host/files/paths.h"
#include "host/store/ini_store.h"
#include "look/style.h"
#include "window/frame/application.h"
#include "workbench/dialog/links.h"
#include "workbench/document/design_commands.h"
#include "workbench/document/recent_files.h"

namespace torvane {

namespace {

void Choose4Axes(WindowProgram& program) {
  DesignState& s = program.station().s;
  s.optX(0) = "False";
  program.binder().Choose(s.optX(1), "True");
}

// The start guard holds calculations back for five seconds; a picture does not wait for it.
class LaterClock : public Clock {
 public:
  Moment Now() const override { return HostClock().Now() + ahead; }
  std::chrono::seconds ahead{0};
};

class Pictures {
 public:
  Pictures(const QString& folder, const QString& samples, bool dark)
      : folder_(folder), samples_(samples), theme_(dark) {
    QApplication::setStyle(new Style(theme_));
    QApplication::setPalette(theme_.Palette());
    QApplication::setFont(theme_.Font(13));
  }

  void Take(const QString& name, const QString& sample, QSize size, int pressedRow,
            const std::function<void(WindowProgram&)>& more = {}) {
    theme_.SetLarge(false);
    QTemporaryDir home;
    const auto files = HostFiles::At(home.path().toStdString(), samples_.toStdString());
    WindowComputer computer(files.value(), std::make_unique<IniStore>(home.filePath("t.ini").toStdString()),
                            theme_);
    Platform real = computer.AsPlatform();
    LaterClock clock;
    const bool fourAxis = sample.endsWith(QStringLiteral(".t4d"));
    real.store.Write("Settings", "mnu2Axis", fourAxis ? "0" : "1");
    real.store.Write("Settings", "gVersionNumber", "420");
    real.store.Write("Settings", "gCarriageOffsetFromRMPFace", "1.875");
    WindowProgram program(Platform{real.store, clock, real.locale, real.files, real.messageDialog,
                                   real.messageBox, real.fileDialog, real.launcher},
                          theme_);
    for (QWidget* top : QApplication::topLevelWidgets())
      if (top->objectName() == QStringLiteral("frmSplash") && sample.isEmpty())
        top->grab().save(folder_ + "/" + name + "-frmSplash.png");
    clock.ahead = std::chrono::seconds(10);
    program.binder().Do([&] {
      if (!sample.isEmpty())
        OpenDesign(program.station(), StationPath((samples_ + "/" + sample).toStdString()).value());
      program.station().Tick();
      if (pressedRow > 0) program.station().Run(fourAxis ? "btn4XRow" : "btn2XRow", Event::Press, pressedRow);
    });
    MainWindow& window = program.mainWindow();
    window.resize(size);
    if (more) more(program);
    program.binder().Flush();
    QApplication::processEvents();
    const qreal scale = window.devicePixelRatioF();
    const QString end = scale == 1 ? QString() : QStringLiteral("@%1x").arg(scale);
    window.grab().save(folder_ + "/" + name + end + ".png");
    const OpenWindows& windows = program.station().windows;
    for (std::size_t i = 0; i < windows.size(); ++i)
      if (QWidget* dialog = program.dialogs().DialogOf(windows[i]))
        dialog->grab().save(folder_ + "/" + name + "-" + QString::fromLatin1(windows[i].name().data()) + end +
                            ".png");
    std::printf("%s.png\n", qPrintable(name));
  }

  // The guide at a heading.
  void TakeGuide(const QString& name, QSize size, const char* heading, const char* word) {
    GuideWindow guide(theme_, samples_ + "/../docs", nullptr);
    guide.resize(size);
    guide.ShowAt(QString::fromLatin1(heading), QString::fromLatin1(word));
    for (int i = 0; i < 10; ++i) QApplication::processEvents();
    guide.grab().save(folder_ + "/" + name + ".png");
    std::printf("%s.png\n", qPrintable(name));
  }

  // A program as text, one layer folded.
  void TakeProgram(const QString& name, const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return;
    ProgramWindow window(theme_);
    window.resize(800, 600);
    window.Show("\\TV_G-Code_Files\\Tube-4x24.T2G", file.readAll().toStdString());
    const_cast<ProgramView&>(window.view()).Fold(28, true);
    const_cast<ProgramView&>(window.view()).Find(QStringLiteral("mandrel"), true);
    QApplication::processEvents();
    window.grab().save(folder_ + "/" + name + ".png");
  }

  const QString& samples() const { return samples_; }

  void TakeMessage(const QString& name, const Message& message) {
    MessageWindow window(theme_, ViewOf(message), {}, nullptr);
    window.show();
    QApplication::processEvents();
    window.grab().save(folder_ + "/" + name + ".png");
  }

 private:
  QString folder_, samples_;
  Theme theme_;
};

// A start with three designs that are there and one that is gone.
void FillRecent(WindowProgram& program, const QString& samples) {
  for (const char* name : {"Boom-2in.t4d", "Taper-Mast.t2d", "Hemi-Vessel-150mm.t4d", "Tube-4x24.t2d"})
    NoteRecentFile(program.station().keptStore,
                   StationPath((samples + "/" + QString::fromLatin1(name)).toStdString()).value());
  program.binder().Do([] {});
  for (int i = 0; i < 40; ++i) QApplication::processEvents();
}

// Until the proof of the design stands, and what mends it has been tried.
void AwaitProof(WindowProgram& program) {
  const LiveWatch& live = *program.desk().live;
  for (int i = 0; i < 400 && (i < 60 || live.result() == nullptr || !live.result()->formed); ++i) {
    QApplication::processEvents();
    QThread::msleep(5);
  }
}

// Bare strips, as colours and unrolled, and what mends them.
void TakeCover(Pictures& pictures, const QString& end) {
  const auto turned = [](WindowProgram& p) {
    DesignState& s = p.station().s;
    p.binder().Type(s.txtDiameterLeft, QStringLiteral("1.5"));
    p.binder().Type(s.txtDiameterRight, QStringLiteral("3"));
    AwaitProof(p);
  };
  for (const QSize window : {QSize(1280, 800), QSize(1100, 720)}) {
    const QString of = QString::number(window.width()) + end;
    pictures.Take(QStringLiteral("cover-faults-") + of, "Taper-Mast.t2d", window, 1, turned);
    for (const char* view : {"viewCoverage", "viewThickness"})
      pictures.Take(QStringLiteral("cover-") + QString::fromLatin1(view + 4) + of, "Taper-Mast.t2d", window,
                    1, [&](WindowProgram& p) {
                      turned(p);
                      p.mainWindow().findChild<QAction*>(QString::fromLatin1(view))->trigger();
                      AwaitProof(p);
                      p.mainWindow().findChild<QAbstractButton*>(QStringLiteral("unroll"))->click();
                      p.mainWindow().findChild<QAbstractButton*>(QStringLiteral("nextBare"))->click();
                      AwaitProof(p);
                    });
  }
  pictures.Take(QStringLiteral("cover-folded") + end, "Taper-Mast.t2d", {800, 600}, 1, [&](WindowProgram& p) {
    turned(p);
    p.mainWindow().findChild<QAbstractButton*>(QStringLiteral("foldedProof"))->click();
    AwaitProof(p);
  });
}

// The main window at every size, of both families.
void TakeSizes(Pictures& pictures, const QString& end) {
  constexpr struct {
    const char* name;
    int width, height;
  } kSizes[] = {{"smallest", 800, 600}, {"lowest-open", 1100, 720}, {"first-start", 1133, 833},
                {"usual", 1280, 800},   {"full-hd", 1920, 1080},    {"4k", 3840, 2160}};
  constexpr struct {
    const char *name, *sample;
    int row;
  } kDesigns[] = {{"2axis", "Tube-4x24.t2d", 3},
                  {"taper", "Taper-Mast.t2d", 2},
                  {"hemi", "Hemi-Vessel-150mm.t4d", 1},
                  {"flat", "Flat-Tube-4x24.t4d", 1},
                  {"nowrap", "No-Wrap-Mast.t4d", 2}};
  // Scaled pictures of large windows show nothing that the smaller ones do not.
  const bool scaled = qApp->devicePixelRatio() > 1;
  for (const auto& size : kSizes) {
    if (scaled && size.width > 1280) continue;
    const QSize window(size.width, size.height);
    const auto name = [&](const char* design) {
      return QStringLiteral("%1-%2").arg(QString::fromLatin1(design), QString::fromLatin1(size.name)) + end;
    };
    pictures.Take(name("empty"), {}, window, 0);
    pictures.Take(name("empty4"), {}, window, 0, [](WindowProgram& p) { Choose4Axes(p); });
    for (const auto& design : kDesigns)
      pictures.Take(name(design.name), QString::fromLatin1(design.sample), window, design.row);
    for (const auto& design : {kDesigns[0], kDesigns[2]})
      pictures.Take(name(design.name) + QStringLiteral("-large"), QString::fromLatin1(design.sample), window,
                    design.row, [](WindowProgram& p) { p.mainWindow().UseLargeFigures(true); });
  }
  for (const QSize window : {QSize(1100, 720), QSize(1133, 833), QSize(1280, 800), QSize(1600, 900)})
    pictures.Take(QStringLiteral("hemi-end-view-%1").arg(window.width()) + end, "Hemi-Vessel-150mm.t4d",
                  window, 1, [](WindowProgram& p) {
                    Field& pattern = p.station().s.cmbPattern(1);
                    p.binder().Choose(pattern, std::string(pattern.text()));
                  });
  for (const auto& size : {kSizes[0], kSizes[1], kSizes[3]}) {
    const QString of = QString::fromLatin1(size.name) + end;
    const QSize window(size.width, size.height);
    pictures.Take(QStringLiteral("start-") + of, {}, window, 0,
                  [&](WindowProgram& p) { FillRecent(p, pictures.samples()); });
    pictures.Take(QStringLiteral("2axis-line-") + of, "Tube-4x24.t2d", window, 3, [](WindowProgram& p) {
      p.mainWindow().findChild<QWidget*>(QStringLiteral("line of txtZ2(0)"))->setFocus();
    });
    pictures.Take(QStringLiteral("hemi-line-") + of, "Hemi-Vessel-150mm.t4d", window, 1,
                  [](WindowProgram& p) {
                    p.mainWindow().findChild<QWidget*>(QStringLiteral("line of txtZ4(1)"))->setFocus();
                  });
  }
  pictures.Take(QStringLiteral("2axis-checklist") + end, "Tube-4x24.t2d", {800, 600}, 3,
                [](WindowProgram& p) {
                  p.mainWindow().findChild<QAbstractButton*>(QStringLiteral("foldedChecklist"))->click();
                });
  pictures.Take(QStringLiteral("hemi-head-page") + end, "Hemi-Vessel-150mm.t4d", {800, 600}, 1,
                [](WindowProgram& p) {
                  p.mainWindow().findChild<QAbstractButton*>(QStringLiteral("pageHead"))->click();
                });
  pictures.Take(
      QStringLiteral("2axis-all-rows") + end, "Tube-4x24.t2d", {1280, 800}, 3,
      [](WindowProgram& p) { p.mainWindow().findChild<QAction*>(QStringLiteral("mnuAllRows"))->trigger(); });
}

}  // namespace

}  // namespace torvane

int main(int argc, char** argv) {
  using namespace torvane;
  QApplication application(argc, argv);
  if (argc != 3) {
    std::fprintf(stderr, "usage: window_pictures FOLDER SAMPLES\n");
    return 2;
  }
  const QString folder = application.arguments().at(1);
  const QString samples = QFileInfo(application.arguments().at(2)).absoluteFilePath();
  const QSize wide(1280, 800);
  for (const bool dark : {false, true}) {
    const QString end = dark ? QStringLiteral("-dark") : QString();
    Pictures pictures(folder, samples, dark);
    pictures.TakeProgram("program" + end, folder + "/Tube-4x24.T2G");
    pictures.TakeGuide("guide" + end, wide, "The schedule", "Add'l Wrap");
    pictures.TakeGuide("guide-smallest" + end, {800, 600}, "A part for four axes", "");
    pictures.TakeGuide("guide-tables" + end, {800, 600}, "Faults and notes", "");
    TakeCover(pictures, end);
    TakeSizes(pictures, end);
    pictures.Take("2axis-marks" + end, "Tube-4x24.t2d", wide, 4, [](WindowProgram& program) {
      Station& station = program.station();
      program.binder().Type(station.s.txtZ2(1), "1.50");
      program.binder().Type(station.s.txtBandThickness(0), "");
    });
    pictures.Take("taper-mm" + end, "Tube-100x600-mm.t2d", {1600, 900}, 1);
    pictures.Take("2axis-15-rows" + end, "Tube-4x24.t2d", wide, 3,
                  [](WindowProgram& p) { p.binder().Type(p.station().s.txtNumberOfLayers(0), "15"); });
    const char* const openers[] = {"mnuProperties", "Label10", "Label9", "mnuSpeeds"};
    for (int tab = 0; tab <= 3; ++tab)
      pictures.Take(QStringLiteral("settings-%1").arg(tab) + end, "Tube-4x24.t2d", wide, 1,
                    [&](WindowProgram& p) { p.binder().Run(openers[tab]); });
    pictures.Take("about" + end, {}, wide, 0, [](WindowProgram& p) {
      p.binder().Do([&p] { OpenPicture(p.station()); });
      p.binder().Run("mnuAbout");
    });
    pictures.Take("machine" + end, {}, wide, 0, [](WindowProgram& p) { p.binder().Run("mnuMachine"); });
    pictures.Take("preview" + end, "Hemi-Vessel-150mm.t4d", wide, 1, [](WindowProgram& p) {
      p.binder().Run("btn4XRow", Event::Click, 1);
      p.binder().Run("tmrStartDraw", Event::Tick);
      for (int step = 0; step < 50; ++step) p.station().Run("tmrDraw", Event::Tick);
    });
    pictures.TakeMessage(
        "message-question" + end,
        {"\r\n\r\nThis Torvane Design File has changed.\r\n Do you want to save the changes first ?",
         1,
         false,
         false,
         false,
         {}});
    pictures.TakeMessage("message-stop" + end,
                         {"Carriage will slam Limit Switch.\r\nEnter a Z value greater than the Z home "
                          "position.\r\n\r\nGo To Settings --> 2-Axis --> Red Highlight",
                          567,
                          true,
                          true,
                          false,
                          {}});
    pictures.TakeMessage("message-offer" + end,
                         {"\r\nBefore your first winding, you need to measure the carriage\r\nZ-offset "
                          "distance. Click OK to open the settings page.\r\n",
                          33,
                          true,
                          true,
                          true,
                          {}});
  }
  return 0;
}
