// What a script must not reach, and must not show as it is.
#include "cli/programs_store.h"

namespace torvane {
namespace {

// Each run follows one line, which a script may end with.
TEST_F(ProgramsStore, AScriptStaysInTheFolderAndShowsControlCharacters) {
  const auto follow = [&](const std::string& script) {
    Put(Path("line.script"), script);
    return StartWith("script " + Quoted(Path("line.script")), "mine.ini");
  };
  Put(Path("outside.txt"), "outside\n");
  Put(Path("home/inside.txt"), "\x1B[2Jinside\ta\x7F\xC2\x9B\r\n");
  for (const char* path :
       {"../outside.txt", "..\\outside.txt", "TV_G-Code_Files/../../outside.txt", "/etc/passwd",
        "\\etc\\passwd", "C:\\outside.txt", ".. /outside.txt", "x/.../outside.txt"})
    for (const char* command : {"cat ", "file "}) {
      const Ended run = follow(command + std::string(path) + "\n");
      EXPECT_EQ(run.status, 2) << path;
      EXPECT_EQ(run.out, "") << path;
      EXPECT_TRUE(Holds(run.err, "station's folder")) << path << ": " << run.err;
    }
  for (const char* line : {"cat\n", "cat \n", "file\n"}) {
    const Ended run = follow(line);
    EXPECT_EQ(run.status, 2) << line;
    EXPECT_TRUE(Holds(run.err, "line 1: a path is missing")) << run.err;
  }
  // The file's own 8-bit text; the stray byte of the last character is one of the page.
  EXPECT_EQ(follow("cat ./inside.txt\n").out, "| \\x1B[2Jinside\\ta\\x7F\xC3\x82\xE2\x80\xBA\n");
  EXPECT_EQ(follow("store Settings txtEmail1 a\x1B[31m\xC2\x81z\nsetting Settings txtEmail1\n").out,
            "Settings txtEmail1 = a\\x1B[31m\\x81z\n");
  EXPECT_EQ(follow("setting Settings a\x1B[31m\n").out, "Settings a\\x1B[31m missing\n");
  const Ended unknown = follow("start\nmark \x1B[31m\n");
  EXPECT_EQ(unknown.out, "") << "half a line";
  EXPECT_FALSE(Holds(unknown.err, "\x1B")) << unknown.err;

  const Ended folder = StartWith("script " + Quoted(Path("home")), "mine.ini");
  EXPECT_EQ(folder.status, 2);
  EXPECT_TRUE(Holds(folder.err, "folder, not a script")) << folder.err;
  const Ended input =
      RunToItsEnd("sh", "-c " + Quoted("exec \"$0\" script < /") + " " + Quoted(TORVANE_PROGRAM), folder_);
  EXPECT_EQ(input.status, 2) << input.err;
}

// A layer of a part that has no diameter and no length yet.
TEST_F(ProgramsStore, ATracedScriptPrintsWhatAFailedNumberSkips) {
  Put(Path("layer.script"), "start\nwait 6000\ntype txtNumberOfLayers(0) 1\ntype txtWA(1) 45\n");
  const Ended traced = StartWith("script --trace " + Quoted(Path("layer.script")), "mine.ini");
  EXPECT_EQ(traced.status, 0) << traced.err;
  for (const char* skipped : {"lblPassesToCover(1) in WritePasses", "lblMinutesToCover(1) in Minutes"})
    EXPECT_TRUE(Holds(traced.out, "skipped: " + std::string(skipped) + "\n")) << traced.out;
  EXPECT_EQ(StartWith("script " + Quoted(Path("layer.script")), "mine.ini").out, "");
}

}  // namespace
}  // namespace torvane
