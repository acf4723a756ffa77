// The signs that the computer puts into numbers, dates and times.
#pragma once

namespace torvane {

struct LocaleSigns {
  char decimal = '.';  // a point or a comma
  char date = '/';
  char time = ':';
};

class Locale {
 public:
  virtual ~Locale() = default;
  virtual LocaleSigns Signs() const = 0;
};

}  // namespace torvane
