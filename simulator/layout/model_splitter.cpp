#include "simulator/layout/model_splitter.hpp"

#include <utility>

namespace layout {

ModelSplitter::ModelSplitter(const DisjointSets& sets) : sets_(sets), slices_(sets.setCount() + 1) {}

std::uint32_t ModelSplitter::modelOf(std::span<const Term> terms) const {
  return terms.empty() ? sets_.setCount() : sets_.location(terms.front().variable).set;
}

void ModelSplitter::count(std::span<const Term> terms) {
  Slice& slice = slices_[modelOf(terms)];
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

ModelSplitter::RowLocation ModelSplitter::append(const Row& row, std::span<const Term> terms) {
  const std::uint32_t model = modelOf(terms);
  Slice& slice = slices_[model];
  for (const Term& term : terms)
    terms_[slice.firstTerm + slice.termCount++] = {sets_.location(term.variable).index, term.coefficient};
  rows_[slice.firstRow + slice.rowCount] = row;
  return {model, slice.rowCount++};
}

std::vector<Model> ModelSplitter::models() const {
  std::vector<Model> models;
  models.reserve(slices_.size());
  for (std::uint32_t index = 0; index < slices_.size(); ++index) {
    const Slice& slice = slices_[index];
    const std::uint32_t variables = index < sets_.setCount() ? sets_.variableCount(index) : 0;
    models.push_back({variables, std::span(rows_).subspan(slice.firstRow, slice.rowCount),
                      std::span(terms_).subspan(slice.firstTerm, slice.termCount)});
  }
  return models;
}

}  // namespace layout
