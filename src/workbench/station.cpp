#include "workbench/station.h"

#include "design/catalogue.h"

namespace torvane {

namespace {

NumberSigns SignsOf(const Locale& locale) {
  const LocaleSigns signs = locale.Signs();
  return {signs.decimal, signs.date, signs.time};
}

constexpr auto kStartGuard = std::chrono::seconds(5);

}  // namespace

Station::Station(const Platform& platform_)
    : s(SignsOf(platform_.locale)), platform(platform_), changes_(Catalogue().size()) {
  s.operations = this;
  for (const auto& table :
       {TwoAxisGridOperations(), InputCheckOperations(), EstimateOperations(), DesignOperations()})
    for (const Operation& operation : table) operations_[{operation.control, operation.event}] = &operation;
  for (std::size_t i = 0; i < changes_.size(); ++i) {
    const auto found = operations_.find({Catalogue()[i].name, Event::Change});
    changes_[i] = found == operations_.end() ? nullptr : found->second;
  }
}

void Station::Type(Field& field, std::string_view text) {
  field = text;
  Run(field.row().name, Event::Key, field.index());
}

void Station::Choose(Field& field, std::string_view text) {
  field = text;
  Run(field.row().name, Event::Click, field.index());
}

bool Station::Run(std::string_view control, Event event, int index) {
  const auto found = operations_.find({control, event});
  if (found == operations_.end()) return false;
  found->second->run(*this, index);
  return true;
}

bool Station::StartGuardPassed() const { return platform.clock.Now() - started > kStartGuard; }

void Station::Changed(const Field& field) {
  const auto place = static_cast<std::size_t>(&field.row() - Catalogue().data());
  if (changes_[place] != nullptr) changes_[place]->run(*this, field.index());
}

}  // namespace torvane
