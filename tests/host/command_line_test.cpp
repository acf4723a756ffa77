#include "host/system/command_line.h"

#include <gtest/gtest.h>

namespace torvane {
namespace {

TEST(CommandLines, WordsAreTheTextAgain) {
  EXPECT_EQ(WordsOf(""), (std::vector<std::string>{}));
  EXPECT_EQ(WordsOf("TRACE"), (std::vector<std::string>{"TRACE"}));
  EXPECT_EQ(WordsOf(" a  b "), (std::vector<std::string>{"", "a", "", "b", ""}));
}

// Behind the program's name, with or without quotes, the rest of the line is the path as it stands.
TEST(CommandLines, WindowsPathsAreBare) {
  const auto path = [](std::wstring_view line) { return BarePath(line).value_or(L"none"); };
  EXPECT_EQ(path(L"Torvane_Executor.exe C:\\my parts\\two  blanks.T2G "), L"C:\\my parts\\two  blanks.T2G ");
  EXPECT_EQ(path(L"\"C:\\Program Files\\a.exe\" z:/x \"y\" --check"), L"z:/x \"y\" --check");
  EXPECT_EQ(path(L"a.exe \\\\server\\share\\x.T2G"), L"\\\\server\\share\\x.T2G");
  for (const std::wstring_view none : {L"a.exe", L"a.exe ", L"a.exe TRACE", L"a.exe --check C:\\x.T2G",
                                       L"a.exe C:x.T2G", L"a.exe \\x.T2G", L"\"a.exe C:\\x.T2G", L""})
    EXPECT_EQ(path(none), L"none") << std::string(none.begin(), none.end());
}

}  // namespace
}  // namespace torvane
