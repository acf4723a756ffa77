#include "text/code_page.h"

#include <gtest/gtest.h>

namespace torvane {
namespace {

TEST(CodePage, EveryByteRoundTripsAndCharactersAreTheRightOnes) {
  for (int byte = 0; byte < 256; ++byte) {
    const std::string text(1, static_cast<char>(byte));
    const auto back = FromUtf8(ToUtf8(text));
    ASSERT_TRUE(back) << byte << ' ' << back.reason();
    EXPECT_EQ(back.value(), text);
  }
  EXPECT_EQ(ToUtf8("\x80 \x9F \xB0 \xD8 \x85 \x81"), "€ Ÿ ° Ø … \u0081");
}

TEST(CodePage, RefusalsNameTheCharacter) {
  const auto reason = [](std::string_view utf8) {
    const auto text = FromUtf8(utf8);
    return text ? "taken" : text.reason();
  };
  EXPECT_NE(reason("3 Ω").find("U+03A9"), std::string::npos);
  EXPECT_NE(reason("😀").find("U+1F600"), std::string::npos);
  EXPECT_NE(reason("\u0080").find("U+0080"), std::string::npos);
  for (const std::string_view malformed :
       {"ab\xFC", "ab\xC3", "ab\xC3(", "ab\xC0\x80", "ab\xE0\x80\xAF", "ab\xED\xA0\x80", "ab\xE2\x82",
        "ab\xF0\x80\x80\x80", "ab\xF4\x90\x80\x80", "ab\xF8\x88\x80\x80\x80", "ab\x80"}) {
    EXPECT_NE(reason(malformed).find("Byte 3"), std::string::npos) << testing::PrintToString(malformed);
  }
}

}  // namespace
}  // namespace torvane
