#include "gcode/program.h"

namespace torvane {

namespace {

// A line of a later pass is seldom shorter.
constexpr double kBytesOfLine = 12;

std::string Count(double number) {
  std::string digits = FormatNumberText({}, number, "#0"_mask);
  for (int i = static_cast<int>(digits.size()) - 3; i > 0; i -= 3)
    digits.insert(static_cast<std::size_t>(i), 1, ',');
  return digits;
}

}  // namespace

Program::Program(NumberSigns signs, ProgramProgress* progress, ProgramLimits limits)
    : signs_(signs), progress_(progress), limits_(limits) {}

std::string& Program::Room() {
  if (blocks_.empty() || blocks_.back().size() > kBlock - kBlock / 8) {
    blocks_.emplace_back();
    blocks_.back().reserve(kBlock);
  }
  return blocks_.back();
}

void Program::Tame(std::string& out, std::size_t from) const {
  bool inComment = out.find('[', lineStart_) < from;
  for (std::size_t i = from; i < out.size(); ++i) {
    char& c = out[i];
    if (c != '[' && c != ']') {
      if (EndsItsPart(c)) c = ' ';
    } else if (inComment) {
      c = c == '[' ? '(' : ')';
    } else {
      inComment = c == '[';
    }
  }
}

void Program::BeginLayer(int layer, Number passes, int linesOfPass) {
  layer_ = layer;
  const Number lines = passes * linesOfPass;
  if (!refusal_.empty() ||
      (holds(lines_ + lines <= limits_.lines) && holds(bytes_ + lines * kBytesOfLine <= limits_.bytes)))
    return;
  refusal_ = "Layer " + std::to_string(layer) + " has ";
  refusal_ += lines.good() ? Count(passes.value()) + " passes and would make " + Count(lines.value()) +
                                 " lines or more."
                           : "more passes than can be counted.";
  refusal_ += " A program holds " + Count(limits_.lines) + " lines and " + Count(limits_.bytes) +
              " characters at most.";
}

bool Program::GoesOn(double share) {
  if (!refusal_.empty()) return false;
  if (lines_ > limits_.lines || bytes_ > limits_.bytes) {
    refusal_ = "With layer " + std::to_string(layer_) + " the program passes " + Count(lines_) +
               " lines. A program holds " + Count(limits_.lines) + " lines and " + Count(limits_.bytes) +
               " characters at most.";
    return false;
  }
  if (progress_ == nullptr || passesToReport_-- > 0) return true;
  passesToReport_ = kPassesBetweenReports;
  if (progress_->GoOn(share)) return true;
  cancelled_ = true;
  refusal_ = "Cancelled.";
  return false;
}

std::vector<std::string_view> Program::Text() const { return {blocks_.begin(), blocks_.end()}; }

}  // namespace torvane
