#include "text/code_page.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>

namespace torvane {

namespace {

// Bytes 0x80 to 0x9F; below and above them a byte is the character of its own number.
constexpr std::array<std::uint32_t, 32> kMiddle = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

struct Character {
  std::uint32_t code = 0;
  std::size_t bytes = 0;  // 0: malformed
};

Character FirstOf(std::string_view utf8) {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(utf8[i]); };
  const unsigned lead = byte(0);
  if (lead < 0x80) return {lead, 1};
  const std::size_t bytes = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
  if (lead < 0xC2 || lead > 0xF4 || utf8.size() < bytes) return {};
  std::uint32_t code = lead & (0x7FU >> bytes);
  for (std::size_t i = 1; i < bytes; ++i) {
    if ((byte(i) & 0xC0U) != 0x80) return {};
    code = (code << 6U) | (byte(i) & 0x3FU);
  }
  const bool tooLong = (bytes == 3 && code < 0x800) || (bytes == 4 && code < 0x10000);
  const bool surrogate = code >= 0xD800 && code <= 0xDFFF;
  if (tooLong || surrogate || code > 0x10FFFF) return {};
  return {code, bytes};
}

void Append(std::string& utf8, std::uint32_t code) {
  if (code < 0x80) {
    utf8 += static_cast<char>(code);
    return;
  }
  const int following = code < 0x800 ? 1 : code < 0x10000 ? 2 : 3;
  constexpr std::array<unsigned, 4> kLead = {0, 0xC0, 0xE0, 0xF0};
  utf8 += static_cast<char>(kLead[static_cast<std::size_t>(following)] | (code >> (6 * following)));
  for (int bits = 6 * (following - 1); bits >= 0; bits -= 6)
    utf8 += static_cast<char>(0x80U | ((code >> bits) & 0x3FU));
}

bool IsBigEndian(std::string_view utf16) { return utf16[0] == '\0' || utf16[0] == '\xFE'; }

template <class... Values>
std::string Printed(const char* format, Values... values) {
  std::array<char, 96> text{};
  std::snprintf(text.data(), text.size(), format, values...);
  return text.data();
}

}  // namespace

std::string ToUtf8(std::string_view text) {
  std::string utf8;
  utf8.reserve(text.size());
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    Append(utf8, byte >= 0x80 && byte < 0xA0 ? kMiddle[byte - 0x80U] : byte);
  }
  return utf8;
}

Result<std::string> FromUtf8(std::string_view utf8) {
  std::string text;
  text.reserve(utf8.size());
  for (std::size_t at = 0; at < utf8.size();) {
    const Character c = FirstOf(utf8.substr(at));
    if (c.bytes == 0) {
      return Refusal{Printed("Byte %zu (0x%02X) is not valid UTF-8.", at + 1,
                             static_cast<unsigned>(static_cast<unsigned char>(utf8[at])))};
    }
    if (c.code < 0x80 || (c.code >= 0xA0 && c.code <= 0xFF)) {
      text += static_cast<char>(c.code);
    } else if (const auto* found = std::find(kMiddle.begin(), kMiddle.end(), c.code);
               found != kMiddle.end()) {
      text += static_cast<char>(0x80 + (found - kMiddle.begin()));
    } else {
      return Refusal{
          Printed("The character U+%04X is not in code page 1252.", static_cast<unsigned>(c.code))};
    }
    at += c.bytes;
  }
  return text;
}

bool IsUtf16(std::string_view bytes) {
  if (bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF")) return true;
  if (bytes.size() < 4) return false;
  const auto isAscii = [&](std::size_t at) {
    return bytes[at] != '\0' && static_cast<unsigned char>(bytes[at]) < 0x80;
  };
  const std::size_t high = bytes[0] == '\0' ? 0 : 1;
  return bytes[high] == '\0' && bytes[high + 2] == '\0' && isAscii(1 - high) && isAscii(3 - high);
}

Result<std::string> Utf8OfUtf16(std::string_view bytes) {
  const std::size_t high = !bytes.empty() && IsBigEndian(bytes) ? 0 : 1;
  const auto unit = [&](std::size_t at) -> std::uint32_t {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(bytes[at + i]); };
    return (std::uint32_t{byte(high)} << 8U) | byte(1 - high);
  };
  std::string utf8;
  utf8.reserve(bytes.size() / 2);
  for (std::size_t at = 0; at < bytes.size(); at += 2) {
    if (bytes.size() - at < 2) return Refusal{"It was cut off in the middle of a character."};
    std::uint32_t code = unit(at);
    if (code >= 0xD800 && code < 0xE000) {
      const std::uint32_t second = bytes.size() - at < 4 ? 0 : unit(at + 2);
      if (code >= 0xDC00 || second < 0xDC00 || second >= 0xE000)
        return Refusal{Printed("Byte %zu does not begin a character of UTF-16.", at + 1)};
      code = 0x10000 + ((code - 0xD800) << 10U) + (second - 0xDC00);
      at += 2;
    }
    Append(utf8, code);
  }
  return utf8;
}

}  // namespace torvane
