// UTF-8 against the wide texts of the system's calls.
#pragma once

#include <string>
#include <string_view>

namespace torvane {

std::wstring Wide(std::string_view utf8);
std::string Narrow(std::wstring_view wide);

}  // namespace torvane
