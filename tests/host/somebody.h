// Somebody who may not do everything: the user of the test, or nobody where that is the superuser.
#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>

namespace torvane {

class Somebody {
 public:
  Somebody() : superuser_(geteuid() == 0) {
    if (superuser_ && seteuid(65534) != 0) ADD_FAILURE() << "cannot become another user";
  }
  ~Somebody() {
    if (superuser_ && seteuid(0) != 0) std::abort();
  }
  Somebody(const Somebody&) = delete;
  Somebody& operator=(const Somebody&) = delete;

 private:
  bool superuser_;
};

}  // namespace torvane
