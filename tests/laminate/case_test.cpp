// Cases as people mistype them: each gets its sentence, none a wrong answer or an end of the program.
#include <gtest/gtest.h>

#include <fstream>

#include "laminate/cases/case.h"

namespace torvane::laminate {
namespace {

nlohmann::json Laminate() {
  return nlohmann::json::parse(R"({"kind": "laminate", "units": "Pa, m", "inputs": {
    "materials": {"m": {"E1": 1e11, "E2": 1e10, "nu12": 0.25, "G12": 5e9, "alpha1": 1e-6, "alpha2": 1e-5}},
    "plies": [["m", 0, 1e-4], ["m", 90, 1e-4]]}})");
}

std::string ReasonOf(const nlohmann::json& problem) {
  try {
    AnswerOf(problem);
    return "";
  } catch (const BadCase& bad) {
    return bad.reason;
  }
}

TEST(Case, SaysWhatIsWrong) {
  struct Change {
    const char* pointer;
    nlohmann::json value;
    const char* reason;
  };
  for (const Change& change : std::vector<Change>{
           {"/kind", "plate", "kind is none of"},
           {"/kind", 3, "kind is not a text"},
           {"/inputs", nlohmann::json::array(), "inputs is not an object"},
           {"/inputs/materials/m/E1", 0, "E1 must be above 0"},
           {"/inputs/materials/m/E2", -1e9, "E2 must be above 0"},
           {"/inputs/materials/m/G12", "5 GPa", "G12 is not a number"},
           {"/inputs/materials/m/nu12", nullptr, "lacks nu12"},
           {"/inputs/materials/m/nu12", 4, "no solid"},
           {"/inputs/materials/m/E3", 1, "\"E3\", which nothing here uses"},
           {"/inputs/materials", nlohmann::json::object(), "lacks materials"},
           {"/inputs/plies", nlohmann::json::array(), "not a list of plies"},
           {"/inputs/plies", "0/90", "not a list of plies"},
           {"/inputs/plies/1", nlohmann::json::array({"m", 90}), "ply 2 is not [material, angle, thickness]"},
           {"/inputs/plies/1/0", "n", "ply 2 is of a material"},
           {"/inputs/plies/1/1", "90", "the angle of ply 2 is not a number"},
           {"/inputs/plies/0/2", 0, "the thickness of ply 1 must be above 0"},
           {"/inputs/plies/0/2", nullptr, "ply 1 has no thickness"},
           {"/inputs/load", nlohmann::json::array({1, 2, 3}), "must have 6 members"},
           {"/inputs/dM", 1, "no beta1"},
           {"/inputs/dTT", 1, "\"dTT\", which nothing here uses"},
           {"/inputs/plies", nlohmann::json(std::vector<nlohmann::json>(10'000, {"m", 0, 1e-4})),
            "10000 plies"},
       }) {
    nlohmann::json problem = Laminate();
    problem[nlohmann::json::json_pointer(change.pointer)] = change.value;
    EXPECT_NE(ReasonOf(problem).find(change.reason), std::string::npos)
        << change.pointer << ": " << ReasonOf(problem);
  }
  EXPECT_EQ(ReasonOf(Laminate()), "");
  for (const char* text :
       {"", "[]", "{}", "NaN", "{\"kind\": \"laminate\"}", "{\"kind\": \"ply\", \"inputs\": 1e999}"})
    EXPECT_THROW(AnswerOfText(text), BadCase) << text;
  EXPECT_THROW(AnswerOfText(std::string(500'000, '[')), BadCase);
}

TEST(Case, AnswersForAsManyPliesAsItTakes) {
  nlohmann::json problem = Laminate();
  problem["inputs"]["plies"] = std::vector<nlohmann::json>(kMostPlies, {"m", 90, 1e-4});
  const nlohmann::ordered_json answer = AnswerOf(problem);
  EXPECT_TRUE(answer.contains("ply1000.top.gxy"));
  EXPECT_NEAR(answer["Ey"].get<double>(), 1e11, 1e5);
}

// Whatever single value of a known example is replaced by nonsense, there is an answer in finite numbers or a
// sentence.
TEST(Case, NeverFailsOtherwise) {
  std::ifstream file(std::string(SOURCE_FOLDER) + "/tests/laminate/references.json");
  const nlohmann::json references = nlohmann::json::parse(file);
  const std::vector<nlohmann::json> nonsense = {
      nullptr, -1, 0, 1e308, 1e-308, -1e308, "x", true, nlohmann::json::array(), nlohmann::json::object()};
  int refused = 0, answered = 0;
  for (const nlohmann::json& example : references["examples"]) {
    if (example["inputs"].contains("plies") && example["inputs"]["plies"].size() > 8) continue;
    const nlohmann::json flat = example["inputs"].flatten();
    for (const auto& [pointer, old] : flat.items())
      for (const nlohmann::json& value : nonsense) {
        nlohmann::json problem = example;
        problem["inputs"][nlohmann::json::json_pointer(pointer)] = value;
        try {
          const nlohmann::ordered_json answer = AnswerOf(problem);
          for (const auto& [name, figure] : answer.items())
            EXPECT_TRUE(figure.is_number()) << example["id"] << pointer << name;
          ++answered;
        } catch (const BadCase& bad) {
          EXPECT_FALSE(bad.reason.empty());
          ++refused;
        }
      }
  }
  EXPECT_GT(refused, 1000);
  EXPECT_GT(answered, 500);
}

}  // namespace
}  // namespace torvane::laminate
