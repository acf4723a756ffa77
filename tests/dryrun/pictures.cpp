// Renders the dry run's window into PNG files of a folder, for looking at them: each program running, waiting
// and at its end, light and dark; the window without a program and for moving by hand.
#include <QDir>
#include <QFileInfo>
#include <QPixmap>
#include <cstdio>

#include "staging.h"

namespace torvane::dryrun {

namespace {

class Pictures {
 public:
  Pictures(QString folder, bool dark) : folder_(std::move(folder)), dark_(dark) {}

  void Take(const QString& name, const QSize& size, const std::string& program,
            const std::function<void(Staged&)>& bring) const {
    Staged stage(dark_);
    stage.window.resize(size);
    stage.window.show();
    if (!program.empty()) stage.Open(program);
    if (!program.empty()) stage.AwaitProof();
    bring(stage);
    stage.window.mandrelView().Finish();
    QApplication::processEvents();
    stage.window.mandrelView().Finish();
    const QString file = folder_ + "/" + name + (dark_ ? "-dark" : "") + ".png";
    stage.window.grab().save(file);
    std::printf("%s\n", qPrintable(file));
  }

 private:
  QString folder_;
  bool dark_;
};

}  // namespace

}  // namespace torvane::dryrun

int main(int argc, char** argv) {
  using namespace torvane::dryrun;
  QApplication application(argc, argv);
  const QStringList words = application.arguments();
  if (words.size() < 3) {
    std::fprintf(stderr, "usage: dryrun_pictures FOLDER PROGRAM...\n");
    return 2;
  }
  const QSize usual(1280, 800), smallest(800, 600);
  for (const bool dark : {false, true}) {
    const Pictures pictures(words[1], dark);
    pictures.Take("empty", usual, {}, [](Staged&) {});
    pictures.Take("manual", usual, {}, [](Staged& s) {
      s.session.BeginManual({1.875, 4.4375, 48, 9, false});
      s.session.Jog(torvane::executor::Axis::Carriage, 12);
      s.session.Advance(5);
    });
    for (const QString& program : words.mid(2)) {
      const std::string path = program.toStdString();
      const QString name = QFileInfo(program).completeBaseName();
      const auto share = [](double part) {
        return [part](Staged& s) {
          s.RunTo(s.player().course().seconds * part);
          s.session.SetSpeed(50);
        };
      };
      pictures.Take(name + "-running", usual, path, share(0.55));
      pictures.Take(name + "-waiting", usual, path, [&](Staged& s) {
        share(0.2)(s);
        s.RunToWait();
      });
      pictures.Take(name + "-end", usual, path, share(2));
      pictures.Take(name + "-slow", usual, path,
                    [](Staged& s) { s.RunTo(s.player().course().seconds * 0.3); });
      pictures.Take(name + "-smallest", smallest, path, share(0.4));
    }
  }
  return 0;
}
