// From a key to the repainted window, in a design of 15 rows.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTableView>

#include "look/style.h"
#include "stage/stage.h"
#include "window/frame/application.h"
#include "window/grid/layers_model.h"

namespace torvane {

namespace {

class Desktop {
 public:
  explicit Desktop(bool fourAxis) {
    stage_.files.MakeFolder("C:\\Torvane\\TV_Design_Files");
    stage_.store.Write("Settings", "gVersionNumber", "420");
    stage_.store.Write("Settings", "mnu2Axis", fourAxis ? "0" : "1");
    QApplication::setStyle(new Style(theme_));
    program_ = std::make_unique<WindowProgram>(stage_.AsPlatform(), theme_);
    stage_.clock.Advance(std::chrono::seconds(10));
    program_->binder().Do([&] {
      program_->station().Tick();
      fourAxis ? MakeVessel() : MakeTube();
    });
    program_->mainWindow().resize(1280, 800);
    QApplication::processEvents();
  }

  DesignState& s() { return program_->station().s; }

  QWidget* Panel(const char* field) {
    for (auto* edit : program_->mainWindow().findChildren<QLineEdit*>(QString::fromLatin1(field)))
      if (edit->isVisible()) return edit;
    return nullptr;
  }
  // The editor of a cell, open.
  QWidget* Cell(const char* gridName, int row, int column) {
    auto* grid = program_->mainWindow().findChild<QTableView*>(QString::fromLatin1(gridName));
    grid->setFocus();
    grid->setCurrentIndex(grid->model()->index(row - 1, column));
    Send(grid, Qt::Key_4, QStringLiteral("4"));
    return grid->viewport()->findChild<QLineEdit*>();
  }
  static void Send(QWidget* to, int key, const QString& text) {
    for (const auto kind : {QEvent::KeyPress, QEvent::KeyRelease}) {
      QKeyEvent event(kind, key, Qt::NoModifier, text);
      QApplication::sendEvent(to, &event);
    }
  }

 private:
  void MakeTube() {
    DesignState& state = s();
    state.txtDiameterLeft = "4";
    state.txtDiameterRight = "4";
    state.txtLengthTotal(0) = "24";
    state.txtBandWidth(0) = "0.25";
    state.txtBandThickness(0) = "0.01";
    state.txtZ2(0) = "28";
    state.txtZ2(1) = "4";
    state.txtNumberOfLayers(0) = "15";
    for (int row = 1; row <= 15; ++row) state.txtWA(row) = "45";
    program_->station().Run("btn2XRow", Event::Press, 1);
  }
  void MakeVessel() {
    Station& station = program_->station();
    DesignState& state = s();
    station.Choose(state.optType(1), "True");
    for (Field* diameter : {&state.txtDia(0), &state.txtDia(1)}) station.Type(*diameter, "4");
    for (Field* opening : {&state.txtPODia(0), &state.txtPODia(1)}) station.Type(*opening, "1");
    constexpr const char* kEnds[] = {"32", "30", "6", "4"};
    for (int i = 0; i <= 3; ++i) station.Type(state.txtZ4(i), kEnds[i]);
    station.Type(state.txtBandWidth(1), "0.25");
    station.Type(state.txtBandThickness(1), "0.012");
    station.Type(state.txtNumberOfLayers(1), "15");
    for (int row = 1; row <= 15; ++row) {
      station.Choose(state.cmbPhiW(row), "180\xB0");
      for (const std::string& entry : std::vector<std::string>(state.cmbPattern(row).entries()))
        if (entry.find('|') != std::string::npos) {
          station.Choose(state.cmbPattern(row), entry);
          break;
        }
    }
    station.Run("btn4XRow", Event::Press, 1);
  }

  Stage stage_;
  Theme theme_{false};
  std::unique_ptr<WindowProgram> program_;
};

// Turns between two digits, so that each key changes the text, and lets the window paint what follows.
void TypeAndPaint(benchmark::State& state, QWidget* field) {
  if (field == nullptr) return state.SkipWithError("no such field");
  bool longer = true;
  for (auto _ : state) {
    if (longer)
      Desktop::Send(field, Qt::Key_5, QStringLiteral("5"));
    else
      Desktop::Send(field, Qt::Key_Backspace, {});
    longer = !longer;
    QApplication::processEvents();
  }
}

void KeyInAnAngle(benchmark::State& state) {
  Desktop desktop(false);
  TypeAndPaint(state, desktop.Cell("pic2DGrid", 8, 2));
}
BENCHMARK(KeyInAnAngle)->Unit(benchmark::kMillisecond);

void KeyInADiameter(benchmark::State& state) {
  Desktop desktop(false);
  TypeAndPaint(state, desktop.Panel("txtDiameterLeft"));
}
BENCHMARK(KeyInADiameter)->Unit(benchmark::kMillisecond);

void KeyInAFourAxisOffset(benchmark::State& state) {
  Desktop desktop(true);
  TypeAndPaint(state, desktop.Panel("txtAdjust(3)"));
}
BENCHMARK(KeyInAFourAxisOffset)->Unit(benchmark::kMillisecond);

// It searches the pattern lists of all 15 rows anew.
void KeyInAFourAxisDiameter(benchmark::State& state) {
  Desktop desktop(true);
  TypeAndPaint(state, desktop.Panel("txtDia(0)"));
}
BENCHMARK(KeyInAFourAxisDiameter)->Unit(benchmark::kMillisecond);

void WindowUp(benchmark::State& state) {
  for (auto _ : state) Desktop desktop(false);
}
BENCHMARK(WindowUp)->Unit(benchmark::kMillisecond);

}  // namespace

}  // namespace torvane

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
