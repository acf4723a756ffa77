// The settings store in a file (its text: IniText). Stations that run at once may share the file: a write
// takes in what the others wrote before it, and the file is replaced in one step.
#pragma once

#include <chrono>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/files/file_system.h"
#include "host/store/ini_text.h"
#include "platform/settings_store.h"

namespace torvane {

class IniStore : public SettingsStore {
 public:
  // Neither the file nor its folder need be there; the first write makes them. With an empty path nothing is
  // read and writes are refused. A write waits for another station's lock with `patience`; behind one that
  // waited in vain, the next ones do not wait.
  explicit IniStore(std::string_view hostPath, std::chrono::milliseconds patience = std::chrono::seconds(10));

  Outcome Readable() const override;
  std::optional<std::string> Read(std::string_view section, std::string_view key) const override;
  // Refused, with the file as it was, where it cannot be read, locked or replaced, or would become larger
  // than what is read.
  Outcome Write(std::string_view section, std::string_view key, std::string_view value) override {
    return WriteAll({{std::string(section), std::string(key), std::string(value)}});
  }
  Outcome WriteAll(const std::vector<Entry>& entries) override;
  std::vector<Entry> All() const override;

 private:
  struct Seen {
    std::optional<FileStamp> stamp;
    bool settled = false;
    IniText text;
    Outcome readable = Done{};
  };

  const Seen& Current() const;
  // With the reason behind the file's name.
  Refusal Refused(std::string_view what, std::string_view reason) const;

  std::filesystem::path path_;
  std::chrono::milliseconds patience_;
  bool lockedOut_ = false;
  mutable std::optional<Seen> seen_;
};

}  // namespace torvane
