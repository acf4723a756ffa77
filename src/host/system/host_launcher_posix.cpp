#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <optional>
#include <vector>

#include "host/files/file_system.h"
#include "host/files/paths.h"
#include "host/system/command_line.h"
#include "host/system/host_launcher.h"
#include "text/code_page.h"

namespace torvane {

namespace {

namespace fs = std::filesystem;

struct Command {
  fs::path program;
  std::vector<std::string> words;  // the first is the program's name
};

bool HoldsSeparator(std::string_view name) { return name.find_first_of("\\/") != std::string_view::npos; }

bool CanRun(const fs::path& program) {
  std::error_code error;
  return fs::is_regular_file(program, error) && access(program.c_str(), X_OK) == 0;
}

std::optional<fs::path> OnSearchPath(const fs::path& name) {
  const char* variable = std::getenv("PATH");
  std::string_view rest = variable != nullptr ? variable : "/usr/local/bin:/usr/bin:/bin";
  while (!rest.empty()) {
    const auto end = rest.find(':');
    const fs::path program = fs::path(rest.substr(0, end)) / name;
    if (program.is_absolute() && CanRun(program)) return program;
    rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
  }
  return std::nullopt;
}

Result<fs::path> FindProgram(std::string_view name, const fs::path& folder) {
  const auto host = HostPath(name);
  if (!host) return Refusal{host.reason()};
  const fs::path here = folder / SystemPath(host.value());
  if (CanRun(here)) return here;
  if (!HoldsSeparator(name)) {
    // As on Windows, a program's own folder comes before the search path.
    if (const auto own = RunningProgramFolder()) {
      const fs::path beside = SystemPath(own.value()) / SystemPath(host.value());
      if (CanRun(beside)) return beside;
    }
    if (const auto elsewhere = OnSearchPath(SystemPath(host.value()))) return *elsewhere;
  }
  std::error_code error;
  const auto reason =
      fs::exists(here, error) ? std::errc::permission_denied : std::errc::no_such_file_or_directory;
  return Refusal{std::string(name) + ": " + ReasonOf(std::make_error_code(reason))};
}

bool IsExplorer(std::string_view name) { return SameName(name.substr(name.rfind('\\') + 1), "Explorer.exe"); }

std::optional<Command> Opener(std::string_view shown) {
  const auto program = OnSearchPath("xdg-open");
  if (!program) return std::nullopt;
  return Command{*program, {program->string(), std::string(shown)}};
}

// A path of the station is one of the computer, whatever blanks it holds.
Result<Command> WithArguments(const fs::path& program, std::string_view arguments) {
  Command command{program, {program.string()}};
  if (arguments.empty()) return command;
  const auto text = arguments[0] == '\\' ? HostPath(arguments) : Result<std::string>(ToUtf8(arguments));
  if (!text || text.value().find('\0') != std::string::npos)
    return Refusal{"The command line holds a NUL character."};
  for (std::string& word : WordsOf(text.value())) command.words.push_back(std::move(word));
  return command;
}

Result<Command> Resolved(std::string_view name, std::string_view arguments, const fs::path& folder) {
  if (name.empty()) return Refusal{"There is no program to start."};
  const auto program = FindProgram(name, folder);
  if (program) return WithArguments(program.value(), arguments);
  if (IsExplorer(name) && !arguments.empty()) {
    const auto shown = HostPath(arguments);
    const auto opener = shown ? Opener(shown.value()) : std::nullopt;
    if (opener) return *opener;
  }
  return Refusal{program.reason()};
}

[[noreturn]] void BecomeProgram(const char* program, char* const* words, const char* folder, int report) {
  setsid();
  struct sigaction standard {};
  standard.sa_handler = SIG_DFL;
  sigaction(SIGPIPE, &standard, nullptr);
  sigaction(SIGCHLD, &standard, nullptr);
  sigset_t none;
  sigemptyset(&none);
  sigprocmask(SIG_SETMASK, &none, nullptr);
  const int nothing = open("/dev/null", O_RDONLY);
  if (nothing >= 0 && dup2(nothing, STDIN_FILENO) >= 0 && (folder == nullptr || chdir(folder) == 0)) {
    if (nothing != STDIN_FILENO) close(nothing);
    execv(program, words);
  }
  const int error = errno;
  if (write(report, &error, sizeof error) < 0) _exit(126);
  _exit(127);
}

// 0, or the system's error number. The program is a grandchild, so that nobody here has to wait for its end;
// the pipe closes of itself when it runs.
int Spawn(const Command& command, const char* folder) {
  std::array<int, 2> report{};
  if (pipe2(report.data(), O_CLOEXEC) != 0) return errno;
  // All memory is taken before the fork: another thread may have the allocator locked during it.
  std::vector<char*> words;
  for (const auto& word : command.words) words.push_back(const_cast<char*>(word.c_str()));
  words.push_back(nullptr);

  const pid_t child = fork();
  if (child == 0) {
    const pid_t grandchild = fork();
    if (grandchild == 0) BecomeProgram(command.program.c_str(), words.data(), folder, report[1]);
    const int error = grandchild < 0 ? errno : 0;
    if (error != 0 && write(report[1], &error, sizeof error) < 0) _exit(126);
    _exit(0);
  }
  int error = child < 0 ? errno : 0;
  close(report[1]);
  if (child > 0) {
    while (waitpid(child, nullptr, 0) < 0 && errno == EINTR) {
    }
    int told = 0;
    ssize_t count = 0;
    do count = read(report[0], &told, sizeof told);
    while (count < 0 && errno == EINTR);
    if (count == static_cast<ssize_t>(sizeof told)) error = told;
  }
  close(report[0]);
  return error;
}

}  // namespace

Outcome HostLauncher::Start(std::string_view program, std::string_view arguments, std::string_view folder) {
  const auto hostFolder = HostPath(folder.empty() ? "\\" : folder);
  if (!hostFolder) return Refusal{hostFolder.reason()};
  std::error_code error;
  if (!fs::is_directory(SystemPath(hostFolder.value()), error)) {
    return Refusal{std::string(folder) + ": " +
                   ReasonOf(std::make_error_code(std::errc::no_such_file_or_directory))};
  }
  const auto command = Resolved(program, arguments, SystemPath(hostFolder.value()));
  if (!command) return Refusal{command.reason()};
  if (const int failed = Spawn(command.value(), hostFolder.value().c_str())) {
    const auto name = StationPath(HostText(command.value().program));
    return Refusal{(name ? name.value() : std::string(program)) + ": " +
                   ReasonOf({failed, std::generic_category()})};
  }
  return Done{};
}

void HostLauncher::OpenLink(std::string_view url) {
  if (!IsWebAddress(url)) return;
  if (const auto opener = Opener(ToUtf8(url))) Spawn(*opener, nullptr);
}

std::string HostLauncher::EnvironmentVariable(std::string_view name) const {
  const char* value = std::getenv(ToUtf8(name).c_str());
  const auto text = FromUtf8(value != nullptr ? value : "");
  return text ? text.value() : "";
}

}  // namespace torvane
