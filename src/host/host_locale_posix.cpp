#include <langinfo.h>
#include <locale.h>

#include <string_view>

#include "host/host_locale.h"

namespace torvane {

// The process's own locale stays "C", or the numbers of programs would change with the computer.
HostLocale::HostLocale() {
  const locale_t locale = newlocale(LC_NUMERIC_MASK, "", nullptr);
  if (locale == nullptr) return;  // not installed
  if (std::string_view(nl_langinfo_l(RADIXCHAR, locale)) == ",") signs_.decimal = ',';
  freelocale(locale);
}

}  // namespace torvane
