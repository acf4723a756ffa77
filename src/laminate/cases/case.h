// A laminate problem as an engineer writes it down, and its answer: what others have worked out is held
// against it.
#pragma once

#include <nlohmann/json.hpp>
#include <string>

namespace torvane::laminate {

// The case cannot be worked out; the sentence says what is missing or cannot be.
struct BadCase {
  std::string reason;
};

// More plies than any tube has.
inline constexpr std::size_t kMostPlies = 1000;

// docs/laminate.md tells the kinds, their inputs and the names of the answer. Figures that the inputs do not
// give are left out. Throws BadCase.
nlohmann::ordered_json AnswerOf(const nlohmann::json& problem);

// The same for a text; throws BadCase for one that is no JSON.
nlohmann::ordered_json AnswerOfText(const std::string& text);

}  // namespace torvane::laminate
