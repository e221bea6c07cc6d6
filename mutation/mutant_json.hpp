// Stores mutants as JSON.
#pragma once

#include <nlohmann/json.hpp>

#include "mutation/mutant.hpp"

namespace mutation {

nlohmann::json jsonOf(const Mutants& mutants);
Mutants mutantsOf(const nlohmann::json& json);

}  // namespace mutation
