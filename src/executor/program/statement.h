// The statements of a program and the one table that says what each looks like and means.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace torvane::executor {

enum class Command : std::uint8_t {
  Move,
  Ellipse,
  Dwell,
  Withdraw,
  Inches,
  Millimetres,
  Home,
  Endless,
  Absolute,
  Wait,
  Turn,
  Stop,
  MotorsOn,
  MotorsOff,
  SaveFar,
  SaveHome,
  Notice,
  BuildTime,
  Display,
  NumberForm,
  Identity,
  End,
};

// The parameter words of a statement: a capital letter and a number each.
class Words {
 public:
  // False if the letter was there already.
  bool Put(char letter, double value, bool bare);
  bool Has(char letter) const { return (given_ >> Index(letter) & 1U) != 0U; }
  // Nothing stands behind the letter; its value is 0.
  bool IsBare(char letter) const { return (bare_ >> Index(letter) & 1U) != 0U; }
  // 0 where the word is missing.
  double At(char letter) const { return value_[Index(letter)]; }
  bool Empty() const { return given_ == 0U; }

 private:
  static std::size_t Index(char letter) { return static_cast<std::size_t>(letter - 'A'); }

  std::array<double, 26> value_{};
  std::uint32_t given_ = 0, bare_ = 0;
};

struct Statement {
  Command command = Command::Absolute;
  Words words;
  double secondZ = 0;     // of an endless run
  std::string_view body;  // what stands behind the command word, comment stripped
};

// How a command is written.
struct Form {
  std::string_view word;
  Command command;
  std::string_view needs;  // letters that must be there, "*" for any one of `may`
  std::string_view may;    // letters that can be there besides
  std::string_view bare;   // letters that may stand with nothing behind them
  std::string_view sentence;
};

// Every command that there is.
std::span<const Form> Forms();

// Reads one statement, comment stripped. False leaves in `trouble` why it cannot be read.
bool ReadStatement(std::string_view text, char decimal, Statement& statement, std::string& trouble);

}  // namespace torvane::executor
