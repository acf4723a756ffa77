// The pattern preview without its window: the pointer's place, how far the drawing has come, its file.
#include "workbench/dialog/preview.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "support/station_on_stage.h"
#include "workbench/dialog/picture_file.h"
#include "workbench/schedule/grids.h"
#include "workbench/schedule/row_menu.h"

namespace torvane {
namespace {

// A flat tube of 4 inches with one row.
void TypeFlatTube(Station& station, const std::string& z) {
  DesignState& s = station.s;
  station.Choose(s.optX(1), "True");
  s.txtDia(0) = "4";
  s.txtDia(1) = "4";
  s.txtZ4(0) = z;
  s.txtZ4(3) = "4";
  s.txtPODia(0) = "1";
  s.txtPODia(1) = "1";
  s.txtNumberOfLayers(1) = "1";
  station.Choose(s.cmb3D(1), "REG");
}

TEST(PreviewTest, PointerReadsInTheComputersSigns) {
  StationOnStage onStage(',');
  Station& station = onStage.Started();
  ShowPreview(station);
  const auto figure = [&](const char* name) { return station.FindField(name)->text(); };
  ShowPointer(station, 3, -4);
  EXPECT_EQ(figure("lblX"), "3,0");
  EXPECT_EQ(figure("lblY"), "-4,0");
  EXPECT_EQ(figure("lblRadius"), "5,00 in");
  EXPECT_EQ(figure("lblAngle"), "306,9\xB0") << "counted from the right, upward";
}

TEST(PreviewTest, CountsItsPassesFromTheFirstToTheLast) {
  StationOnStage onStage;
  Station& station = onStage.Started();
  DesignState& s = station.s;
  TypeFlatTube(station, "28");
  s.txtBandWidth(1) = "0.25";
  station.Choose(s.cmbPattern(1), "30 | 3 x 4 | 180\xB0");
  ASSERT_TRUE(HasPreview(s, 1));
  EXPECT_EQ(PassesDrawn(station).all, 0) << "no preview is open";
  ShowPreviewOfRow(station, 1);
  int steps = 0;
  for (; steps < 100 && (station.timers.tmrStartDraw.due || station.timers.tmrDraw.due); ++steps) {
    onStage.stage.clock.Set(
        *(station.timers.tmrStartDraw.due ? station.timers.tmrStartDraw.due : station.timers.tmrDraw.due));
    station.Tick();
    if (steps == 0) {
      EXPECT_EQ(PassesDrawn(station).drawn, 1);
    }
  }
  EXPECT_LT(steps, 100);
  EXPECT_EQ(PassesDrawn(station).drawn, 12);
  EXPECT_EQ(PassesDrawn(station).all, 12);
  station.Choose(s.cmb3D(1), "HOOP");
  EXPECT_FALSE(HasPreview(s, 1));
}

TEST(PreviewTest, ItsPictureIsSavedBesideTheDesignAndARefusalIsTold) {
  StationOnStage onStage;
  Station& station = onStage.Started();
  station.s.gFilePath = "C:\\Torvane\\TV_Design_Files\\my.tube.t4d";
  station.s.gFileName = "my.tube.t4d";
  EXPECT_EQ(PictureTitle(station.s, "2", "30 | 3 x 4 | 180\xB0"),
            "my.tube.t4d, layer 2: 30 | 3 x 4 | 180\xB0");
  auto& dialog = onStage.stage.fileDialog;
  dialog.answers.emplace_back("C:\\Torvane\\TV_Design_Files\\a.svg");
  SavePicture(station, "2", "svg", "<svg/>");
  EXPECT_EQ(dialog.asked.back().proposedName, "my.tube-layer-2.svg");
  EXPECT_EQ(dialog.asked.back().folder, "C:\\Torvane\\TV_Design_Files");
  EXPECT_EQ(onStage.stage.files.ReadWhole("C:\\Torvane\\TV_Design_Files\\a.svg").value(), "<svg/>");
  dialog.answers.emplace_back("C:\\Nowhere\\a.png");
  SavePicture(station, "2", "png", "x");
  ASSERT_EQ(onStage.stage.messageBox.shown.size(), 1U);
  EXPECT_TRUE(onStage.stage.messageBox.shown.back().text.starts_with("The picture was not saved: "));
  dialog.answers.emplace_back(std::nullopt);
  SavePicture(station, "2", "png", "x");
  EXPECT_EQ(onStage.stage.messageBox.shown.size(), 1U) << "a cancelled question is no failure";
  // The ending is added, and a picture that is there is not replaced unasked.
  dialog.answers.emplace_back("C:\\Torvane\\TV_Design_Files\\a");
  onStage.stage.messageDialog.answers.push_back({false, false});
  SavePicture(station, "2", "svg", "<other/>");
  EXPECT_EQ(onStage.stage.messageDialog.shown.size(), 1U);
  EXPECT_EQ(onStage.stage.files.ReadWhole("C:\\Torvane\\TV_Design_Files\\a.svg").value(), "<svg/>");
}

// What the end view says it shows, and how many bands it shows.
std::string TitleOf(const Station& station) {
  const EndView& view = station.endView;
  const auto chords = std::count_if(view.picture.begin(), view.picture.end(),
                                    [](const PolarFigure& f) { return f.kind == PolarKind::Chord; });
  return std::to_string(view.row) + " " + view.pattern + ", " + std::to_string(chords);
}

TEST(EndViewTest, ShowsTheWholePictureOfTheRowThatItNames) {
  StationOnStage onStage;
  Station& station = onStage.Started();
  DesignState& s = station.s;
  TypeFlatTube(station, "28");
  s.txtBandWidth(1) = "0.25";
  s.txtNumberOfLayers(1) = "3";
  station.Choose(s.cmb3D(3), "HOOP");
  station.Choose(s.cmbPattern(1), "30 | 3 x 4 | 180\xB0");
  EXPECT_EQ(TitleOf(station), "1 30 | 3 x 4 | 180\xB0, 11") << "the last pass has no band over the end";
  station.Run("btn4XRow", Event::Click, 1);
  station.Choose(s.cmbPattern(2), "25 | 2 x 5 | 180\xB0");
  const std::string second = "2 25 | 2 x 5 | 180\xB0, 9";
  EXPECT_EQ(TitleOf(station), second) << "the preview of row 1 is in front, and has drawn nothing yet";
  // A row's number alone selects: the picture is still row 2's, and the preview says so.
  station.Run("btnClose", Event::Click);
  station.Run("lbl4xLayerNo", Event::Release, 1);
  station.Run("picPolar", Event::Click);
  EXPECT_EQ(station.FindField("lbllayerNo")->text(), "2");
  EXPECT_EQ(station.FindField("lblPolarTag")->text(), "25 | 2 x 5 | 180\xB0");
  station.Run("btnClose", Event::Click);
  // So does a hoop, which has no picture of its own.
  station.Run("btn4XRow", Event::Click, 3);
  EXPECT_EQ(TitleOf(station), second);
  station.Run("Label18", Event::Click);
  EXPECT_EQ(station.FindField("lbllayerNo")->text(), "2");
  station.Run("btnClose", Event::Click);
  // A pattern that has gone from its row takes its picture with it.
  station.Choose(s.cmb3D(2), "HOOP");
  EXPECT_EQ(TitleOf(station), "0 , 0");
}

TEST(EndViewTest, IsBlankAfterNewAndOpen) {
  StationOnStage onStage;
  Station& station = onStage.Started();
  DesignState& s = station.s;
  const std::string path = "C:\\Torvane\\TV_Design_Files\\flat.t4d";
  const auto show = [&] {
    TypeFlatTube(station, "28");
    s.txtBandWidth(1) = "0.25";
    station.Choose(s.cmbPattern(1), "30 | 3 x 4 | 180\xB0");
  };
  show();
  onStage.stage.fileDialog.answers.emplace_back(path);
  station.Run("btnSaveAS", Event::Click);
  station.Run("btn4XRow", Event::Click, 1);
  EXPECT_EQ(station.endView.row, 1);
  onStage.stage.fileDialog.answers.emplace_back(path);
  station.Run("btnOPen", Event::Click);
  EXPECT_EQ(TitleOf(station), "0 , 0");
  show();
  s.gDirty = false;
  station.Run("mnuNewFile", Event::Click);
  EXPECT_EQ(TitleOf(station), "0 , 0");
  EXPECT_EQ(s.lblLayer.text(), "");
}

TEST(EndViewTest, ARowWithoutEndWrapsIsTakenAndOpensNothing) {
  StationOnStage onStage;
  Station& station = onStage.Started();
  DesignState& s = station.s;
  TypeFlatTube(station, "28");
  station.Choose(s.optType(2), "True");
  station.Type(s.cmbPattern(1), "45");
  EXPECT_FALSE(s.btn4XRow(1).shown());
  station.Run("btn4XRow", Event::Click, 1);
  EXPECT_EQ(s.gCurrentRow, 1);
  EXPECT_TRUE(s.lbl4xLayerNo(1).bold());
  EXPECT_TRUE(station.windows.empty());
  EXPECT_EQ(s.lblLayer.text(), "");
}

TEST(RowMenuTest, OfNoRowBeginsWithWhatsThisInBothFamilies) {
  StationOnStage onStage;
  Station& station = onStage.Started();
  for (const bool fourAxis : {false, true}) {
    station.Choose(station.s.optX(fourAxis ? 1 : 0), "True");
    const auto entries = RowMenu(station);
    EXPECT_EQ(station.WordsOf(entries[0].control).caption, "Whats This ?");
    EXPECT_EQ(station.WordsOf(entries[1].control).caption, "Copy Row");
    EXPECT_TRUE(entries[1].beginsGroup);
    EXPECT_EQ(entries.size(), fourAxis ? 11U : 7U);
    // Without a row there is nothing to copy; all rows are always there.
    for (const RowMenuEntry& entry : entries)
      EXPECT_EQ(station.IsUsable(entry.control),
                entry.control == "mnuWhatsThis" || entry.control == "mnuRecalcAllRows")
          << entry.control;
  }
}

}  // namespace
}  // namespace torvane
