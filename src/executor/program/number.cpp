#include "executor/program/number.h"

#include <charconv>
#include <cmath>
#include <cstdint>

namespace torvane::executor {

namespace {

constexpr std::size_t kLongest = 60;
// A hoop row under band-width spacing has dwell angles of this order; beyond it no length or angle is meant.
constexpr double kLargest = 1e13;
// Nor is a speed below this one; times stay numbers then.
constexpr double kSmallest = 1e-9;

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// Nearly every number of a program: up to fifteen digits, and a sign between them. The digits are a whole
// number that a double holds, and so is the power of ten, so that their quotient is the nearest one.
std::optional<double> ReadShort(std::string_view text, char decimal) {
  constexpr std::size_t kMostDigits = 15;
  constexpr double kPowersOfTen[] = {1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                     1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
  const bool negative = text.front() == '-';
  if (negative) text.remove_prefix(1);
  if (text.empty() || text.size() > kMostDigits) return std::nullopt;
  std::int64_t digits = 0;
  std::size_t decimals = 0;
  bool point = false;
  for (const char c : text) {
    if (IsDigit(c)) {
      digits = digits * 10 + (c - '0');
      decimals += point ? 1 : 0;
    } else if (c == decimal && !point) {
      point = true;
    } else {
      return std::nullopt;
    }
  }
  const double value = static_cast<double>(digits) / kPowersOfTen[decimals];
  return negative ? -value : value;
}

std::optional<double> Meant(double value) {
  if (!std::isfinite(value) || std::abs(value) > kLargest) return std::nullopt;
  return std::abs(value) < kSmallest ? 0 : value;
}

}  // namespace

std::optional<double> ReadNumber(std::string_view text, char decimal) {
  if (text.empty() || text.size() > kLongest) return std::nullopt;
  if (const auto value = ReadShort(text, decimal)) return Meant(*value);
  std::string plain;
  std::size_t at = 0;
  if (text[at] == '-' || text[at] == '+') plain += text[at++] == '-' ? "-0" : "0";
  bool point = false;
  for (; at < text.size(); ++at) {
    const char c = text[at];
    if (IsDigit(c)) {
      plain += c;
    } else if (!point && (c == decimal || (decimal == ',' && c == '.'))) {
      point = true;
      if (plain.empty()) plain = "0";
      plain += '.';
    } else {
      break;
    }
  }
  if (at < text.size()) {
    // A very small or large plain number is written with an exponent: "1E-05".
    if ((text[at] != 'E' && text[at] != 'e') || plain.empty()) return std::nullopt;
    plain += 'e';
    if (++at < text.size() && (text[at] == '+' || text[at] == '-')) {
      if (text[at] == '-') plain += '-';
      ++at;
    }
    if (at == text.size()) return std::nullopt;
    for (; at < text.size(); ++at) {
      if (!IsDigit(text[at])) return std::nullopt;
      plain += text[at];
    }
  }
  double value = 0;
  const auto [end, error] = std::from_chars(plain.data(), plain.data() + plain.size(), value);
  if (error != std::errc() || end != plain.data() + plain.size()) return std::nullopt;
  return Meant(value);
}

std::string Fixed(double value, int decimals) {
  char text[64];
  const auto [end, error] =
      std::to_chars(text, text + sizeof text, value, std::chars_format::fixed, decimals);
  if (error != std::errc()) return "beyond measure";
  const std::string_view shown(text, static_cast<std::size_t>(end - text));
  const bool zero = shown.find_first_not_of("-0.") == std::string_view::npos;
  return std::string(zero && shown[0] == '-' ? shown.substr(1) : shown);
}

std::string Counted(long long count, std::string_view one, std::string_view more) {
  return std::to_string(count) + ' ' + std::string(count == 1 ? one : more);
}

}  // namespace torvane::executor
