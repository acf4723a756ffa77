// Any bytes as the settings of a station, which writes them back at its end: what it wrote reads as it was
// written, whatever the texts hold and whichever writes are refused, and nothing else has changed.
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <string>
#include <string_view>
#include <utility>

#include "host/store/ini_text.h"
#include "persist/calibration.h"
#include "persist/kept_store.h"
#include "persist/settings.h"
#include "stage/stores.h"

namespace {

using namespace torvane;

[[noreturn]] void Fail(const char* what) {
  std::fprintf(stderr, "%s\n", what);
  std::abort();
}

// A settings file in memory. `refusals` tells by its bits which of
// the next writes are refused.
class FileInMemory : public SettingsStore {
 public:
  explicit FileInMemory(IniText text) : text_(std::move(text)) {}

  std::optional<std::string> Read(std::string_view section, std::string_view key) const override {
    return text_.Find(section, key);
  }
  Outcome Write(std::string_view section, std::string_view key, std::string_view value) override {
    const bool refused = (refusals & 1U) != 0;
    refusals >>= 1U;
    if (refused) return Refusal{"There is no room."};
    text_.Set(section, key, value);
    return Done{};
  }
  // As another station finds the file.
  void ReadAnew() {
    auto read = IniText::OfFile(text_.Bytes());
    if (!read) Fail("what was written cannot be read");
    text_ = read.Take();
  }
  std::vector<Entry> All() const override { return text_.Entries(); }

  std::uint32_t refusals = 0;

 private:
  IniText text_;
};

using Name = std::pair<std::string, std::string>;

std::map<Name, std::string> Held(const SettingsStore& store) {
  std::map<Name, std::string> held;
  for (const auto& entry : store.All())
    if (!held.emplace(Name(entry.section, entry.key), entry.value).second) Fail("a key stands there twice");
  return held;
}

void ReadInto(DesignState& s, const SettingsStore& store) {
  s.gDecimalComma = s.signs.decimal == ',';
  OpenCalibrationFile(s, store);
  ReadStoredSettings(s, store);
}

// Saves the settings, and a text as the windows save one, and reads what the file then holds against what was
// to be written.
void Save(const DesignState& s, std::string_view typed, FileInMemory& file, std::uint32_t refusals) {
  std::map<Name, std::string> expected = Held(file);
  MemoryStore meant;
  SaveStoredSettings(s, meant);
  SaveSetting(meant, kSettings, "txtEmail1", typed);
  for (const auto& entry : meant.All()) expected[Name(entry.section, entry.key)] = entry.value;
  expected[Name(kSettings, "last")] = "1";

  file.refusals = refusals;
  KeptStore store(file);
  SaveStoredSettings(s, store);
  SaveSetting(store, kSettings, "txtEmail1", typed);
  for (const auto& entry : meant.All())
    if (store.Read(entry.section, entry.key) != entry.value) Fail("a refused value is lost");
  file.refusals = 0;
  SaveSetting(store, kSettings, "last", "1");
  file.ReadAnew();
  if (Held(file) != expected) Fail("the file holds something else than was written");
}

// What a start reads is what the last end wrote.
void CheckNextStart(const DesignState& s, const SettingsStore& store) {
  DesignState next(s.signs);
  ReadInto(next, store);
  MemoryStore written, again;
  SaveStoredSettings(s, written);
  SaveStoredSettings(next, again);
  if (Held(written) != Held(again)) Fail("the next start reads other settings");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  auto text = IniText::OfFile(std::string(bytes));
  if (!text) return 0;
  FileInMemory file(text.Take());
  // Most writes of a disk that is full are refused; it need not be all of them.
  const std::uint32_t refusals = size > 2 ? data[size / 2] * 0x01010101U ^ data[size / 3] : 0;
  for (const char decimal : {'.', ','}) {
    DesignState s({decimal, '/', ':'});
    ReadInto(s, file);
    Save(s, bytes, file, refusals);
    CheckNextStart(s, file);
    // As typed, or taken from a clipboard.
    s.gMidAngle = bytes.substr(0, size / 2);
    s.gPauseBeforeHoop = bytes.substr(size / 2);
    s.gLastFileInUse = bytes;
    Save(s, "", file, 0);
  }
  return 0;
}
