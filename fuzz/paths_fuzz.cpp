// Any bytes as a path or a text, of the station and of the computer: what is taken comes back, the rest is
// refused in words.
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

#include "host/files/paths.h"
#include "text/code_page.h"

namespace {

using namespace torvane;

[[noreturn]] void Fail(const char* what) {
  std::fprintf(stderr, "%s\n", what);
  std::abort();
}

bool HoldsControl(std::string_view text) {
  return std::any_of(text.begin(), text.end(),
                     [](char c) { return static_cast<unsigned char>(c) < ' ' || c == 0x7F; });
}

template <class Outcome>
void CheckReason(const Outcome& outcome) {
  if (outcome.reason().empty() || HoldsControl(outcome.reason())) Fail("a refusal without words");
}

std::string Utf16(std::string_view station, bool bigEndian) {
  std::string bytes = bigEndian ? "\xFE\xFF" : "\xFF\xFE";
  // Of the characters that have their own number in either.
  for (const char c : station) bytes += bigEndian ? std::string{'\0', c} : std::string{c, '\0'};
  return bytes;
}

void CheckCodePage(const std::string& text) {
  const auto back = FromUtf8(ToUtf8(text));
  if (!back || back.value() != text) Fail("the station's text does not come back");
  const auto read = FromUtf8(text);
  if (!read)
    CheckReason(read);
  else if (ToUtf8(read.value()) != text)
    Fail("the computer's text does not come back");

  const auto whole = Utf8OfUtf16(text);
  if (!whole)
    CheckReason(whole);
  else if (whole.value().size() > text.size() / 2 * 3)
    Fail("a character takes more than three bytes");
  std::string plain;
  for (const char c : text)
    if (static_cast<unsigned char>(c) < 0x80 || static_cast<unsigned char>(c) >= 0xA0) plain += c;
  for (const bool bigEndian : {false, true}) {
    const std::string bytes = Utf16(plain, bigEndian);
    const auto utf8 = Utf8OfUtf16(bytes);
    if (!IsUtf16(bytes) || !utf8 || utf8.value() != "\xEF\xBB\xBF" + ToUtf8(plain))
      Fail("UTF-16 is read as another text");
  }
}

void CheckPaths(const std::string& text) {
  const auto host = HostPath(text);
  const auto station = StationPath(text);
  if (HoldsControl(text) && (host || station)) Fail("a name with a control character is taken");
  if (!host) {
    CheckReason(host);
    if (!HoldsControl(text)) Fail("a path of the station is refused");
  } else {
    // A slash that was typed is the computer's own.
    std::string meant = text;
    std::replace(meant.begin(), meant.end(), '/', '\\');
    const auto back = StationPath(host.value());
    if (!back || back.value() != meant) Fail("the station's path does not come back");
  }
  if (!station) {
    CheckReason(station);
  } else {
    const auto back = HostPath(station.value());
    if (!back || back.value() != text) Fail("the computer's path does not come back");
  }
  if (text.find('\0') == std::string::npos && HostText(SystemPath(text)) != text)
    Fail("the library holds another path");
}

// Relative to the folder of this process, which is only looked at.
void CheckAbsolute(const std::string& text) {
  const auto absolute = AbsoluteStationPath(text);
  if (!absolute) return CheckReason(absolute);
  const std::string& path = absolute.value();
  if (!path.starts_with('\\') || HoldsControl(path)) Fail("no absolute path");
  for (std::string_view rest = path; !rest.empty();) {
    rest.remove_prefix(1);
    const std::string_view name = rest.substr(0, rest.find('\\'));
    if (name == "." || name == "..") Fail("a path by another way");
    rest.remove_prefix(name.size());
  }
  const auto host = HostPath(path);
  const auto again = host ? AbsoluteStationPath(host.value()) : AbsoluteStationPath("");
  if (!again || again.value() != path) Fail("taken again it is another path");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);
  CheckCodePage(text);
  CheckPaths(text);
  CheckAbsolute(text);
  return 0;
}
