#include "mutation/mutant_list.hpp"

namespace mutation {

void MutantList::add(const ScannedFile& file, const char* operation, Form form, std::vector<Edit> edits) {
  for (const Edit& edit : edits) {
    const Span span = {edit.begin, edit.end};
    if (textOf(file, span) == edit.replacement) return;
    for (const Span& use : file.macroUses)
      if (form != Form::Row && use.contains(span) && operation != std::string(constantOperation)) return;
  }
  std::string key = file.path;
  for (const Edit& edit : edits)
    for (const std::string& part : {std::to_string(edit.begin), std::to_string(edit.end), edit.replacement})
      key.append(":").append(part);
  if (!keys_.insert(key).second) return;
  Mutant mutant;
  mutant.file = file.path;
  mutant.operation = operation;
  mutant.form = form;
  mutant.edits = std::move(edits);
  mutants.push_back(std::move(mutant));
}

}  // namespace mutation
