#include "host/file_system.h"

#include "host/code_page.h"

namespace torvane {

std::string ReasonOf(const std::error_code& error) {
  const std::string words = error.message();
  const auto text = FromUtf8(words);
  return text ? text.value() : words;
}

std::filesystem::path LinksFollowed(std::filesystem::path path) {
  std::error_code error;
  for (int links = 0; links < 40 && std::filesystem::is_symlink(path, error); ++links) {
    const auto target = std::filesystem::read_symlink(path, error);
    if (error) break;
    path = path.parent_path() / target;
  }
  return path;
}

}  // namespace torvane
