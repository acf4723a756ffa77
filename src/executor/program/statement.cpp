#include "executor/program/statement.h"

#include <algorithm>
#include <cmath>

#include "executor/program/number.h"

namespace torvane::executor {

namespace {

constexpr Form kForms[] = {
    {"G1", Command::Move, "*", "FZEYRBSLCAIJKNOT", "",
     "Moves the carriage (Z at speed F), the head (Y at E, B at R) and the mandrel (C at S), or sets "
     "accelerations."},
    {"G2", Command::Ellipse, "ZC", "KFEYRBUVHWSLA", "",
     "Swings the head round the left end while the mandrel turns."},
    {"G3", Command::Ellipse, "ZC", "KFEYRBUVHWSLA", "",
     "Swings the head round the right end while the mandrel turns."},
    {"G4", Command::Dwell, "*", "ZPCLRB", "ZC",
     "Waits: a time P, a turn C of the mandrel, or until the mandrel stands at register L plus C."},
    {"G5", Command::Withdraw, "ZC", "KFEYRBUVHWSLA", "",
     "Draws the head back from the left end while the mandrel turns."},
    {"G6", Command::Withdraw, "ZC", "KFEYRBUVHWSLA", "",
     "Draws the head back from the right end while the mandrel turns."},
    {"G20", Command::Inches, "", "", "", "Lengths are inches."},
    {"G21", Command::Millimetres, "", "", "", "Lengths are millimetres."},
    {"G28", Command::Home, "*", "FERC", "", "Runs the axes to their limit switches."},
    {"G51", Command::Endless, "Z", "", "", "Runs the carriage to and fro between two positions without end."},
    {"G90", Command::Absolute, "", "", "", "Positions are absolute."},
    {"M0", Command::Wait, "", "", "", "Waits for the operator's button."},
    {"M4", Command::Turn, "S", "", "", "Turns the mandrel at that speed and keeps it turning."},
    {"M5", Command::Stop, "", "", "", "Stops the mandrel."},
    {"M17", Command::MotorsOn, "", "", "", "Switches the motors on."},
    {"M18", Command::MotorsOff, "", "", "", "Switches the motors off."},
    {"M601", Command::SaveFar, "", "", "", "Saves the mandrel's angle in register 601."},
    {"M602", Command::SaveHome, "", "", "", "Saves the mandrel's angle in register 602."},
    {"M650", Command::Notice, "", "", "", "Sends a notice to two addresses."},
    {"M711", Command::BuildTime, "HMS", "", "", "Announces the build time."},
    {"D0", Command::Display, "", "", "", "Shows fields to the operator; nothing moves."},
    {"C", Command::NumberForm, "C", "", "", "Says whether numbers have a decimal comma."},
    {"X", Command::Identity, "VT", "ZY", "",
     "Names the station's version, the file type and where the axes are at home."},
    {"X99", Command::End, "", "", "", "Ends the run."},
};

std::string_view NextWord(std::string_view& text) {
  const auto from = std::min(text.find_first_not_of(" \t"), text.size());
  const auto to = std::min(text.find_first_of(" \t", from), text.size());
  const std::string_view word = text.substr(from, to - from);
  text.remove_prefix(to);
  return word;
}

bool ReadWord(std::string_view word, const Form& form, char decimal, Statement& statement,
              std::string& trouble) {
  const char letter = word[0];
  const bool known =
      letter >= 'A' && letter <= 'Z' &&
      (form.needs.find(letter) != std::string_view::npos || form.may.find(letter) != std::string_view::npos);
  if (!known) {
    trouble = std::string(form.word) + " has no such word";
    return false;
  }
  const auto value = ReadNumber(word.substr(1), decimal);
  const bool bare = word.size() == 1;
  if (!value && !(bare && form.bare.find(letter) != std::string_view::npos)) {
    trouble = std::string("no number stands behind ") + letter;
    return false;
  }
  if (statement.words.Put(letter, value.value_or(0), bare)) return true;
  if (form.command == Command::Endless && std::isnan(statement.secondZ)) {
    statement.secondZ = value.value_or(0);
    return true;
  }
  trouble = std::string(1, letter) + " stands there twice";
  return false;
}

bool ReadWords(std::string_view body, const Form& form, char decimal, Statement& statement,
               std::string& trouble) {
  const bool endless = form.command == Command::Endless;
  if (endless) statement.secondZ = std::nan("");
  for (std::string_view word = NextWord(body); !word.empty(); word = NextWord(body))
    if (!ReadWord(word, form, decimal, statement, trouble)) return false;
  for (const char letter : form.needs) {
    if (letter == '*' ? !statement.words.Empty() : statement.words.Has(letter)) continue;
    trouble = letter == '*' ? "nothing stands behind " + std::string(form.word)
                            : std::string("the word ") + letter + " is missing";
    return false;
  }
  if (endless && std::isnan(statement.secondZ)) {
    trouble = "the second Z is missing";
    return false;
  }
  const double sign = statement.words.At('C');
  if (form.command == Command::NumberForm && sign != 0 && sign != 1) {
    trouble = "C0 or C1 is expected";
    return false;
  }
  if (statement.words.Has('L') && statement.words.At('L') != 601 && statement.words.At('L') != 602) {
    trouble = "there are the registers 601 and 602 alone";
    return false;
  }
  return true;
}

}  // namespace

bool Words::Put(char letter, double value, bool bare) {
  if (Has(letter)) return false;
  value_[Index(letter)] = value;
  given_ |= 1U << Index(letter);
  if (bare) bare_ |= 1U << Index(letter);
  return true;
}

std::span<const Form> Forms() { return kForms; }

bool ReadStatement(std::string_view text, char decimal, Statement& statement, std::string& trouble) {
  statement = Statement();
  const std::string_view word = NextWord(text);
  const auto* form =
      std::find_if(std::begin(kForms), std::end(kForms), [&](const Form& row) { return row.word == word; });
  if (form == std::end(kForms)) {
    trouble = "there is no such command";
    return false;
  }
  statement.command = form->command;
  statement.body = text;
  switch (form->command) {
    case Command::Notice:
      return true;
    case Command::Display:
      if (text.find('=') != std::string_view::npos) return true;
      trouble = "a display has no field";
      return false;
    default:
      return ReadWords(text, *form, decimal, statement, trouble);
  }
}

}  // namespace torvane::executor
