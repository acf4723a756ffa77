// The number of a process that is gone.
#pragma once

#include <sys/wait.h>
#include <unistd.h>

namespace torvane {

inline unsigned long EndedProcess() {
  const pid_t child = fork();
  if (child == 0) _exit(0);
  waitpid(child, nullptr, 0);
  return static_cast<unsigned long>(child);
}

}  // namespace torvane
