#include "window/reader/program_text.h"

#include <algorithm>

namespace torvane {

namespace {

char Lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }
bool IsCapital(char c) { return c >= 'A' && c <= 'Z'; }
bool IsOfFigure(char c) { return (c >= '0' && c <= '9') || c == '.' || c == ',' || c == '-' || c == '+'; }

// [BEGIN LAYER 2 of 6 -----------]
bool IsHead(std::string_view line) {
  return line.starts_with('[') && line.find("----") != std::string_view::npos;
}

bool IsLayerHead(std::string_view line) {
  return line.starts_with("[BEGIN LAYER ") || line.starts_with("[START LAYER ");
}

}  // namespace

std::vector<Piece> PiecesOf(std::string_view line) {
  if (IsHead(line)) return {{0, line.size(), Ink::Head}};
  std::vector<Piece> pieces;
  const auto comment = std::min(line.find('['), line.size());
  std::size_t at = 0;
  const auto take = [&](std::size_t end, Ink ink) {
    if (end > at) pieces.push_back({at, end - at, ink});
    at = end;
  };
  const auto skipBlanks = [&] { at = std::min(line.find_first_not_of(' ', at), comment); };
  skipBlanks();
  take(std::min(line.find(' ', at), comment), Ink::Command);
  while (skipBlanks(), at < comment) {
    const auto end = std::min(line.find(' ', at), comment);
    const auto equals = line.substr(0, end).find('=', at);
    if (equals != std::string_view::npos) {
      take(equals, Ink::Letter);
      take(end, Ink::Figure);
    } else if (IsCapital(line[at]) && (at + 1 == end || IsOfFigure(line[at + 1]))) {
      take(at + 1, Ink::Letter);
      take(end, Ink::Figure);
    } else {
      take(end, Ink::Figure);
    }
  }
  take(line.size(), Ink::Comment);
  return pieces;
}

std::size_t PlaceOf(std::string_view words, std::string_view line) {
  const auto same = [](char one, char other) { return Lower(one) == Lower(other); };
  const auto found = std::search(line.begin(), line.end(), words.begin(), words.end(), same);
  return found == line.end() ? std::string_view::npos : static_cast<std::size_t>(found - line.begin());
}

ProgramText::ProgramText(std::string bytes) : program_(std::move(bytes)) {
  for (int number = 1; number <= Lines(); ++number) {
    const std::string_view line = Line(number);
    widest_ = std::max(widest_, static_cast<int>(std::min<std::size_t>(line.size(), 4000)));
    if (!IsHead(line)) continue;
    if (!sections_.empty()) sections_.back().lines = number - sections_.back().first;
    sections_.push_back({number, 0, 0, IsLayerHead(line), false});
  }
  before_ = sections_.empty() ? Lines() : sections_.front().first - 1;
  if (!sections_.empty()) sections_.back().lines = Lines() + 1 - sections_.back().first;
  CountRows();
}

void ProgramText::CountRows() {
  rows_ = before_;
  for (Section& section : sections_) {
    section.row = rows_;
    rows_ += section.folded ? 1 : section.lines;
  }
}

const ProgramText::Section* ProgramText::SectionOf(int line) const {
  const auto behind = std::upper_bound(sections_.begin(), sections_.end(), line,
                                       [](int one, const Section& section) { return one < section.first; });
  return behind == sections_.begin() ? nullptr : &*std::prev(behind);
}

int ProgramText::LineAt(int row) const {
  const auto behind = std::upper_bound(sections_.begin(), sections_.end(), row,
                                       [](int one, const Section& section) { return one < section.row; });
  if (behind == sections_.begin()) return row + 1;
  const Section& section = *std::prev(behind);
  return section.first + (section.folded ? 0 : row - section.row);
}

int ProgramText::RowOf(int line) const {
  const Section* section = SectionOf(line);
  if (section == nullptr) return line - 1;
  return section->row + (section->folded ? 0 : line - section->first);
}

bool ProgramText::BeginsSection(int line) const {
  const Section* section = SectionOf(line);
  return section != nullptr && section->first == line && section->lines > 1;
}

bool ProgramText::IsFolded(int line) const {
  const Section* section = SectionOf(line);
  return section != nullptr && section->folded;
}

int ProgramText::Away(int line) const {
  const Section* section = SectionOf(line);
  return section != nullptr && section->folded && section->first == line ? section->lines - 1 : 0;
}

void ProgramText::Fold(int line, bool folded) {
  const Section* section = SectionOf(line);
  if (section == nullptr || section->folded == folded || section->lines < 2) return;
  sections_[static_cast<std::size_t>(section - sections_.data())].folded = folded;
  CountRows();
}

void ProgramText::FoldLayers(bool folded) {
  for (Section& section : sections_)
    if (section.layer || !folded) section.folded = folded && section.lines > 1;
  CountRows();
}

bool ProgramText::HasLayers() const {
  return std::any_of(sections_.begin(), sections_.end(), [](const Section& one) { return one.layer; });
}

std::optional<int> ProgramText::Find(std::string_view words, int line, bool forward) const {
  if (words.empty()) return std::nullopt;
  const int lines = Lines();
  for (int step = 1; step <= lines; ++step) {
    const int at = ((line - 1 + (forward ? step : -step)) % lines + lines) % lines + 1;
    if (PlaceOf(words, Line(at)) != std::string_view::npos) return at;
  }
  return std::nullopt;
}

}  // namespace torvane
