#include "host/ini_store.h"

#include <chrono>

#include "host/code_page.h"
#include "host/default_store.h"
#include "host/paths.h"

namespace torvane {

namespace {

// A file changed as lately as this may change again within one tick of its file system's clock, which shows
// in no stamp. The coarsest such clock ticks every two seconds.
constexpr std::chrono::nanoseconds kTick = std::chrono::seconds(2);

bool Settled(const std::optional<FileStamp>& stamp) {
  const auto now = std::chrono::system_clock::now().time_since_epoch();
  return !stamp || now - std::chrono::nanoseconds(stamp->modified) > kTick;
}

}  // namespace

IniStore::IniStore(std::string_view hostPath, std::chrono::milliseconds patience)
    : path_(SystemPath(hostPath)), patience_(patience) {}

const IniText& IniStore::Current() const {
  const auto stamp = StampOf(path_);
  if (!seen_ || !seen_->settled || seen_->stamp != stamp) {
    const auto bytes = ReadRegularFile(path_);
    seen_ = Seen{stamp, Settled(stamp), IniText(bytes ? bytes.value() : "")};
  }
  return seen_->text;
}

std::optional<std::string> IniStore::Read(std::string_view section, std::string_view key) const {
  return Current().Find(section, key);
}

Outcome IniStore::Write(std::string_view section, std::string_view key, std::string_view value) {
  const auto refused = [&](const std::string& reason) -> Outcome {
    const auto name = FromUtf8(HostText(path_));
    return Refusal{"The settings in " + (name ? name.value() : "their file") + " cannot be written. " +
                   reason};
  };
  if (path_.empty()) return Refusal{"There is no folder for the settings."};

  const auto target = LinksFollowed(path_);
  std::error_code error;
  if (target.has_parent_path()) std::filesystem::create_directories(target.parent_path(), error);
  if (error) return refused(ReasonOf(error));

  auto lockPath = target;
  lockPath += ".lock";
  // Who has waited in vain does not make the operator wait at every key.
  const FileLock lock(lockPath, lockedOut_ ? std::chrono::milliseconds(0) : patience_);
  lockedOut_ = !lock.Taken();
  if (!lock.Taken()) return refused(lock.Taken().reason());

  std::string bytes;
  if (StampOf(target)) {
    const auto read = ReadRegularFile(target);
    if (!read) return refused(read.reason());
    bytes = read.value();
  }
  IniText text(bytes);
  if (text.Find(section, key) == value) return Done{};
  text.Set(section, key, value);
  RemoveLeftovers(target.parent_path());
  const Result<Replacement> replaced = ReplaceWhole(target, {text.Bytes()});
  seen_.reset();
  return replaced ? Done{} : refused(replaced.reason());
}

std::vector<SettingsStore::Entry> IniStore::All() const { return Current().Entries(); }

std::unique_ptr<SettingsStore> StoreAt(std::string_view hostPath) {
  return hostPath.empty() ? DefaultStore() : std::make_unique<IniStore>(hostPath);
}

}  // namespace torvane
