#include "host/files/paths.h"

#include <gtest/gtest.h>

#include "host/temporary_folder.h"

namespace torvane {
namespace {

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
  // A line break in a name would end the line that tells it.
  for (const char* name : {"a\nb.t2d", "a\rb.t2d", "a\x1B[2Jb.t2d", "a\x7F.t2d"}) {
    EXPECT_NE(HostPath(name).reason().find("control character"), std::string::npos);
    EXPECT_FALSE(StationPath(name));
  }
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
