// The number text rules: everything that prints or parses a number goes through here.
#pragma once

#include <chrono>
#include <string>
#include <string_view>

#include "text/mask.h"
#include "text/number.h"

namespace torvane {

// The computer's signs in numbers and dates. The decimal sign is a point or a comma; the other of the two
// separates groups of digits and is read over.
struct NumberSigns {
  char decimal = '.';
  char date = '/';
  char time = ':';

  constexpr char group() const { return decimal == ',' ? '.' : ','; }
};

// The number a text reads as: blanks round it, an optional sign, digits, decimal sign, exponent; the
// group sign is passed over. Empty, blank or any other text fails, and so does a number too large for a
// double.
Number ReadNumberText(NumberSigns signs, std::string_view text);

// `value` under a mask. It is taken to 15 significant digits first, and that decimal is rounded half away
// from zero to the mask's places: 1.005 under "##0.00" is "1.01". A mask never cuts the integer part, and
// its decimal sign stands even where no digit follows. No "-" stands before a zero.
std::string FormatNumberText(NumberSigns signs, double value, Mask mask);
// The same behind the text that stands in `out`.
void AppendNumberText(std::string& out, NumberSigns signs, double value, Mask mask);

// A text under a mask: as the number it reads as; a text that is no number comes back unchanged.
std::string FormatNumberText(NumberSigns signs, std::string_view text, Mask mask);

// Plain text of a number: up to 15 significant digits, no trailing zeros, no sign behind a whole number;
// below 1E-15 and from 1E+15 in exponent form.
std::string NumberToText(NumberSigns signs, double value);
// The same behind the text that stands in `out`.
void AppendPlainNumber(std::string& out, NumberSigns signs, double value);

// A text, or the failure of the statement that needs it.
struct MaybeText {
  bool good = false;
  std::string text;
};
// A failed number gives a failed text.
MaybeText TextOf(NumberSigns signs, const Masked& number);
MaybeText TextOf(NumberSigns signs, const Plain& number);

// The three date and time forms of files and programs.
enum class DateForm {
  DayAndSeconds,  // mm/dd/yyyy hh:mm:ss
  DayAndMinutes,  // mm/dd/yyyy hh:mm
  Seconds,        // hh:mm:ss
};
// With the computer's signs and leading zeros, whatever its own habits are.
std::string FormatDateText(NumberSigns signs, std::chrono::local_seconds moment, DateForm form);

}  // namespace torvane
