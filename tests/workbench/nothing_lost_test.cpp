// Backup copies of design files, and the recovery copy of an unsaved design.
#include <gtest/gtest.h>

#include <memory>

#include "persist/design_file.h"
#include "support/station_on_stage.h"
#include "workbench/document/design_commands.h"
#include "workbench/document/startup.h"
#include "workbench/station/recovery.h"

namespace torvane {
namespace {

const std::string kDesign = "C:\\Torvane\\TV_Design_Files\\a.t2d";
const std::string kCopy = kDesign + "~";
const std::string kRecovery = "C:\\Torvane\\TV_RECOVERY.TVR";

struct BackupTest : testing::Test {
  StationOnStage onStage;
  MemoryFiles& files = onStage.stage.files;

  Result<SavedDesign> Replace(const std::string& text) { return ReplaceDesign(files, kDesign, text); }
};

TEST_F(BackupTest, KeepsTheStateBeforeTheLastSave) {
  ASSERT_TRUE(Replace("one"));
  EXPECT_FALSE(files.Exists(kCopy)) << "nothing was replaced";
  ASSERT_TRUE(Replace("two"));
  EXPECT_EQ(Replace("three").value().copyRefusal, "");
  EXPECT_EQ(files.ReadWhole(kDesign).value(), "three");
  EXPECT_EQ(files.ReadWhole(kCopy).value(), "two");
}

TEST_F(BackupTest, ACopyThatCannotBeMadeIsToldBehindTheSave) {
  ASSERT_TRUE(Replace("one"));
  files.FailWrites(kCopy, "No space left on device");
  Station& station = onStage.Started();
  TypeTube(station, 1, "45");
  ASSERT_TRUE(SaveDesign(station, kDesign));
  EXPECT_TRUE(files.ReadWhole(kDesign).value().starts_with("<#"));
  ASSERT_EQ(onStage.stage.messageBox.shown.size(), 1U);
  const std::string& told = onStage.stage.messageBox.shown[0].text;
  EXPECT_NE(told.find("a.t2d~\r\nNo space left"), std::string::npos) << told;
}

TEST_F(BackupTest, WhereTheDesignCannotBeWrittenTheFormerOneStays) {
  ASSERT_TRUE(Replace("one"));
  files.FailWrites(kDesign, "No space left on device");
  EXPECT_FALSE(Replace("two"));
  EXPECT_EQ(files.ReadWhole(kDesign).value(), "one");
}

TEST_F(BackupTest, OnAFullDiskTheDesignGoesBeforeItsCopy) {
  ASSERT_TRUE(Replace("one"));
  files.LimitRoom(8);
  const Result<SavedDesign> longer = Replace("longer");
  ASSERT_TRUE(longer) << "there is room for it without the copy";
  EXPECT_NE(longer.value().copyRefusal, "");
  EXPECT_EQ(files.ReadWhole(kDesign).value(), "longer");
  EXPECT_FALSE(files.Exists(kCopy));
  EXPECT_FALSE(Replace("much longer"));
  EXPECT_EQ(files.ReadWhole(kDesign).value(), "longer");
}

struct RecoveryTest : testing::Test {
  StationOnStage onStage;
  Station& station = onStage.Started();
  DesignState& s = station.s;
  MemoryFiles& files = onStage.stage.files;

  // Everything that is due in the time that passes.
  void Wait(int seconds) {
    onStage.stage.clock.Advance(std::chrono::seconds(seconds));
    station.Tick();
  }
  // And what a former station left is offered.
  void LetSplashClose() {
    Wait(0);
    Wait(1);
  }
};

// The operator has said Yes: what cannot be saved is not thrown away.
TEST_F(RecoveryTest, ARefusedSaveStopsNewAndOpen) {
  LetSplashClose();
  station.Type(s.txtDiameterLeft, "4");
  for (const char* control : {"mnuNewFile", "btnOPen"}) {
    onStage.stage.messageDialog.answers.push_back({true, false});
    onStage.stage.fileDialog.answers.emplace_back(kDesign);
    files.FailWrites(kDesign, "No space left on device");
    station.Run(control, Event::Click);
    EXPECT_EQ(s.txtDiameterLeft.text(), "4") << control;
    EXPECT_TRUE(s.gDirty && s.gGridSync && station.CanUndo()) << control;
  }
}

TEST_F(RecoveryTest, TheStationStaysWhereNeitherTheDesignNorACopyCanBeWritten) {
  LetSplashClose();
  station.Type(s.txtDiameterLeft, "4");
  const auto quit = [&](bool endsWithout) {
    onStage.stage.messageDialog.answers = {{true, false}, {endsWithout, false}};
    onStage.stage.fileDialog.answers.emplace_back(kDesign);
    station.Run("mnuQuit", Event::Click);
  };
  files.FailWrites(kDesign, "No space left on device");
  files.FailWrites(kRecovery, "No space left on device");
  quit(false);
  EXPECT_FALSE(station.ended);
  EXPECT_TRUE(s.frmMain.shown());
  EXPECT_NE(onStage.stage.messageDialog.shown.back().text.find("No space left"), std::string::npos);
  quit(true);
  EXPECT_TRUE(station.ended);
}

TEST_F(RecoveryTest, AChangedDesignIsCopiedAndASavedOneIsNot) {
  LetSplashClose();
  station.Type(s.txtDiameterLeft, "4");
  EXPECT_FALSE(files.Exists(kRecovery));
  Wait(11);
  ASSERT_TRUE(files.Exists(kRecovery));
  onStage.stage.fileDialog.answers.emplace_back(kDesign);
  station.Run("btnSaveAS", Event::Click);
  EXPECT_FALSE(files.Exists(kRecovery));
  station.Type(s.txtDiameterLeft, "5");
  Wait(11);
  EXPECT_TRUE(files.Exists(kRecovery));
  station.Run("mnuQuit", Event::Click);
  EXPECT_TRUE(station.ended);
  EXPECT_TRUE(files.Exists(kRecovery)) << "No, or Esc, is no leave to throw it away";
}

// The ten seconds begin with the first key, not with each.
TEST_F(RecoveryTest, WhoGoesOnTypingIsCopiedToo) {
  LetSplashClose();
  for (int key = 0; key < 6; ++key) {
    station.Type(s.txtDiameterLeft, std::to_string(key));
    Wait(2);
  }
  EXPECT_TRUE(files.Exists(kRecovery));
}

TEST_F(RecoveryTest, ADesignThatFoundNoPlaceAtTheEndStays) {
  LetSplashClose();
  station.Type(s.txtDiameterLeft, "4");
  files.FailWrites(kDesign, "No space left on device");
  onStage.stage.messageDialog.answers.push_back({true});
  onStage.stage.fileDialog.answers.emplace_back(kDesign);
  station.Run("mnuQuit", Event::Click);
  EXPECT_TRUE(station.ended);
  EXPECT_TRUE(files.Exists(kRecovery));
}

TEST_F(RecoveryTest, TheFormerStationsCopyIsNotWrittenOverBeforeItWasOffered) {
  files.Put(kRecovery, "former");
  station.Type(s.txtDiameterLeft, "4");
  WriteRecovery(station);
  EXPECT_EQ(files.ReadWhole(kRecovery).value(), "former");
  OfferRecovery(station);
  EXPECT_TRUE(onStage.stage.messageDialog.shown.empty()) << "it is no copy of a design";
  WriteRecovery(station);
  EXPECT_NE(files.ReadWhole(kRecovery).value(), "former");
}

struct TwoStationsTest : testing::Test {
  struct Neighbour {
    explicit Neighbour(Stage& stage) : station(stage.AsPlatform()) {
      Form_Load(station);
      for (int i = 0; i < 2; ++i) {
        stage.clock.Advance(std::chrono::seconds(5));
        station.Tick();
      }
    }
    void Change(Stage& stage, const std::string& diameter) {
      station.Type(station.s.txtDiameterLeft, diameter);
      stage.clock.Advance(std::chrono::seconds(11));
      station.Tick();
    }
    WholeStation station;
  };

  std::unique_ptr<Neighbour> Start() { return std::make_unique<Neighbour>(stage); }
  int BoxesOfAnother() {
    int boxes = 0;
    for (const auto& box : stage.messageBox.shown)
      boxes += box.text.starts_with("Another station runs") ? 1 : 0;
    stage.messageBox.shown.clear();
    return boxes;
  }
  std::size_t Offers() const { return stage.messageDialog.shown.size(); }

  Stage stage;
  MemoryFiles& files = stage.files;
  const std::string second = "C:\\Torvane\\TV_RECOVERY-2.TVR";
};

TEST_F(TwoStationsTest, TellOfEachOtherAndKeepTheirOwnCopies) {
  auto first = Start();
  EXPECT_EQ(BoxesOfAnother(), 0);
  auto other = Start();
  EXPECT_EQ(BoxesOfAnother(), 1);
  first->Change(stage, "4");
  other->Change(stage, "5");
  ASSERT_TRUE(files.Exists(kRecovery));
  ASSERT_TRUE(files.Exists(second));
  EXPECT_NE(files.ReadWhole(kRecovery).value(), files.ReadWhole(second).value());
  EXPECT_EQ(Offers(), 0U) << "the first one runs";

  // The end of the one touches nothing of the other; who starts then hears of that one again.
  files.MakeFolder("C:\\Torvane\\TV_Design_Files");
  stage.messageDialog.answers = {{true, false}};
  stage.fileDialog.answers.emplace_back(kDesign);
  first->station.Run("mnuQuit", Event::Click);
  EXPECT_FALSE(files.Exists(kRecovery));
  EXPECT_TRUE(files.Exists(second));
  stage.messageDialog.shown.clear();
  auto third = Start();
  EXPECT_EQ(BoxesOfAnother(), 1);
  EXPECT_EQ(Offers(), 0U);
  EXPECT_TRUE(files.Exists(second));
}

TEST_F(TwoStationsTest, OfferTheCopiesOfTheDeadOneBehindTheOther) {
  auto first = Start();
  auto other = Start();
  first->Change(stage, "4");
  other->Change(stage, "5");
  first.reset();
  other.reset();
  stage.messageDialog.answers = {{false, false}, {true, false}};
  auto next = Start();
  EXPECT_EQ(Offers(), 2U);
  EXPECT_EQ(next->station.s.txtDiameterLeft.text(), "5");
  EXPECT_FALSE(files.Exists(second)) << "it has moved into the own place";
  EXPECT_TRUE(files.Exists(kRecovery));
  next.reset();

  stage.messageDialog.answers = {{true, false}};
  EXPECT_EQ(Start()->station.s.txtDiameterLeft.text(), "5");
}

TEST_F(TwoStationsTest, ACopyOfAnotherNumberThatNobodyWantedGivesWayToo) {
  auto first = Start();
  auto other = Start();
  other->Change(stage, "5");
  first.reset();
  other.reset();
  auto next = Start();
  EXPECT_EQ(Offers(), 1U);
  EXPECT_TRUE(files.Exists(kRecovery)) << "not wanted, but not lost";
  EXPECT_FALSE(files.Exists(second));
  next->Change(stage, "6");
  next->station.Run("mnuQuit", Event::Click);
  next.reset();
  stage.messageDialog.answers = {{true, false}};
  EXPECT_EQ(Start()->station.s.txtDiameterLeft.text(), "6");

  // Until it is thrown away: a tick, and No.
  stage.messageDialog.answers = {{false, true}};
  EXPECT_EQ(Start()->station.s.txtDiameterLeft.text(), "");
  EXPECT_EQ(stage.messageDialog.shown.back().tick, "Throw it away for good");
  EXPECT_FALSE(files.Exists(kRecovery));
}

TEST_F(TwoStationsTest, RunWhereNoLockIsToBeHad) {
  files.FailWrites("C:\\Torvane\\TV_STATION.LCK", "Permission denied");
  auto first = Start();
  first->Change(stage, "4");
  EXPECT_TRUE(files.Exists(kRecovery));
  EXPECT_EQ(BoxesOfAnother(), 0);
}

TEST_F(TwoStationsTest, AskBeforeTheyReplaceWhatTheOtherHasSaved) {
  files.MakeFolder("C:\\Torvane\\TV_Design_Files");
  files.MakeFolder("C:\\Torvane\\TV_G-Code_Files");
  auto first = Start(), other = Start();
  ASSERT_TRUE(SaveDesign(first->station, kDesign));
  ASSERT_EQ(OpenDesign(other->station, kDesign), Opened::Whole);
  other->Change(stage, "5");
  EXPECT_TRUE(SaveDesign(other->station, kDesign));
  ASSERT_EQ(Offers(), 0U) << "nobody else has changed it";
  const std::string others = files.ReadWhole(kDesign).value();

  first->Change(stage, "4");
  EXPECT_FALSE(SaveDesign(first->station, kDesign));
  ASSERT_EQ(Offers(), 1U);
  EXPECT_NE(stage.messageDialog.shown[0].text.find(kDesign), std::string::npos);
  EXPECT_EQ(files.ReadWhole(kDesign).value(), others);
  EXPECT_TRUE(first->station.s.gDirty);

  EXPECT_FALSE(SaveDesign(first->station, "TV_Design_Files\\a.t2d")) << "the same file";
  ASSERT_EQ(Offers(), 2U);

  // Any other name is replaced unasked, and so is a file that is gone.
  files.Put("C:\\Torvane\\TV_Design_Files\\b.t2d", "another design");
  EXPECT_TRUE(SaveDesign(first->station, "C:\\Torvane\\TV_Design_Files\\b.t2d"));
  files.Remove(kDesign);
  EXPECT_TRUE(SaveDesign(other->station, kDesign));
  EXPECT_EQ(Offers(), 2U);

  ASSERT_EQ(OpenDesign(first->station, kDesign), Opened::Whole);
  files.Put(kDesign, others + " ");
  stage.messageDialog.answers = {{true, false}};
  EXPECT_TRUE(SaveDesign(first->station, kDesign));
  EXPECT_EQ(Offers(), 3U);
  EXPECT_EQ(files.ReadWhole(kCopy).value(), others + " ");
  EXPECT_TRUE(SaveDesign(first->station, kDesign));
  EXPECT_EQ(Offers(), 3U) << "what it has saved is known to it";
}

}  // namespace
}  // namespace torvane
