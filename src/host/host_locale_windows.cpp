#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

#include "host/host_locale.h"

namespace torvane {

HostLocale::HostLocale() {
  wchar_t sign[8] = {};
  if (GetLocaleInfoEx(LOCALE_NAME_USER_DEFAULT, LOCALE_SDECIMAL, sign, 8) > 0 && sign[0] == L',' &&
      sign[1] == L'\0') {
    signs_.decimal = ',';
  }
}

}  // namespace torvane
