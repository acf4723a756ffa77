// Any bytes as the settings file: what it says is kept when a key is written, and a start reads it.
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "host/store/ini_text.h"
#include "persist/calibration.h"
#include "persist/settings.h"

namespace {

using namespace torvane;

class TextStore : public SettingsStore {
 public:
  explicit TextStore(const IniText& text) : text_(text) {}
  std::optional<std::string> Read(std::string_view section, std::string_view key) const override {
    return text_.Find(section, key);
  }
  Outcome Write(std::string_view, std::string_view, std::string_view) override { return Done{}; }
  std::vector<Entry> All() const override { return text_.Entries(); }

 private:
  const IniText& text_;
};

void Write(const IniText& former, std::string_view section, std::string_view key, std::string_view value) {
  IniText text = former;
  text.Set(section, key, value);
  const IniText read(text.Bytes());
  if (read.Find(section, key) != value || text.Find(section, key) != value) std::abort();
  for (const auto& entry : former.Entries())
    if ((entry.section != section || entry.key != key) &&
        (read.Find(entry.section, entry.key) != entry.value ||
         text.Find(entry.section, entry.key) != entry.value))
      std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  const auto file = IniText::OfFile(std::string(bytes));
  const IniText text = file ? file.value() : IniText(std::string(bytes));
  Write(text, "Settings", "txtHGSpeed", "2.5");
  // Any texts as section, key and value.
  const std::size_t third = bytes.size() / 3;
  Write(text, bytes.substr(0, third), bytes.substr(third, third), bytes.substr(2 * third));

  const TextStore store(text);
  for (const bool comma : {false, true}) {
    DesignState s({comma ? ',' : '.', '/', ':'});
    s.gDecimalComma = comma;
    OpenCalibrationFile(s, store);
    ReadStoredSettings(s, store);
  }
  return 0;
}
