// Renders the windows into PNG files of a folder, for looking at them: empty and with a sample, light and
// dark.
#include <QApplication>
#include <QPixmap>
#include <QStyleFactory>
#include <QTemporaryDir>
#include <chrono>
#include <cstdio>
#include <fstream>

#include "host/ini_store.h"
#include "host/paths.h"
#include "look/style.h"
#include "window/application.h"
#include "workbench/design_commands.h"
#include "workbench/links.h"

namespace torvane {

namespace {

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
    QTemporaryDir home;
    const auto files = HostFiles::At(home.path().toStdString());
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
    window.grab().save(folder_ + "/" + name + ".png");
    for (const auto& open : program.station().windows)
      if (QWidget* dialog = program.dialogs().DialogOf(*open))
        dialog->grab().save(folder_ + "/" + name + "-" + QString::fromLatin1(open->name().data()) + ".png");
    std::printf("%s.png\n", qPrintable(name));
  }

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

}  // namespace

}  // namespace torvane

int main(int argc, char** argv) {
  using namespace torvane;
  QApplication application(argc, argv);
  if (argc != 3) {
    std::fprintf(stderr, "usage: window_pictures FOLDER SAMPLES\n");
    return 2;
  }
  const QString folder = application.arguments().at(1), samples = application.arguments().at(2);
  const QSize wide(1280, 800), first(1133, 833);
  for (const bool dark : {false, true}) {
    const QString end = dark ? QStringLiteral("-dark") : QString();
    Pictures pictures(folder, samples, dark);
    pictures.Take("empty" + end, {}, wide, 0);
    pictures.Take("2axis" + end, "Tube-4x24.t2d", wide, 5);
    pictures.Take("2axis-first-start" + end, "Tube-4x24.t2d", first, 2);
    pictures.Take("2axis-marks" + end, "Tube-4x24.t2d", wide, 4, [](WindowProgram& program) {
      Station& station = program.station();
      program.binder().Type(station.s.txtZ2(1), "1.50");
      program.binder().Type(station.s.txtBandThickness(0), "");
    });
    pictures.Take("4axis" + end, "Hemi-Vessel-150mm.t4d", wide, 1);
    pictures.Take("taper-mm" + end, "Tube-100x600-mm.t2d", {1600, 900}, 1);
    pictures.Take("2axis-15-rows" + end, "Tube-4x24.t2d", wide, 3,
                  [](WindowProgram& p) { p.binder().Type(p.station().s.txtNumberOfLayers(0), "15"); });
    pictures.Take("smallest" + end, "Taper-Mast.t2d", {1124, 730}, 2);
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
    pictures.Take("4axis-flat" + end, "Flat-Tube-4x24.t4d", first, 1);
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
