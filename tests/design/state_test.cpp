#include "design/state.h"

#include <gtest/gtest.h>

#include <set>

#include "design/catalogue.h"
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
  for (const char* wrong : {"", "(", "txtWA", "txtWA(", "txtWA(0)", "txtWA(27)", "txtWA(1", "txtWA(x)",
                            "txtDiameterLeft(0)", "txtWA(1)x", "txtWA(99999999999)"})
    EXPECT_EQ(FindField(s, wrong), nullptr) << wrong;
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
}

TEST(Units, FollowTheDesign) {
  DesignState s({});
  s.gVersionNumber = "420";
  EXPECT_EQ(FormatForUnits(s, s.gVersionNumber, true).text, "420.000");
  EXPECT_EQ(TextOf(s.signs, FormatForUnits(s, 2, false)).text, "2.000");
  ShowUnits(s, "N");
  EXPECT_EQ(FormatForUnits(s, s.gVersionNumber, true).text, "420.000");
  EXPECT_EQ(TextOf(s.signs, FormatForUnits(s, 2, false)).text, "50.800");
  // A text that is no number stands where nothing is multiplied, and fails where 25.4 does.
  s.txtHGSpeed = "quick";
  EXPECT_FALSE(FormatForUnits(s, s.txtHGSpeed, false).good);
  ShowUnits(s, "Y");
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

}  // namespace
}  // namespace torvane
