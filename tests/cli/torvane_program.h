// `torvane` with a home, a store and a moment of the test's own.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "support/ended_program.h"

namespace torvane {

class Torvane : public testing::Test {
 protected:
  Torvane() { std::filesystem::create_directories(home()); }

  std::filesystem::path home() const { return folder_ / "home"; }

  Ended Start(const std::string& arguments, const std::string& store = "") {
    return RunToItsEnd(TORVANE_PROGRAM,
                       arguments + " --home " + Quoted(home().string()) + " --store " +
                           Quoted(store.empty() ? (folder_ / "store.ini").string() : store) + " --now " +
                           Quoted("2026-03-04 05:06:07"),
                       folder_);
  }

  TemporaryFolder temporary_;
  std::filesystem::path folder_ = temporary_.path;
};

}  // namespace torvane
