#include <cstdio>
#include <fstream>

#include "cli/command/commands.h"
#include "host/files/file_system.h"
#include "host/files/paths.h"
#include "host/files/station_folder.h"
#include "post/machine/machine.h"
#include "post/motion/motions.h"
#include "post/proof/proof.h"
#include "post/write/writer.h"
#include "text/code_page.h"

namespace torvane {

namespace {

namespace fs = std::filesystem;

fs::path PathOf(const std::string& argument) {
  const Result<std::string> path = AbsolutePath(argument);
  if (!path) throw UsageError{Because(argument, path.reason())};
  return SystemPath(path.value());
}

// The file of a machine that came with the program, or of the path.
fs::path MachineFile(const std::string& machine) {
  if (machine.find_first_of("/\\.") != std::string::npos) return PathOf(machine);
  const Result<std::string> program = RunningProgramFolder();
  if (!program) throw UsageError{ToUtf8(program.reason())};
  const fs::path folder = SystemPath(MachineFolder(program.value()));
  fs::path file = folder / SystemPath(machine + ".json");
  std::error_code error;
  if (!folder.empty() && fs::is_regular_file(file, error)) return file;
  std::string known;
  for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error))
    if (entry->path().extension() == ".json") known += ' ' + HostText(entry->path().stem());
  throw UsageError{"there is no machine " + machine +
                   "; it is the path of a file (.json) or one of:" + known};
}

post::Machine MachineOf(const fs::path& file) {
  constexpr std::uint64_t kLargest = std::uint64_t{1024} * 1024;
  const Result<std::string> text = ReadRegularFile(file, kLargest);
  if (!text) throw CannotGoOn{Because(HostText(file), text.reason())};
  Result<post::Machine> machine = post::ReadMachine(text.value());
  if (!machine) throw CannotGoOn{Because(HostText(file), machine.reason())};
  return machine.Take();
}

fs::path OutFile(const PostOptions& options, const fs::path& program, const fs::path& machineFile,
                 const post::Machine& machine) {
  if (!options.out.empty()) return PathOf(options.out);
  fs::path out = program;
  out.replace_extension();
  out += "." + HostText(machineFile.stem()) + std::string(EndingOf(machine.controller));
  return out;
}

// Hands the program's motions to the listener, whose own refusal stands before that of the program.
template <class Taker>
Outcome Follow(const fs::path& program, post::Motions& motions, Taker& taker) {
  if (Outcome read = ReadBlocks(program, [&](std::string_view block) { return motions.Take(block); }); !read)
    return read;
  Outcome finished = motions.Finish();
  if (Outcome taken = taker.Finish(); !taken) {
    // Its own breaking off is no news where the program itself does.
    return finished ? taken : finished;
  }
  return finished;
}

struct Written {
  std::vector<std::string> notes;
  double seconds = 0;
};

Outcome Write(const PostOptions& options, const fs::path& program, const post::Machine& machine,
              const std::function<bool(std::string_view)>& take, Written& written) {
  // Handed over in blocks of a size that the system takes at once.
  constexpr std::size_t kBlock = 65536;
  std::string block;
  const auto put = [&](std::string_view bytes) {
    block += bytes;
    if (block.size() < kBlock) return true;
    const bool taken = take(block);
    block.clear();
    return taken;
  };
  post::Writer writer(machine, HostText(program.filename()), put);
  post::Motions motions(writer, options.endlessTurns);
  if (Outcome followed = Follow(program, motions, writer); !followed) return followed;
  written.notes = motions.LeftOut();
  for (std::string& note : writer.Notes()) written.notes.push_back(std::move(note));
  take(block);
  return Done{};
}

Outcome Prove(const PostOptions& options, const fs::path& program, const post::Machine& machine,
              const fs::path& file, Written& written) {
  std::ifstream lines(file, std::ios::binary);
  post::Proof proof(machine, [&](std::string& line) {
    if (!std::getline(lines, line)) return false;
    if (!line.empty() && line.back() == '\r') line.pop_back();
    return true;
  });
  post::Motions motions(proof, options.endlessTurns);
  Outcome followed = Follow(program, motions, proof);
  written.seconds = proof.seconds();
  if (followed) return followed;
  return Refusal{"what was written does something else, and is not kept: " + followed.reason()};
}

}  // namespace

int RunPost(const PostOptions& options) {
  const fs::path program = PathOf(options.program);
  const fs::path machineFile = MachineFile(options.machine);
  const post::Machine machine = MachineOf(machineFile);
  const fs::path out = OutFile(options, program, machineFile, machine);
  std::error_code error;
  if (fs::equivalent(program, out, error)) throw UsageError{options.out + ": this is the program itself"};
  Written written;
  Outcome outcome = Done{};
  const auto write = [&](const std::function<bool(std::string_view)>& take) {
    return outcome = Write(options, program, machine, take, written);
  };
  const auto prove = [&](const fs::path& file) {
    return outcome = Prove(options, program, machine, file, written);
  };
  const Result<Replacement> replaced = ReplaceWhole(out, write, Lasting::Now, Links::Followed, prove);
  if (!replaced) {
    // Of the program where that is to blame, else of the file.
    Complain(Because(outcome ? HostText(out) : options.program, replaced.reason()));
    return kFailed;
  }
  std::printf("%s\n", HostText(out).c_str());
  for (const std::string& note : written.notes) std::printf("  %s\n", note.c_str());
  return kDone;
}

}  // namespace torvane
