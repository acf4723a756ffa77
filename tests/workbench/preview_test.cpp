// The pattern preview without its window: the pointer's place, how far the drawing has come, its file.
#include "workbench/preview.h"

#include <gtest/gtest.h>

#include "support/station_on_stage.h"
#include "workbench/picture_file.h"

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
  for (; steps < 100 && (station.tmrStartDraw.due || station.tmrDraw.due); ++steps) {
    onStage.stage.clock.Set(*(station.tmrStartDraw.due ? station.tmrStartDraw.due : station.tmrDraw.due));
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
}

}  // namespace
}  // namespace torvane
