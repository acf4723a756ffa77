#include "host/files/paths.h"

#include <algorithm>
#include <system_error>

#include "host/files/file_system.h"
#include "text/code_page.h"

namespace torvane {

namespace {

constexpr bool kSlashes = std::filesystem::path::preferred_separator == '/';
constexpr char kHoldsControl[] = "A name with a control character in it cannot be used.";

std::string Replaced(std::string_view path, char from, char to) {
  std::string result(path);
  std::replace(result.begin(), result.end(), from, to);
  return result;
}

// Programs and designs tell names in lines of their own, which a line break would end.
bool HoldsControl(std::string_view path) {
  return std::any_of(path.begin(), path.end(),
                     [](char c) { return static_cast<unsigned char>(c) < ' ' || c == 0x7F; });
}

}  // namespace

Result<std::string> HostPath(std::string_view stationPath) {
  if (HoldsControl(stationPath)) return Refusal{kHoldsControl};
  return ToUtf8(kSlashes ? Replaced(stationPath, '\\', '/') : std::string(stationPath));
}

Result<std::string> StationPath(std::string_view hostPath) {
  if (HoldsControl(hostPath)) return Refusal{kHoldsControl};
  if (kSlashes && hostPath.find('\\') != std::string_view::npos) {
    return Refusal{"A name with a backslash in it cannot be used."};
  }
  auto text = FromUtf8(hostPath);
  if (!text) return Refusal{"The path cannot be used. " + text.reason()};
  return Replaced(text.value(), '/', '\\');
}

Result<std::string> AbsolutePath(std::string_view hostPath) {
  std::error_code error;
  std::filesystem::path path = std::filesystem::absolute(SystemPath(hostPath), error);
  if (error) return Refusal{ReasonOf(error)};
  // What ".." leads to depends on links, so there the folder is asked for; else the path stays as typed.
  if (std::find(path.begin(), path.end(), "..") != path.end()) {
    path = std::filesystem::weakly_canonical(path.parent_path(), error) / path.filename();
    if (error) return Refusal{ReasonOf(error)};
  }
  return HostText(path.lexically_normal());
}

Result<std::string> AbsoluteStationPath(std::string_view hostPath) {
  if (HoldsControl(hostPath)) return Refusal{kHoldsControl};
  const auto path = AbsolutePath(hostPath);
  if (!path) return Refusal{path.reason()};
  return StationPath(path.value());
}

std::filesystem::path SystemPath(std::string_view hostPath) {
  return std::u8string(hostPath.begin(), hostPath.end());
}

std::string HostText(const std::filesystem::path& path) {
  const std::u8string text = path.u8string();
  return {text.begin(), text.end()};
}

}  // namespace torvane
