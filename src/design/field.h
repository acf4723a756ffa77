// A text of the operator's window with everything that a window shows of it.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "text/number_text.h"

namespace torvane {

class Field;
struct FieldRow;

// What a write sets off. Runs inside the write, after the new text stands.
class ChangeOperations {
 public:
  virtual ~ChangeOperations() = default;
  virtual void Changed(const Field& field) = 0;
};

// Told of everything that a window has to draw anew: text, mark, list, caption and the like.
class FieldWatcher {
 public:
  virtual ~FieldWatcher() = default;
  virtual void Repaint(const Field& field) = 0;
  // The field is about to go, with its window.
  virtual void Gone(const Field&) {}
};

// Told of each write that a failed number has skipped, and of the routine that would have written; that is
// empty where a text of its own was made of the number.
class SkipWatcher {
 public:
  virtual ~SkipWatcher() = default;
  virtual void Skipped(const Field& field, std::string_view routine) = 0;
};

// What all fields of one design share.
struct FieldOwner {
  explicit FieldOwner(NumberSigns signsOfComputer) : signs(signsOfComputer) {}

  NumberSigns signs;
  ChangeOperations* operations = nullptr;
  FieldWatcher* watcher = nullptr;
  SkipWatcher* skips = nullptr;  // null if nobody looks
};

// NoNumber is no field's own mark: it is shown of a text that a number's field cannot read.
enum class Mark : std::uint8_t { Plain, NeedsInput, TooHigh, StopTooLow, NoNumber };

// What a window shows of a field beside its text.
struct Looks {
  Mark mark = Mark::Plain;
  bool enabled = true;
  bool shown = true;
  bool bold = false;
  std::string tip;
  std::string caption;
  std::shared_ptr<const std::vector<std::string>> entries;  // of a list; null if there are none

  bool operator==(const Looks&) const = default;
};

// One text. A write of the same text does nothing; a write of another text stores it, tells the watcher
// and runs the change operation before it returns. A write whose number failed has no effect.
class Field {
 public:
  Field();
  Field(FieldOwner& owner, const FieldRow& row, int index);
  Field(Field&&) noexcept;
  ~Field();
  Field(const Field&) = delete;
  Field& operator=(const Field&) = delete;
  Field& operator=(Field&&) = delete;

  // False of the field that stands for an index which its array does not have: it reads as a failure and
  // ignores writes.
  bool exists() const { return owner_ != nullptr; }
  // Its row of the catalogue; only of a field that exists.
  const FieldRow& row() const { return *row_; }
  int index() const { return index_; }

  const std::string& text() const { return text_; }
  bool empty() const { return text_.empty(); }
  // What the text reads as; a failure if it is no number.
  Number number() const;
  // The text under a mask; a text that is no number as it stands.
  std::string through(Mask mask) const {
    return exists() ? FormatNumberText(owner_->signs, text_, mask) : std::string();
  }
  // Of a check box or option.
  bool checked() const { return text_ == "1" || text_ == "True"; }

  Field& operator=(std::string_view text);
  Field& operator=(const char* text) { return *this = std::string_view(text); }
  Field& operator=(const std::string& text) { return *this = std::string_view(text); }
  Field& operator=(const MaybeText& text);
  Field& operator=(const Masked& number);
  Field& operator=(const Plain& number);
  // Takes the text of another field; nothing happens if that one is not there.
  void CopyFrom(const Field& other);
  // Sets a text without any operation.
  void Restore(std::string_view text);
  // Gives a field its place; its text and caption become those that it has at the start of the program.
  void Attach(FieldOwner& owner, const FieldRow& row, int index);

  const Looks& looks() const { return looks_; }
  // Sets what is shown without any operation.
  void RestoreLooks(const Looks& looks);

  Mark mark() const { return looks_.mark; }
  bool enabled() const { return looks_.enabled; }
  bool shown() const { return looks_.shown; }
  bool bold() const { return looks_.bold; }
  const std::string& tip() const { return looks_.tip; }
  const std::string& caption() const { return looks_.caption; }
  const std::vector<std::string>& entries() const;

  // Each tells the watcher if something changes; no operation runs.
  void SetMark(Mark mark) { Set(looks_.mark, mark); }
  void Enable(bool enabled) { Set(looks_.enabled, enabled); }
  void Show(bool shown) { Set(looks_.shown, shown); }
  void SetBold(bool bold) { Set(looks_.bold, bold); }
  void SetTip(const std::string& tip) { Set(looks_.tip, tip); }
  void SetCaption(const std::string& caption) { Set(looks_.caption, caption); }
  void SetEntries(std::vector<std::string> entries);

 private:
  void Repaint() const;
  Field& Skip(const char* routine);

  template <class Value>
  void Set(Value& place, Value value) {
    if (!exists() || place == value) return;
    place = std::move(value);
    Repaint();
  }

  FieldOwner* owner_ = nullptr;
  const FieldRow* row_ = nullptr;
  std::string text_;
  // The number that the text reads as, worked out at the first reading.
  mutable Number number_ = Number::Failure();
  mutable bool numberKnown_ = false;
  int index_ = 0;
  Looks looks_;
};

// So that a formula reads alike of fields and of its own numbers.
inline Number number(const Field& field) { return field.number(); }

// The indexes of a field array: a range, and perhaps the all-rows row.
struct IndexSet {
  static constexpr int kAllRows = 26;

  int first = 0;
  int last = 0;
  bool allRows = false;

  constexpr int count() const { return last - first + 1 + (allRows ? 1 : 0); }
  // Place of an index in the array, -1 if it is not of the set.
  constexpr int Place(int index) const {
    if (index >= first && index <= last) return index - first;
    return allRows && index == kAllRows ? last - first + 1 : -1;
  }
  constexpr int IndexAt(int place) const { return place <= last - first ? first + place : kAllRows; }
};

// A row of fields: `txtWA(3)`.
class FieldArray {
 public:
  FieldArray() = default;
  FieldArray(FieldOwner& owner, const FieldRow& row, IndexSet indexes);
  FieldArray(const FieldArray&) = delete;
  FieldArray& operator=(const FieldArray&) = delete;
  FieldArray& operator=(FieldArray&&) = default;

  Field& operator()(int index) { return fields_[Slot(index)]; }
  const Field& operator()(int index) const { return fields_[Slot(index)]; }
  const IndexSet& indexes() const { return indexes_; }

 private:
  // The last slot holds the field that is not there.
  std::size_t Slot(int index) const {
    const int place = indexes_.Place(index);
    return place < 0 ? fields_.size() - 1 : static_cast<std::size_t>(place);
  }

  IndexSet indexes_;
  std::vector<Field> fields_;
};

}  // namespace torvane
