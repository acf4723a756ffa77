// A program as text with its sections, any of which can be folded to its first line.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "executor/program/program.h"

namespace torvane {

// What a piece of a line is, for its colour.
enum class Ink : std::uint8_t { Command, Letter, Figure, Comment, Head };

struct Piece {
  std::size_t at, length;
  Ink ink;
};

// The pieces of a line that differ from blanks, in their order.
std::vector<Piece> PiecesOf(std::string_view line);

class ProgramText {
 public:
  // Any bytes will do.
  explicit ProgramText(std::string bytes);

  int Lines() const { return program_.Lines(); }
  // From 1.
  std::string_view Line(int number) const { return program_.Line(number); }
  // Characters of the longest line.
  int Widest() const { return widest_; }

  // Lines in view while what is folded is away. Rows count from 0.
  int Rows() const { return rows_; }
  int LineAt(int row) const;
  // Of a line that is folded away: the row of its section's first line.
  int RowOf(int line) const;

  // A line that begins a section, so that all behind it can be folded away.
  bool BeginsSection(int line) const;
  bool IsFolded(int line) const;
  // How many lines are away behind a folded section's first one; 0 of any other.
  int Away(int line) const;
  // The section that a line stands in; a line before the first one is in none.
  void Fold(int line, bool folded);
  void FoldLayers(bool folded);
  bool HasLayers() const;

  // The next line behind `line`, or before it, that holds the words in any case; from the end on from the
  // beginning. Nothing if none does.
  std::optional<int> Find(std::string_view words, int line, bool forward) const;

 private:
  struct Section {
    int first, lines, row;  // row: of its first line
    bool layer, folded;
  };
  const Section* SectionOf(int line) const;
  void CountRows();

  executor::Program program_;
  std::vector<Section> sections_;
  int before_ = 0;  // lines in front of the first section
  int rows_ = 0, widest_ = 0;
};

// Where words stand in a line in any case; npos where they do not.
std::size_t PlaceOf(std::string_view words, std::string_view line);

}  // namespace torvane
