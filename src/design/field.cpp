#include "design/field.h"

#include "design/catalogue.h"

namespace torvane {

Field::Field() = default;
Field::Field(FieldOwner& owner, const FieldRow& row, int index) { Attach(owner, row, index); }
Field::Field(Field&&) noexcept = default;
Field::~Field() = default;

void Field::Attach(FieldOwner& owner, const FieldRow& row, int index) {
  owner_ = &owner;
  row_ = &row;
  index_ = index;
  text_ = row.first;
  looks_.caption = WordsOf(*this).caption;
}

Number Field::number() const {
  if (!numberKnown_ && exists()) {
    number_ = ReadNumberText(owner_->signs, text_);
    numberKnown_ = true;
  }
  return number_;
}

Field& Field::operator=(std::string_view text) {
  if (!exists() || text_ == text) return *this;
  Restore(text);
  if (owner_->operations != nullptr) owner_->operations->Changed(*this);
  return *this;
}

Field& Field::Skip(const char* routine) {
  if (exists() && owner_->skips != nullptr) owner_->skips->Skipped(*this, routine);
  return *this;
}

Field& Field::operator=(const MaybeText& text) { return text.good ? *this = text.text : Skip(""); }

Field& Field::operator=(const Masked& number) {
  if (!number.value.good()) return Skip(number.routine);
  return exists() ? *this = TextOf(owner_->signs, number) : *this;
}

Field& Field::operator=(const Plain& number) {
  if (!number.value.good()) return Skip(number.routine);
  return exists() ? *this = TextOf(owner_->signs, number) : *this;
}

void Field::CopyFrom(const Field& other) {
  if (other.exists()) *this = std::string(other.text_);
}

void Field::Restore(std::string_view text) {
  if (!exists() || text_ == text) return;
  text_ = text;
  numberKnown_ = false;
  Repaint();
}

void Field::RestoreLooks(const Looks& looks) {
  if (!exists() || looks_ == looks) return;
  looks_ = looks;
  Repaint();
}

const std::vector<std::string>& Field::entries() const {
  static const std::vector<std::string> none;
  return looks_.entries ? *looks_.entries : none;
}

void Field::SetEntries(std::vector<std::string> list) {
  if (!exists() || entries() == list) return;
  looks_.entries = std::make_shared<const std::vector<std::string>>(std::move(list));
  Repaint();
}

void Field::Repaint() const {
  if (owner_->watcher != nullptr) owner_->watcher->Repaint(*this);
}

FieldArray::FieldArray(FieldOwner& owner, const FieldRow& row, IndexSet indexes) : indexes_(indexes) {
  const int count = indexes.count();
  fields_.reserve(static_cast<std::size_t>(count) + 1);
  for (int place = 0; place < count; ++place) fields_.emplace_back(owner, row, indexes.IndexAt(place));
  fields_.emplace_back();
}

}  // namespace torvane
