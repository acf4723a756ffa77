#include "persist/kept_store.h"

#include <gtest/gtest.h>

#include "stage/stores.h"

namespace torvane {
namespace {

TEST(KeptStore, WritesLaterWhatNobodyWaitsFor) {
  MemoryStore under;
  {
    KeptStore store(under);
    store.WriteLater("RecentFiles", "File1", "a");
    EXPECT_EQ(store.Read("RecentFiles", "File1"), "a");
    EXPECT_EQ(store.All().size(), 1U);
    EXPECT_EQ(under.Read("RecentFiles", "File1"), std::nullopt);
    store.Settle();
    EXPECT_EQ(under.Read("RecentFiles", "File1"), "a");

    store.WriteLater("RecentFiles", "File1", "b");
    EXPECT_TRUE(store.Write("Settings", "x", "1"));
    EXPECT_EQ(under.Read("RecentFiles", "File1"), "b") << "with the next write";
    store.WriteLater("RecentFiles", "File1", "c");
    EXPECT_TRUE(store.Write("RecentFiles", "File1", "d"));
    EXPECT_EQ(under.Read("RecentFiles", "File1"), "d") << "what is written at once is the later one";
    store.WriteLater("RecentFiles", "File1", "e");
  }
  EXPECT_EQ(under.Read("RecentFiles", "File1"), "e") << "at its end";
}

TEST(KeptStore, OffersWhatWasRefusedAgainAndTellsOnce) {
  MemoryStore under;
  KeptStore store(under);
  under.FailWrites("disk full");
  store.WriteLater("RecentFiles", "File1", "a");
  EXPECT_EQ(store.TakeRefusal(), std::nullopt) << "nothing was tried";
  store.Settle();
  EXPECT_EQ(store.TakeRefusal(), "disk full");
  EXPECT_FALSE(store.Write("Settings", "x", "1"));
  EXPECT_EQ(store.TakeRefusal(), std::nullopt);
  EXPECT_EQ(store.Read("Settings", "x"), "1");

  under.FailWrites("");
  EXPECT_TRUE(store.Write("Settings", "y", "2"));
  EXPECT_EQ(under.Read("RecentFiles", "File1"), "a");
  EXPECT_EQ(under.Read("Settings", "x"), "1");
  under.FailWrites("disk gone");
  EXPECT_FALSE(store.Write("Settings", "x", "3"));
  EXPECT_EQ(store.TakeRefusal(), "disk gone");
}

}  // namespace
}  // namespace torvane
