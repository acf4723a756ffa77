#include "host/files/file_system.h"

#include <charconv>

#include "text/code_page.h"

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

namespace {

constexpr std::string_view kBeside = ".torvane-", kBesideEnd = ".new";

}  // namespace

std::string NameBeside(unsigned long process, int attempt) {
  return std::string(kBeside) + std::to_string(process) + "-" + std::to_string(attempt) +
         std::string(kBesideEnd);
}

std::optional<unsigned long> WriterOf(std::string_view name) {
  if (!name.starts_with(kBeside) || !name.ends_with(kBesideEnd)) return std::nullopt;
  if (name.size() < kBeside.size() + kBesideEnd.size()) return std::nullopt;
  name = name.substr(kBeside.size(), name.size() - kBeside.size() - kBesideEnd.size());
  unsigned long process = 0;
  int attempt = 0;
  const char* const end = name.data() + name.size();
  const auto first = std::from_chars(name.data(), end, process);
  if (first.ec != std::errc() || first.ptr == end || *first.ptr != '-') return std::nullopt;
  const auto second = std::from_chars(first.ptr + 1, end, attempt);
  if (second.ec != std::errc() || second.ptr != end) return std::nullopt;
  return process;
}

Result<std::string> ReadRegularFile(const std::filesystem::path& path, std::uint64_t limit) {
  constexpr std::uint64_t kMegabyte = std::uint64_t{1024} * 1024;
  const std::optional<FileStamp> stamp = StampOf(path);
  bool fits = !stamp || stamp->size <= limit;
  std::string bytes;
  const Outcome read = ReadBlocks(path, [&](std::string_view block) {
    if (bytes.empty() && fits && stamp) bytes.reserve(stamp->size);
    fits = fits && block.size() <= limit - bytes.size();
    if (fits) bytes += block;
    return fits;
  });
  if (!read) return Refusal{read.reason()};
  if (fits) return bytes;
  return Refusal{"It is larger than " + std::to_string(limit / kMegabyte) + " MB, the most that is read."};
}

bool HoldsJust(const std::filesystem::path& path, std::string_view bytes) {
  bool same = true;
  const Outcome read = ReadBlocks(path, [&](std::string_view block) {
    same = bytes.starts_with(block);
    if (same) bytes.remove_prefix(block.size());
    return same;
  });
  return read && same && bytes.empty();
}

}  // namespace torvane
