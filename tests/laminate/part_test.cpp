// From a proof to the wall and its figures, on proofs whose wall is plain to work out by hand.
#include <gtest/gtest.h>

#include "laminate/part/estimate.h"
#include "laminate/part/table.h"

namespace torvane::laminate {
namespace {

constexpr double kMillimetre = 1e-3;

// A tube of 100 mm, 1000 mm long: bands of 10 mm and 0.5 mm thick.
executor::LayerFigures Layer(int number, double degrees, int passes, double right = 50, double left = 50) {
  executor::LayerFigures layer;
  layer.number = number;
  layer.passesRun = passes;
  layer.band = 10;
  layer.thickness = 0.5;
  layer.mandrel = {.zRight = 0, .zLeft = 1000, .rightRadius = right, .leftRadius = left};
  layer.angle.known = true;
  const double radius = (right + left) / 2;
  layer.angle.typical.z1 = 1000;
  layer.angle.typical.m1 = std::tan(degrees * kDegree) / radius / kDegree * 1000;
  layer.angle.median = degrees;
  // Without turns at the ends.
  layer.filament = 2 * passes * 1000 / std::cos(degrees * kDegree);
  return layer;
}

executor::Proof ProofOf(std::vector<executor::LayerFigures> layers) {
  executor::Proof proof;
  proof.millimetres = true;
  proof.layers = std::move(layers);
  return proof;
}

class Part : public testing::Test {
 protected:
  Part() {
    choice.tow = "T300 (NASA)";
    choice.resin = "Epoxy IMHS (NASA)";
  }
  Estimate Of(const executor::Proof& proof, const TubeLoad& load = {}) {
    std::vector<std::string> missing;
    const Stock stock = StockOf(materials, choice, missing);
    Estimate estimate = EstimateOf(proof, stock, choice, limits, load);
    estimate.missing.insert(estimate.missing.begin(), missing.begin(), missing.end());
    return estimate;
  }
  static bool Says(const std::vector<std::string>& sentences, const std::string& what) {
    for (const std::string& sentence : sentences)
      if (sentence.find(what) != std::string::npos) return true;
    return false;
  }

  Materials materials = ReadMaterials(FirstMaterials());
  Choice choice;
  executor::Limits limits;
};

TEST_F(Part, BandsSideBySideBothWaysAreTwoBandsThick) {
  // 22 passes of 10 mm at 45 degrees go round 311 of 314 mm, out and back.
  const Estimate e = Of(ProofOf({Layer(1, 45, 22)}));
  ASSERT_EQ(e.layUp.sections.size(), 1U);
  const LaidLayer& laid = e.layUp.Middle().layers.at(0);
  EXPECT_NEAR(laid.angle, 45, 1e-9);
  EXPECT_NEAR(laid.thickness, 2 * 0.5 * kMillimetre * 22 * 10 * std::sqrt(2) / (100 * kPi), 1e-12);
  EXPECT_EQ(e.layUp.band.from, ShareFrom::Station);
  EXPECT_DOUBLE_EQ(e.layUp.band.fibreShare, 0.5);
  // What lies in the wall is what was wound.
  EXPECT_NEAR(e.layUp.amounts.fibre / (0.5 * 1771), kPi * 0.1 * 1 * laid.thickness, 1e-9);
  EXPECT_NEAR(e.layUp.amounts.toMix * 0.9, e.layUp.amounts.resin, 1e-12);
  EXPECT_TRUE(e.stiff);
  EXPECT_TRUE(e.strong) << "both of these materials have all strengths";
  EXPECT_TRUE(e.missing.empty()) << e.missing.front();
}

TEST_F(Part, TheFibreShareSaysWhereItComesFrom) {
  const executor::Proof proof = ProofOf({Layer(1, 45, 22)});
  Material& tow = materials.rows[static_cast<std::size_t>(materials.Find(MaterialKind::Tow, choice.tow) -
                                                          materials.rows.data())];
  // Five tows of 800 tex in 10 mm by 0.5 mm.
  tow.linearDensity = 8e-4;
  choice.tows = 5;
  Estimate e = Of(proof);
  EXPECT_EQ(e.layUp.band.from, ShareFrom::Band);
  EXPECT_NEAR(e.layUp.band.fibreShare, 5 * 8e-4 / 1771 / 5e-6, 1e-12);
  EXPECT_NEAR(e.layUp.band.thickness, 0.5 * kMillimetre, 1e-12);
  choice.resinShare = 0.4;
  e = Of(proof);
  EXPECT_EQ(e.layUp.band.from, ShareFrom::Operator);
  EXPECT_NEAR(e.layUp.band.thickness, 5 * 8e-4 / 1771 / 0.6 / 0.01, 1e-12)
      << "the same fibre in less resin is thinner";
  choice.resinShare = kUnknown;
  choice.tows = 50;
  e = Of(proof);
  EXPECT_EQ(e.layUp.band.from, ShareFrom::Station);
  EXPECT_TRUE(Says(e.remarks, "would hold 452 % of fibre"));
}

TEST_F(Part, ATaperedPartIsThickerAndFlatterWhereItIsThin) {
  const Estimate e = Of(ProofOf({Layer(1, 45, 22, 40, 60)}));
  ASSERT_EQ(e.layUp.sections.size(), 5U);
  const LaidLayer& thin = e.layUp.sections.front().layers[0];
  const LaidLayer& thick = e.layUp.sections.back().layers[0];
  EXPECT_NEAR(thin.angle, std::atan(0.8) / kDegree, 1e-9);
  EXPECT_NEAR(thick.angle, std::atan(1.2) / kDegree, 1e-9);
  EXPECT_NEAR(thin.thickness / thick.thickness,
              1.5 * std::cos(thick.angle * kDegree) / std::cos(thin.angle * kDegree), 1e-9);
}

TEST_F(Part, AGrowingDiameterThinsWhatLiesAbove) {
  const executor::Proof proof = ProofOf({Layer(1, 45, 22), Layer(2, 45, 22)});
  const double plain = Of(proof).layUp.Middle().layers[1].thickness;
  choice.growth = true;
  const LaidLayer grown = Of(proof).layUp.Middle().layers[1];
  EXPECT_GT(grown.angle, 45);
  EXPECT_NEAR(grown.radius, 0.05 + plain, 1e-9);
  // Steeper bands take more of a longer way round.
  const double tangent = grown.radius / 0.05;
  EXPECT_NEAR(grown.thickness, plain / std::sqrt(2) * std::sqrt(1 + tangent * tangent) * 0.05 / grown.radius,
              1e-9);
}

TEST_F(Part, AtTheNettingAngleBothDirectionsBearAlike) {
  const Estimate e = Of(ProofOf({Layer(1, std::atan(std::sqrt(2.0)) / kDegree, 18)}));
  const Section& section = e.layUp.Middle();
  const double hoop = 2413e6 * 0.5 * section.wall * 2 / 3 / section.MiddleRadius();
  EXPECT_NEAR(e.nettingClosed, hoop, 1e-6 * hoop);
  EXPECT_NEAR(e.nettingOpen, hoop, 1e-6 * hoop);
  EXPECT_LT(e.failures[static_cast<std::size_t>(LoadCase::ClosedPressure)].tsaiWu.load, e.nettingClosed);
}

TEST_F(Part, ALoadTimesItsFactorIsTheFailureLoad) {
  const executor::Proof proof = ProofOf({Layer(1, 10, 30), Layer(2, 89, 1)});
  const Estimate e = Of(proof, {.pressure = 1e6});
  double least = 1e9;
  ASSERT_EQ(e.margins.size(), 2U);
  for (const LayerMargin& margin : e.margins) least = std::min(least, margin.tsaiWu);
  const FirstFailure& first = e.failures[0].tsaiWu;
  EXPECT_NEAR(first.load, least * 1e6, 1e-6 * first.load);
  EXPECT_TRUE(Of(proof).margins.empty());
  // Pulled and pushed at once on two sides, a bent tube fails as the worse of the two.
  const auto load = [&](LoadCase c) { return e.failures[static_cast<std::size_t>(c)].tsaiWu.load; };
  ASSERT_LT(load(LoadCase::Compression), load(LoadCase::Tension));
  const double radius = e.layUp.Middle().MiddleRadius();
  EXPECT_NEAR(load(LoadCase::Bending),
              std::min(load(LoadCase::Tension), load(LoadCase::Compression)) * radius / 2,
              1e-6 * load(LoadCase::Bending));
}

TEST_F(Part, SaysWhatIsMissingAndShowsTheRest) {
  executor::Proof proof = ProofOf({Layer(1, 45, 22), Layer(2, 45, 22), Layer(3, 45, 22)});
  proof.layers[1].angle.known = false;
  proof.layers[2].stands = executor::Level::Fault;
  choice.tow = "T700SC";
  choice.resin = "Honey";
  Estimate e = Of(proof);
  EXPECT_TRUE(Says(e.missing, "no resin of the materials is called \"Honey\""));
  EXPECT_TRUE(Says(e.missing, "layer 2 is left out: its angle is not known"));
  EXPECT_TRUE(Says(e.remarks, "the proof faults layer 3"));
  EXPECT_EQ(e.layUp.Middle().layers.size(), 2U);
  EXPECT_FALSE(e.stiff);
  choice.resin = "Epoxy IMHS (NASA)";
  EXPECT_TRUE(Says(Of(proof).missing, "\"T700SC\" has no E2, G12"));
  choice = {};
  choice.ply = "Carbon/epoxy, vf 0.70";
  e = Of(proof);
  EXPECT_TRUE(e.stiff && e.strong);
  EXPECT_EQ(e.layUp.band.from, ShareFrom::Ply);
  proof.layers.clear();
  EXPECT_TRUE(Says(Of(proof).missing, "lays no layer"));
  proof = ProofOf({Layer(1, 45, 22)});
  proof.layers[0].thickness = 0;
  EXPECT_TRUE(Says(Of(proof).missing, "neither the band's thickness nor"));
}

TEST_F(Part, PricesSpoolsAndHardenerFollowTheTable) {
  for (Material& m : materials.rows) {
    if (m.name == choice.tow) m.price = 30, m.spool = 30;
    if (m.name == choice.resin) m.price = 10, m.hardener = 0.25;
  }
  choice.tows = 2;
  const Amounts a = Of(ProofOf({Layer(1, 45, 22)})).layUp.amounts;
  EXPECT_NEAR(a.tow, 2 * 44 * std::sqrt(2), 1e-9);
  EXPECT_EQ(a.spools, 6) << "62.2 m for each of two tows";
  EXPECT_NEAR(a.hardener, a.toMix / 5, 1e-12);
  EXPECT_NEAR(a.price, 30 * a.fibre + 10 * a.toMix, 1e-9);
}

TEST(MaterialsTable, IsWholeAtFirstAndNamesASourceForEach) {
  const Materials first = ReadMaterials(FirstMaterials());
  EXPECT_TRUE(first.faults.empty()) << first.faults.front();
  EXPECT_EQ(first.rows.size(), 30U);
  for (const Material& row : first.rows) EXPECT_FALSE(row.source.empty()) << row.name;
  const Material* tow = first.Find(MaterialKind::Tow, "S-glass (NASA SGLA)");
  ASSERT_NE(tow, nullptr);
  EXPECT_DOUBLE_EQ(tow->ply.E1, 85.5e9);
  EXPECT_DOUBLE_EQ(tow->density, 2491);
  EXPECT_DOUBLE_EQ(tow->strength.Xc, 2068e6);
  EXPECT_DOUBLE_EQ(tow->ply.alpha2, 5.04e-6);
  EXPECT_EQ(first.Find(MaterialKind::Resin, "S-glass (NASA SGLA)"), nullptr);
}

TEST(MaterialsTable, NamesBadRowsAndUsesTheOthers) {
  const Materials m = ReadMaterials(
      "\xEF\xBB\xBFKind;Name;E1 (GPa);nu12\r\n"
      "tow;good;230,5;0,2\r\n"
      ";;;\r\n"
      "tow;;1;0\r\n"
      "rope;a;1;0\r\n"
      "tow;b;-1;0\r\n"
      "tow;c;0;0\r\n"
      "tow;d;1e999;0\r\n"
      "tow;e;nan;0\r\n"
      "tow;f;five;0\r\n"
      "tow;g;1;2\r\n"
      "tow;good;1;0\r\n"
      "tow;h;1;0;7\r\n"
      "tow;\"i;1;0\r\n"
      "resin;good;3;0,35");
  ASSERT_EQ(m.rows.size(), 2U);
  EXPECT_DOUBLE_EQ(m.rows[0].ply.E1, 230.5e9);
  EXPECT_DOUBLE_EQ(m.rows[1].ply.nu12, 0.35);
  const std::vector<std::string> expected = {"line 14: a quotation mark is not closed",
                                             "line 4: it has no name",
                                             "line 5: \"rope\" is no kind: there are tow, resin and ply",
                                             "line 6: E1 (GPa) must be above 0",
                                             "line 7: E1 (GPa) must be above 0",
                                             "line 8: E1 (GPa): \"1e999\" is not a number",
                                             "line 9: E1 (GPa): \"nan\" is not a number",
                                             "line 10: E1 (GPa): \"five\" is not a number",
                                             "line 11: nu12 must lie between -1 and 1",
                                             "line 12: \"good\" stands further up already",
                                             "line 13: it has more cells than the first line"};
  EXPECT_EQ(m.faults, expected);
  for (const char* text : {"", "\n\n", "Name,Kind,E1 (Msi)\na,tow,1", "a,tow,1", "Name\na", "\"", "\0\xFF"})
    EXPECT_EQ(ReadMaterials(text).faults.size(), 1U) << text;
}

TEST(DesignsMaterials, AreReadLineByLine) {
  const Choice c = ReadChoice(
      "Item,Value\nTow,\"T300, 12K\"\nResin,Epoxy\nResin share (% of volume),40\nTows in the band,4\nWaste "
      "(%),0\n"
      "Growing diameter,yes\nColour,black\nWaste (%),100\nTows in the band,0\n");
  EXPECT_EQ(c.tow, "T300, 12K");
  EXPECT_EQ(c.resin, "Epoxy");
  EXPECT_DOUBLE_EQ(c.resinShare, 0.4);
  EXPECT_DOUBLE_EQ(c.tows, 4);
  EXPECT_EQ(c.waste, 0);
  EXPECT_TRUE(c.growth);
  ASSERT_EQ(c.faults.size(), 3U);
  EXPECT_EQ(c.faults[0], "line 8: \"Colour\" is not known");
}

}  // namespace
}  // namespace torvane::laminate
