#include "mutation/switched_source.hpp"

#include <algorithm>
#include <limits>
#include <map>
#include <tuple>

namespace mutation {

namespace {

// The alternatives of one range of the original text.
struct Choice {
  struct Alternative {
    unsigned number;
    std::string text;
  };
  std::size_t begin = 0;
  std::size_t end = 0;
  Form form = Form::Expression;
  std::vector<Alternative> alternatives;
  std::vector<unsigned> executed;  // the numbers that are logged here, at the beginning of a function's body

  // Sorts the choices by the position at which they begin in the switched copy. An outer choice precedes the choices
  // inside it.
  auto order() const {
    return std::tuple(begin, executed.empty(), std::numeric_limits<std::size_t>::max() - end, form);
  }
};

std::string condition(unsigned number) { return "brimMutantIsOn(" + std::to_string(number) + ")"; }

std::string alternative(Form form, const std::string& text) {
  switch (form) {
    case Form::Statement:
      return text.empty() ? "static_cast<void>(0)" : "static_cast<void>(" + text + ")";
    case Form::Condition:
      return "static_cast<bool>(" + text + ")";
    case Form::Jump:
      return text.empty() ? "{}" : text + ";";
    default:
      return "(" + text + ")";
  }
}

class Writer {
 public:
  Writer(const std::string& text, std::vector<Choice> choices) : text_(text), choices_(std::move(choices)) {}

  SwitchedSource written() {
    write(0, text_.size());
    return std::move(result_);
  }

 private:
  // Writes the original text of the range, with all choices inside the range.
  void write(std::size_t begin, std::size_t end) {
    while (next_ < choices_.size() && choices_[next_].begin >= begin && choices_[next_].end <= end) {
      const Choice& choice = choices_[next_++];
      result_.text.append(text_, begin, choice.begin - begin);
      const std::size_t start = result_.text.size();
      writeChoice(choice);
      for (const Choice::Alternative& entry : choice.alternatives)
        result_.ranges.push_back({entry.number, start, result_.text.size()});
      for (const unsigned number : choice.executed) result_.ranges.push_back({number, start, result_.text.size()});
      begin = choice.end;
    }
    result_.text.append(text_, begin, end - begin);
  }

  void writeChoice(const Choice& choice) {
    for (const unsigned number : choice.executed) result_.text += " static_cast<void>(" + condition(number) + ");";
    if (!choice.executed.empty()) return;
    if (choice.form == Form::Jump) {
      for (const Choice::Alternative& entry : choice.alternatives)
        result_.text += "if (" + condition(entry.number) + ") " + alternative(choice.form, entry.text) + " else ";
      write(choice.begin, choice.end);
      return;
    }
    result_.text += "(";
    for (const Choice::Alternative& entry : choice.alternatives)
      result_.text += condition(entry.number) + " ? " + alternative(choice.form, entry.text) + " : ";
    const std::string around = alternative(choice.form, "x");
    const std::size_t place = around.rfind('x');
    result_.text.append(around, 0, place);
    write(choice.begin, choice.end);
    result_.text.append(around, place + 1).append(")");
  }

  const std::string& text_;
  std::vector<Choice> choices_;
  std::size_t next_ = 0;
  SwitchedSource result_;
};

bool overlap(std::size_t begin, std::size_t end, const Choice& other) {
  return begin < other.end && other.begin < end && !(begin <= other.begin && other.end <= end) &&
         !(other.begin <= begin && end <= other.end);
}

}  // namespace

std::set<unsigned> SwitchedSource::numbersAt(std::size_t place) const {
  std::set<unsigned> numbers;
  std::size_t smallest = std::numeric_limits<std::size_t>::max();
  for (const Range& range : ranges) {
    if (range.begin > place || range.end <= place || range.end - range.begin > smallest) continue;
    if (range.end - range.begin < smallest) numbers.clear();
    smallest = range.end - range.begin;
    numbers.insert(range.number);
  }
  return numbers;
}

SwitchedSource switchedSource(const std::string& text, const std::vector<NumberedMutant>& mutants,
                              const std::vector<NumberedBody>& bodies) {
  std::map<std::tuple<std::size_t, std::size_t, Form>, Choice> choices;
  std::set<unsigned> omitted;
  for (const auto& [number, mutant] : mutants) {
    const bool isOmitted = std::ranges::any_of(mutant->edits, [&](const Edit& edit) {
      return std::ranges::any_of(choices,
                                 [&](const auto& entry) { return overlap(edit.begin, edit.end, entry.second); });
    });
    if (isOmitted) {
      omitted.insert(number);
      continue;
    }
    for (const Edit& edit : mutant->edits) {
      Choice& choice = choices[{edit.begin, edit.end, mutant->form}];
      choice.begin = edit.begin;
      choice.end = edit.end;
      choice.form = mutant->form;
      choice.alternatives.push_back({number, edit.replacement});
    }
  }
  std::vector<Choice> ordered;
  ordered.reserve(choices.size() + bodies.size());
  for (auto& [key, choice] : choices) ordered.push_back(std::move(choice));
  for (const NumberedBody& body : bodies) {
    Choice choice;
    choice.begin = choice.end = body.begin;
    choice.executed = {body.number};
    ordered.push_back(std::move(choice));
  }
  std::ranges::sort(ordered, {}, &Choice::order);
  SwitchedSource result = Writer(text, std::move(ordered)).written();
  result.omitted = std::move(omitted);
  return result;
}

}  // namespace mutation
