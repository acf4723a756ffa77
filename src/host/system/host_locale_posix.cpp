#include <langinfo.h>
#include <locale.h>

#include <cctype>
#include <string_view>

#include "host/system/host_locale.h"

namespace torvane {

namespace {

// What stands between the parts of a date or a time in the computer's way to write them, such as "%d.%m.%Y";
// `usual` where that is no single sign.
char Separator(std::string_view form, char usual) {
  for (std::size_t i = 0; i < form.size(); ++i) {
    const auto c = static_cast<unsigned char>(form[i]);
    if (c != '%') {
      if (std::ispunct(c) != 0) return static_cast<char>(c);
      if (c >= 0x80) return usual;
      continue;
    }
    while (i + 1 < form.size() && std::string_view("EO-_0^#").find(form[i + 1]) != std::string_view::npos)
      ++i;
    if (++i == form.size()) break;
    if (form[i] == 'D') return '/';
    if (form[i] == 'F') return '-';
    if (form[i] == 'T' || form[i] == 'R' || form[i] == 'r') return ':';
  }
  return usual;
}

}  // namespace

// The process's own locale stays "C", or the numbers of programs would change with the computer.
HostLocale::HostLocale() {
  if (const locale_t locale = newlocale(LC_NUMERIC_MASK, "", nullptr)) {  // null: not installed
    if (std::string_view(nl_langinfo_l(RADIXCHAR, locale)) == ",") signs_.decimal = ',';
    freelocale(locale);
  }
  if (const locale_t locale = newlocale(LC_TIME_MASK, "", nullptr)) {
    signs_.date = Separator(nl_langinfo_l(D_FMT, locale), signs_.date);
    signs_.time = Separator(nl_langinfo_l(T_FMT, locale), signs_.time);
    freelocale(locale);
  }
}

}  // namespace torvane
