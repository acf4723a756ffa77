// The addresses that the station opens in the web browser, and the one picture that it brings itself.
#pragma once

#include <string_view>

#include "workbench/station/station.h"

namespace torvane {

inline constexpr const char* kHomeLink = "https://torvane.example/";
inline constexpr const char* kCommunityLink = "https://community.torvane.example/";
inline constexpr const char* kVideoLinks[] = {"https://torvane.example/videos/2-axis",
                                              "https://torvane.example/videos/4-axis"};
inline constexpr const char* kHelpLink = "https://torvane.example/help";
inline constexpr const char* kNewSoftwareLink = "https://torvane.example/designer/builds";

// An address without "http" in front gets "http://". Whether it could be opened is not told.
void OpenWebLink(Station& station, std::string_view url);

// Shows where the carriage offset is measured.
void OpenPicture(Station& station);

}  // namespace torvane
