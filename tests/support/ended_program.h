// A program of the build started as a user would, in a folder of the test's own.
#pragma once

#ifndef _WIN32
#include <sys/wait.h>
#endif

#include <cstdlib>
#include <filesystem>
#include <string>

#include "host/temporary_folder.h"

namespace torvane {

// For a path or text with blanks in it.
inline std::string Quoted(const std::string& word) {
#ifdef _WIN32
  return '"' + word + '"';
#else
  return "'" + word + "'";
#endif
}

struct Ended {
  int status;            // -1 if it did not come to its end
  std::string out, err;  // byte for byte
};

// `arguments` are quoted where they need it; `folder` takes what it prints.
inline Ended RunToItsEnd(const std::string& program, const std::string& arguments,
                         const std::filesystem::path& folder) {
  const std::filesystem::path out = folder / "out", err = folder / "err";
  std::string command =
      Quoted(program) + " " + arguments + " > " + Quoted(out.string()) + " 2> " + Quoted(err.string());
#ifdef _WIN32
  const int status = std::system(('"' + command + " < NUL\"").c_str());
#else
  command += " < /dev/null";
  const int raw = std::system(command.c_str());
  const int status = WIFEXITED(raw) ? WEXITSTATUS(raw) : -1;
#endif
  return {status, Bytes(out), Bytes(err)};
}

// Printed lines end as the computer's lines do.
inline std::string Lines(std::string printed) {
  for (auto at = printed.find("\r\n"); at != std::string::npos; at = printed.find("\r\n", at))
    printed.erase(at, 1);
  return printed;
}

}  // namespace torvane
