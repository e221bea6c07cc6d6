// A mutant: a small change to the library that a test should detect.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace mutation {

// The form in which a change is written into the switched copy of a source, where it is selected at run time.
enum class Form {
  Jump,        // a return, break or continue statement, without its semicolon
  Statement,   // an expression whose value is not used
  Condition,   // an expression that is converted to bool
  Expression,  // another expression
  Row,         // a row of a table; cannot be selected at run time
};

// A replacement of the bytes from `begin` up to `end` of a file.
struct Edit {
  std::size_t begin = 0;
  std::size_t end = 0;
  std::string replacement;
};

struct Mutant {
  std::string file;       // relative to the root of the repository
  std::string function;   // the enclosing function, type or variable; empty outside of declarations
  std::string operation;  // such as "comparison"
  Form form = Form::Expression;
  // The edits in the order of their positions, without overlaps.
  std::vector<Edit> edits;
  unsigned line = 0;
  // The changed lines before and after the change, without indentation.
  std::string original;
  std::string replacement;
  // Whether the change is in the body of a function, where a condition can select it.
  bool isInBody = false;
  // The functions that can execute the change: the enclosing function, or the functions that refer to the enclosing
  // declaration. Names are unified symbol resolutions. Empty if the functions are unknown.
  std::vector<std::string> executedBy;
  // The functions that the changed text refers to. The tests of these functions probably detect the change.
  std::vector<std::string> related;
};

// The beginning of a function's body, at which the switched copy logs the execution of the function.
struct FunctionBody {
  std::string file;
  std::string symbol;
  std::size_t begin = 0;
};

struct Mutants {
  std::vector<Mutant> mutants;
  std::vector<FunctionBody> bodies;
};

// Returns the text with the edits of the mutant.
std::string mutated(const std::string& text, const Mutant& mutant);

// Sets the line and the text of the changed lines.
void describe(Mutant& mutant, const std::string& text);

}  // namespace mutation
