// Each repair is pressed as the operator would, and what it is for has to be gone in the next proof.
#include <gtest/gtest.h>

#include <fstream>
#include <thread>

#include "advice/repair_trials.h"
#include "design/catalogue.h"
#include "persist/settings.h"
#include "support/station_on_stage.h"
#include "workbench/build/marks.h"
#include "workbench/document/design_commands.h"

namespace torvane {
namespace {

struct RepairsTest : testing::Test {
  RepairsTest() {
    station.Add(RepairOperations());
    SaveSetting(station.platform.store, kSettings, "gHasUserCheckedCarriageZOffset", "1");
  }

  void Save(const std::string& name) {
    onStage.stage.fileDialog.answers.emplace_back("C:\\Torvane\\TV_Design_Files\\" + name);
    station.Run("btnSaveAS", Event::Click);
  }
  // A tube whose rows know their stops, as one that was opened.
  void Tube(int layers, const std::string& angle, const char* left = "4", const char* right = "4") {
    TypeTube(station, layers, angle);
    station.Type(s.txtDiameterLeft, left);
    station.Type(s.txtDiameterRight, right);
    s.txtLengthTotal(0) = "24";
    Save("tube.t2d");
    OpenDesign(station, "C:\\Torvane\\TV_Design_Files\\tube.t2d");
  }
  ProgramPlace Place() const {
    return {station.platform.files.ProgramFolder(), station.platform.clock.Now()};
  }
  executor::Limits Limits() const { return executor::ReadLimits(station.platform.store, '.'); }

  void Prove() {
    DesignState copy(s.signs);
    copy.TakeFrom(s);
    result = std::make_shared<LiveResult>(ProveDesign(copy, Place(), Limits()));
    trials.Begin(result, Place(), Limits());
    while (trials.Trying()) {
      trials.Take();
      std::this_thread::yield();
    }
  }
  std::string Listed() const {
    std::string text;
    for (const Advice& advice : AdviceOf(station, result.get())) {
      RepairOutcome outcome;
      const Repair* repair = trials.OfferOf(advice, outcome);
      text += advice.title + ": " + advice.text + (repair == nullptr ? "" : " [" + repair->button + "] ") +
              outcome.words + "\n";
    }
    return text;
  }
  // The advice that offers such a button.
  std::optional<Advice> Offering(const std::string& button, RepairOutcome& outcome) const {
    for (const Advice& advice : AdviceOf(station, result.get())) {
      const Repair* repair = trials.OfferOf(advice, outcome);
      if (repair == nullptr || repair->button != button) continue;
      Advice offering = advice;
      offering.repairs = {*repair};
      return offering;
    }
    return std::nullopt;
  }
  // Presses it; what it said before it was pressed.
  std::string Press(const std::string& button) {
    Prove();
    RepairOutcome outcome;
    const auto offering = Offering(button, outcome);
    EXPECT_TRUE(offering) << button << " is not offered:\n" << Listed();
    if (!offering) return {};
    const Snapshot before = s.TakeSnapshot();
    const Repair& repair = offering->repairs.front();
    station.Run(repair.control, Event::Click, repair.index);
    Prove();
    RepairOutcome after;
    EXPECT_FALSE(Offering(button, after)) << button << "\n" << Listed();
    for (const Advice& left : AdviceOf(station, result.get()))
      EXPECT_FALSE(left.title == offering->title && left.text == offering->text) << Listed();
    const bool opens = repair.control == "btnSaveAndOpen";  // and begins a new history
    if (!repair.asks && !opens && !s.HasTextsOf(before)) {
      const Snapshot mended = s.TakeSnapshot();
      station.Undo();
      EXPECT_TRUE(s.HasTextsOf(before)) << button << ": one step takes it back";
      station.Redo();
      EXPECT_TRUE(s.HasTextsOf(mended));
    }
    return outcome.words;
  }

  StationOnStage onStage;
  Station& station = onStage.Started();
  DesignState& s = station.s;
  std::shared_ptr<LiveResult> result;
  RepairTrials trials{station, [] {}};
};

TEST_F(RepairsTest, OfThePart) {
  Tube(4, "45", "1.5", "3");
  EXPECT_EQ(Press("Turn part round").substr(0, 34), "Turned round: 4 faults become none");
  EXPECT_EQ(s.txtDiameterLeft.text(), "3.000");
  // The carriage reaches from 1.875 to 49.875.
  station.Type(s.txtZ2(0), "60");
  station.Type(s.txtZ2(1), "36");
  EXPECT_EQ(Press("Move the part to 25.88 in"), "Moved: 9 faults become 4.");
  EXPECT_EQ(Press("Save and open again"), "Opened again: 4 faults become none.");
  station.Type(s.txtZ2(0), "25");
  station.Type(s.txtZ2(1), "1");
  Press("Move the part to 1.88 in");
  EXPECT_EQ(s.txtZ2(0).text(), "25.88");
  station.Type(s.txtZ2(0), "60");
  Prove();
  EXPECT_EQ(Listed().find("Move the part"), std::string::npos) << "it is longer than the way of the carriage";
}

TEST_F(RepairsTest, OfRows) {
  Tube(2, "45");
  station.Type(s.txtMRPM(1), "60");
  EXPECT_EQ(Press("ReCalc All Rows"), "With the rows' own speeds: 1 fault becomes none, and 2.7 min more.");
  station.Choose(s.cmbMethod(2), "cs");
  EXPECT_EQ(Press("Use ms"), "With ms: 1 fault becomes none, and 2.4 min more.");
  station.Type(s.txtAddRevs(1), "36000");
  EXPECT_EQ(Press("Add no wrap").substr(0, 39), "Without added wrap: 1 fault becomes non");
  s.iMaxCarriageSpeeds[2] = 12;
  s.iMaxMandrelRPM[2] = 80;
  station.Run("btnReCalc", Event::Click);
  EXPECT_EQ(Press("Lower the carriage speed to 9.0").substr(0, 28), "So slow: 2 faults become non");
  station.Type(s.txtBandWidth(0), "0.03");
  station.Choose(s.cmb2AxisLayerType(1), "HOOP");
  station.Choose(s.cmbSpeed(1), "slow");
  station.Run("btnReCalc", Event::Click);
  Press("Use fast");
  EXPECT_EQ(s.cmbSpeed(1).text(), "fast");
}

TEST_F(RepairsTest, OfTheFileAndTheSettings) {
  TypeTube(station, 2, "45");
  SaveSetting(station.platform.store, kSettings, "gHasUserCheckedCarriageZOffset", "0");
  for (int row = 1; row <= 2; ++row) {
    s.txtLeft(row) = "";
    s.txtRight(row) = "";
  }
  onStage.stage.fileDialog.answers.emplace_back(std::nullopt);
  Prove();
  station.Run("btnSaveAndOpen", Event::Click);
  EXPECT_TRUE(s.gFileName.empty()) << "no name was given";
  onStage.stage.fileDialog.answers.emplace_back("C:\\Torvane\\TV_Design_Files\\tube.t2d");
  Press("Save and open again");
  EXPECT_EQ(s.txtLeft(2).text(), "28.00");
  Prove();
  RepairOutcome outcome;
  const auto measure = Offering("Measure the offset", outcome);
  ASSERT_TRUE(measure) << Listed();
  station.Run(measure->repairs[0].control, Event::Click);
  station.Type(*station.FindField("Text3"), "2.1");
  station.Run("btnOK", Event::Click);
  Prove();
  EXPECT_FALSE(Offering("Measure the offset", outcome)) << Listed();
  s.Diameter_Left = "3";
  EXPECT_NE(Press("Use 4.000"), "") << Listed();
}

TEST_F(RepairsTest, OfPatterns) {
  const std::string path = "C:\\Torvane\\TV_Design_Files\\flat.t4d";
  std::ifstream file(std::string(SOURCE_FOLDER) + "/samples/Flat-Tube-4x24.t4d", std::ios::binary);
  onStage.stage.files.Put(path, std::string(std::istreambuf_iterator<char>(file), {}));
  OpenNamedDesign(station, path);
  Prove();
  // Of the patterns within five degrees the nearest that closes: at 18.12 degrees rounding leaves strips.
  EXPECT_EQ(s.cmbPattern(1).text().substr(0, 5), "18.12");
  EXPECT_EQ(Press("Use 49 passes, 16.66\xB0"), "With 49 passes: 2 notes become 1, and 0.4 min more.");
  SaveSetting(station.platform.store, kSettings, "gIsNEMA34", "True");
  Press("Use the larger motors");
}

}  // namespace
}  // namespace torvane
