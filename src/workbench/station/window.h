// A window beside the main one, with fields of its own.
#pragma once

#include <span>
#include <string_view>
#include <vector>

#include "design/catalogue.h"
#include "design/field.h"
#include "workbench/station/operations.h"

namespace torvane {

// A field of a window, or a row of them: `txtcSpeed(0)` to `(2)`.
struct WindowField {
  std::string_view name;
  Kind kind;
  FieldWords words = {};
  IndexSet indexes{};
  bool isArray = false;
};

// It lives while it is open. A name that exists in an open window means the window's.
class Window : private ChangeOperations, private FieldWatcher {
 public:
  Window(Station& station, std::string_view name, std::span<const WindowField> fields);
  Window(const Window&) = delete;
  Window& operator=(const Window&) = delete;
  ~Window() override;

  std::string_view name() const { return name_; }
  // Null if the window has no such field.
  Field* Find(std::string_view name);
  // Whether a field is one of this window's.
  bool Owns(const Field& field) const;

  // The other windows wait until it is closed.
  bool modal() const { return modal_; }

  // What an event sets off here; false if nothing answers to that control.
  virtual bool Run(std::string_view control, Event event, int index) = 0;
  // The window is about to close, by whatever road.
  virtual void Closing() {}

 protected:
  void SetModal(bool modal) { modal_ = modal; }
  Station& station() const { return station_; }
  // A field that the window is known to have.
  Field& field(std::string_view name);

 private:
  void Changed(const Field& field) override { Run(field.row().name, Event::Change, field.index()); }

  // The station's watcher watches here too, whoever that is at the time.
  void Repaint(const Field& field) override;

  Station& station_;
  std::string_view name_;
  FieldOwner owner_;
  std::vector<FieldRow> rows_;
  std::vector<Field> fields_;
  bool modal_ = false;
};

}  // namespace torvane
