// Completion of torvane's command line by the shells, drawn from the command line's own definition.
#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <string_view>

namespace torvane {

// Type names by which an option or argument says what it takes; any other takes text that no shell can
// complete. A validator of a few words offers those.
inline constexpr const char* kFolderName = "DIR";
inline constexpr const char* kFileName = "FILE";
inline constexpr const char* kDesignName = "*.t[24]d";

// The script by which a shell, "bash", "zsh" or "fish", completes the command line; empty for any other.
std::string CompletionFor(const CLI::App& app, std::string_view shell);

}  // namespace torvane
