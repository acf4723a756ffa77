// Settings as an editor may have saved them, and settings that cannot be read: by them nobody winds. Rubbish
// in the place of settings and designs.
#include <sys/stat.h>

#include <vector>

#include "cli/programs_store.h"

namespace torvane {
namespace {

namespace fs = std::filesystem;

// Nobody winds by other limits and another calibration than were meant.
TEST_F(ProgramsStore, AStoreThatCannotBeReadIsRefusedWithItsReason) {
  const std::string good = "[Settings]\ntxtMailServer=mine\n[TV2_Calibration]\ncMaxTravel=90\n";
  fs::create_directory(folder_ / "folder.ini");
  ASSERT_EQ(mkfifo(Path("pipe.ini").c_str(), 0600), 0);
  fs::create_symlink("loop.ini", folder_ / "loop.ini");
  Put(Path("cut.ini"), good.substr(0, good.find("vel=90")));
  Put(Path("zeros.ini"), good.substr(0, good.find("vel=90")) + std::string(30, '\0'));
  Put(Path("half.ini"), std::string("\xFF\xFE[\0S\0e", 7));
  Put(Path("pair.ini"), std::string("\xFF\xFE=\0\x00\xD8=\0", 8));
  Put(Path("large.ini"), "");
  fs::resize_file(folder_ / "large.ini", 500'000'000);
  const std::string program = Path("program.T2G");
  Put(program, StartWith("gcode --out - " + Quoted(kSamples + "Tube-4x24.t2d"), "none.ini").out);

  for (const auto& [name, reason] :
       std::vector<std::pair<std::string, std::string>>{{"folder.ini", "something else than a file"},
                                                        {"pipe.ini", "something else than a file"},
                                                        {"loop.ini", "symbolic links"},
                                                        {"cut.ini", "its last line, 4, cannot be read"},
                                                        {"zeros.ini", "its last line, 4, cannot be read"},
                                                        {"half.ini", "middle of a character"},
                                                        {"pair.ini", "Byte 5"},
                                                        {"large.ini", "larger than 16 MB"}}) {
    for (const std::string& command :
         {"gcode " + Quoted(kSamples + "Tube-4x24.t2d"), std::string("setting list"),
          std::string("setting set Settings txtMailServer mine"), std::string("script /dev/null")}) {
      const Ended run = StartWith(command, name);
      EXPECT_EQ(run.status, 1) << command << " of " << name;
      EXPECT_EQ(run.out, "") << command << " of " << name;
      EXPECT_TRUE(Holds(run.err, "cannot be read") && Holds(run.err, name) && Holds(run.err, reason))
          << run.err;
    }
    const Ended check = Check(program, Path(name));
    EXPECT_EQ(check.status, 2) << name;
    EXPECT_TRUE(Holds(check.err, name) && Holds(check.err, reason)) << check.err;
  }
  EXPECT_EQ(Bytes(Path("cut.ini")), good.substr(0, good.find("vel=90")));

  const Ended missing = StartWith("setting get Settings txtMailServer", "nowhere.ini");
  EXPECT_EQ(missing.status, 0);
  EXPECT_TRUE(Holds(missing.err, "note: there is no settings file") && Holds(missing.err, "nowhere.ini"))
      << missing.err;
  EXPECT_TRUE(Holds(Check(program, Path("nowhere.ini")).err, "note: there is no settings file"));
}

TEST_F(ProgramsStore, ReadsAStoreAsAnEditorSavedIt) {
  const std::string text = "[Settings]\r\ntxtMailServer=M\xC3\xBCller \xE2\x82\xAC\r\n";
  const auto utf16 = [](bool big, bool mark) {
    std::u16string units = mark ? u"\uFEFF" : u"";
    units += u"[Settings]\r\ntxtMailServer=M\u00FCller \u20AC\r\n";
    std::string bytes;
    for (const char16_t unit : units) {
      const char high = static_cast<char>(unit >> 8U), low = static_cast<char>(unit & 0xFFU);
      bytes += big ? std::string{high, low} : std::string{low, high};
    }
    return bytes;
  };
  Put(Path("plain.ini"), text);
  Put(Path("mark.ini"), "\xEF\xBB\xBF" + text);
  Put(Path("little.ini"), utf16(false, true));
  Put(Path("big.ini"), utf16(true, true));
  Put(Path("little_bare.ini"), utf16(false, false));
  Put(Path("big_bare.ini"), utf16(true, false));
  for (const char* name :
       {"plain.ini", "mark.ini", "little.ini", "big.ini", "little_bare.ini", "big_bare.ini"}) {
    EXPECT_EQ(StartWith("setting get Settings txtMailServer", name).out, "M\xC3\xBCller \xE2\x82\xAC\n")
        << name;
    EXPECT_EQ(StartWith("setting set Settings txtEmail1 me", name).status, 0) << name;
    EXPECT_EQ(StartWith("setting get Settings txtMailServer", name).out, "M\xC3\xBCller \xE2\x82\xAC\n")
        << name;
    EXPECT_EQ(StartWith("setting get Settings txtEmail1", name).out, "me\n") << name;
  }
}

#if !defined(__SANITIZE_ADDRESS__)
// Line ends alone are the most lines that a file can have. The shell's limit is in blocks of 1 KB.
TEST_F(ProgramsStore, RubbishTakesLittleMoreRoomThanItsFile) {
  Put(Path("ends.t2d"), std::string(16'000'000, '\n'));
  Put(Path("ends.ini"), std::string(16'000'000, '\n'));
  const auto limited = [&](const std::string& arguments) {
    return RunToItsEnd("sh",
                       "-c " + Quoted("ulimit -v 120000; exec \"$@\"") + " sh " + Quoted(TORVANE_PROGRAM) +
                           " " + arguments + " --home " + Quoted(Path("home")),
                       folder_);
  };
  const Ended design = limited("info " + Quoted(Path("ends.t2d")) + " --store " + Quoted(Path("none.ini")));
  EXPECT_EQ(design.status, 1);
  EXPECT_TRUE(Holds(design.err, "Input File Lacks Sufficient Data")) << design.err;
  const Ended store = limited("setting get Settings txtHGSpeed --store " + Quoted(Path("ends.ini")));
  EXPECT_EQ(store.out, "1\n") << store.err;

  Put(Path("large.t4d"), "");
  fs::resize_file(folder_ / "large.t4d", 500'000'000);
  const Ended large = limited("info " + Quoted(Path("large.t4d")) + " --store " + Quoted(Path("none.ini")));
  EXPECT_EQ(large.status, 1);
  EXPECT_TRUE(Holds(large.err, "large.t4d") && Holds(large.err, "larger than 16 MB")) << large.err;
}
#endif

}  // namespace
}  // namespace torvane
