// Reads a written program as its controller would, with the controller's digits, rules and kind of numbers.
// It shares nothing with the writer but the machine's file.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/result.h"
#include "post/machine/machine.h"
#include "post/motion/event.h"

namespace torvane::post {

// What one line does.
struct Step {
  enum class Kind : std::uint8_t { Nothing, Move, Rapid, Pause, Wait, End };
  Kind kind = Kind::Nothing;
  double seconds = 0;  // of a move or a pause
};

class Player {
 public:
  // The machine stands at its limit switches.
  explicit Player(const Machine& machine);

  // A line without its end. Refused, with what the controller would say to it.
  Result<Step> Take(std::string_view line);
  // Where the axes stand, the mandrel with all its turns.
  Place At() const;
  // The finest difference that the controller keeps where the axis stands, in its own unit.
  double StepOf(Axis axis) const;

 private:
  struct Word {
    char letter = ' ';
    double value = 0;
  };

  Outcome CheckBytes(std::string_view line) const;
  // Takes comments off, or refuses them.
  Outcome Strip(std::string_view& line, std::string& code) const;
  Outcome ReadWords(const std::string& code, std::vector<Word>& words) const;
  std::optional<double> ReadValue(std::string_view digits) const;
  Outcome TakeCode(const Word& word, Step& step);
  Result<Step> Act(const std::vector<Word>& words);
  Outcome SetMandrel(const std::vector<Word>& words);
  Result<Step> Travel(const std::vector<Word>& words, bool rapid);
  Result<double> SecondsFor(const std::array<double, kAxes>& way, std::optional<double> feed);
  double Kept(double value) const;
  std::optional<Axis> AxisOf(char letter) const;

  const Machine& machine_;
  std::array<double, kAxes> at_{};  // coordinates as the controller keeps them
  double offset_ = 0;               // of the mandrel's coordinate against the axis' own
  double behind_ = 0;               // degrees of the mandrel before its native coordinate was set
  int motion_ = -1;                 // G0, G1; -1 none yet
  bool inverse_ = false;
  std::optional<double> feed_;
  bool absolute_ = false, unit_ = false, ended_ = false;
};

}  // namespace torvane::post
