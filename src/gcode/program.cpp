#include "gcode/program.h"

#include <cassert>

#include "text/write_number.h"

namespace torvane {

namespace {

std::string Count(double number) {
  std::string digits = FormatNumberText({}, number, "#0"_mask);
  for (int i = static_cast<int>(digits.size()) - 3; i > 0; i -= 3)
    digits.insert(static_cast<std::size_t>(i), 1, ',');
  return digits;
}

}  // namespace

Program::Program(NumberSigns signs, ProgramProgress* progress, ProgramLimits limits, Taker taker)
    : signs_(signs), progress_(progress), limits_(limits), taker_(std::move(taker)) {}

char* Program::Room(std::size_t bytes) {
  if (taker_ && !blocks_.empty() && blocks_.back().room - blocks_.back().size < bytes)
    HandOver(blocks_.back());
  if (blocks_.empty() || blocks_.back().room - blocks_.back().size < bytes) {
    if (taker_) blocks_.clear();
    blocks_.emplace_back(std::max(kBlock, bytes));
  }
  return blocks_.back().text.get() + blocks_.back().size;
}

void Program::Close(char* end, int lines) {
  Block& block = blocks_.back();
  const auto size = static_cast<std::size_t>(end - block.text.get());
  bytes_ += static_cast<double>(size - block.size);
  lines_ += lines;
  block.size = size;
}

void Program::HandOver(Block& block) {
  if (refusal_.empty() && block.size > 0 && !taker_({block.text.get(), block.size}))
    refusal_ = "There is no room for the program.";
  block.size = 0;
}

bool Program::End() {
  if (taker_ && !blocks_.empty()) HandOver(blocks_.back());
  return refusal_.empty();
}

void Program::TakeLine() {
  if (spelled_ == nullptr) {
    assert(gapsOfLine_.empty());
    Close(std::copy(line_.begin(), line_.end(), Room(line_.size())), 1);
    return;
  }
  const std::size_t line = spelled_->text_.size();
  spelled_->text_ += line_;
  ++spelled_->lines_;
  for (const Passage::Gap& gap : gapsOfLine_)
    spelled_->gaps_.push_back({gap.slot, line + gap.at, line, spelled_->text_.size()});
}

void Program::Repeat(const Passage& passage, std::span<const Number> numbers) {
  const std::string& text = passage.text_;
  char* out = Room(text.size() + passage.gaps_.size() * kLongestNumberText);
  char* line = out;  // where the line of the last gap begins
  std::size_t from = 0;
  int lines = passage.lines_;
  for (const Passage::Gap& gap : passage.gaps_) {
    if (gap.at < from) continue;  // its line is left out
    if (gap.line >= from) line = out + (gap.line - from);
    out = std::copy(text.data() + from, text.data() + gap.at, out);
    from = gap.at;
    const Number number = numbers[gap.slot.number];
    if (number.good()) {
      out = WriteNumberText(out, signs_, number.value(), gap.slot.mask);
    } else if (!gap.slot.blank) {
      out = line;
      from = gap.behindLine;
      --lines;
    }
  }
  Close(std::copy(text.data() + from, text.data() + text.size(), out), lines);
}

void Program::Tame(std::size_t from) {
  bool inComment = line_.find('[') < from;
  for (std::size_t i = from; i < line_.size(); ++i) {
    char& c = line_[i];
    if (c != '[' && c != ']') {
      if (EndsItsPart(c)) c = ' ';
    } else if (inComment) {
      c = c == '[' ? '(' : ')';
    } else {
      inComment = c == '[';
    }
  }
}

void Program::ExpectLayer(int layer, Number passes, int linesOfPass, double bytesOfPass) {
  if (holds(passes < 1)) return;
  const Number lines = passes * linesOfPass;
  expectedLines_ = expectedLines_ + lines;
  expectedBytes_ = expectedBytes_ + passes * bytesOfPass;
  if (!refusal_.empty() || (holds(expectedLines_ <= limits_.lines) && holds(expectedBytes_ <= limits_.bytes)))
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

std::vector<std::string_view> Program::Text() const {
  std::vector<std::string_view> text;
  for (const Block& block : blocks_) text.emplace_back(block.text.get(), block.size);
  return text;
}

}  // namespace torvane
