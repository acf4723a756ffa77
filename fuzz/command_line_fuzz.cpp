// Any bytes as what stands behind a program's name: the words and the path that the program makes of it
// again, on either system.
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "executor/player/request.h"
#include "host/files/paths.h"
#include "host/system/command_line.h"
#include "platform/launcher.h"
#include "text/code_page.h"

namespace {

using namespace torvane;

[[noreturn]] void Fail(const char* what) {
  std::fprintf(stderr, "%s\n", what);
  std::abort();
}

std::string Joined(const std::vector<std::string>& words) {
  std::string line;
  for (std::size_t i = 0; i < words.size(); ++i) line += (i > 0 ? " " : "") + words[i];
  return line;
}

// As main() gets them, behind the program's name.
std::optional<std::string> PathOfWords(std::vector<std::string> words) {
  words.insert(words.begin(), "Torvane_Executor.exe");
  std::vector<char*> pointers;
  for (std::string& word : words) pointers.push_back(word.data());
  const int count = static_cast<int>(pointers.size());
  pointers.push_back(nullptr);
  const std::vector<std::string> arguments = ProgramArguments(count, pointers.data());
  if (arguments != std::vector<std::string>(words.begin() + 1, words.end())) Fail("a word is lost");
  return PathArgument(count, pointers.data());
}

void CheckWords(const std::string& text) {
  const std::vector<std::string> words = WordsOf(text);
  if (Joined(words) != text) Fail("the words are not the text");
  for (const std::string& word : words)
    if (word.find(' ') != std::string::npos) Fail("a word holds a blank");
  if (text.empty() != words.empty()) Fail("nothing is a word");
  const executor::Request request = executor::ReadRequest(words);
  using Kind = executor::Request::Kind;
  const Kind kind = text.empty()       ? Kind::Nothing
                    : text == "TRACE"  ? Kind::Trace
                    : text == "MANUAL" ? Kind::Manual
                                       : Kind::Program;
  if (request.kind != kind) Fail("another request is read");
}

// The station hands a program over by its path, bare.
void CheckPathHere(const std::string& text) {
  const std::string stationPath = "\\" + text;
  const auto path = HostPath(stationPath);
  if (!path) return;
  const std::vector<std::string> words = WordsOf(path.value());
  if (PathOfWords(words) != path.value()) Fail("the words are another path");
  const executor::Request request = executor::ReadRequest(words);
  if (request.kind != executor::Request::Kind::Program || request.asTyped != path.value())
    Fail("the request is for another program");
  const auto found = executor::PathOf(request.asTyped);
  if (!found || found.value() != path.value()) Fail("another program is run");
  // The path of the station itself, as somebody may type it.
  const auto typed = executor::PathOf(ToUtf8(stationPath));
  if (!typed || typed.value() != path.value()) Fail("as typed it is another program");
}

// A byte stands for a character; what a path is does not hang on which.
std::wstring Wide(std::string_view text) {
  std::wstring wide;
  for (const char c : text) wide += static_cast<wchar_t>(static_cast<unsigned char>(c));
  return wide;
}

bool IsPathOf(const std::string& commandLine, std::string_view path) {
  const std::wstring line = Wide(commandLine);
  return BarePath(line) == std::wstring_view(Wide(path));
}

void CheckPathOnWindows(const std::string& text) {
  const std::wstring line = Wide(text);
  const auto bare = BarePath(line);
  if (bare && !line.ends_with(*bare)) Fail("a path from nowhere");
  for (const std::string& path : std::vector<std::string>{"C:\\" + text, "z:/" + text, "\\\\" + text})
    for (const char* program :
         {"Torvane_Executor.exe", "\"C:\\Program Files\\Torvane\\Torvane_Executor.exe\""})
      if (!IsPathOf(CommandLine(program, path), path)) Fail("it is another path");
}

void CheckAddress(const std::string& text) {
  if (!IsWebAddress(text)) return;
  if (text.find('\0') != std::string::npos ||
      (!SameName(text.substr(0, 7), "http://") && !SameName(text.substr(0, 8), "https://")))
    Fail("no address of the web");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);
  CheckWords(text);
  CheckPathHere(text);
  CheckPathOnWindows(text);
  CheckAddress(text);
  return 0;
}
