#include "text/number_text.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <optional>

#include "text/text.h"
#include "text/write_number.h"

namespace torvane {

namespace {

constexpr int kDigits = 15;

// The first 15 significant digits of a value: 0.d1 d2 ... d15 times ten to the power `point`.
struct Decimal {
  std::array<char, kDigits + 1> digits{};
  int point = 0;
  bool negative = false;
  bool zero = true;
};

Decimal DecimalOf(double value) {
  Decimal d;
  if (value == 0) return d;
  d.zero = false;
  d.negative = value < 0;
  std::array<char, 32> text;
  const auto end = std::to_chars(text.data(), text.data() + text.size(), d.negative ? -value : value,
                                 std::chars_format::scientific, kDigits - 1)
                       .ptr;
  // "d.dddddddddddddde+XX"
  d.digits[0] = text[0];
  std::copy_n(text.data() + 2, kDigits - 1, d.digits.data() + 1);
  const char* exponent = text.data() + kDigits + 2;
  const bool small = *exponent == '-';
  int power = 0;
  std::from_chars(exponent + 1, end, power);
  d.point = (small ? -power : power) + 1;
  return d;
}

// Rounds half away from zero behind the first `kept` digits; the rest become zeros. A carry out of the
// first digit moves the point.
void RoundTo(Decimal& d, int kept) {
  if (d.zero || kept >= kDigits) return;
  const bool up = kept >= 0 && d.digits[static_cast<std::size_t>(kept)] >= '5';
  const auto cut = d.digits.begin() + std::max(kept, 0);
  std::fill(cut, d.digits.begin() + kDigits, '0');
  if (!up) {
    d.zero = kept <= 0;
    return;
  }
  auto digit = cut;
  while (digit != d.digits.begin()) {
    --digit;
    if (*digit != '9') {
      ++*digit;
      return;
    }
    *digit = '0';
  }
  std::copy_backward(d.digits.begin(), d.digits.begin() + kDigits - 1, d.digits.begin() + kDigits);
  d.digits[0] = '1';
  ++d.point;
}

// The digit that stands for ten to the power `place`: 0 for the ones, -1 for the tenths.
char DigitAt(const Decimal& d, int place) {
  const int index = d.point - 1 - place;
  return d.zero || index < 0 || index >= kDigits ? '0' : d.digits[static_cast<std::size_t>(index)];
}

char* WriteInteger(char* out, const Decimal& d, int atLeast) {
  for (int place = std::max(d.zero ? 0 : d.point, atLeast) - 1; place >= 0; --place)
    *out++ = DigitAt(d, place);
  return out;
}

constexpr std::array<double, 5> kPowersOfTen = {1e0, 1e1, 1e2, 1e3, 1e4};

// A magnitude in units of a mask's last decimal, rounded as RoundTo does; nothing where a multiplication
// cannot tell. Call it x in these units: its fifteenth digit is worth x / 1E15 at least and x / 1E14 at most.
// What lies below a half by less than half of that digit becomes a half with it and goes up, so does all by
// x * 5E-16; what lies below by more goes down, so does all by x * 5E-15. The product is off by x * 1.2E-16.
std::optional<std::int64_t> InLastDecimals(double magnitude, int decimals) {
  constexpr int kMostDecimals = 4;
  constexpr double kMost = 1e13;  // up to there the fifteenth digit is a tenth at most
  if (decimals > kMostDecimals) return std::nullopt;
  const double product = magnitude * kPowersOfTen[static_cast<std::size_t>(decimals)];
  if (!(product < kMost)) return std::nullopt;
  const auto whole = static_cast<std::int64_t>(product);
  const double belowHalf = 0.5 - (product - static_cast<double>(whole));
  // Without a branch: which way the next number goes cannot be guessed.
  const int up = belowHalf <= product * 3.5e-16 ? 1 : 0, notDown = belowHalf < product * 6e-15 ? 1 : 0;
  if (up != notDown) return std::nullopt;
  return whole + up;
}

constexpr auto kPairs = [] {
  std::array<char, 200> pairs{};
  for (std::size_t i = 0; i < 100; ++i) {
    pairs[2 * i] = static_cast<char>('0' + i / 10);
    pairs[2 * i + 1] = static_cast<char>('0' + i % 10);
  }
  return pairs;
}();

// A number with so many digits, zeros in front of it too.
template <int kCount>
char* WriteDigits(char* out, std::uint32_t number) {
  if constexpr (kCount == 1) *out = static_cast<char>('0' + number);
  if constexpr (kCount >= 2) {
    std::memcpy(out + kCount - 2, kPairs.data() + 2 * (number % 100), 2);
    WriteDigits<kCount - 2>(out, number / 100);
  }
  return out + kCount;
}

// Without a `0` in the mask a 0 has no digit.
char* WriteWhole(char* out, std::uint64_t number, int atLeast) {
  int digits = 0;
  for (std::uint64_t power = 1; number >= power; power *= 10) ++digits;
  char* const end = out + std::max(digits, atLeast);
  char* at = end;
  for (; number >= 10; number /= 100) {
    at -= 2;
    std::memcpy(at, kPairs.data() + 2 * (number % 100), 2);
  }
  if (number > 0) *--at = static_cast<char>('0' + number);
  std::fill(out, at, '0');
  return end;
}

// A number in units of the mask's last decimal, of which there are so many.
template <int kDecimals>
char* WriteUnits(char* out, NumberSigns signs, std::uint64_t units, Mask mask) {
  constexpr auto kUnits = static_cast<std::uint64_t>(kPowersOfTen[kDecimals]);
  out = WriteWhole(out, units / kUnits, mask.integerZeros);
  if (mask.point) *out++ = signs.decimal;
  char* const end = WriteDigits<kDecimals>(out, static_cast<std::uint32_t>(units % kUnits));
  constexpr unsigned kAllShown = (1U << kDecimals) - 1;
  if (mask.zeroDecimals == kAllShown) return end;
  int shown = kDecimals;  // behind it all are zeros, and a `#` prints none of them
  while (shown > 0 && out[shown - 1] == '0') --shown;
  out += shown;
  for (int place = shown + 1; place <= kDecimals; ++place)
    if ((mask.zeroDecimals >> (place - 1)) & 1U) *out++ = '0';
  return out;
}

char* WriteUnits(char* out, NumberSigns signs, std::uint64_t units, Mask mask) {
  switch (mask.decimals) {
    case 0:
      return WriteUnits<0>(out, signs, units, mask);
    case 1:
      return WriteUnits<1>(out, signs, units, mask);
    case 2:
      return WriteUnits<2>(out, signs, units, mask);
    case 3:
      return WriteUnits<3>(out, signs, units, mask);
    default:
      return WriteUnits<4>(out, signs, units, mask);
  }
}

char* Write(char* out, NumberSigns signs, double value, Mask mask) {
  Decimal d = DecimalOf(value);
  RoundTo(d, d.point + mask.decimals);
  if (d.negative && !d.zero) *out++ = '-';
  out = WriteInteger(out, d, mask.integerZeros);
  if (mask.point) *out++ = signs.decimal;
  int lastDigit = mask.decimals;  // behind it all are zeros, and a `#` prints none of them
  while (lastDigit > 0 && DigitAt(d, -lastDigit) == '0') --lastDigit;
  for (int place = 1; place <= mask.decimals; ++place)
    if (place <= lastDigit || ((mask.zeroDecimals >> (place - 1)) & 1U)) *out++ = DigitAt(d, -place);
  return out;
}

char* WritePlain(char* out, NumberSigns signs, double value) {
  Decimal d = DecimalOf(value);
  if (d.zero) {
    *out++ = '0';
    return out;
  }
  int significant = kDigits;
  while (d.digits[static_cast<std::size_t>(significant) - 1] == '0') --significant;
  if (d.negative) *out++ = '-';
  const bool plain = d.point > -kDigits && d.point <= kDigits;  // 1E-15 up to below 1E+15
  if (plain) {
    out = WriteInteger(out, d, 1);
    if (significant > d.point) *out++ = signs.decimal;
    for (int place = 1; place <= significant - d.point; ++place) *out++ = DigitAt(d, -place);
    return out;
  }
  *out++ = d.digits[0];
  if (significant > 1) *out++ = signs.decimal;
  out = std::copy_n(d.digits.data() + 1, significant - 1, out);
  const int power = d.point - 1;
  *out++ = 'E';
  *out++ = power < 0 ? '-' : '+';
  return std::to_chars(out, out + 4, std::abs(power)).ptr;
}

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// The plain form that the conversion takes: no sign "+", no group signs, a point as decimal sign.
struct PlainForm {
  std::string_view text;
  bool valid = false;
};

// Copies into `buffer` only where the text differs from the plain form.
PlainForm PlainFormOf(NumberSigns signs, std::string_view text, std::string& buffer) {
  if (!text.empty() && text.front() == '+') {
    text.remove_prefix(1);
    if (!text.empty() && text.front() == '-') return {};
  }
  std::size_t i = !text.empty() && text.front() == '-' ? 1 : 0;
  bool digits = false;
  bool sign = false;
  bool foreign = false;
  for (; i < text.size(); ++i) {
    const char c = text[i];
    if (IsDigit(c)) {
      digits = true;
    } else if (c == signs.decimal && !sign) {
      sign = true;
      foreign = foreign || c != '.';
    } else if (c == signs.group()) {
      foreign = true;
    } else {
      break;
    }
  }
  if (!digits) return {};
  const std::size_t mantissaEnd = i;
  if (i < text.size()) {
    if (text[i] != 'E' && text[i] != 'e') return {};
    ++i;
    if (i < text.size() && (text[i] == '+' || text[i] == '-')) ++i;
    if (i == text.size() || !std::all_of(text.begin() + static_cast<std::ptrdiff_t>(i), text.end(), IsDigit))
      return {};
  }
  if (!foreign) return {text, true};
  for (std::size_t k = 0; k < text.size(); ++k) {
    if (k < mantissaEnd && text[k] == signs.group()) continue;
    buffer += k < mantissaEnd && text[k] == signs.decimal ? '.' : text[k];
  }
  return {buffer, true};
}

// A form out of the range of a double is too large, which fails, or too close to zero to differ from it.
// It is too small if its first digit that is not 0 stands that far behind the point.
bool TooSmall(std::string_view plain) {
  const auto e = plain.find_first_of("eE");
  const bool negativePower = e != std::string_view::npos && e + 1 < plain.size() && plain[e + 1] == '-';
  const std::string_view mantissa = plain.substr(0, e);
  const auto firstDigit = mantissa.find_first_of("123456789");
  if (firstDigit == std::string_view::npos) return true;
  const auto point = std::min(mantissa.find('.'), mantissa.size());
  if (e == std::string_view::npos) return firstDigit > point;
  // A power beyond this outweighs every mantissa that a file can hold.
  constexpr std::int64_t kHugePower = 1'000'000'000'000;
  std::int64_t power = kHugePower;
  const auto start = e + 1 + (plain[e + 1] == '+' || plain[e + 1] == '-' ? 1 : 0);
  std::from_chars(plain.data() + start, plain.data() + plain.size(), power);
  power = std::min(power, kHugePower);
  const auto place = static_cast<std::int64_t>(point) - static_cast<std::int64_t>(firstDigit);
  return (negativePower ? -power : power) + place < 0;
}

}  // namespace

Number ReadNumberText(NumberSigns signs, std::string_view text) {
  std::string buffer;
  const PlainForm plain = PlainFormOf(signs, Trim(text), buffer);
  if (!plain.valid) return Number::Failure();
  double value = 0;
  const auto read = std::from_chars(plain.text.data(), plain.text.data() + plain.text.size(), value);
  if (read.ec == std::errc::result_out_of_range) return TooSmall(plain.text) ? Number(0) : Number::Failure();
  assert(read.ec == std::errc() && read.ptr == plain.text.data() + plain.text.size());
  return value;
}

char* WriteNumberText(char* out, NumberSigns signs, double value, Mask mask) {
  const auto rounded = InLastDecimals(std::fabs(value), mask.decimals);
  if (!rounded) return Write(out, signs, value, mask);
  if (value < 0 && *rounded != 0) *out++ = '-';
  return WriteUnits(out, signs, static_cast<std::uint64_t>(*rounded), mask);
}

void AppendNumberText(std::string& out, NumberSigns signs, double value, Mask mask) {
  std::array<char, kLongestNumberText> text;
  out.append(text.data(), WriteNumberText(text.data(), signs, value, mask));
}

std::string FormatNumberText(NumberSigns signs, double value, Mask mask) {
  std::string text;
  AppendNumberText(text, signs, value, mask);
  return text;
}

std::string FormatNumberText(NumberSigns signs, std::string_view text, Mask mask) {
  const Number value = ReadNumberText(signs, text);
  return value.good() ? FormatNumberText(signs, value.value(), mask) : std::string(text);
}

void AppendPlainNumber(std::string& out, NumberSigns signs, double value) {
  std::array<char, kLongestNumberText> text;
  out.append(text.data(), static_cast<std::size_t>(WritePlain(text.data(), signs, value) - text.data()));
}

std::string NumberToText(NumberSigns signs, double value) {
  std::string text;
  AppendPlainNumber(text, signs, value);
  return text;
}

MaybeText TextOf(NumberSigns signs, const Masked& number) {
  if (!number.value.good()) return {};
  return {true, FormatNumberText(signs, number.value.value(), number.mask)};
}

MaybeText TextOf(NumberSigns signs, const Plain& number) {
  if (!number.value.good()) return {};
  return {true, NumberToText(signs, number.value.value())};
}

std::string FormatDateText(NumberSigns signs, std::chrono::local_seconds moment, DateForm form) {
  const auto day = std::chrono::floor<std::chrono::days>(moment);
  const std::chrono::year_month_day date(day);
  const std::chrono::hh_mm_ss time(moment - day);
  std::string text;
  const auto digits = [&text](std::int64_t number, std::size_t width) {
    const std::string plain = std::to_string(number);
    text.append(width - std::min(width, plain.size()), '0') += plain;
  };
  if (form != DateForm::Seconds) {
    digits(static_cast<unsigned>(date.month()), 2);
    text += signs.date;
    digits(static_cast<unsigned>(date.day()), 2);
    text += signs.date;
    digits(static_cast<int>(date.year()), 4);
    text += ' ';
  }
  digits(time.hours().count(), 2);
  text += signs.time;
  digits(time.minutes().count(), 2);
  if (form != DateForm::DayAndMinutes) {
    text += signs.time;
    digits(time.seconds().count(), 2);
  }
  return text;
}

}  // namespace torvane
