// A program on its way: a text in memory until it is whole, or handed over block by block.
#pragma once

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "text/mask.h"
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

// The part of a line that is another number each time.
struct Slot {
  std::size_t number = 0;  // which of those that are told
  Mask mask{};
  bool blank = false;  // a failed number leaves the place empty; else it costs the line
};

// Lines that return again and again with other numbers in the same places, as those of a pass do. Spelled by
// Program::Spelled; Program::Repeat fills the slots.
class Passage {
 public:
  int lines() const { return lines_; }
  // Without what its slots are filled with.
  std::size_t bytes() const { return text_.size(); }

 private:
  friend class Program;
  struct Gap {
    Slot slot;
    std::size_t at = 0;
    std::size_t line = 0, behindLine = 0;  // where its line begins and where the next one does
  };

  std::string text_;
  std::vector<Gap> gaps_;
  int lines_ = 0;
};

// Lines of a program, each ended by CR LF. A line is written as a row of parts: what the dialect spells,
// texts, whole numbers, numbers under a mask or in plain text. A line of which a part failed is left out. A
// text stays within its part, whatever it holds: its control characters become blanks, and in a comment its
// square brackets become round ones.
class Program {
 public:
  // Takes a block of the text; false if there is no room for it.
  using Taker = std::function<bool(std::string_view)>;

  // With a taker the blocks do not stay: it gets each when it is full, and the last one from End.
  explicit Program(NumberSigns signs, ProgramProgress* progress = nullptr, ProgramLimits limits = {},
                   Taker taker = nullptr);

  template <class... Parts>
  void Line(const Parts&... parts) {
    line_.clear();
    gapsOfLine_.clear();
    if (!(Append(parts) && ...)) return;
    line_ += "\r\n";
    TakeLine();
  }

  // The lines that `spell` writes, among whose parts are slots; none of them comes into the program.
  template <class Spell>
  Passage Spelled(const Spell& spell) {
    Passage passage;
    spelled_ = &passage;
    spell();
    spelled_ = nullptr;
    return passage;
  }
  // Writes the lines of a passage with these numbers in its slots.
  void Repeat(const Passage& passage, std::span<const Number> numbers);

  // Before anything is written: refuses the program if the passes of the layers told so far would pass the
  // limits, or are too many to be counted. A pass has so many lines and bytes at least.
  void ExpectLayer(int layer, Number passes, int linesOfPass, double bytesOfPass);
  void BeginLayer(int layer) { layer_ = layer; }
  // Asked before each pass, `share` of the program being formed. False if the program was refused or
  // cancelled: its writers stop.
  bool GoesOn(double share);
  // Hands the last block over. False if anything stands against the program.
  bool End();

  NumberSigns signs() const { return signs_; }
  // Whoever follows the program has ended it.
  bool cancelled() const { return cancelled_; }
  // Empty while nothing stands against the program, else the reason for the operator.
  const std::string& refusal() const { return refusal_; }
  // So far, empty ones included.
  double lines() const { return lines_; }
  // The text in its blocks, one behind the other; of those that were handed over nothing.
  std::vector<std::string_view> Text() const;

 private:
  static constexpr std::size_t kBlock = 1 << 18;
  static constexpr int kPassesBetweenReports = 256;

  struct Block {
    explicit Block(std::size_t bytes) : text(std::make_unique_for_overwrite<char[]>(bytes)), room(bytes) {}

    std::unique_ptr<char[]> text;
    std::size_t size = 0, room;
  };

  // The end of a block that has room for so many bytes.
  char* Room(std::size_t bytes);
  // What was written there, up to `end`.
  void Close(char* end, int lines);
  void HandOver(Block& block);
  void TakeLine();

  // Spelled by the dialect itself.
  bool Append(const char* literal) {
    line_ += literal;
    return true;
  }
  bool Append(std::string_view text) {
    const std::size_t from = line_.size();
    line_ += text;
    if (std::any_of(text.begin(), text.end(), EndsItsPart)) Tame(from);
    return true;
  }
  static bool EndsItsPart(char c) {
    return static_cast<unsigned char>(c) < ' ' || c == 0x7F || c == '[' || c == ']';
  }
  // What of a text from `from` on could end its line or its comment.
  void Tame(std::size_t from);
  bool Append(int number) {
    char text[12];
    line_.append(text, std::to_chars(text, text + sizeof text, number).ptr);
    return true;
  }
  bool Append(const MaybeText& text) { return Append(std::string_view(text.text)) && text.good; }
  bool Append(const Masked& number) {
    if (!number.value.good()) return false;
    AppendNumberText(line_, signs_, number.value.value(), number.mask);
    return true;
  }
  bool Append(const Plain& number) {
    if (!number.value.good()) return false;
    AppendPlainNumber(line_, signs_, number.value.value());
    return true;
  }
  bool Append(const Slot& slot) {
    gapsOfLine_.push_back({slot, line_.size()});
    return true;
  }

  NumberSigns signs_;
  ProgramProgress* progress_;
  ProgramLimits limits_;
  Taker taker_;
  std::vector<Block> blocks_;
  std::string line_;  // in hand
  std::vector<Passage::Gap> gapsOfLine_;
  Passage* spelled_ = nullptr;
  double lines_ = 0;
  double bytes_ = 0;
  Number expectedLines_ = 0, expectedBytes_ = 0;
  int layer_ = 0;
  int passesToReport_ = 0;
  std::string refusal_;
  bool cancelled_ = false;
};

}  // namespace torvane
