// How far a long piece of work has come, for whoever waits for it in another thread.
#pragma once

#include <atomic>
#include <cstddef>

namespace torvane::executor {

struct Progress {
  std::atomic<float> share{0};  // 0 to 1

  void Tell(std::size_t done, std::size_t all) {
    if (all > 0) share.store(static_cast<float>(static_cast<double>(done) / static_cast<double>(all)));
  }
};

}  // namespace torvane::executor
