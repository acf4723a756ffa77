#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

#include "host/system/host_locale.h"

namespace torvane {

namespace {

// The first character of a sign of the user's; `usual` where it is none of the first half of the code page.
char SignOf(LCTYPE kind, char usual) {
  wchar_t sign[8] = {};
  if (GetLocaleInfoEx(LOCALE_NAME_USER_DEFAULT, kind, sign, 8) <= 0 || sign[0] <= L' ' || sign[0] > L'~')
    return usual;
  return static_cast<char>(sign[0]);
}

}  // namespace

HostLocale::HostLocale() {
  if (SignOf(LOCALE_SDECIMAL, '.') == ',') signs_.decimal = ',';
  signs_.date = SignOf(LOCALE_SDATE, signs_.date);
  signs_.time = SignOf(LOCALE_STIME, signs_.time);
}

}  // namespace torvane
