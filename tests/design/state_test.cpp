#include "design/state.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "design/catalogue.h"
#include "design/reset.h"
#include "design/units.h"

namespace torvane {
namespace {

struct Recorder : ChangeOperations {
  void Changed(const Field& field) override { seen.push_back(NameOf(field) + "=" + field.text()); }
  std::vector<std::string> seen;
};

TEST(Fields, TheChangeOperationRunsInsideAWriteOfAnotherText) {
  DesignState s({});
  Recorder recorder;
  s.operations = &recorder;
  s.txtWA(3) = "45";
  s.txtWA(3) = "45";
  s.txtWA(3) = (Number(1) / 0).as("##0.0"_mask);
  s.txtWA(3) = (number(s.txtMRPM(3)) * 2).plain();
  s.txtWA(19) = "45";
  s.txtWA(4).CopyFrom(s.txtWA(0));
  s.txtWA(IndexSet::kAllRows) = Number(60).as("##0.0"_mask);
  EXPECT_EQ(recorder.seen, (std::vector<std::string>{"txtWA(3)=45", "txtWA(26)=60.0"}));
  EXPECT_FALSE(number(s.txtWA(19)).good());
}

TEST(Fields, AWatcherIsToldOfEachWriteThatAFailedNumberSkips) {
  struct Skips : SkipWatcher {
    void Skipped(const Field& field, std::string_view routine) override {
      seen.push_back(NameOf(field) + " in " + std::string(routine));
    }
    std::vector<std::string> seen;
  } skips;
  DesignState s({});
  s.skips = &skips;
  const Number failed = Number(1) / 0;
  s.txtWA(3) = failed.as("##0.0"_mask);
  s.txtWA(4) = failed.plain();
  s.txtWA(5) = TextOf(s.signs, failed.plain());
  s.txtWA(6) = Number(45).plain();
  s.txtWA(19) = failed.plain();
  EXPECT_EQ(skips.seen,
            (std::vector<std::string>{"txtWA(3) in TestBody", "txtWA(4) in TestBody", "txtWA(5) in "}));
}

TEST(Fields, ARestoreSetsAllTextsAndRunsNothing) {
  DesignState s({});
  s.txtWA(3) = "45";
  s.LayerTable2Ax.Set(3, 1, "45");
  const Snapshot before = s.TakeSnapshot();
  s.txtWA(3) = "60";
  s.gUnits = "mm";
  s.LayerTable2Ax.Set(3, 1, "60");
  Recorder recorder;
  s.operations = &recorder;
  s.Restore(before);
  EXPECT_EQ(s.txtWA(3).text(), "45");
  EXPECT_EQ(number(s.txtWA(3)).value(), 45);
  EXPECT_EQ(s.gUnits.text(), "in");
  EXPECT_EQ(s.LayerTable2Ax(3, 1), "45");
  EXPECT_TRUE(recorder.seen.empty());
}

TEST(Catalogue, HoldsEveryFieldUnderItsOwnName) {
  DesignState s({});
  std::set<std::string_view> names;
  std::size_t bytes = 0;
  for (const FieldRow& row : Catalogue()) {
    EXPECT_TRUE(names.insert(row.name).second) << row.name;
    bytes += std::holds_alternative<Field Fields::*>(row.member) ? sizeof(Field) : sizeof(FieldArray);
  }
  // A field that is missing from the table would leave room.
  EXPECT_EQ(bytes, sizeof(Fields));
  ForEachField(s, [&s](const Field& field) { EXPECT_EQ(FindField(s, NameOf(field)), &field); });
  for (const char* wrong : {"",
                            "(",
                            "txtWA",
                            "txtWA(",
                            "txtWA(0)",
                            "txtWA(27)",
                            "txtWA(1",
                            "txtWA(x)",
                            "txtDiameterLeft(0)",
                            "txtWA(1)x",
                            "txtWA(99999999999)",
                            "txtWA(19)",
                            "txtLengthTotal(2)",
                            "txtPreWrapAdvance(0)",
                            "txtPreWrapAdvance(3)",
                            "txtCarriageSpeed(19)",
                            "txtCarriageSpeed(26)",
                            "lblRPM(26)",
                            "txtAdjust(7)",
                            "txtZ4(4)",
                            "optType(3)"})
    EXPECT_EQ(FindField(s, wrong), nullptr) << wrong;
  for (const char* last : {"txtWA(18)", "txtWA(26)", "txtLengthTotal(0)", "txtLengthTotal(1)",
                           "txtPreWrapAdvance(2)", "txtCarriageSpeed(18)", "lblRPM(25)", "cmb3D(25)",
                           "cmb3D(26)", "txtAdjust(6)", "txtZ4(3)", "optType(2)"})
    EXPECT_NE(FindField(s, last), nullptr) << last;
  // Nothing behind the end of a view is read.
  const std::vector<char> cut = {'t', 'x', 't', 'W', 'A', '('};
  EXPECT_EQ(FindField(s, {cut.data(), cut.size()}), nullptr);
}

TEST(Values, AreFoundByName) {
  DesignState s({});
  s.LayerTable2Ax.Set(3, 1, "45");
  s.LayerTable2Ax.Set(51, 1, "lost");
  s.LayerTable2Ax.Set(3, 13, "lost");
  s.iMaxCarriageSpeeds = {2, 4, 6};
  EXPECT_EQ(FindValue(s, "LayerTable2Ax(3,1)").text, "45");
  EXPECT_EQ(FindValue(s, "LayerTable2Ax(51,1)").text, "");
  EXPECT_EQ(FindValue(s, "gDirty").text, "False");
  EXPECT_EQ(FindValue(s, "iMaxCarriageSpeeds(3)").text, "6");
  for (const char* wrong : {"nothing", "gDirty(1)", "iMaxCarriageSpeeds", "iMaxCarriageSpeeds(4)",
                            "LayerTable2Ax(3)", "LayerTable2Ax(3,1", "LayerTable2Ax(3,1)x"})
    EXPECT_FALSE(FindValue(s, wrong).found) << wrong;
  // A report names all but what other lines of it show, and the tables.
  const auto reported = ReportedValues();
  EXPECT_EQ(reported.size(), 31U);
  for (const std::string& name : reported) EXPECT_TRUE(FindValue(s, name).found) << name;
  for (const char* shown : {"mnuINCH", "mnuMM", "gPolarRow", "gWindAngle", "LayerTable2Ax", "gTagFields"})
    EXPECT_EQ(std::count(reported.begin(), reported.end(), shown), 0) << shown;
}

TEST(Values, OfACountAreWholeRows) {
  DesignState s({});
  for (const auto& [count, rows] : {std::pair("2.5", 2), std::pair("2.6", 3), std::pair("-1", 0),
                                    std::pair("", 0), std::pair("32767", 32767), std::pair("40000", 32767)}) {
    s.txtNumberOfLayers(0) = count;
    EXPECT_EQ(RowsOf(s.txtNumberOfLayers(0)), rows) << count;
  }
}

std::string Texts(std::initializer_list<const Field*> fields) {
  std::string texts;
  for (const Field* field : fields) texts += field->text() + "|";
  return texts;
}

struct Blank : testing::Test {
  Blank() {
    ForEachField(s, [](Field& field) {
      field.Restore("7");
      field.Show(field.index() % 2 == 0);
    });
    for (int column = 1; column <= 8; ++column) s.LayerTable2Ax.Set(15, column, "7");
  }
  DesignState s{{}};
};

TEST_F(Blank, OfTwoAxes) {
  BlankInputs(s, 2);
  EXPECT_EQ(Texts({&s.txtDiameterLeft, &s.txtDiameterRight, &s.txtLengthTotal(0), &s.txtBandWidth(0),
                   &s.txtBandThickness(0), &s.txtBandWidthMM(0), &s.txtBandThicknessMM(0), &s.lblBuildTime(0),
                   &s.lblLengthRequired(0), &s.lblFinalThickness(0), &s.lblFilamentVOlume(0),
                   &s.lblTotalGlueWgt(0), &s.lblEstWeight(0), &s.lblPassesToCover(26),
                   &s.lblMinutesToCover(26), &s.lblLengthToCover(26), &s.lblStatusBar2}),
            std::string(17, '|'));
  EXPECT_EQ(s.txtNumberOfLayers(0).text(), "0");
  EXPECT_EQ(
      Texts({&s.txtWA(15), &s.txtRight(15), &s.txtLeft(15), &s.txtMRPM(15), &s.txtCarriageSpeed(15),
             &s.lblPassesToCover(15), &s.lblMinutesToCover(15), &s.lblLengthToCover(15), &s.cmbSpeed(15),
             &s.cmbMethod(15), &s.txtAddRevs(15), &s.cmbExactAngle(15), &s.cmb2AxisLayerType(15)}),
      "||||||||fast|ms|0|select|select|");
  for (int column = 1; column <= 8; ++column) EXPECT_EQ(s.LayerTable2Ax(15, column), "") << column;
  for (const int row : {1, 14, 15}) {
    EXPECT_TRUE(s.txtWA(row).shown() && s.cmb2AxisLayerType(row).shown() && s.lblLengthToCover(row).shown());
    EXPECT_FALSE(s.cmbExactAngle(row).shown()) << "of an exact angle there is none yet";
  }
  EXPECT_FALSE(s.txtWA(16).shown() || s.txtWA(18).shown());
  EXPECT_EQ(s.txtDia(0).text(), "7") << "the other family stays";
}

TEST_F(Blank, OfFourAxes) {
  for (const bool two : {true, false}) {
    s.mnu2Axis = two;
    BlankInputs(s, 4);
    EXPECT_EQ(s.focus, &s.txtNumberOfLayers(two ? 0 : 1));
  }
  for (const Field* zero :
       {&s.txtNumberOfLayers(1), &s.txtLengthTotal(1), &s.txtBandWidth(1), &s.txtBandThickness(1),
        &s.txtDia(0), &s.txtDia(1), &s.txtZ4(0), &s.txtZ4(1), &s.txtZ4(2), &s.txtZ4(3), &s.txtPODia(0),
        &s.txtPODia(1), &s.txtSkirtLeft, &s.txtSkirtRight, &s.txtBandThicknessMM(1), &s.txtBandWidthMM(1),
        &s.txtAdjust(0), &s.txtAdjust(6), &s.chkPause(15)})
    EXPECT_EQ(zero->text(), "0") << NameOf(*zero);
  EXPECT_EQ(s.cmbRate.text(), "MED");
  EXPECT_EQ(Texts({&s.cmb3D(15), &s.lblRPM(15), &s.cmbPattern(15), &s.lblNPasses(15), &s.lblcSpeed(15),
                   &s.lblMinutes(15), &s.lblLength(15), &s.cmbPhiW(15), &s.cmbPhiSplit(15)}),
            "|||||||180\xB0|45\xB0|");
  EXPECT_TRUE(s.lblRPM(1).shown() && s.lblRPM(15).shown());
  EXPECT_FALSE(s.lblRPM(16).shown() || s.lblRPM(18).shown() || s.chkPause(1).shown());
  EXPECT_EQ(s.txtNumberOfLayers(1).mark(), Mark::NeedsInput);
  EXPECT_EQ(s.txtDiameterLeft.text(), "7");
}

TEST_F(Blank, IsMarkedWhereItNeedsInput) {
  for (const auto& [text, mark] :
       {std::pair("0", Mark::NeedsInput), std::pair("", Mark::NeedsInput), std::pair("4", Mark::Plain)}) {
    s.txtDia(0).SetMark(Mark::TooHigh);
    s.txtDia(0) = text;
    MarkIfZero(s.txtDia(0));
    EXPECT_EQ(s.txtDia(0).mark(), mark) << text;
  }
}

TEST(Units, FollowTheDesign) {
  DesignState s({});
  s.gVersionNumber = "420";
  EXPECT_EQ(FormatForUnits(s, s.gVersionNumber, true).text, "420.000");
  EXPECT_EQ(TextOf(s.signs, FormatForUnits(s, 2, false)).text, "2.000");
  const auto captions = [&s] {
    return Texts({&s.gUnits, &s.lblUnits(0), &s.lblLengthHeading, &s.lblCarriageSpeedHeading,
                  &s.lblLengthHeading4Ax, &s.lblCarriageSpeedHeading4Ax, &s.lblSpeedUnits,
                  &s.lblLengthUnits});
  };
  ShowUnits(s, "N");
  EXPECT_EQ(captions(),
            "mm|mm|Length (meters)|Carriage Speed (mm/s)|Length (meters)|Carriage Speed (mm/s)|(mm/s)|(m)|");
  EXPECT_EQ(FormatForUnits(s, s.gVersionNumber, true).text, "420.000");
  EXPECT_EQ(TextOf(s.signs, FormatForUnits(s, 2, false)).text, "50.800");
  // A text that is no number stands where nothing is multiplied, and fails where 25.4 does.
  s.txtHGSpeed = "quick";
  EXPECT_FALSE(FormatForUnits(s, s.txtHGSpeed, false).good);
  ShowUnits(s, "Y");
  EXPECT_EQ(captions(),
            "in|in|Length (ft)|Carriage Speed (in/s)|Length (feet)|Carriage Speed (in/s)|(in/s)|(ft)|");
  EXPECT_EQ(FormatForUnits(s, s.txtHGSpeed, false).text, "quick");
}

TEST(SplitText, TrimsFieldsAndDropsThoseBehindTheHundredth) {
  SplitFields fields;
  fields.Split(" 45 ;; 30", ";");
  EXPECT_EQ(fields(0), " 45 ;; 30");
  EXPECT_EQ(fields(1), "45");
  EXPECT_EQ(fields(2), "");
  EXPECT_EQ(fields(3), "30");
  EXPECT_EQ(fields(4), "");
  std::string many;
  for (int i = 1; i <= 10'000; ++i) many += std::to_string(i) + ";";
  fields.Split(many, ";");
  EXPECT_EQ(fields(100), "100");
  fields.Split("", ";");
  EXPECT_EQ(fields(1), "");
}

TEST(CatalogueTest, EveryFieldThatIsShownHasAnOperatorsWords) {
  DesignState s{NumberSigns{}};
  ForEachField(s, [](const Field& field) {
    if (field.row().kind == Kind::Value) return;
    const FieldWords& words = WordsOf(field);
    EXPECT_FALSE(words.name.empty() || words.sentence.empty()) << NameOf(field);
    EXPECT_EQ(words.sentence.back(), '.') << NameOf(field);
    EXPECT_NE(words.name, field.row().name);
  });
  EXPECT_EQ(WordsOf(s.txtZ2(1)).name, "Right stop");
  EXPECT_EQ(TextOf(WordsOf(s.txtZ2(1)).unit, false), "mm");
  EXPECT_EQ(s.optX(1).caption(), "4Ax");
}

}  // namespace
}  // namespace torvane
