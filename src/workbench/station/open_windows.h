// The windows that are open beside the main one.
#pragma once

#include <functional>
#include <memory>
#include <string_view>
#include <vector>

#include "workbench/station/window.h"

namespace torvane {

// The topmost comes last. Opening one returns at once.
class OpenWindows {
 public:
  // A window of a kind, on top; one that is open already stays as it is.
  template <class KindOfWindow>
  KindOfWindow& OpenOnce(Station& station) {
    KindOfWindow* const open = Find<KindOfWindow>();
    return open != nullptr ? *open : Open<KindOfWindow>(station);
  }
  template <class KindOfWindow>
  KindOfWindow& Open(Station& station) {
    auto window = std::make_unique<KindOfWindow>(station);
    KindOfWindow& opened = *window;
    windows_.push_back(std::move(window));
    return opened;
  }
  // The open window of a kind; null if there is none.
  template <class KindOfWindow>
  KindOfWindow* Find() const {
    for (const auto& window : windows_)
      if (auto* const found = dynamic_cast<KindOfWindow*>(window.get())) return found;
    return nullptr;
  }
  // The same by the name that scripts and tests know it by.
  Window* Find(std::string_view name) const;
  // Whether a window is open still; it may be gone.
  bool Hold(const Window* window) const;
  // The window that a field belongs to; null if it is one of the main window.
  Window* OwnerOf(const Field& field) const;

  // Tells the window and destroys it.
  void Close(Window& window);

  bool empty() const { return windows_.empty(); }
  std::size_t size() const { return windows_.size(); }
  Window& operator[](std::size_t place) const { return *windows_[place]; }
  Window& Top() const { return *windows_.back(); }

  // Told of a window that is about to be destroyed: whoever shows it must not look at its fields any more.
  std::function<void(const Window& window)> closes;

 private:
  std::vector<std::unique_ptr<Window>> windows_;
};

}  // namespace torvane
