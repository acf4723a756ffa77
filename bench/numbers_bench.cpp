// Number text against the standard library's nearest routines, beside each other.
#include <benchmark/benchmark.h>

#include <array>
#include <charconv>
#include <cstdio>
#include <random>
#include <vector>

#include "text/write_number.h"

namespace torvane {
namespace {

std::vector<double> Values() {
  std::mt19937 random(1);
  std::uniform_real_distribution<double> any(0, 1000);
  std::vector<double> values(1024);
  for (double& value : values) value = any(random);
  return values;
}

std::vector<std::string> Texts() {
  std::vector<std::string> texts;
  for (const double value : Values()) texts.push_back(FormatNumberText({}, value, "##0.000"_mask));
  return texts;
}

void FormatUnderMask(benchmark::State& state) {
  const auto values = Values();
  std::size_t i = 0;
  for (auto _ : state) benchmark::DoNotOptimize(FormatNumberText({}, values[i++ % 1024], "##0.000"_mask));
}
BENCHMARK(FormatUnderMask);

// As a program takes it: into the text of its line.
void WriteUnderMask(benchmark::State& state) {
  const auto values = Values();
  std::array<char, kLongestNumberText> text;
  std::size_t i = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(WriteNumberText(text.data(), {}, values[i++ % 1024], "##0.000"_mask));
    benchmark::ClobberMemory();
  }
}
BENCHMARK(WriteUnderMask);

// The digits alone: neither sign nor point, and rounded as the machine does.
void WriteScaledWholeNumber(benchmark::State& state) {
  const auto values = Values();
  std::array<char, 24> text;
  std::size_t i = 0;
  for (auto _ : state) {
    const auto scaled = static_cast<std::int64_t>(values[i++ % 1024] * 1000 + 0.5);
    benchmark::DoNotOptimize(std::to_chars(text.data(), text.data() + text.size(), scaled).ptr);
    benchmark::ClobberMemory();
  }
}
BENCHMARK(WriteScaledWholeNumber);

void FormatBySnprintf(benchmark::State& state) {
  const auto values = Values();
  std::array<char, 64> text;
  std::size_t i = 0;
  for (auto _ : state)
    benchmark::DoNotOptimize(std::snprintf(text.data(), text.size(), "%.3f", values[i++ % 1024]));
}
BENCHMARK(FormatBySnprintf);

void ReadNumber(benchmark::State& state) {
  const auto texts = Texts();
  std::size_t i = 0;
  for (auto _ : state) benchmark::DoNotOptimize(ReadNumberText({}, texts[i++ % 1024]));
}
BENCHMARK(ReadNumber);

void ReadByFromChars(benchmark::State& state) {
  const auto texts = Texts();
  std::size_t i = 0;
  for (auto _ : state) {
    const std::string& text = texts[i++ % 1024];
    double value = 0;
    benchmark::DoNotOptimize(std::from_chars(text.data(), text.data() + text.size(), value));
    benchmark::DoNotOptimize(value);
  }
}
BENCHMARK(ReadByFromChars);

}  // namespace
}  // namespace torvane
