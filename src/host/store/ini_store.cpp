#include "host/store/ini_store.h"

#include <chrono>

#include "host/files/paths.h"
#include "host/store/default_store.h"
#include "platform/files.h"
#include "text/code_page.h"

namespace torvane {

namespace {

// A file changed as lately as this may change again within one tick of its file system's clock, which shows
// in no stamp. The coarsest such clock ticks every two seconds.
constexpr std::chrono::nanoseconds kTick = std::chrono::seconds(2);

bool Settled(const std::optional<FileStamp>& stamp) {
  const auto now = std::chrono::system_clock::now().time_since_epoch();
  return !stamp || now - std::chrono::nanoseconds(stamp->modified) > kTick;
}

// Of a file that is not there, too: nothing.
Result<IniText> TextOf(const std::filesystem::path& path) {
  std::error_code error;
  if (path.empty() || !std::filesystem::exists(path, error)) {
    if (error) return Refusal{ReasonOf(error)};
    return IniText();
  }
  auto bytes = ReadRegularFile(path, kLargestText);
  return bytes ? IniText::OfFile(bytes.Take()) : Refusal{bytes.reason()};
}

}  // namespace

IniStore::IniStore(std::string_view hostPath, std::chrono::milliseconds patience)
    : path_(SystemPath(hostPath)), patience_(patience) {}

const IniStore::Seen& IniStore::Current() const {
  const auto stamp = StampOf(path_);
  // What could not be read is tried again: a right that is given shows in no stamp.
  if (seen_ && seen_->readable && seen_->stamp == stamp &&
      (seen_->settled || !stamp || HoldsJust(path_, seen_->text.Bytes()))) {
    seen_->settled = Settled(stamp);
    return *seen_;
  }
  seen_.reset();  // its room is needed
  auto text = TextOf(path_);
  if (text)
    seen_ = Seen{stamp, Settled(stamp), text.Take()};
  else
    seen_ = Seen{stamp, Settled(stamp), IniText(), Refused("cannot be read", text.reason())};
  return *seen_;
}

Refusal IniStore::Refused(std::string_view what, std::string_view reason) const {
  const auto name = FromUtf8(HostText(path_));
  return {"The settings in " + (name ? name.value() : "their file") + " " + std::string(what) + ". " +
          std::string(reason)};
}

Outcome IniStore::Readable() const { return Current().readable; }

std::optional<std::string> IniStore::Read(std::string_view section, std::string_view key) const {
  return Current().text.Find(section, key);
}

Outcome IniStore::WriteAll(const std::vector<Entry>& entries) {
  const auto refused = [&](const std::string& reason) { return Refused("cannot be written", reason); };
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

  if (const Outcome& readable = Current().readable; !readable) return readable;
  IniText& text = seen_->text;
  bool changed = false;
  for (const Entry& entry : entries) {
    if (text.Find(entry.section, entry.key) == entry.value) continue;
    text.Set(entry.section, entry.key, entry.value);
    changed = true;
  }
  if (!changed) return Done{};
  if (text.Bytes().size() > kLargestText) {
    seen_.reset();  // it holds what the file does not
    return refused("The file would be larger than what is read.");
  }
  RemoveLeftovers(target.parent_path());
  const Result<Replacement> replaced = ReplaceWhole(target, ContentOf({text.Bytes()}));
  if (!replaced) {
    seen_.reset();
    return refused(replaced.reason());
  }
  seen_->stamp = StampOf(path_);
  seen_->settled = false;
  return Done{};
}

std::vector<SettingsStore::Entry> IniStore::All() const { return Current().text.Entries(); }

std::unique_ptr<SettingsStore> StoreAt(std::string_view hostPath) {
  return hostPath.empty() ? DefaultStore() : std::make_unique<IniStore>(hostPath);
}

std::string MissingStoreNote(std::string_view hostPath) {
  std::error_code error;
  if (hostPath.empty() || std::filesystem::exists(SystemPath(hostPath), error) || error) return "";
  return "note: there is no settings file " + std::string(hostPath) + "; each setting has its default";
}

}  // namespace torvane
