// A program on its way: a text in memory until it is whole.
#pragma once

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "text/number_text.h"

namespace torvane {

// Follows a program while it is formed.
class ProgramProgress {
 public:
  virtual ~ProgramProgress() = default;
  virtual void Begin() {}
  // `share` of the program is formed, 0 to 1. False cancels it.
  virtual bool GoOn(double share) = 0;
  // The program is written, or will not be.
  virtual void End() {}
};

// The most that one program may hold.
struct ProgramLimits {
  double lines = 10'000'000;
  double bytes = 1'000'000'000;
};

// Lines of a program, each ended by CR LF. A line is written as a row of parts: what the dialect spells,
// texts, whole numbers, numbers under a mask or in plain text. A line of which a part failed is left out. A
// text stays within its part, whatever it holds: its control characters become blanks, and in a comment its
// square brackets become round ones.
class Program {
 public:
  explicit Program(NumberSigns signs, ProgramProgress* progress = nullptr, ProgramLimits limits = {});

  template <class... Parts>
  void Line(const Parts&... parts) {
    std::string& block = Room();
    lineStart_ = block.size();
    if ((Append(block, parts) && ...)) {
      block += "\r\n";
      ++lines_;
      bytes_ += static_cast<double>(block.size() - lineStart_);
    } else {
      block.resize(lineStart_);
    }
  }

  // Before a layer is begun: refuses the program if `passes` passes of at least `linesOfPass` lines would
  // pass the limits, or are too many to be counted.
  void BeginLayer(int layer, Number passes, int linesOfPass);
  // Asked before each pass, `share` of the program being formed. False if the program was refused or
  // cancelled: its writers stop.
  bool GoesOn(double share);

  NumberSigns signs() const { return signs_; }
  // Whoever follows the program has ended it.
  bool cancelled() const { return cancelled_; }
  // Empty while nothing stands against the program, else the reason for the operator.
  const std::string& refusal() const { return refusal_; }
  // So far, empty ones included.
  double lines() const { return lines_; }
  // The text in its blocks, one behind the other.
  std::vector<std::string_view> Text() const;

 private:
  static constexpr std::size_t kBlock = 1 << 20;
  static constexpr int kPassesBetweenReports = 256;

  std::string& Room();
  // Spelled by the dialect itself.
  bool Append(std::string& out, const char* literal) const {
    out += literal;
    return true;
  }
  bool Append(std::string& out, std::string_view text) const {
    const std::size_t from = out.size();
    out += text;
    if (std::any_of(text.begin(), text.end(), EndsItsPart)) Tame(out, from);
    return true;
  }
  static bool EndsItsPart(char c) {
    return static_cast<unsigned char>(c) < ' ' || c == 0x7F || c == '[' || c == ']';
  }
  // What of a text from `from` on could end its line or its comment.
  void Tame(std::string& out, std::size_t from) const;
  bool Append(std::string& out, int number) const {
    char text[12];
    out.append(text, std::to_chars(text, text + sizeof text, number).ptr);
    return true;
  }
  bool Append(std::string& out, const MaybeText& text) const {
    return Append(out, std::string_view(text.text)) && text.good;
  }
  bool Append(std::string& out, const Masked& number) const {
    if (!number.value.good()) return false;
    AppendNumberText(out, signs_, number.value.value(), number.mask);
    return true;
  }
  bool Append(std::string& out, const Plain& number) const {
    if (!number.value.good()) return false;
    AppendPlainNumber(out, signs_, number.value.value());
    return true;
  }

  NumberSigns signs_;
  ProgramProgress* progress_;
  ProgramLimits limits_;
  std::vector<std::string> blocks_;
  std::size_t lineStart_ = 0;  // of the line in hand, in its block
  double lines_ = 0;
  double bytes_ = 0;
  int layer_ = 0;
  int passesToReport_ = 0;
  std::string refusal_;
  bool cancelled_ = false;
};

}  // namespace torvane
