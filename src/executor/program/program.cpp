#include "executor/program/program.h"

namespace torvane::executor {

Program::Program(std::string text) : text_(std::move(text)) {
  for (std::size_t at = 0; at < text_.size();) {
    starts_.push_back(at);
    const auto end = text_.find('\n', at);
    at = end == std::string::npos ? text_.size() : end + 1;
  }
}

std::string_view Program::Line(int number) const {
  if (number < 1 || number > Lines()) return {};
  const auto index = static_cast<std::size_t>(number) - 1;
  const std::size_t end = index + 1 < starts_.size() ? starts_[index + 1] : text_.size();
  std::string_view line(text_.data() + starts_[index], end - starts_[index]);
  if (!line.empty() && line.back() == '\n') line.remove_suffix(1);
  if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
  return line;
}

}  // namespace torvane::executor
