#include "host/store/registry_store_windows.h"

#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

#include <memory>

#include "host/files/file_system.h"
#include "host/files/wide_windows.h"
#include "host/store/default_store.h"
#include "text/code_page.h"

namespace torvane {

namespace {

constexpr wchar_t kStation[] = L"Software\\Torvane";
constexpr DWORD kLongestName = 16384;  // of a value, with its end; a section's is far shorter

class OpenKey {
 public:
  explicit OpenKey(const std::wstring& path) {
    status_ = RegOpenKeyExW(HKEY_CURRENT_USER, path.c_str(), 0, KEY_READ, &key_);
    if (status_ != ERROR_SUCCESS) key_ = nullptr;
  }
  ~OpenKey() {
    if (key_ != nullptr) RegCloseKey(key_);
  }
  OpenKey(const OpenKey&) = delete;
  OpenKey& operator=(const OpenKey&) = delete;

  explicit operator bool() const { return key_ != nullptr; }
  HKEY Get() const { return key_; }
  // Also where there is no such key.
  Outcome Readable() const {
    if (status_ == ERROR_SUCCESS || status_ == ERROR_FILE_NOT_FOUND) return Done{};
    return Refusal{"The settings in the registry cannot be read. " +
                   ReasonOf({static_cast<int>(status_), std::system_category()})};
  }

 private:
  HKEY key_ = nullptr;
  LSTATUS status_ = ERROR_SUCCESS;
};

std::wstring WideText(std::string_view text) { return Wide(ToUtf8(text)); }

bool CanHold(std::string_view section, std::string_view key, std::string_view value) {
  const auto holdsNul = [](std::string_view text) { return text.find('\0') != std::string_view::npos; };
  return !section.empty() && section.find('\\') == std::string_view::npos && !holdsNul(section) &&
         !holdsNul(key) && !holdsNul(value);
}

std::wstring PathOf(std::string_view section) { return std::wstring(kStation) + L"\\" + WideText(section); }

std::optional<std::string> ValueIn(const OpenKey& section, const std::wstring& name) {
  DWORD bytes = 0;
  // Another station may lengthen the text between the two calls.
  for (int attempt = 0; attempt < 8; ++attempt) {
    std::wstring value(bytes / sizeof(wchar_t), L'\0');
    const LSTATUS status = RegGetValueW(section.Get(), nullptr, name.c_str(), RRF_RT_REG_SZ, nullptr,
                                        value.empty() ? nullptr : value.data(), &bytes);
    if (status == ERROR_SUCCESS && !value.empty()) {
      value.resize(value.find(L'\0'));  // an end is always there
      const auto text = FromUtf8(Narrow(value));
      return text ? std::optional(text.value()) : std::nullopt;
    }
    if (status != ERROR_SUCCESS && status != ERROR_MORE_DATA) return std::nullopt;
  }
  return std::nullopt;
}

// The names that `next(index, name, length)` gives one after the other until it gives an error.
template <class Next>
std::vector<std::wstring> Names(Next next) {
  std::vector<std::wstring> names;
  for (DWORD i = 0;; ++i) {
    std::wstring name(kLongestName, L'\0');
    DWORD length = kLongestName;
    if (next(i, name.data(), &length) != ERROR_SUCCESS) return names;
    name.resize(length);
    names.push_back(std::move(name));
  }
}

std::vector<std::wstring> SectionsOf(const OpenKey& station) {
  return Names([&](DWORD i, wchar_t* name, DWORD* length) {
    return RegEnumKeyExW(station.Get(), i, name, length, nullptr, nullptr, nullptr, nullptr);
  });
}

}  // namespace

Outcome RegistryStore::Readable() const {
  const OpenKey station(kStation);
  if (!station) return station.Readable();
  for (const auto& section : SectionsOf(station))
    if (const Outcome readable = OpenKey(std::wstring(kStation) + L"\\" + section).Readable(); !readable)
      return readable;
  return Done{};
}

std::optional<std::string> RegistryStore::Read(std::string_view section, std::string_view key) const {
  if (!CanHold(section, key, "")) return std::nullopt;
  const OpenKey open(PathOf(section));
  return open ? ValueIn(open, WideText(key)) : std::nullopt;
}

Outcome RegistryStore::Write(std::string_view section, std::string_view key, std::string_view value) {
  if (!CanHold(section, key, value))
    return Refusal{"The registry cannot hold a setting of this name or value."};
  const std::wstring text = WideText(value);
  const LSTATUS status =
      RegSetKeyValueW(HKEY_CURRENT_USER, PathOf(section).c_str(), WideText(key).c_str(), REG_SZ, text.c_str(),
                      static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t)));
  if (status != ERROR_SUCCESS) {
    return Refusal{"The settings cannot be written. " +
                   ReasonOf({static_cast<int>(status), std::system_category()})};
  }
  return Done{};
}

std::vector<SettingsStore::Entry> RegistryStore::All() const {
  std::vector<Entry> entries;
  const OpenKey station(kStation);
  if (!station) return entries;
  for (const auto& section : SectionsOf(station)) {
    const OpenKey open(std::wstring(kStation) + L"\\" + section);
    if (!open) continue;
    const auto keys = Names([&](DWORD i, wchar_t* name, DWORD* length) {
      return RegEnumValueW(open.Get(), i, name, length, nullptr, nullptr, nullptr, nullptr);
    });
    for (const auto& key : keys) {
      const auto value = ValueIn(open, key);
      const auto sectionName = FromUtf8(Narrow(section)), keyName = FromUtf8(Narrow(key));
      if (value && sectionName && keyName) entries.push_back({sectionName.value(), keyName.value(), *value});
    }
  }
  return entries;
}

std::unique_ptr<SettingsStore> DefaultStore() { return std::make_unique<RegistryStore>(); }

}  // namespace torvane
