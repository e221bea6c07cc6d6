// Writes the switched copy of a source: a copy that contains many mutants, one of which the process selects at run
// time. See runtime/selection.hpp.
#pragma once

#include <cstddef>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "mutation/mutant.hpp"

namespace mutation {

struct NumberedMutant {
  unsigned number;
  const Mutant* mutant;
};
// The number that is logged when the function is executed.
struct NumberedBody {
  unsigned number;
  std::size_t begin;
};

struct SwitchedSource {
  struct Range {
    unsigned number;
    std::size_t begin;
    std::size_t end;
  };
  std::string text;
  // The ranges of the code in `text` for each number. A number can have several ranges.
  std::vector<Range> ranges;
  // The mutants that `text` does not contain, because they overlap with another mutant.
  std::set<unsigned> omitted;

  // Returns the numbers of the smallest range that contains the position.
  std::set<unsigned> numbersAt(std::size_t place) const;
};

SwitchedSource switchedSource(const std::string& text, const std::vector<NumberedMutant>& mutants,
                              const std::vector<NumberedBody>& bodies);

}  // namespace mutation
