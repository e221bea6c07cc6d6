#include "mutation/equivalents.hpp"

#include <nlohmann/json.hpp>
#include <stdexcept>

namespace mutation {

Equivalents matchEquivalents(const std::string& text, const std::vector<Mutant>& mutants) {
  Equivalents result;
  try {
    for (const auto& entry : nlohmann::json::parse(text)) {
      const std::string file = entry.at("file");
      const std::string function = entry.at("function");
      const std::string original = entry.at("original");
      const std::string replacement = entry.at("replacement");
      const std::string reason = entry.at("reason");
      bool isMatched = false;
      for (std::size_t index = 0; index < mutants.size(); ++index) {
        const Mutant& mutant = mutants[index];
        if (mutant.file != file || mutant.function != function || mutant.original != original ||
            mutant.replacement != replacement)
          continue;
        isMatched = true;
        result.reasons[index] = reason;
      }
      if (!isMatched)
        result.errors.push_back(file + ": no mutant replaces \"" + original + "\" with \"" + replacement + "\"");
      if (reason.empty()) result.errors.push_back(file + ": the mutant \"" + replacement + "\" needs a reason");
    }
  } catch (const nlohmann::json::exception& error) {
    throw std::runtime_error(std::string("the list of equivalent mutants is invalid: ") + error.what());
  }
  return result;
}

}  // namespace mutation
