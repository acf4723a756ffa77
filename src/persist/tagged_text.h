// Design files as text: lines of one named value each.
#pragma once

#include <iterator>
#include <string>
#include <string_view>
#include <vector>

#include "design/state.h"

namespace torvane {

// Walks over the lines of a file, whatever ends them; a byte-order mark in front is passed over. Each line is
// found when it is asked for: a file of line ends alone takes no more room than any other.
class LinesOf {
 public:
  explicit LinesOf(std::string_view text);

  class Iterator {
   public:
    explicit Iterator(std::string_view rest) : rest_(rest) {}
    std::string_view operator*() const { return rest_.substr(0, End()); }
    Iterator& operator++();
    bool operator==(std::default_sentinel_t) const { return rest_.empty(); }

   private:
    std::size_t End() const { return rest_.find_first_of("\r\n"); }

    std::string_view rest_;
  };
  Iterator begin() const { return Iterator(text_); }
  static std::default_sentinel_t end() { return {}; }

 private:
  std::string_view text_;
};

// The tag of a line with its brackets: what stands up to its first ">"; empty without one.
std::string_view TagOf(std::string_view line);
// Tags are the same in either case; `name` stands without the brackets.
bool IsTag(std::string_view tag, std::string_view name);

// The value of a tag line: between the first ">" and the next "<", empty if there is no such bracket. Its
// decimal signs are turned to the computer's if the file was written with the other one, in texts as in
// numbers. Leaves the value's fields in `gTagFields`.
std::string GetTagValue(DesignState& s, std::string_view line);

// Splits a list at its ";", or at its "," if it holds no ";".
void SplitListToFields(DesignState& s, std::string_view text);
void SplitTagFields(DesignState& s, std::string_view text);

// Whether a character would end a value where it stands: control characters end its line, "<" begins a tag.
bool EndsValue(char c);

// Lines of a file that is to be written. What would end a value stands in it as a blank.
class TaggedText {
 public:
  void EmptyLine() { text_ += "\r\n"; }
  void Comment(std::string_view comment);
  // A value that failed leaves its line out.
  void Tag(std::string_view tag, const MaybeText& value);
  const std::string& text() const { return text_; }

 private:
  void Value(std::string_view text);

  std::string text_;
};

// The fields of a list joined by ";". One that holds a ";" itself has a blank in its place, so that each
// field stays in its place.
std::string JoinList(const std::vector<std::string>& fields);

}  // namespace torvane
