#include "mutation/mutant_finder.hpp"

#include <clang-c/Index.h>

#include <algorithm>
#include <fstream>
#include <map>
#include <memory>
#include <optional>
#include <sstream>
#include <stdexcept>

namespace mutation {

namespace {

namespace fs = std::filesystem;

// The replacements of an operator.
struct Operator {
  const char* text;
  const char* operation;
  std::vector<const char*> replacements;
};
const std::vector<Operator>& operators() {
  static const std::vector<Operator> table = {
      {"<", "comparison", {"<=", ">="}},  {"<=", "comparison", {"<", ">"}},   {">", "comparison", {">=", "<="}},
      {">=", "comparison", {">", "<"}},   {"==", "comparison", {"!="}},       {"!=", "comparison", {"=="}},
      {"&&", "logical operator", {"||"}}, {"||", "logical operator", {"&&"}}, {"+", "arithmetic", {"-"}},
      {"-", "arithmetic", {"+"}},         {"*", "arithmetic", {"/"}},         {"/", "arithmetic", {"*"}},
      {"+=", "arithmetic", {"-="}},       {"-=", "arithmetic", {"+="}},       {"|", "arithmetic", {"&"}},
      {"&", "arithmetic", {"|"}},
  };
  return table;
}

std::string stringOf(CXString text) {
  const char* characters = clang_getCString(text);
  std::string result = characters == nullptr ? "" : characters;
  clang_disposeString(text);
  return result;
}

struct Span {
  std::size_t begin = 0;
  std::size_t end = 0;
  bool operator==(const Span&) const = default;
  bool contains(const Span& other) const { return begin <= other.begin && other.end <= end; }
  std::size_t size() const { return end - begin; }
};

struct Place {
  std::string file;
  Span span;
};

// Returns the file and the place of the range. For code from a macro, this is the place of the macro's use.
Place placeOf(CXSourceRange range) {
  CXFile file = nullptr;
  unsigned begin = 0;
  unsigned end = 0;
  clang_getExpansionLocation(clang_getRangeStart(range), &file, nullptr, nullptr, &begin);
  clang_getExpansionLocation(clang_getRangeEnd(range), nullptr, nullptr, nullptr, &end);
  return {file == nullptr ? "" : stringOf(clang_getFileName(file)), {begin, end}};
}

std::vector<CXCursor> childrenOf(CXCursor cursor) {
  std::vector<CXCursor> children;
  clang_visitChildren(
      cursor,
      [](CXCursor child, CXCursor, CXClientData data) {
        static_cast<std::vector<CXCursor>*>(data)->push_back(child);
        return CXChildVisit_Continue;
      },
      &children);
  return children;
}

bool isExpression(CXCursor cursor) { return clang_isExpression(clang_getCursorKind(cursor)) != 0; }

bool isFunction(CXCursorKind kind) {
  return kind == CXCursor_FunctionDecl || kind == CXCursor_CXXMethod || kind == CXCursor_Constructor ||
         kind == CXCursor_Destructor || kind == CXCursor_ConversionFunction || kind == CXCursor_FunctionTemplate;
}

bool isType(CXCursorKind kind) {
  return kind == CXCursor_StructDecl || kind == CXCursor_ClassDecl || kind == CXCursor_ClassTemplate ||
         kind == CXCursor_ClassTemplatePartialSpecialization || kind == CXCursor_EnumDecl;
}

// A function, type or variable that is not local to a function.
struct Declaration {
  Span span;
  Span body;  // of a function; empty for a declaration without a body
  std::string name;
  std::string symbol;
};

struct SourceFile {
  std::string path;  // relative to the root
  std::string text;
  std::vector<Declaration> declarations;
  std::vector<Span> macroUses;
  std::vector<Span> staticAssertions;
  // The functions and variables that the file names, by place.
  std::map<std::size_t, std::string> references;
};

std::string textOf(const SourceFile& file, const Span& span) { return file.text.substr(span.begin, span.size()); }

std::string trimmed(const std::string& text) {
  const std::size_t begin = text.find_first_not_of(" \n");
  return begin == std::string::npos ? "" : text.substr(begin, text.find_last_not_of(" \n") - begin + 1);
}

const Declaration* innermost(const SourceFile& file, const Span& span) {
  const Declaration* found = nullptr;
  for (const Declaration& declaration : file.declarations)
    if (declaration.span.contains(span) && (found == nullptr || found->span.contains(declaration.span)))
      found = &declaration;
  return found;
}

// One pass over the syntax tree of a source and of its headers.
class Scan {
 public:
  Scan(const fs::path& tree, const std::string& folder, std::set<std::string>& scannedFiles)
      : prefix_(tree.string() + "/"), folder_(folder + "/"), scannedFiles_(scannedFiles) {}

  void run(CXTranslationUnit unit) {
    const CXCursor root = clang_getTranslationUnitCursor(unit);
    for (const CXCursor& cursor : childrenOf(root)) {
      SourceFile* file = fileOf(cursor);
      if (file == nullptr) continue;
      const Span span = placeOf(clang_getCursorExtent(cursor)).span;
      if (clang_getCursorKind(cursor) == CXCursor_MacroExpansion) {
        file->macroUses.push_back(span);
        if (!scannedFiles_.contains(file->path)) addMacroRow(*file, span);
      }
    }
    for (const CXCursor& cursor : childrenOf(root))
      if (SourceFile* file = fileOf(cursor)) visit(*file, cursor);
    for (auto& [name, file] : files_) {
      if (!file || scannedFiles_.contains(file->path)) continue;
      visitTokens(unit, *file);
    }
    for (auto& [name, file] : files_)
      if (file) finish(*file);
  }

  Mutants takeMutants() { return std::move(found_); }
  // Pairs of a used and a using declaration.
  std::set<std::pair<std::string, std::string>> references;
  std::set<std::string> functions;

 private:
  SourceFile* fileOf(CXCursor cursor) { return fileNamed(placeOf(clang_getCursorExtent(cursor)).file); }

  SourceFile* fileNamed(const std::string& name) {
    const auto known = files_.find(name);
    if (known != files_.end()) return known->second ? &*known->second : nullptr;
    std::optional<SourceFile>& file = files_[name];
    const std::string path = fs::path(name).lexically_normal().string();
    if (!path.starts_with(prefix_ + folder_)) return nullptr;
    std::ifstream stream(path);
    std::ostringstream text;
    text << stream.rdbuf();
    file.emplace();
    file->path = path.substr(prefix_.size());
    file->text = text.str();
    return &*file;
  }

  void add(const SourceFile& file, const char* operation, Form form, std::vector<Edit> edits) {
    for (const Edit& edit : edits) {
      const Span span = {edit.begin, edit.end};
      if (textOf(file, span) == edit.replacement) return;
      for (const Span& use : file.macroUses)
        if (form != Form::Row && use.contains(span) && operation != std::string(constant_)) return;
    }
    std::string key = file.path;
    for (const Edit& edit : edits)
      key += ":" + std::to_string(edit.begin) + "-" + std::to_string(edit.end) + edit.replacement;
    if (!keys_.insert(key).second) return;
    Mutant mutant;
    mutant.file = file.path;
    mutant.operation = operation;
    mutant.form = form;
    mutant.edits = std::move(edits);
    found_.mutants.push_back(std::move(mutant));
  }

  void addMacroRow(const SourceFile& file, const Span& span) {
    const std::size_t lineEnd = file.text.find('\n', span.end);
    const bool isLine = (span.begin == 0 || file.text[span.begin - 1] == '\n') && lineEnd == span.end;
    if (isLine) add(file, "table row", Form::Row, {{span.begin, span.end, ""}});
  }

  void visit(SourceFile& file, CXCursor cursor) {
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
    if (!scannedFiles_.contains(file.path)) addMutants(file, cursor, kind, span, children);
    functionDepth_ += isFunction(kind) ? 1 : 0;
    for (const CXCursor& child : children) visit(file, child);
    functionDepth_ -= isFunction(kind) ? 1 : 0;
  }

  void addDeclaration(SourceFile& file, CXCursor cursor, const Span& span, const std::vector<CXCursor>& children) {
    Declaration declaration = {
        span, {}, stringOf(clang_getCursorSpelling(cursor)), stringOf(clang_getCursorUSR(cursor))};
    if (isFunction(clang_getCursorKind(cursor)))
      for (const CXCursor& child : children)
        if (clang_getCursorKind(child) == CXCursor_CompoundStmt)
          declaration.body = placeOf(clang_getCursorExtent(child)).span;
    file.declarations.push_back(declaration);
  }

  void addMutants(SourceFile& file, CXCursor cursor, CXCursorKind kind, const Span& span,
                  const std::vector<CXCursor>& children) {
    current_ = &file;
    addOperators(file, span, children);
    switch (kind) {
      case CXCursor_IfStmt:
      case CXCursor_WhileStmt:
      case CXCursor_ConditionalOperator:
        addNegation(file, children);
        break;
      case CXCursor_UnaryOperator:
        addUnaryOperator(file, span, children);
        break;
      case CXCursor_ReturnStmt:
        addReturn(file, span, children);
        break;
      case CXCursor_BreakStmt:
      case CXCursor_ContinueStmt:
        add(file, "removed statement", Form::Jump, {{span.begin, span.end, ""}});
        break;
      case CXCursor_CallExpr:
        addSwappedArguments(file, cursor, span);
        break;
      case CXCursor_VarDecl:
        addRows(file, cursor, children);
        break;
      default:
        break;
    }
    if (kind == CXCursor_CompoundStmt) addStatements(file, children);
    if (kind == CXCursor_IfStmt || kind == CXCursor_WhileStmt || kind == CXCursor_ForStmt ||
        kind == CXCursor_CXXForRangeStmt)
      addBranches(file, kind, children);
  }

  // Returns an empty span for code in another file than the current one, because a file can be included in a function.
  Span spanOf(CXCursor cursor) {
    const Place place = placeOf(clang_getCursorExtent(cursor));
    return fileNamed(place.file) == current_ ? place.span : Span();
  }

  // An expression of two operands begins with the first and ends with the second operand. The operator is between them.
  void addOperators(const SourceFile& file, const Span& span, const std::vector<CXCursor>& children) {
    if (children.size() != 2 && children.size() != 3) return;
    const Span left = spanOf(children.front());
    const Span right = spanOf(children.back());
    if (left.begin != span.begin || right.end != span.end || left.end >= right.begin) return;
    const Span between = {left.end, right.begin};
    const std::string text = trimmed(textOf(file, between));
    for (const Operator& candidate : operators()) {
      if (text != candidate.text) continue;
      for (const char* replacement : candidate.replacements)
        add(file, candidate.operation, Form::Expression,
            {{span.begin, span.end, textOf(file, left) + " " + replacement + " " + textOf(file, right)}});
    }
  }

  bool isComparison(const SourceFile& file, CXCursor cursor) {
    const std::vector<CXCursor> children = childrenOf(cursor);
    if (children.size() == 1 && spanOf(children[0]) == spanOf(cursor)) return isComparison(file, children[0]);
    if (children.size() < 2) return false;
    const Span between = {spanOf(children.front()).end, spanOf(children.back()).begin};
    if (between.begin >= between.end) return false;
    const std::string text = trimmed(textOf(file, between));
    return std::ranges::any_of(operators(), [&](const Operator& candidate) {
      return text == candidate.text && std::string(candidate.operation) == "comparison";
    });
  }

  void addNegation(const SourceFile& file, const std::vector<CXCursor>& children) {
    if (children.empty() || !isExpression(children[0]) || isComparison(file, children[0])) return;
    const Span span = spanOf(children[0]);
    const std::string text = textOf(file, span);
    if (text.empty() || text[0] == '!') return;
    add(file, "negated condition", Form::Condition, {{span.begin, span.end, "!(" + text + ")"}});
  }

  void addUnaryOperator(const SourceFile& file, const Span& span, const std::vector<CXCursor>& children) {
    const std::string text = textOf(file, span) + " ";
    if (children.empty() || (text[0] != '!' && !(text[0] == '-' && text[1] != '-'))) return;
    add(file, text[0] == '!' ? "negated condition" : "arithmetic", text[0] == '!' ? Form::Condition : Form::Expression,
        {{span.begin, span.end, textOf(file, spanOf(children[0]))}});
  }

  void addReturn(const SourceFile& file, const Span& span, const std::vector<CXCursor>& children) {
    if (children.empty()) {
      add(file, "removed statement", Form::Jump, {{span.begin, span.end, ""}});
      return;
    }
    const std::string value = textOf(file, spanOf(children[0]));
    if (clang_getCanonicalType(clang_getCursorType(children[0])).kind == CXType_Bool) {
      for (const char* constant : {"true", "false"})
        if (value != "true" && value != "false")
          add(file, "return value", Form::Jump, {{span.begin, span.end, std::string("return ") + constant}});
    } else if (value != "nullptr" && value != "{}" && value != "0") {
      add(file, "return value", Form::Jump, {{span.begin, span.end, "return {}"}});
    }
  }

  void addSwappedArguments(const SourceFile& file, CXCursor call, const Span& span) {
    if (stringOf(clang_getCursorSpelling(call)).starts_with("operator")) return;
    const int count = clang_Cursor_getNumArguments(call);
    for (int index = 0; index + 1 < count; ++index) {
      const CXCursor first = clang_Cursor_getArgument(call, static_cast<unsigned>(index));
      const CXCursor second = clang_Cursor_getArgument(call, static_cast<unsigned>(index) + 1);
      const Span left = spanOf(first);
      const Span right = spanOf(second);
      if (left.size() == 0 || right.size() == 0 || !span.contains(left) || !span.contains(right)) continue;
      const auto type = [](CXCursor argument) {
        return stringOf(clang_getTypeSpelling(clang_getCanonicalType(clang_getCursorType(argument))));
      };
      if (left.end > right.begin || type(first) != type(second) || textOf(file, left) == textOf(file, right)) continue;
      add(file, "swapped arguments", Form::Expression,
          {{left.begin, left.end, textOf(file, right)}, {right.begin, right.end, textOf(file, left)}});
    }
  }

  void addRows(const SourceFile& file, CXCursor variable, const std::vector<CXCursor>& children) {
    if (clang_getArrayElementType(clang_getCursorType(variable)).kind == CXType_Invalid) return;
    for (const CXCursor& child : children) {
      if (clang_getCursorKind(child) != CXCursor_InitListExpr) continue;
      const std::vector<CXCursor> rows = childrenOf(child);
      if (rows.size() < 2) continue;
      for (const CXCursor& row : rows) {
        const Span span = spanOf(row);
        if (span.size() == 0) continue;
        const std::size_t comma = file.text.find_first_not_of(" \n", span.end);
        const bool hasComma = comma != std::string::npos && file.text[comma] == ',';
        if (hasComma) add(file, "table row", Form::Row, {{span.begin, comma + 1, ""}});
      }
    }
  }

  // Adds the mutants of the statements of a block.
  void addStatements(const SourceFile& file, const std::vector<CXCursor>& statements) {
    for (std::size_t index = 0; index < statements.size(); ++index) {
      addRemoval(file, statements[index]);
      if (index == 0 || !isCall(statements[index]) || !isCall(statements[index - 1])) continue;
      const Span first = spanOf(statements[index - 1]);
      const Span second = spanOf(statements[index]);
      if (first.size() > 0 && second.size() > 0)
        add(file, "swapped calls", Form::Statement,
            {{first.begin, first.end, textOf(file, second)}, {second.begin, second.end, textOf(file, first)}});
    }
  }

  // Assignments are excluded, because the order of two assignments rarely matters.
  bool isCall(CXCursor cursor) {
    if (clang_getCursorKind(cursor) == CXCursor_CallExpr)
      return !stringOf(clang_getCursorSpelling(cursor)).starts_with("operator");
    const std::vector<CXCursor> children = childrenOf(cursor);
    return clang_getCursorKind(cursor) == CXCursor_UnexposedExpr && children.size() == 1 && isCall(children[0]);
  }

  void addRemoval(const SourceFile& file, CXCursor statement) {
    if (!isExpression(statement)) return;
    const Span span = spanOf(statement);
    if (span.size() > 0) add(file, "removed statement", Form::Statement, {{span.begin, span.end, ""}});
  }

  // Adds the removal of statements that have no block. The first expression of `if` and `while` is the condition.
  void addBranches(const SourceFile& file, CXCursorKind kind, const std::vector<CXCursor>& children) {
    if (children.empty()) return;
    if (kind != CXCursor_IfStmt) {
      addRemoval(file, children.back());
      return;
    }
    bool hasCondition = false;
    for (const CXCursor& child : children) {
      if (hasCondition) addRemoval(file, child);
      hasCondition = hasCondition || isExpression(child);
    }
  }

  // Adds the mutants of literals, which are also in the arguments of macros.
  void visitTokens(CXTranslationUnit unit, const SourceFile& file) {
    const CXFile handle = clang_getFile(unit, (prefix_ + file.path).c_str());
    if (handle == nullptr) return;
    const CXSourceRange whole =
        clang_getRange(clang_getLocationForOffset(unit, handle, 0),
                       clang_getLocationForOffset(unit, handle, static_cast<unsigned>(file.text.size())));
    CXToken* tokens = nullptr;
    unsigned count = 0;
    clang_tokenize(unit, whole, &tokens, &count);
    std::string previous;
    for (unsigned index = 0; index < count; ++index) {
      const Span span = placeOf(clang_getTokenExtent(unit, tokens[index])).span;
      const std::string text = stringOf(clang_getTokenSpelling(unit, tokens[index]));
      const CXTokenKind kind = clang_getTokenKind(tokens[index]);
      if (kind != CXToken_Comment && previous != "extern" && !isExcluded(file, span))
        addLiteral(file, span, text, kind);
      if (kind != CXToken_Comment) previous = text;
    }
    clang_disposeTokens(unit, tokens, count);
  }

  static bool isExcluded(const SourceFile& file, const Span& span) {
    const std::size_t lineBegin = span.begin == 0 ? 0 : file.text.rfind('\n', span.begin - 1) + 1;
    const std::size_t first = file.text.find_first_not_of(' ', lineBegin);
    if (first != std::string::npos && file.text[first] == '#') return true;
    return std::ranges::any_of(file.staticAssertions, [&](const Span& assertion) { return assertion.contains(span); });
  }

  void addLiteral(const SourceFile& file, const Span& span, const std::string& text, CXTokenKind kind) {
    if (text == "true" || text == "false") {
      add(file, constant_, Form::Expression, {{span.begin, span.end, text == "true" ? "false" : "true"}});
    } else if (kind == CXToken_Literal && text[0] == '"') {
      const std::string suffix = text.substr(text.rfind('"') + 1);
      if (text.size() > suffix.size() + 2)
        add(file, constant_, Form::Expression, {{span.begin, span.end, "\"\"" + suffix}});
    } else if (kind == CXToken_Literal && text[0] >= '0' && text[0] <= '9') {
      const double value = std::strtod(text.c_str(), nullptr);
      const std::string zero = text.find_first_of(".eE") != std::string::npos && !text.starts_with("0x") ? "0.0" : "0";
      add(file, constant_, Form::Expression, {{span.begin, span.end, "(" + text + " + 1)"}});
      if (value != 1) add(file, constant_, Form::Expression, {{span.begin, span.end, "(" + text + " - 1)"}});
      if (value != 0) add(file, constant_, Form::Expression, {{span.begin, span.end, zero}});
      if (value != 0 && value != 1)
        add(file, constant_, Form::Expression, {{span.begin, span.end, "(" + text + " * 2)"}});
    }
  }

  void finish(const SourceFile& file) {
    for (const auto& [place, symbol] : file.references)
      if (const Declaration* user = innermost(file, {place, place})) references.emplace(symbol, user->symbol);
    const bool isNew = scannedFiles_.insert(file.path).second;
    if (!isNew) return;
    for (const Declaration& declaration : file.declarations) {
      if (declaration.body.size() == 0) continue;
      functions.insert(declaration.symbol);
      found_.bodies.push_back({file.path, declaration.symbol, declaration.body.begin + 1});
    }
    for (Mutant& mutant : found_.mutants) {
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

  static constexpr const char* constant_ = "constant";
  std::string prefix_;
  std::string folder_;
  std::set<std::string>& scannedFiles_;
  // By the names that libclang uses. Nothing for a file outside of the folder.
  std::map<std::string, std::optional<SourceFile>> files_;
  std::set<std::string> keys_;
  const SourceFile* current_ = nullptr;
  Mutants found_;
  int functionDepth_ = 0;
};

}  // namespace

MutantFinder::MutantFinder(fs::path tree, std::string folder) : tree_(std::move(tree)), folder_(std::move(folder)) {}

void MutantFinder::addSource(const fs::path& source, const std::vector<std::string>& options) {
  std::vector<const char*> arguments;
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
  Mutants mutants = scan.takeMutants();
  std::ranges::move(mutants.mutants, std::back_inserter(found_.mutants));
  std::ranges::move(mutants.bodies, std::back_inserter(found_.bodies));
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
