// A program in memory with its lines found, for whoever shows it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace torvane::executor {

class Program {
 public:
  // Any bytes will do.
  explicit Program(std::string text);
  // Views into the text are handed out.
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;

  std::string_view text() const { return text_; }
  int Lines() const { return static_cast<int>(starts_.size()); }
  // From 1, without its end; empty for a line that is not there.
  std::string_view Line(int number) const;

 private:
  std::string text_;
  std::vector<std::size_t> starts_;
};

}  // namespace torvane::executor
