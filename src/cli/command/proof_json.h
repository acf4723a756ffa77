// The proof of a program as JSON; docs/dialect.md describes it.
#pragma once

#include <nlohmann/json.hpp>

#include "executor/proof/proof.h"

namespace torvane {

nlohmann::ordered_json JsonOf(const executor::Proof& proof);

}  // namespace torvane
