#include "stage/staged_computer.h"

#include <utility>

namespace torvane {

Outcome StagedLauncher::Start(std::string_view program, std::string_view arguments, std::string_view folder) {
  const auto failure = std::exchange(failure_, std::nullopt);
  const Started started{CommandLine(program, arguments), std::string(folder), failure.has_value()};
  starts.push_back(started);
  if (startObserver) startObserver(started);
  if (failure) return Refusal{*failure};
  return Done{};
}

void StagedLauncher::OpenLink(std::string_view url) {
  links.emplace_back(url);
  if (linkObserver) linkObserver(std::string(url));
}

std::string StagedLauncher::EnvironmentVariable(std::string_view name) const {
  const auto found = environment.find(name);
  return found == environment.end() ? "" : found->second;
}

}  // namespace torvane
