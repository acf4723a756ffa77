// What an attempt at the computer came to: a value, or the reason why not in words for the operator.
#pragma once

#include <string>
#include <utility>
#include <variant>

namespace torvane {

struct Refusal {
  std::string reason;
};

template <class Value>
class Result {
 public:
  Result(Value value) : held_(std::move(value)) {}        // NOLINT: a plain return says it best
  Result(Refusal refusal) : held_(std::move(refusal)) {}  // NOLINT: a plain return says it best

  explicit operator bool() const { return std::holds_alternative<Value>(held_); }
  const Value& value() const { return std::get<Value>(held_); }
  const std::string& reason() const { return std::get<Refusal>(held_).reason; }
  // The value itself, which is gone from here then.
  Value Take() { return std::move(std::get<Value>(held_)); }

 private:
  std::variant<Value, Refusal> held_;
};

struct Done {};
using Outcome = Result<Done>;

}  // namespace torvane
