#include "simulator/layout/model_splitter.hpp"

#include <utility>

namespace layout {

ModelSplitter::ModelSplitter(const DisjointSets& partition) : sets_(partition), slices_(partition.setCount() + 1) {}

std::uint32_t ModelSplitter::setOf(std::span<const Term> terms) const {
  return terms.empty() ? sets_.setCount() : sets_.place(terms.front().variable).part;
}

void ModelSplitter::count(std::span<const Term> terms) {
  Slice& slice = slices_[setOf(terms)];
  ++slice.rowCount;
  slice.termCount += static_cast<std::uint32_t>(terms.size());
}

void ModelSplitter::allocate() {
  std::uint32_t rows = 0;
  std::uint32_t terms = 0;
  for (Slice& slice : slices_) {
    slice.firstRow = std::exchange(rows, rows + std::exchange(slice.rowCount, 0));
    slice.firstTerm = std::exchange(terms, terms + std::exchange(slice.termCount, 0));
  }
  rows_.resize(rows);
  terms_.resize(terms);
}

DisjointSets::Place ModelSplitter::append(const Row& row, std::span<const Term> terms) {
  const std::uint32_t part = setOf(terms);
  Slice& slice = slices_[part];
  for (const Term& term : terms)
    terms_[slice.firstTerm + slice.termCount++] = {sets_.place(term.variable).index, term.coefficient};
  rows_[slice.firstRow + slice.rowCount] = row;
  return {part, slice.rowCount++};
}

std::vector<Model> ModelSplitter::models() const {
  std::vector<Model> models;
  models.reserve(slices_.size());
  for (std::uint32_t part = 0; part < slices_.size(); ++part) {
    const Slice& slice = slices_[part];
    const std::uint32_t variables = part < sets_.setCount() ? sets_.variableCount(part) : 0;
    models.push_back({variables, std::span(rows_).subspan(slice.firstRow, slice.rowCount),
                      std::span(terms_).subspan(slice.firstTerm, slice.termCount)});
  }
  return models;
}

}  // namespace layout
