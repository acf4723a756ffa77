// Any bytes as a script, on a computer in memory.
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <sstream>
#include <string>
#include <string_view>

#include "cli/computer/computer.h"
#include "cli/script/script.h"
#include "text/code_page.h"
#include "workbench/document/design_commands.h"

namespace {

using namespace torvane;

constexpr std::string_view kHome = "C:\\Torvane\\";
constexpr int kMostLines = 40;
constexpr std::size_t kMostDigitsOfWait = 5;  // a minute and a half at most
constexpr int kMostReports = 4;               // on one program

[[noreturn]] void Fail(const char* what, std::string_view text) {
  std::fprintf(stderr, "%s: %.*s\n", what, static_cast<int>(text.size()), text.data());
  std::abort();
}

// Ends programs that only take long.
class Impatience : public ProgramProgress {
 public:
  void Begin() override { reports_ = 0; }
  bool GoOn(double) override { return ++reports_ < kMostReports; }

 private:
  int reports_ = 0;
};

// One line for each thing that is told: UTF-8 without control characters.
void CheckPrinted(const std::string& printed) {
  if (!printed.empty() && printed.back() != '\n') Fail("the last line does not end", printed);
  const auto text = FromUtf8(printed);
  if (!text) Fail(text.reason().c_str(), printed);
  for (const char c : text.value())
    if (c != '\n' && (static_cast<unsigned char>(c) < ' ' || c == 0x7F)) Fail("a control character", printed);
}

void CheckPath(const std::string& path) {
  if (!path.starts_with(kHome)) Fail("a file outside the station's folder", path);
  if (path.find("\\..\\") != std::string::npos || path.ends_with("\\.."))
    Fail("a way out of the station's folder", path);
}

void CheckFiles(const MemoryFiles& files) {
  for (const auto& [path, bytes] : files.All()) {
    CheckPath(path);
    if (path.find_first_of("\r\n") != std::string::npos) Fail("a line's end in a name", path);
  }
}

// No text of a script says which program is started.
void CheckStarts(const StagedLauncher& launcher) {
  for (const StagedLauncher::Started& started : launcher.starts) {
    const std::string& line = started.commandLine;
    if (!line.starts_with("Torvane_Executor.exe") && !line.starts_with("Notepad2.exe") &&
        !line.starts_with("C:\\Torvane\\Notepad2.exe") && !line.starts_with("C:\\Windows\\Explorer.exe"))
      Fail("another program is started", line);
  }
  for (const std::string& link : launcher.links)
    if (!link.starts_with("https://") && !link.starts_with("http://")) Fail("no web address", link);
}

bool WaitsLong(std::string_view line) {
  return line.starts_with("wait ") && line.size() > 5 + kMostDigitsOfWait;
}

void Follow(Script& script, const std::string& line) {
  try {
    script.Follow(line);
  } catch (const ScriptError& error) {
    if (error.reason.empty()) Fail("no reason is told", line);
  } catch (const UsageError& error) {
    if (error.reason.empty()) Fail("no reason is told", line);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Stage stage;
  std::ostringstream out;
  Impatience impatience;
  {
    Script script(stage, stage.AsPlatform(), out);
    script.prepare = [&stage] { MakeStationFolders(stage.files, [](const auto&, const auto&) {}); };
    std::istringstream lines(std::string(reinterpret_cast<const char*>(data), size));
    std::string line;
    for (int number = 0; number < kMostLines && std::getline(lines, line); ++number) {
      if (WaitsLong(line)) continue;
      // A line that cannot be followed ends a script; the rest may still find something.
      Follow(script, line);
      for (const auto& answer : stage.fileDialog.answers)
        if (answer) CheckPath(*answer);
      if (Station* station = script.station()) {
        if (station->programProgress == nullptr) station->programProgress = &impatience;
        if (station->cutEchoes > 0) Fail("an echo had to be cut", line);
      }
    }
  }
  CheckPrinted(out.str());
  CheckFiles(stage.files);
  CheckStarts(stage.launcher);
  return 0;
}
