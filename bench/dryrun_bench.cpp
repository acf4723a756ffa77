// The dry run's window while it winds at 1000 times the machine's speed: a thirtieth of a second played and
// the whole window painted, offscreen. QT_SCALE_FACTOR=2 measures it at 200 %.
#include <benchmark/benchmark.h>
#include <time.h>
#include <unistd.h>

#include <QApplication>
#include <filesystem>
#include <fstream>

#include "executor/programs.h"
#include "executor/window/dry_run_window.h"
#include "look/style.h"

namespace torvane::dryrun {

namespace {

using executor::RunState;

std::string Written(const std::string& text) {
  const auto path =
      std::filesystem::temp_directory_path() / ("dryrun-bench-" + std::to_string(getpid()) + ".T2G");
  std::ofstream(path, std::ios::binary) << text;
  return path.string();
}

struct Bench {
  explicit Bench(const std::string& program)
      : path(Written(program)), theme(false), session(executor::Limits()), window(theme, session, {}) {
    QApplication::setStyle(new Style(theme));
    QApplication::setPalette(theme.Palette());
    window.show();
    window.Open(path);
    while (session.proof() == nullptr) QApplication::processEvents();
    session.SetSpeed(1000);
    session.Pause();
    picture = QImage(window.size() * window.devicePixelRatioF(), QImage::Format_ARGB32_Premultiplied);
    picture.setDevicePixelRatio(window.devicePixelRatioF());
  }
  ~Bench() { std::filesystem::remove(path); }

  // No event loop runs: the window's own clock stays out of it.
  void Frame() {
    if (session.player().State() == RunState::Waiting) session.PressButton();
    if (session.player().State() != RunState::Running) session.Run();
    session.Advance(1.0 / 30);
    window.render(&picture);
  }

  std::string path;
  Theme theme;
  Session session;
  DryRunWindow window;
  QImage picture;
};

// Layers of hoops a quarter of an inch wide, round 4 in at 90 revolutions a minute: each is laid from new.
std::string Hoops() {
  constexpr int kLayers = 80;
  std::string text = executor::Begun();
  for (int layer = 1; layer <= kLayers; ++layer)
    text += executor::PassLine(1, 1, "ms", layer, kLayers) + "M4 S90\nG1 F0.375 Z28\nG1 Z4\n";
  return text + executor::Ended();
}

void Run(benchmark::State& state, const std::string& program) {
  Bench bench(program);
  double longest = 0;
  for (auto _ : state) {
    QElapsedTimer frame;
    frame.start();
    bench.Frame();
    longest = std::max(longest, static_cast<double>(frame.nsecsElapsed()) * 1e-6);
  }
  state.counters["longest_ms"] = longest;
}

void FrameOfHelices(benchmark::State& state) {
  Run(state, executor::ProgramOf({.passes = 3600, .step = 0.1}));
}
void FrameOfHoops(benchmark::State& state) { Run(state, Hoops()); }
BENCHMARK(FrameOfHelices)->Unit(benchmark::kMillisecond)->Iterations(300);
BENCHMARK(FrameOfHoops)->Unit(benchmark::kMillisecond)->Iterations(300);

// From the file to the first line on the screen, a long one read in the background; the proof goes on behind
// it.
void OpenProgram(benchmark::State& state) {
  const int passes = static_cast<int>(state.range(0)) / 5;
  const std::string path = Written(executor::ProgramOf({.passes = passes, .step = 360.0 / passes}));
  for (auto _ : state) {
    Theme theme(false);
    Session session{executor::Limits()};
    session.Open(path, {});
    while (session.player().program() == nullptr) QApplication::processEvents();
    benchmark::DoNotOptimize(session.player().course().seconds);
    state.PauseTiming();
    while (session.proof() == nullptr) QApplication::processEvents();
    state.ResumeTiming();
  }
  std::filesystem::remove(path);
}
BENCHMARK(OpenProgram)
    ->Arg(100'000)
    ->Arg(400'000)
    ->Iterations(5)
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);

// Of the window's thread: what others take of a busy computer is not counted.
double ProcessorMilliseconds() {
  timespec now{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) * 1e-6;
}

// How long the window is held up at most while a program is read, followed and proved behind it.
void WindowAnswers(benchmark::State& state) {
  const int passes = static_cast<int>(state.range(0)) / 5;
  const std::string path = Written(executor::ProgramOf({.passes = passes, .step = 360.0 / passes}));
  Theme theme(false);
  Session session{executor::Limits()};
  DryRunWindow window(theme, session, {});
  window.show();
  double longest = 0, waited = 0;
  for (auto _ : state) {
    const auto turn = [&](const auto& does) {
      QElapsedTimer wall;
      wall.start();
      const double before = ProcessorMilliseconds();
      does();
      longest = std::max(longest, ProcessorMilliseconds() - before);
      waited = std::max(waited, static_cast<double>(wall.nsecsElapsed()) * 1e-6);
    };
    turn([&] { window.Open(path); });
    session.Pause();
    while (session.proof() == nullptr) turn([] { QApplication::processEvents(); });
  }
  state.counters["longest_wall_ms"] = waited;
  state.counters["longest_ms"] = longest;
  std::filesystem::remove(path);
}
BENCHMARK(WindowAnswers)->Arg(5'000'000)->Iterations(2)->UseRealTime()->Unit(benchmark::kMillisecond);

}  // namespace

}  // namespace torvane::dryrun

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
