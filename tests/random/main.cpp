// Lets a random operator work on a station in memory. The seed is printed first: given back, it replays the
// same doings.
#include <signal.h>
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "random/random_operator.h"

namespace {

// Far above any doing, so that what gets here hangs.
constexpr unsigned kPatience = 120;  // seconds

void TellHang(int) {
  constexpr char kText[] = "random operator: the last doing hangs; replay it with --trace\n";
  if (write(STDERR_FILENO, kText, sizeof kText - 1) < 0) _exit(3);
  _exit(2);
}

std::vector<torvane::RandomOperator::Sample> SamplesOf(const std::filesystem::path& folder) {
  std::vector<torvane::RandomOperator::Sample> samples;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    if (entry.path().extension() != ".t2d" && entry.path().extension() != ".t4d") continue;
    std::ifstream file(entry.path(), std::ios::binary);
    samples.push_back(
        {entry.path().filename().string(), std::string(std::istreambuf_iterator<char>(file), {})});
  }
  std::sort(samples.begin(), samples.end(), [](const auto& a, const auto& b) { return a.name < b.name; });
  return samples;
}

}  // namespace

int main(int argc, char** argv) {
  long events = 10'000;
  std::uint64_t seed = 1;
  bool trace = false;
  CLI::App app("Random doings of every kind on a station in memory");
  app.add_option("--events", events, "Doings")->capture_default_str();
  app.add_option("--seed", seed, "Where the doings begin")->capture_default_str();
  app.add_flag("--trace", trace, "Print each doing");
  CLI11_PARSE(app, argc, argv);

  constexpr long kBetweenChecks = 100;
  signal(SIGALRM, TellHang);
  std::printf("random operator: %ld events, seed %llu\n", events, static_cast<unsigned long long>(seed));
  std::fflush(stdout);
  const auto start = std::chrono::steady_clock::now();
  torvane::RandomOperator someone(seed, SamplesOf(SOURCE_FOLDER "/samples"));
  long event = 0;
  try {
    for (event = 1; event <= events; ++event) {
      alarm(kPatience);
      someone.Do();
      if (trace) std::fprintf(stderr, "%ld: %s\n", event, someone.doing().c_str());
      if (event % kBetweenChecks == 0) someone.CheckDesign();
    }
  } catch (const std::exception& broken) {
    std::fprintf(stderr, "random operator: event %ld, %s: %s\n", event, someone.doing().c_str(),
                 broken.what());
    std::fprintf(stderr, "replay: --seed %llu --events %ld --trace\n", static_cast<unsigned long long>(seed),
                 event);
    return 1;
  }
  const std::chrono::duration<double> took = std::chrono::steady_clock::now() - start;
  std::printf("random operator: nothing found in %.1f s, at most %zu fields drawn in one event\n",
              took.count(), someone.mostRepaints());
  return 0;
}
