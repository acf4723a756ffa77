// The worked examples of others, each within its tolerance.
#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <sstream>

#include "laminate/cases/case.h"

namespace torvane::laminate {
namespace {

nlohmann::json References() {
  std::ifstream file(std::string(SOURCE_FOLDER) + "/tests/laminate/references.json");
  return nlohmann::json::parse(file);
}

// Half a unit of the last digit that is printed.
double HalfDigit(const std::string& printed) {
  const std::size_t exponent = printed.find_first_of("eE");
  const std::string digits = printed.substr(0, exponent);
  const std::size_t point = digits.find('.');
  const double decimals = point == std::string::npos ? 0 : static_cast<double>(digits.size() - point - 1);
  const double power = exponent == std::string::npos ? 0 : std::stod(printed.substr(exponent + 1));
  return 0.5 * std::pow(10, power - decimals);
}

TEST(References, AreReproducedInTheirPrintedDigits) {
  int examples = 0, figures = 0;
  const nlohmann::json references = References();
  for (const nlohmann::json& example : references["examples"]) {
    SCOPED_TRACE(example["id"].get<std::string>());
    ++examples;
    nlohmann::ordered_json answer;
    try {
      answer = AnswerOf(example);
    } catch (const BadCase& bad) {
      ADD_FAILURE() << bad.reason;
      continue;
    }
    for (const nlohmann::json& output : example["outputs"]) {
      const std::string name = output["name"], printed = output["printed"];
      if (!answer.contains(name)) {
        ADD_FAILURE() << name << " is not answered";
        continue;
      }
      ++figures;
      const double scale = output.value("scale", 1.0);
      const double tolerance = output.value("tol", HalfDigit(printed));
      EXPECT_NEAR(answer[name].get<double>() * scale, std::stod(printed), tolerance * (1 + 1e-9)) << name;
    }
  }
  EXPECT_EQ(examples, 54);
  EXPECT_EQ(figures, 247);
}

}  // namespace
}  // namespace torvane::laminate
