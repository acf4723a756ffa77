#include "stage/stage.h"

#include <gtest/gtest.h>

namespace torvane {
namespace {

TEST(Stage, OverlayKeepsTheStoreUnderItAsItIs) {
  MemoryStore store;
  store.Write("Settings", "a", "1");
  store.Write("Settings", "b", "2");
  OverlayStore overlay(store);
  overlay.Write("Settings", "b", "");
  overlay.Write("Settings", "c", "3");
  store.Write("Settings", "a", "later");
  EXPECT_EQ(overlay.Read("Settings", "a"), "later");
  EXPECT_EQ(overlay.Read("Settings", "b"), "");
  EXPECT_EQ(store.Read("Settings", "b"), "2");
  const auto all = overlay.All();
  ASSERT_EQ(all.size(), 3U);
  EXPECT_EQ(all[1].value, "");
  EXPECT_EQ(all[2].key, "c");
}

TEST(Stage, FilesBehaveLikeADisk) {
  MemoryFiles files("\\station");
  EXPECT_FALSE(files.WriteWhole("sub\\a", {"x"}));
  EXPECT_FALSE(files.MakeFolder("sub\\deep"));
  ASSERT_TRUE(files.MakeFolder("sub\\"));
  ASSERT_TRUE(files.WriteWhole("sub\\a", {"x", "y"}));
  EXPECT_EQ(files.ReadWhole("\\station\\sub\\a").value(), "xy");
  EXPECT_FALSE(files.WriteWhole("sub", {"x"}));
  EXPECT_FALSE(files.MakeFolder("sub\\a"));
  files.FailWrites("\\station\\sub\\a", "full");
  EXPECT_EQ(files.WriteWhole("sub\\a", {"z"}).reason(), "full");
  EXPECT_EQ(files.ReadWhole("sub\\a").value(), "xy");
  const auto refuses = [](const std::function<bool(std::string_view)>& take) -> Outcome {
    take("z");
    return Refusal{"Cancelled."};
  };
  ASSERT_TRUE(files.WriteWhole("sub\\b", {"former"}));
  EXPECT_EQ(files.WriteWhole("sub\\b", refuses, Lasting::Now).reason(), "Cancelled.");
  EXPECT_EQ(files.ReadWhole("sub\\b").value(), "former");
  EXPECT_TRUE(files.Remove("sub\\b"));
  files.Put("D:\\far\\b", "q");
  EXPECT_EQ(files.NamesIn("sub"), std::vector<std::string>{"a"});
  EXPECT_TRUE(files.NamesIn("D:\\").empty());
  EXPECT_TRUE(files.WriteWhole("D:\\far\\c", {"q"}));
}

TEST(Stage, NoticesAreNeverYesAndTheBoxIsTickedOnlyWhereItIsOffered) {
  Stage stage;
  int ticks = 0;
  Message message{"text", 7, true, false, false, [&](bool on) { ticks += on ? 1 : 0; }};
  stage.messageDialog.answers = {{true, true}, {true, true}, {false, false}};
  EXPECT_FALSE(stage.AsPlatform().messageDialog.Ask(message));
  EXPECT_EQ(ticks, 0);
  message.okOnly = false;
  message.offer = true;
  EXPECT_TRUE(stage.messageDialog.Ask(message));
  EXPECT_EQ(ticks, 1);
  EXPECT_FALSE(stage.messageDialog.Ask(message));
  EXPECT_FALSE(stage.messageDialog.Ask(message));
  EXPECT_EQ(stage.messageDialog.shown.size(), 4U);
}

}  // namespace
}  // namespace torvane
