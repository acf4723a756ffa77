// `Torvane_Executor.exe`: the dry run of a program.
#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#ifdef TORVANE_DRYRUN_WINDOW
#include "executor/window/start.h"
#endif
#include "cli/command/proof_json.h"
#include "executor/player/request.h"
#include "executor/proof/report.h"
#include "host/files/environment.h"
#include "host/files/file_system.h"
#include "host/files/paths.h"
#include "host/files/station_folder.h"
#include "host/store/default_store.h"
#include "host/system/command_line.h"
#include "host/system/host_locale.h"
#include "text/code_page.h"

namespace torvane::executor {

namespace {

enum ExitStatus { kSound = 0, kFaults = 1, kNoProgram = 2 };

int Complain(const std::string& text) {
  std::fprintf(stderr, "Torvane_Executor: %s\n", text.c_str());
  return kNoProgram;
}

struct Arguments {
  std::vector<std::string> words;
  std::string store;  // an INI file; empty for the user's own store
  bool check = false, json = false;
};

int Check(const Arguments& arguments) {
  const std::string asTyped = ProgramAsTyped(arguments.words);
  if (asTyped.empty()) return Complain("--check needs a program");
  const auto path = PathOf(asTyped);
  if (!path) return Complain(asTyped + ": " + path.reason());
  const auto program = ReadRegularFile(SystemPath(path.value()));
  if (!program) return Complain(asTyped + ": " + ToUtf8(program.reason()));

  const auto store = StoreAt(arguments.store);
  // By another machine's limits a proof says nothing.
  if (const Outcome readable = store->Readable(); !readable) return Complain(ToUtf8(readable.reason()));
  if (const std::string note = MissingStoreNote(arguments.store); !note.empty()) Complain(note);
  const Proof proof = Prove(program.value(), ReadLimits(*store, HostLocale().Signs().decimal));
  if (!proof.anyStatement) return Complain(asTyped + ": no program: it holds no statement that can be read");
  const std::string text =
      arguments.json ? JsonOf(proof).dump(2) + '\n' : asTyped + "\n  " + ToUtf8(Report(proof));
  if (std::fwrite(text.data(), 1, text.size(), stdout) != text.size() || std::fflush(stdout) != 0)
    return Complain("the proof could not be written");
  return proof.findings.Count(Level::Fault) > 0 ? kFaults : kSound;
}

#ifdef TORVANE_DRYRUN_WINDOW
// The station starts the dry run in its own folder, where its trace lies; started by hand elsewhere, the
// usual folder of the station is meant.
std::string StationFolderNow() {
  if (std::string home = EnvironmentText("TORVANE_HOME"); !home.empty()) return home;
  std::error_code error;
  const std::filesystem::path here = std::filesystem::current_path(error);
  const auto program = RunningProgramFolder();
  if (!program || std::filesystem::exists(here / "TV_TRACE.TVG", error) ||
      std::filesystem::exists(here / "TV_G-Code_Files", error))
    return HostText(here);
  const auto station = StationFolder("", program.value());
  return station ? station.value() : program.value();
}
#endif

// The station's own command lines have no options in them: words that ask for none are a program's name.
bool HasOptions(const std::vector<std::string>& words) {
  return std::any_of(words.begin(), words.end(), [](const std::string& word) {
    for (const std::string_view option : {"--check", "--json", "--store", "--help", "-h", "--version"})
      if (word == option) return true;
    return word.starts_with("--store=");
  });
}

int Window(int& argc, char** argv, [[maybe_unused]] const Arguments& arguments) {
#ifdef TORVANE_DRYRUN_WINDOW
  if (dryrun::HasScreen()) {
    return dryrun::ShowWindow(argc, argv,
                              {ReadRequest(arguments.words), arguments.store, StationFolderNow()});
  }
  const char* const why = "there is no screen for the window";
#else
  static_cast<void>(argc);
  static_cast<void>(argv);
  const char* const why = "this build has no window: it was made without Qt 6";
#endif
  return Complain(std::string(why) + "; --check PROGRAM prints the proof");
}

int Main(int argc, char** argv) {
  CLI::App app("Runs a winding program without a machine", "Torvane_Executor.exe");
  app.allow_windows_style_options(false);  // a path may begin with a slash there too
  Arguments arguments;
  arguments.store = EnvironmentText("TORVANE_STORE");
  app.set_version_flag("--version", "Torvane_Executor.exe " TORVANE_VERSION, "Print the version and leave");
  app.add_flag("--check", arguments.check, "Print the proof of the program and leave");
  app.add_flag("--json", arguments.json, "The proof as one JSON object")->needs("--check");
  app.add_option("--store", arguments.store,
                 "Settings in this INI file [TORVANE_STORE, the user's own store]");
  app.add_option("PROGRAM", arguments.words, "The program's path, TRACE or MANUAL");
  std::vector<std::string> words = ProgramArguments(argc, argv);
  if (auto path = PathArgument(argc, argv)) {
    arguments.words = {std::move(*path)};
  } else if (HasOptions(words)) {
    try {
      std::reverse(words.begin(), words.end());  // as this parser takes them
      app.parse(words);
    } catch (const CLI::ParseError& error) {
      return app.exit(error) == 0 ? kSound : kNoProgram;
    }
  } else {
    arguments.words = std::move(words);
  }
  try {
    return arguments.check ? Check(arguments) : Window(argc, argv, arguments);
  } catch (const std::exception& error) {
    return Complain(error.what());
  }
}

}  // namespace

}  // namespace torvane::executor

int main(int argc, char** argv) {
  try {
    return torvane::executor::Main(argc, argv);
  } catch (...) {
    return 2;
  }
}
