#include "host/files/station_folder.h"

#include <filesystem>
#include <random>

#include "host/files/file_system.h"
#include "host/files/paths.h"

namespace torvane {

namespace {

namespace fs = std::filesystem;

constexpr const char* kPrograms[] = {"Torvane_Designer", "torvane", "Torvane_Executor.exe"};

// Of a system-wide installation.
fs::path Shared(const fs::path& programFolder, const char* name) {
  return programFolder.parent_path() / "share" / "torvane" / name;
}

fs::path SamplesOf(const fs::path& programFolder) { return Shared(programFolder, "samples"); }

std::string FirstFolder(std::initializer_list<fs::path> folders) {
  std::error_code error;
  for (const fs::path& folder : folders)
    if (fs::is_directory(folder, error)) return HostText(folder);
  return {};
}

bool IsInstalled(const fs::path& programFolder) {
  std::error_code error;
  return fs::is_directory(SamplesOf(programFolder), error);
}

// A link that leads nowhere, or into another installation, is one that a former start left.
bool IsOfAFormerStart(const fs::path& link) {
  std::error_code error;
  if (!fs::is_symlink(link, error)) return false;
  return !fs::exists(link, error) || IsInstalled(fs::read_symlink(link, error).parent_path());
}

Outcome LinkProgram(const fs::path& program, const fs::path& link) {
  std::error_code error;
  if (!fs::exists(program, error) || fs::read_symlink(link, error) == program) return Done{};
  if (IsOfAFormerStart(link)) fs::remove(link, error);
  if (fs::exists(link, error)) return Done{};
  fs::create_symlink(program, link, error);
  if (error && error != std::errc::file_exists)
    return Refusal{HostText(link.filename()) + ": " + ReasonOf(error)};
  return Done{};
}

// The designs come in one step, so that a start that is broken off leaves all of them to the next one; a
// folder that holds something does not give way.
Outcome LayOutSamples(const fs::path& samples, const fs::path& designs) {
  std::error_code error;
  if (fs::exists(designs, error) && !fs::is_empty(designs, error)) return Done{};
  auto beside = designs;
  beside += "." + std::to_string(std::random_device{}());
  fs::create_directory(beside, error);
  for (fs::directory_iterator sample(samples, error), end; !error && sample != end; sample.increment(error)) {
    const auto kind = sample->path().extension();
    if (kind == ".t2d" || kind == ".t4d") fs::copy_file(*sample, beside / sample->path().filename(), error);
    if (error) break;
  }
  const std::error_code copying = error;
  if (!copying) fs::rename(beside, designs, error);
  std::error_code ignored;
  if (error) fs::remove_all(beside, ignored);
  return copying ? Outcome(Refusal{"The samples cannot be copied. " + ReasonOf(copying)}) : Done{};
}

}  // namespace

Result<std::string> StationFolder(std::string_view asked, std::string_view programFolder) {
  if (!asked.empty()) return std::string(asked);
  if (!IsInstalled(SystemPath(programFolder))) return std::string(programFolder);
  const std::string home = UserFolder();
  if (home.empty()) return Refusal{"There is no folder of the user: the variable HOME is not set."};
  return home + "/Torvane";
}

std::string SampleFolder(std::string_view programFolder) {
  const fs::path program = SystemPath(programFolder);
  return FirstFolder({SamplesOf(program), program / "samples"});
}

std::string GuideFolder(std::string_view programFolder) {
  const fs::path program = SystemPath(programFolder);
  return FirstFolder({Shared(program, "guide"), program / "docs"});
}

std::string MachineFolder(std::string_view programFolder) {
  const fs::path program = SystemPath(programFolder);
  return FirstFolder({Shared(program, "machines"), program / "machines"});
}

Outcome PrepareStationFolder(std::string_view folder, std::string_view programFolder) {
  const fs::path installed = SystemPath(programFolder), station = SystemPath(folder);
  if (!IsInstalled(installed)) return Done{};
  std::error_code error;
  fs::create_directories(station / "TV_G-Code_Files", error);
  if (error) return Refusal{ReasonOf(error)};
  for (const char* program : kPrograms) {
    const Outcome linked = LinkProgram(installed / program, station / program);
    if (!linked) return linked;
  }
  return LayOutSamples(SamplesOf(installed), station / "TV_Design_Files");
}

}  // namespace torvane
