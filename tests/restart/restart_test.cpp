// Restarts of the samples and of designs that follow no pattern but a number's, held to their originals by
// what both lay.
#include "restart/restart.h"

#include "executor/designs.h"
#include "executor/measure/run.h"
#include "executor/programs.h"
#include "executor/proof/proof.h"

namespace torvane {
namespace {

using executor::Dice;
using executor::Layer;
using executor::Stroke;
namespace fs = std::filesystem;

struct Laid {
  Stroke stroke;
  int layer = 0;
  double pass = 0;
};

std::vector<Laid> StrokesOf(std::string_view program) {
  std::vector<Laid> strokes;
  const executor::Rerun run = executor::RunBy(program, {}, {});
  for (const Layer& layer : run.winding.layers())
    for (const Stroke& stroke : layer.strokes)
      strokes.push_back({stroke, layer.number, layer.passes[static_cast<std::size_t>(stroke.pass)].number});
  return strokes;
}

double Aside(double degrees) {
  const double rest = std::fmod(std::fmod(degrees, 360) + 360, 360);
  return std::min(rest, 360 - rest);
}

// From the last traverse back to the restart's first, which is that of the place.
void ExpectSameBands(std::string_view original, RestartPlace place) {
  SCOPED_TRACE("layer " + std::to_string(place.layer) + " pass " + std::to_string(place.pass));
  const Result<std::string> restart = RestartProgram(original, "PART.T2G", place);
  ASSERT_TRUE(restart) << restart.reason();
  const std::vector<Laid> wanted = StrokesOf(original), laid = StrokesOf(restart.value());
  ASSERT_FALSE(laid.empty());
  ASSERT_LE(laid.size(), wanted.size());
  EXPECT_EQ(laid.front().layer, place.layer);
  EXPECT_EQ(laid.front().pass, place.pass);
  const std::size_t before = wanted.size() - laid.size();
  EXPECT_TRUE(before == 0 || wanted[before - 1].pass != place.pass ||
              wanted[before - 1].layer != place.layer);
  for (std::size_t i = 0; i < laid.size(); ++i) {
    const Stroke &a = wanted[before + i].stroke, &b = laid[i].stroke;
    ASSERT_NEAR(a.z0, b.z0, 0.001);
    ASSERT_NEAR(a.z1, b.z1, 0.001);
    ASSERT_LT(Aside(a.m0 - b.m0), 0.05) << "traverse " << i;
    ASSERT_LT(Aside(a.m1 - b.m1), 0.05) << "traverse " << i;
  }
}

// What lies on the part already counts as wound.
void ExpectProven(std::string_view original, RestartPlace place) {
  const auto kinds = [](std::string_view program, int fromLayer) {
    std::set<std::string> told;
    const executor::Proof proof = executor::Prove(program, {});
    for (const executor::Finding& finding : proof.findings.all())
      if (finding.layer == 0 || finding.layer >= fromLayer)
        told.insert(std::to_string(finding.layer) + " " + std::string(NameOf(finding.kind)));
    return told;
  };
  const auto before = kinds(original, place.layer);
  for (const std::string& told : kinds(RestartProgram(original, "PART.T2G", place).value(), place.layer))
    EXPECT_TRUE(before.contains(told)) << told << ", layer " << place.layer << " pass " << place.pass;
}

class Restart : public executor::Sweep {};

TEST_F(Restart, GoesOnWithEverySample) {
  for (const auto& entry : fs::directory_iterator(fs::path(SOURCE_FOLDER) / "samples")) {
    const fs::path& design = entry.path();
    if (design.extension() != ".t2d" && design.extension() != ".t4d") continue;
    SCOPED_TRACE(design.string());
    fs::path store = design;
    store.replace_extension(".ini");
    const std::string program =
        Written(design, fs::exists(store) ? "--store " + Quoted(store.string()) : Store());
    const executor::Rerun run = executor::RunBy(program, {}, {});
    for (const Layer& layer : run.winding.layers()) {
      const int passes = static_cast<int>(layer.passes.size());
      for (const int pass : std::set<int>{1, std::min(2, passes), passes / 2 + 1, passes})
        for (const auto& holds : {ExpectSameBands, ExpectProven}) holds(program, {layer.number, pass});
    }
  }
}

TEST_F(Restart, GoesOnWithTwoHundredDesigns) {
  Dice dice(17);
  constexpr int kDesigns = 200;
  for (int i = 0; i < kDesigns; ++i) {
    std::vector<executor::Row> rows;
    for (int layers = 1 + dice.To(3); layers > 0; --layers)
      rows.push_back({dice.Of({"90", "30", "45", "54.7", "62"}), dice.Of({"slow", "med", "fast"}),
                      dice.Of({"ms", "cs"}), dice.Of({"0", "0", "45", "180"})});
    const bool millimetres = dice.To(2) == 1;
    const double left = dice.Between(2, 6);
    Put("d" + std::to_string(i) + ".t2d",
        executor::TwoAxisDesign(millimetres, left, dice.To(3) == 0 ? left + 1 : left, dice.Between(8, 30),
                                0.25, dice.Between(3, 5), rows));
    // A command line takes so many names everywhere.
    if (i % 40 == 39) Write("--setting chkPreWrap1=1 --setting gPauseBeforeHoop=1");
  }
  for (int i = 0; i < kDesigns; ++i) {
    SCOPED_TRACE("design " + std::to_string(i));
    const std::string program = ProgramText("d" + std::to_string(i) + ".T2G");
    const executor::Rerun run = executor::RunBy(program, {}, {});
    ASSERT_FALSE(run.winding.layers().empty());
    const auto& layers = run.winding.layers();
    const Layer& layer = layers[static_cast<std::size_t>(dice.To(static_cast<int>(layers.size())))];
    ExpectSameBands(program, {layer.number, 1 + dice.To(static_cast<int>(layer.passes.size()))});
  }
}

TEST_F(Restart, RefusesWhatItCannotTell) {
  using executor::Begun;
  using executor::Ended;
  const std::string layer = executor::LayerOf({.passes = 4});
  const auto reason = [](const std::string& program, RestartPlace place) {
    const Result<std::string> restart = RestartProgram(program, "PART.T2G", place);
    return restart ? std::string() : restart.reason();
  };
  EXPECT_EQ(reason(Begun() + layer + Ended(), {1, 3}), "");
  EXPECT_NE(reason(Begun() + layer + Ended(), {2, 1}).find("no layer 2"), std::string::npos);
  EXPECT_NE(reason(Begun() + layer + Ended(), {1, 5}).find("no pass 5"), std::string::npos);
  EXPECT_NE(reason(Begun() + "what\n" + layer + Ended(), {1, 3}).find("cannot be read"), std::string::npos);
  EXPECT_NE(
      reason(Begun() + "G4 L601 C10\n" + layer + Ended(), {1, 3}).find("does not tell where the mandrel"),
      std::string::npos);
  EXPECT_NE(reason("", {1, 1}), "");
}

// What the operator meets: the index mark before anything turns, the pass's own line, and decimal commas
// where the original has them.
TEST_F(Restart, BeginsAtTheIndexMark) {
  const std::string original =
      executor::Begun("C C1\nG20\n") + executor::LayerOf({.passes = 4}) + executor::Ended();
  const Result<std::string> restart = RestartProgram(original, "Tube.T2G", {1, 3});
  ASSERT_TRUE(restart) << restart.reason();
  const std::string& text = restart.value();
  EXPECT_EQ(text.substr(0, text.find("\r\n")), "[RESTART OF Tube.T2G AT LAYER 1 PASS 3]");
  const auto mark = text.find("index mark"),
             wait = text.find("M0 [Wait for Button Press to Go On with layer 1, pass 3]");
  const auto display = text.find("PA=3_of_4"), turns = text.find("M4 S");
  EXPECT_LT(mark, wait);
  EXPECT_LT(wait, display);
  EXPECT_LT(display, turns);
  EXPECT_EQ(text.find("PA=2_of_4"), std::string::npos);
  EXPECT_NE(text.find("G1 F6,0000 Z4,0000"), std::string::npos) << text;
  // No name of a file sets off a statement.
  const Result<std::string> hostile = RestartProgram(original, "a\r\nG1 Z99 [b].T2G", {1, 3});
  ASSERT_TRUE(hostile) << hostile.reason();
  EXPECT_EQ(hostile.value().substr(0, hostile.value().find("\r\n")),
            "[RESTART OF a  G1 Z99  b .T2G AT LAYER 1 PASS 3]");
  EXPECT_EQ(RestartName("Tube.T2G"), "Tube-RESTART.T2G");
  EXPECT_EQ(RestartName("Tube"), "Tube-RESTART");
}

}  // namespace
}  // namespace torvane
