#include "workbench/station/window.h"

#include <algorithm>
#include <cassert>

#include "workbench/station/open_windows.h"
#include "workbench/station/station.h"

namespace torvane {

Window::Window(Station& station, std::string_view name, std::span<const WindowField> fields)
    : station_(station), name_(name), owner_(station.s.signs) {
  rows_.reserve(fields.size());
  std::size_t count = 0;
  for (const WindowField& f : fields) count += static_cast<std::size_t>(f.indexes.count());
  fields_.reserve(count);
  for (const WindowField& f : fields) {
    FieldRow row{f.name, static_cast<Field Fields::*>(nullptr), f.kind, UsedBy::Window, f.indexes, "",
                 f.words};
    if (f.isArray) row.member = static_cast<FieldArray Fields::*>(nullptr);
    rows_.push_back(row);
    for (int index = f.indexes.first; index <= f.indexes.last; ++index)
      fields_.emplace_back(owner_, rows_.back(), index);
  }
  owner_.operations = this;
  owner_.watcher = this;
  owner_.skips = station.s.skips;
}

Window::~Window() {
  if (station_.s.focus != nullptr && Owns(*station_.s.focus)) station_.s.focus = nullptr;
  if (station_.s.watcher == nullptr) return;
  for (const Field& gone : fields_) station_.s.watcher->Gone(gone);
}

void Window::Repaint(const Field& field) {
  if (station_.s.watcher != nullptr) station_.s.watcher->Repaint(field);
}

Field* Window::Find(std::string_view name) {
  const auto found =
      std::find_if(fields_.begin(), fields_.end(), [name](const Field& f) { return NameOf(f) == name; });
  return found == fields_.end() ? nullptr : &*found;
}

bool Window::Owns(const Field& field) const {
  return std::any_of(fields_.begin(), fields_.end(), [&field](const Field& f) { return &f == &field; });
}

Field& Window::field(std::string_view name) {
  Field* found = Find(name);
  assert(found != nullptr);
  return *found;
}

Window* OpenWindows::Find(std::string_view name) const {
  for (const auto& window : windows_)
    if (window->name() == name) return window.get();
  return nullptr;
}

bool OpenWindows::Hold(const Window* window) const {
  return std::any_of(windows_.begin(), windows_.end(),
                     [window](const auto& open) { return open.get() == window; });
}

Window* OpenWindows::OwnerOf(const Field& field) const {
  for (const auto& window : windows_)
    if (window->Owns(field)) return window.get();
  return nullptr;
}

void OpenWindows::Close(Window& window) {
  window.Closing();
  if (closes) closes(window);
  std::erase_if(windows_, [&window](const auto& open) { return open.get() == &window; });
}

}  // namespace torvane
