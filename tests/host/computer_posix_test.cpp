// The launcher, the locale and the clock of the computer.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdlib>
#include <thread>

#include "host/files/paths.h"
#include "host/store/default_store.h"
#include "host/system/command_line.h"
#include "host/system/host_clock.h"
#include "host/system/host_launcher.h"
#include "host/system/host_locale.h"
#include "host/temporary_folder.h"

namespace torvane {
namespace {

// Sets a variable for one test.
class Variable {
 public:
  Variable(const char* name, const std::string& value) : name_(name) {
    if (const char* former = std::getenv(name)) former_ = former;
    setenv(name, value.c_str(), 1);
  }
  ~Variable() { former_ ? setenv(name_, former_->c_str(), 1) : unsetenv(name_); }
  Variable(const Variable&) = delete;
  Variable& operator=(const Variable&) = delete;

 private:
  const char* name_;
  std::optional<std::string> former_;
};

class HostLauncherTest : public testing::Test {
 protected:
  void SetUp() override {
    std::filesystem::create_directories(station);
    std::filesystem::create_directories(tools);
    // What is typed at the station is not meant for the programs that it starts.
    std::array<int, 2> typed{};
    ASSERT_EQ(pipe(typed.data()), 0);
    ASSERT_EQ(write(typed[1], "typed\n", 6), 6);
    input = dup(STDIN_FILENO);
    dup2(typed[0], STDIN_FILENO);
    close(typed[0]);
    close(typed[1]);
  }
  void TearDown() override {
    dup2(input, STDIN_FILENO);
    close(input);
  }
  static void Install(const std::filesystem::path& program) {
    std::filesystem::copy_file(HOST_TEST_ARGUMENTS, program);
  }
  // What the started program tells; empty if it told nothing within five seconds.
  std::string Told() const {
    for (int i = 0; i < 500 && !std::filesystem::exists(report); ++i) {
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    std::string told = Bytes(report);
    std::filesystem::remove(report);
    return told;
  }
  std::string Text(const std::filesystem::path& host) const { return StationPath(host.string()).value(); }

  TemporaryFolder folder;
  std::filesystem::path root = std::filesystem::canonical(folder.path);
  std::filesystem::path station = root / "my station", tools = root / "tools", report = root / "report";
  std::string end = "in " + station.string() + "\nno input\n";
  Variable searched{"PATH", tools.string()};
  Variable reported{"ARGUMENTS_FILE", report.string()};
  HostLauncher launcher;
  int input = -1;
};

TEST_F(HostLauncherTest, ProgramsAreFoundAndGetTheirWords) {
  Install(station / "Torvane_Executor.exe");
  Install(tools / "elsewhere");
  const std::string home = Text(station);

  EXPECT_TRUE(launcher.Start("Torvane_Executor.exe", "TRACE", home));
  EXPECT_EQ(Told(), "TRACE\n" + end);
  EXPECT_TRUE(launcher.Start("Torvane_Executor.exe", "", home));
  EXPECT_EQ(Told(), end);
  EXPECT_TRUE(launcher.Start("elsewhere", "$HOME 'a b' * ;", home));
  EXPECT_EQ(Told(), "$HOME\n'a\nb'\n*\n;\n" + end);
  EXPECT_TRUE(launcher.Start(home + "\\Torvane_Executor.exe", "x y", home));
  EXPECT_EQ(Told(), "x\ny\n" + end);
  // A program beside the station whose name its folder begins with is not meant.
  Install(root / "my");
  EXPECT_FALSE(launcher.Start(home + "\\missing.exe", "x", home));
  EXPECT_FALSE(launcher.Start(Text(root) + "\\my station\\gone\\Notepad2.exe", "", home));
  EXPECT_FALSE(std::filesystem::exists(report));
}

// The path of a program goes bare: each blank in it begins a word, and the words joined by one blank are the
// path again.
TEST_F(HostLauncherTest, WordsJoinedByABlankAreThePathAgain) {
  Install(station / "Torvane_Executor.exe");
  const std::string home = Text(station);
  for (const std::string name :
       {"M\xFCll.T2G", "two  blanks.T2G", " first.T2G", "x --check y.T2G", "x -h y.T2G", "last ", "  "}) {
    EXPECT_TRUE(launcher.Start("Torvane_Executor.exe", home + "\\G\\" + name, home)) << name;
    std::string told = Told();
    ASSERT_TRUE(told.ends_with("\n" + end)) << told;
    told.resize(told.size() - end.size() - 1);
    std::replace(told.begin(), told.end(), '\n', ' ');
    const std::string utf8 = name[0] == 'M' ? "Müll.T2G" : name;
    EXPECT_EQ(told, root.string() + "/my station/G/" + utf8);
  }
}

TEST_F(HostLauncherTest, ProgramsThatCannotRunAreRefusedWithTheirName) {
  Put(station / "plain.exe", "no program");
  Put(station / "broken.exe", "no program");
  chmod((station / "broken.exe").c_str(), 0755);
  std::filesystem::create_directory(station / "folder.exe");
  for (const std::string program : {"missing.exe", "plain.exe", "broken.exe", "folder.exe", "sub\\x.exe"}) {
    const Outcome outcome = launcher.Start(program, "TRACE", Text(station));
    ASSERT_FALSE(outcome) << program;
    EXPECT_NE(outcome.reason().find(program), std::string::npos) << outcome.reason();
  }
  EXPECT_FALSE(launcher.Start("", "", Text(station)));
  EXPECT_FALSE(launcher.Start("missing.exe", "", Text(root / "gone")));
  EXPECT_FALSE(launcher.Start("Notepad2.exe", "\\a.T2G", Text(station)));  // with no opener either
}

TEST_F(HostLauncherTest, TheDesktopsOpenerShowsFoldersAndLinksButNoTexts) {
  Install(tools / "xdg-open");
  const std::string home = Text(station);
  EXPECT_TRUE(launcher.Start("\\EXPLORER.EXE", home + "\\", home));
  EXPECT_EQ(Told(), station.string() + "/\n" + end);
  EXPECT_TRUE(launcher.Start("Explorer.exe", home + "\\a  b", home));
  EXPECT_EQ(Told(), station.string() + "/a  b\n" + end);
  EXPECT_FALSE(launcher.Start("Notepad2.exe", home + "\\a.T2G", home));
  EXPECT_FALSE(launcher.Start("Other.exe", "\\a.T2G", home));

  Install(station / "Notepad2.exe");
  EXPECT_TRUE(launcher.Start("Notepad2.exe", "\\a b.T2G", home));
  EXPECT_EQ(Told(), "/a\nb.T2G\n" + end);

  launcher.OpenLink("HTTPS://example.org/?a=1&b='$(x)'");
  EXPECT_EQ(Told().substr(0, 34), "HTTPS://example.org/?a=1&b='$(x)'\n");
  launcher.OpenLink("file:///etc/passwd");
  launcher.OpenLink("/bin/sh");
  std::this_thread::sleep_for(std::chrono::milliseconds(200));
  EXPECT_FALSE(std::filesystem::exists(report));
}

TEST_F(HostLauncherTest, NothingWaitsForTheProgramAndNoneIsLeftBehind) {
  const auto before = std::chrono::steady_clock::now();
  EXPECT_TRUE(launcher.Start("\\bin\\sleep", "3", Text(station)));
  EXPECT_LT(std::chrono::steady_clock::now() - before, std::chrono::seconds(2));
  EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1);  // no child, neither running nor ended
  EXPECT_EQ(errno, ECHILD);
  // What a program comes to that could be started is its own affair, however soon.
  EXPECT_TRUE(launcher.Start("\\bin\\false", "", Text(station)));
}

TEST(CommandLine, APathIsAllThatStandsBehindTheProgramsName) {
  const auto pathOf = [](std::vector<const char*> words) {
    return PathArgument(static_cast<int>(words.size()), const_cast<char**>(words.data())).value_or("none");
  };
  EXPECT_EQ(pathOf({"ours", "/home/x", "--check", "y.T2G"}), "/home/x --check y.T2G");
  EXPECT_EQ(pathOf({"ours", "/home/x", "", "-h", ""}), "/home/x  -h ");
  EXPECT_EQ(pathOf({"ours", "--check", "/home/x.T2G"}), "none");
  EXPECT_EQ(pathOf({"ours", "TRACE"}), "none");
  EXPECT_EQ(pathOf({"ours"}), "none");
}

TEST_F(HostLauncherTest, EnvironmentVariables) {
  const Variable variable("windir", "C:\\Müll");
  EXPECT_EQ(launcher.EnvironmentVariable("windir"), "C:\\M\xFCll");
  EXPECT_EQ(launcher.EnvironmentVariable("windir_not_set"), "");
  const Variable foreign("windir", "Ω");
  EXPECT_EQ(launcher.EnvironmentVariable("windir"), "");
}

// Signs of numbers, dates and times, in a process of its own, as each program sees its environment.
std::string SignsOf(const std::string& localeFolder, const char* locale) {
  std::array<int, 2> told{};
  if (pipe(told.data()) != 0) return "no pipe";
  const pid_t child = fork();
  if (child == 0) {
    setenv("LOCPATH", localeFolder.c_str(), 1);
    setenv("LC_ALL", locale, 1);
    const LocaleSigns signs = HostLocale().Signs();
    const std::array<char, 3> text = {signs.decimal, signs.date, signs.time};
    const bool ownStays = std::to_string(0.5) == "0.500000";
    _exit(ownStays && write(told[1], text.data(), text.size()) == 3 ? 0 : 1);
  }
  close(told[1]);
  int status = 0;
  waitpid(child, &status, 0);
  std::array<char, 3> text{};
  const bool read3 = status == 0 && read(told[0], text.data(), text.size()) == 3;
  close(told[0]);
  return read3 ? std::string(text.data(), text.size()) : "none";
}

TEST(HostLocale, SignsAreTheUsersAndTheProcesssLocaleStays) {
  const TemporaryFolder folder;
  const auto make = [&folder](const std::string& name) {
    const std::string locale = (folder.path / (name + ".UTF-8")).string();
    const std::string command = "localedef -i " + name + " -f UTF-8 '" + locale + "' >/dev/null 2>&1";
    return std::system(command.c_str()) >= 0 && std::filesystem::exists(locale + "/LC_NUMERIC");
  };
  const bool made = make("de_DE") && make("sv_SE") && make("ja_JP");
  EXPECT_EQ(SignsOf(folder.path.string(), "C"), "./:");
  EXPECT_EQ(SignsOf(folder.path.string(), "xx_XX.UTF-8"), "./:");  // not installed
  if (!made) GTEST_SKIP() << "no locale with a comma to be had";
  EXPECT_EQ(SignsOf(folder.path.string(), "de_DE.UTF-8"), ",.:");
  EXPECT_EQ(SignsOf(folder.path.string(), "sv_SE.UTF-8"), ",-:");
  EXPECT_EQ(SignsOf(folder.path.string(), "ja_JP.UTF-8"), "./:") << "words are no sign of ours";
}

TEST(HostClock, TellsTheZonesTime) {
  const auto differenceInZone = [](const char* zone) {
    const Variable variable("TZ", zone);
    tzset();
    const Moment local = HostClock().Now();
    const auto now = std::chrono::system_clock::now();
    return std::chrono::duration<double>(local.time_since_epoch() - now.time_since_epoch()).count();
  };
  EXPECT_NEAR(differenceInZone("UTC0"), 0, 5);
  EXPECT_NEAR(differenceInZone("AAA-5:30"), 5.5 * 3600, 5);
  EXPECT_NEAR(differenceInZone("BBB9"), -9.0 * 3600, 5);
  tzset();
}

TEST(DefaultStore, IsInTheUsersFolderForSettings) {
  const TemporaryFolder folder;
  const Variable home("HOME", (folder.path / "home").string());
  const Variable relative("XDG_CONFIG_HOME", "not/absolute");
  ASSERT_TRUE(DefaultStore()->Write("Settings", "a", "1"));
  EXPECT_EQ(Bytes(folder.path / "home/.config/torvane/torvane.ini"), "[Settings]\na=1\n");
  const Variable config("XDG_CONFIG_HOME", (folder.path / "config").string());
  ASSERT_TRUE(DefaultStore()->Write("Settings", "a", "2"));
  EXPECT_EQ(Bytes(folder.path / "config/torvane/torvane.ini"), "[Settings]\na=2\n");
}

}  // namespace
}  // namespace torvane
