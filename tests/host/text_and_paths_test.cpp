#include <gtest/gtest.h>
#include <unistd.h>

#include "host/code_page.h"
#include "host/paths.h"
#include "host/temporary_folder.h"

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

TEST(Paths, StationPathsAreHostPathsWithBackslashes) {
  for (const auto& [station, host] : std::initializer_list<std::pair<const char*, const char*>>{
           {"\\srv\\winder\\torvane", "/srv/winder/torvane"},
           {"a.t2d", "a.t2d"},
           {"\\", "/"},
           {"..\\M\xFCll \x80.T2G", "../Müll €.T2G"}}) {
    EXPECT_EQ(HostPath(station).value(), host);
    EXPECT_EQ(StationPath(host).value(), station);
  }
  EXPECT_FALSE(HostPath(std::string_view("a\0b", 3)));
  EXPECT_FALSE(StationPath(std::string_view("a\0b", 3)));
  EXPECT_FALSE(StationPath("/srv/a\\b"));
  EXPECT_FALSE(StationPath("/srv/\xFF"));
  EXPECT_NE(StationPath("/srv/Ω").reason().find("U+03A9"), std::string::npos);
}

TEST(Paths, CommandLinePathsAreMadeAbsolute) {
  const std::string here = StationPath(std::filesystem::current_path().string()).value();
  EXPECT_EQ(AbsoluteStationPath("a b.t2d").value(), here + "\\a b.t2d");
  EXPECT_EQ(AbsoluteStationPath("./x//y.t2d").value(), here + "\\x\\y.t2d");
  EXPECT_EQ(AbsoluteStationPath("/x/./y").value(), "\\x\\y");

  const TemporaryFolder folder;
  std::filesystem::create_directories(folder.path / "deep" / "inside");
  std::filesystem::create_directory_symlink("deep/inside", folder.path / "link");
  const auto up = AbsoluteStationPath((folder.path / "link" / ".." / "x.t2d").string());
  EXPECT_EQ(up.value(), StationPath((folder.path / "deep" / "x.t2d").string()).value());
}

TEST(Paths, RunningProgramIsInItsFolder) {
  const auto folder = RunningProgramFolder();
  ASSERT_TRUE(folder);
  const auto self = std::filesystem::canonical("/proc/self/exe");
  EXPECT_EQ(self.parent_path().string(), folder.value());
}

}  // namespace
}  // namespace torvane
