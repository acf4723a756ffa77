// Programs of the build with a home and a settings file of the test's own, and none in the environment.
#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>
#include <string_view>

#include "support/ended_program.h"

namespace torvane {

inline const std::string kSamples = std::string(SOURCE_FOLDER) + "/samples/";

inline bool Holds(const std::string& text, std::string_view part) {
  return text.find(part) != std::string::npos;
}

class ProgramsStore : public testing::Test {
 protected:
  ProgramsStore() {
    for (const char* name : {"home", "other"})
      std::filesystem::create_directories(folder_ / name / "TV_G-Code_Files");
    unsetenv("TORVANE_STORE");
    unsetenv("TORVANE_HOME");
  }
  ~ProgramsStore() override {
    unsetenv("TORVANE_STORE");
    unsetenv("TORVANE_HOME");
  }

  std::string Path(const std::string& name) const { return (folder_ / name).string(); }
  Ended Start(const std::string& arguments) const { return RunToItsEnd(TORVANE_PROGRAM, arguments, folder_); }
  // With a home and a store named.
  Ended StartWith(const std::string& arguments, const std::string& store) const {
    return Start(arguments + " --home " + Quoted(Path("home")) + " --store " + Quoted(Path(store)));
  }
  Ended Check(const std::string& program, const std::string& store) const {
    return RunToItsEnd(EXECUTOR_PROGRAM,
                       "--check " + Quoted(program) + (store.empty() ? "" : " --store " + Quoted(store)),
                       folder_);
  }

  TemporaryFolder temporary_;
  std::filesystem::path folder_ = temporary_.path;
};

}  // namespace torvane
