#pragma once

#include "platform/locale.h"

namespace torvane {

// The user's own signs, taken once.
class HostLocale : public Locale {
 public:
  HostLocale();
  LocaleSigns Signs() const override { return signs_; }

 private:
  LocaleSigns signs_;
};

}  // namespace torvane
