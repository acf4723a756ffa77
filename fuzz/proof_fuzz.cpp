// A short text grown into a long program: its proof must not take much more time for a line than that of one
// a tenth as long. What stands between "{" and "}" is repeated; there '#' is another number each time, '@'
// counts from 1.
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <functional>
#include <string>
#include <string_view>

#include "executor/proof/report.h"

namespace {

// Lines to grow to, ten times as many from one to the next as long as there is a doubt. Each sixteenth text
// begins with more: what grows slowly shows there alone.
constexpr std::size_t kShort = 30, kLongest = 300'000;
constexpr std::size_t kCharacters = 50;  // of a line, on the whole
// By how much more than in proportion the time may grow for ten times the lines: logarithms, caches, other
// programs on the computer.
constexpr double kDoubtful = 1.2, kTooMuch = 2;
constexpr double kNoMatter = 1;    // seconds
constexpr double kNoDoubt = 0.02;  // seconds that no clock tells apart

class Grower {
 public:
  Grower(std::string_view recipe, std::size_t lines) : recipe_(recipe), most_(lines) {}

  std::string Grow() {
    const auto open = recipe_.find('{');
    const auto close = recipe_.find('}', open);
    if (close == std::string_view::npos) return std::string(recipe_);
    Add(recipe_.substr(0, open));
    const std::string_view block = recipe_.substr(open + 1, close - open - 1);
    for (count_ = 1; lines_ < most_ && program_.size() < most_ * kCharacters; ++count_) Add(block);
    Add(recipe_.substr(close + 1));
    return program_;
  }

 private:
  void Add(std::string_view text) {
    for (const char c : text) {
      if (c == '@') {
        program_ += std::to_string(count_);
      } else if (c == '#') {
        dice_ = dice_ * 6364136223846793005U + 1442695040888963407U;
        const auto hundredths = static_cast<unsigned>((dice_ >> 33) % 36000);
        program_ += std::to_string(hundredths / 100) + '.' + std::to_string(hundredths % 100);
      } else {
        program_ += c;
        if (c == '\n') ++lines_;
      }
    }
    if (count_ > 0 && (text.empty() || text.back() != '\n')) {
      program_ += '\n';
      ++lines_;
    }
  }

  std::string_view recipe_;
  std::size_t most_;
  std::string program_;
  std::uint64_t dice_ = 1;
  std::size_t count_ = 0, lines_ = 0;
};

// Seconds of processor time for the proof of the text grown to that many lines.
double Prove(std::string_view recipe, std::size_t lines) {
  using namespace torvane::executor;
  const std::string program = Grower(recipe, lines).Grow();
  const std::clock_t begun = std::clock();
  if (Report(Prove(program, Limits())).empty()) std::abort();
  return static_cast<double>(std::clock() - begun) / CLOCKS_PER_SEC;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view recipe(reinterpret_cast<const char*>(data), size);
  std::size_t lines = std::hash<std::string_view>()(recipe) % 16 == 0 ? kShort * 10 : kShort;
  double few = Prove(recipe, lines);
  if (recipe.find('{') == std::string_view::npos) return 0;
  while (lines < kLongest) {
    lines *= 10;
    const double more = Prove(recipe, lines);
    if (more <= kDoubtful * 10 * few || more <= kNoDoubt) return 0;
    if (more > kTooMuch * 10 * few + kNoMatter) {
      std::fprintf(stderr, "%zu lines took %.2f s, %zu lines %.2f s\n", lines / 10, few, lines, more);
      std::abort();
    }
    few = more;
  }
  return 0;
}
