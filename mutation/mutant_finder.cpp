#include "mutation/mutant_finder.hpp"

#include <algorithm>
#include <fstream>
#include <map>
#include <memory>
#include <optional>
#include <sstream>
#include <stdexcept>

#include "mutation/expression_mutants.hpp"
#include "mutation/literal_mutants.hpp"
#include "mutation/mutant_list.hpp"
#include "mutation/scanned_file.hpp"
#include "mutation/statement_mutants.hpp"
#include "mutation/syntax_tree.hpp"

namespace mutation {

namespace {

namespace fs = std::filesystem;

// One pass over the syntax tree of a source and of its headers.
class Scan {
 public:
  Scan(const fs::path& tree, const std::string& folder, std::set<std::string>& scannedFiles)
      : prefix_(tree.string() + "/"), folder_(folder + "/"), scannedFiles_(scannedFiles) {}

  void run(CXTranslationUnit unit) {
    const CXCursor root = clang_getTranslationUnitCursor(unit);
    for (const CXCursor& cursor : childrenOf(root)) {
      ScannedFile* file = fileOf(cursor);
      if (file == nullptr) continue;
      const Span span = placeOf(clang_getCursorExtent(cursor)).span;
      if (clang_getCursorKind(cursor) == CXCursor_MacroExpansion) {
        file->macroUses.push_back(span);
        if (!scannedFiles_.contains(file->path)) addMacroRow(*file, span, list_);
      }
    }
    for (const CXCursor& cursor : childrenOf(root))
      if (ScannedFile* file = fileOf(cursor)) visit(*file, cursor);
    for (auto& [name, file] : files_) {
      if (!file || scannedFiles_.contains(file->path)) continue;
      addLiteralMutants(unit, prefix_ + file->path, *file, list_);
    }
    for (auto& [name, file] : files_)
      if (file) finish(*file);
  }

  std::vector<Mutant> takeMutants() { return std::move(list_.mutants); }
  std::vector<FunctionBody> takeBodies() { return std::move(bodies_); }
  // Pairs of a declaration and a declaration that uses it.
  std::set<std::pair<std::string, std::string>> references;
  std::set<std::string> functions;

 private:
  ScannedFile* fileOf(CXCursor cursor) { return fileNamed(placeOf(clang_getCursorExtent(cursor)).file); }

  ScannedFile* fileNamed(const std::string& name) {
    const auto known = files_.find(name);
    if (known != files_.end()) return known->second ? &*known->second : nullptr;
    std::optional<ScannedFile>& file = files_[name];
    const std::string path = fs::path(name).lexically_normal().string();
    if (!path.starts_with(prefix_ + folder_)) return nullptr;
    std::ifstream stream(path);
    std::ostringstream text;
    text << stream.rdbuf();
    file.emplace();
    file->name = name;
    file->path = path.substr(prefix_.size());
    file->text = text.str();
    return &*file;
  }

  void visit(ScannedFile& file, CXCursor cursor) {
    const CXCursorKind kind = clang_getCursorKind(cursor);
    if (clang_isPreprocessing(kind)) return;
    const Place place = placeOf(clang_getCursorExtent(cursor));
    const Span span = place.span;
    const std::vector<CXCursor> children = childrenOf(cursor);
    if (kind == CXCursor_StaticAssert) {
      file.staticAssertions.push_back(span);
      return;
    }
    if (fileNamed(place.file) != &file || span.size() == 0) {
      for (const CXCursor& child : children) visit(file, child);
      return;
    }
    const bool isGlobalVariable = kind == CXCursor_VarDecl && functionDepth_ == 0;
    if (isFunction(kind) || isType(kind) || isGlobalVariable || kind == CXCursor_FieldDecl)
      addDeclaration(file, cursor, span, children);
    if (kind == CXCursor_DeclRefExpr || kind == CXCursor_MemberRefExpr || kind == CXCursor_OverloadedDeclRef) {
      const CXCursor referenced = clang_getCursorReferenced(cursor);
      const CXCursorKind target = clang_getCursorKind(referenced);
      if (isFunction(target) || target == CXCursor_VarDecl)
        file.references.emplace(span.begin, stringOf(clang_getCursorUSR(referenced)));
    }
    if (!scannedFiles_.contains(file.path)) {
      const Node node = {file, cursor, kind, span, children};
      addExpressionMutants(node, list_);
      addStatementMutants(node, list_);
    }
    functionDepth_ += isFunction(kind) ? 1 : 0;
    for (const CXCursor& child : children) visit(file, child);
    functionDepth_ -= isFunction(kind) ? 1 : 0;
  }

  void addDeclaration(ScannedFile& file, CXCursor cursor, const Span& span, const std::vector<CXCursor>& children) {
    Declaration declaration = {
        span, {}, stringOf(clang_getCursorSpelling(cursor)), stringOf(clang_getCursorUSR(cursor))};
    if (isFunction(clang_getCursorKind(cursor))) {
      for (const CXCursor& child : children)
        if (clang_getCursorKind(child) == CXCursor_CompoundStmt)
          declaration.body = placeOf(clang_getCursorExtent(child)).span;
    }
    file.declarations.push_back(declaration);
  }

  void finish(const ScannedFile& file) {
    for (const auto& [place, symbol] : file.references)
      if (const Declaration* user = innermost(file, {place, place})) references.emplace(symbol, user->symbol);
    const bool isNew = scannedFiles_.insert(file.path).second;
    if (!isNew) return;
    for (const Declaration& declaration : file.declarations) {
      if (declaration.body.size() == 0) continue;
      functions.insert(declaration.symbol);
      bodies_.push_back({file.path, declaration.symbol, declaration.body.begin + 1});
    }
    for (Mutant& mutant : list_.mutants) {
      if (mutant.file != file.path) continue;
      describe(mutant, file.text);
      const Span span = {mutant.edits.front().begin, mutant.edits.back().end};
      for (auto reference = file.references.lower_bound(span.begin);
           reference != file.references.end() && reference->first < span.end; ++reference)
        mutant.related.push_back(reference->second);
      const Declaration* declaration = innermost(file, span);
      if (declaration == nullptr) continue;
      mutant.function = declaration->name;
      mutant.isInBody = declaration->body.size() > 0 && declaration->body.contains(span) && mutant.form != Form::Row;
      mutant.executedBy = {declaration->symbol};
    }
  }

  std::string prefix_;
  std::string folder_;
  std::set<std::string>& scannedFiles_;
  // The keys are file names as libclang reports them. A file outside of the folder has no value.
  std::map<std::string, std::optional<ScannedFile>> files_;
  MutantList list_;
  std::vector<FunctionBody> bodies_;
  int functionDepth_ = 0;
};

}  // namespace

MutantFinder::MutantFinder(fs::path tree, std::string folder) : tree_(std::move(tree)), folder_(std::move(folder)) {}

void MutantFinder::addSource(const fs::path& source, const std::vector<std::string>& options) {
  std::vector<const char*> arguments;
  arguments.reserve(options.size());
  for (const std::string& option : options) arguments.push_back(option.c_str());
  const std::unique_ptr<void, decltype(&clang_disposeIndex)> index(clang_createIndex(0, 0), &clang_disposeIndex);
  CXTranslationUnit parsed = nullptr;
  const CXErrorCode error =
      clang_parseTranslationUnit2(index.get(), source.c_str(), arguments.data(), static_cast<int>(arguments.size()),
                                  nullptr, 0, CXTranslationUnit_DetailedPreprocessingRecord, &parsed);
  if (error != CXError_Success) throw std::runtime_error(source.string() + " cannot be parsed");
  const std::unique_ptr<CXTranslationUnitImpl, decltype(&clang_disposeTranslationUnit)> unit(
      parsed, &clang_disposeTranslationUnit);
  for (unsigned number = 0; number < clang_getNumDiagnostics(unit.get()); ++number) {
    CXDiagnostic diagnostic = clang_getDiagnostic(unit.get(), number);
    const bool isError = clang_getDiagnosticSeverity(diagnostic) >= CXDiagnostic_Error;
    const std::string text = stringOf(clang_formatDiagnostic(diagnostic, clang_defaultDiagnosticDisplayOptions()));
    clang_disposeDiagnostic(diagnostic);
    if (isError) throw std::runtime_error(text);
  }
  Scan scan(tree_, folder_, scannedFiles_);
  scan.run(unit.get());
  std::ranges::move(scan.takeMutants(), std::back_inserter(found_.mutants));
  std::ranges::move(scan.takeBodies(), std::back_inserter(found_.bodies));
  references_.merge(scan.references);
  functions_.merge(scan.functions);
}

Mutants MutantFinder::found() const {
  Mutants result = found_;
  std::multimap<std::string, std::string> users;
  for (const auto& [used, user] : references_) users.emplace(used, user);
  for (Mutant& mutant : result.mutants) {
    // Follows the references from a variable or type to the functions that use it.
    std::vector<std::string> pending = mutant.executedBy;
    std::set<std::string> visited;
    mutant.executedBy.clear();
    while (!pending.empty()) {
      const std::string symbol = pending.back();
      pending.pop_back();
      if (!visited.insert(symbol).second) continue;
      if (functions_.contains(symbol)) {
        mutant.executedBy.push_back(symbol);
        continue;
      }
      const auto [first, last] = users.equal_range(symbol);
      for (auto user = first; user != last; ++user) pending.push_back(user->second);
    }
  }
  std::ranges::stable_sort(result.mutants, [](const Mutant& left, const Mutant& right) {
    return std::tie(left.file, left.edits.front().begin) < std::tie(right.file, right.edits.front().begin);
  });
  std::ranges::stable_sort(result.bodies, {}, [](const FunctionBody& body) { return std::tie(body.file, body.begin); });
  return result;
}

}  // namespace mutation
