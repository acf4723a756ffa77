#include "post/write/dialect.h"

#include <algorithm>
#include <cmath>

#include "executor/program/number.h"

namespace torvane::post {

const Dialect& DialectOf(Controller controller) {
  switch (controller) {
    case Controller::LinuxCnc:
      return LinuxCncDialect();
    case Controller::Grbl:
      return GrblDialect();
    case Controller::GrblHal:
      return GrblHalDialect();
    case Controller::Marlin:
      break;
  }
  return MarlinDialect();
}

std::string Harmless(std::string_view text) {
  constexpr std::string_view kOthers = " ,.:+-=/";
  // A line has room for the word in front of it and the number of the line.
  constexpr std::size_t kLongest = 60;
  std::string plain;
  for (const char c : text.substr(0, kLongest)) {
    const bool kept = (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') ||
                      kOthers.find(c) != std::string_view::npos;
    const char shown = kept ? c : ' ';
    if (shown != ' ' || (!plain.empty() && plain.back() != ' ')) plain += shown;
  }
  while (!plain.empty() && plain.back() == ' ') plain.pop_back();
  return plain;
}

std::string PauseLine(const Machine& machine, double seconds) {
  switch (machine.dwell) {
    case Dwell::PMilliseconds:
      return "G4 P" + executor::Fixed(seconds * 1000, 0);
    case Dwell::SSeconds:
      return "G4 S" + executor::Fixed(seconds, 3);
    case Dwell::PSeconds:
      break;
  }
  return "G4 P" + executor::Fixed(seconds, 3);
}

std::string Digits(double value, int digits) {
  // Some controllers read eight digits, zeros in front included.
  constexpr int kMostDecimals = 7;
  const int whole = value > 0 ? static_cast<int>(std::floor(std::log10(value))) + 1 : 1;
  std::string text = executor::Fixed(value, std::clamp(digits - whole, 0, kMostDecimals));
  if (text.find('.') == std::string::npos) return text;
  text.erase(text.find_last_not_of('0') + 1);
  if (text.back() == '.') text.pop_back();
  return text;
}

}  // namespace torvane::post
