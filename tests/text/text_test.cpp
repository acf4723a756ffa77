#include "text/text.h"

#include <gtest/gtest.h>

namespace torvane {
namespace {

TEST(Text, ChangesCaseByCodePage1252) {
  EXPECT_EQ(LowerCase("AZ\xC4\xDC\x8A\x8C\x8E\x9F\xD7"), "az\xE4\xFC\x9A\x9C\x9E\xFF\xD7");
  EXPECT_EQ(UpperCase("az\xE4\xFC\x9A\x9C\x9E\xFF\xF7\xDF"), "AZ\xC4\xDC\x8A\x8C\x8E\x9F\xF7\xDF");
  EXPECT_TRUE(EqualNoCase("R\xD6HRE", "r\xF6hre"));
  EXPECT_FALSE(EqualNoCase("tube", "tubes"));
}

TEST(Text, TakesNamesAndEndsApart) {
  EXPECT_EQ(BehindLastBackslash("C:\\designs\\tube.t2d"), "tube.t2d");
  EXPECT_EQ(BehindLastBackslash("tube.t2d"), "tube.t2d");
  EXPECT_EQ(BehindLastBackslash("C:\\designs\\"), "");
  EXPECT_EQ(WithoutLast("tube.t2d", 4), "tube");
  EXPECT_EQ(WithoutLast("t2d", 4), "");
  EXPECT_EQ(Trim("  a b "), "a b");
  EXPECT_EQ(Trim("\ta"), "\ta") << "a blank is the space alone";
}

}  // namespace
}  // namespace torvane
