// A program, line by line.
#pragma once

#include <string>
#include <string_view>

#include "executor/program/statement.h"

namespace torvane::executor {

struct Line {
  enum class Kind { Blank, Statement, Unreadable };

  int number = 0;  // from 1
  Kind kind = Kind::Blank;
  std::string_view text;     // without its line end
  std::string_view comment;  // from the first bracket on; for the operator
  Statement statement;
  std::string trouble;  // of an unreadable line
};

// Takes any bytes. Lines end in CR LF or LF. The lines' texts live as long as the program's.
class Reader {
 public:
  Reader() = default;
  explicit Reader(std::string_view program) : rest_(program) {}

  // What comes behind the text read so far, for a program that is not in memory as a whole; whole lines.
  void GoOn(std::string_view lines) { rest_ = lines; }

  // False at the end.
  bool Next(Line& line);
  // Of the last line read; 0 before the first.
  int Number() const { return number_; }
  // Bytes that are still to be read.
  std::size_t Left() const { return rest_.size(); }

 private:
  std::string_view rest_;
  char decimal_ = '.';  // until a C statement says otherwise
  int number_ = 0;
};

// The fields of a display statement. Nothing moves by them; they tell which pass of which layer begins.
struct Display {
  std::string_view stage, message, method;
  std::string_view rpm, carriageSpeed, windingAngle, minutesLeft;  // as they stand, for the operator
  bool hasLayer = false;
  double layer = 0, layers = 0;  // "2_of_4"; `layers` is 0 where only one number stands
  double pass = 0, passes = 0;
  bool hasBand = false;
  double bandInches = 0;    // 0 where the field is missing or no number
  double leftDiameter = 0;  // in the program's unit
  double stop = 0;          // one end of the layer, likewise; 0 where it is not told
};

// `body` is what stands behind the command word. A message (GM) has no other field; of a field given twice
// the last one counts.
Display ReadDisplay(std::string_view body);

}  // namespace torvane::executor
