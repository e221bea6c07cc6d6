#include "tests/device/emulator/recorded_methods.hpp"

#include <bit>
#include <cctype>
#include <stdexcept>

namespace device {

namespace {

enum class Kind { Nothing, Integer, Object, Number, FourNumbers };

// Reads the next type of an encoding. Every struct in a recorded method consists of four floating-point numbers.
Kind takeType(const std::string& encoding, std::size_t& at) {
  const char code = encoding.at(at++);
  switch (code) {
    case 'v':
      return Kind::Nothing;
    case 'd':
      return Kind::Number;
    case '@':
      if (at < encoding.size() && encoding[at] == '?') ++at;
      return Kind::Object;
    case '^':
      takeType(encoding, at);
      return Kind::Integer;
    case '{':
      for (int depth = 1; depth > 0; ++at) {
        if (encoding.at(at) == '{') ++depth;
        if (encoding.at(at) == '}') --depth;
      }
      return Kind::FourNumbers;
    default:
      return Kind::Integer;
  }
}

struct Signature {
  Kind result;
  std::vector<Kind> arguments;

  explicit Signature(const std::string& encoding) {
    std::size_t at = 0;
    result = takeType(encoding, at);
    at += 2;  // the receiver and the selector
    while (at < encoding.size()) arguments.push_back(takeType(encoding, at));
  }
};

std::string uncapitalised(std::string text) {
  text[0] = static_cast<char>(std::tolower(static_cast<unsigned char>(text[0])));
  return text;
}

std::string propertyOf(const std::string& selector, const Signature& signature) {
  if (signature.arguments.empty()) return selector.starts_with("is") ? uncapitalised(selector.substr(2)) : selector;
  if (signature.arguments.size() == 1 && selector.starts_with("set"))
    return uncapitalised(selector.substr(3, selector.size() - 4));
  return selector;
}

std::vector<std::uint64_t> argumentsOf(const Message& message, const Signature& signature) {
  std::vector<std::uint64_t> values;
  int integers = 0;
  int numbers = 0;
  for (const Kind kind : signature.arguments) {
    if (kind == Kind::Object || kind == Kind::Integer) {
      values.push_back(message.argument(integers++));
      if (kind == Kind::Object) message.runtime.retain(values.back());
    } else {
      for (int count = kind == Kind::Number ? 1 : 4; count > 0; --count)
        values.push_back(std::bit_cast<std::uint64_t>(message.number(numbers++)));
    }
  }
  return values;
}

void give(const Message& message, Kind result, const std::string& property) {
  if (result == Kind::Integer || result == Kind::Object)
    message.answer(storedValue(message.runtime, message.self, property));
  const int count = result == Kind::Number ? 1 : result == Kind::FourNumbers ? 4 : 0;
  for (int index = 0; index < count; ++index)
    message.processor.setD(index,
                           storedNumber(message.runtime, message.self, property, static_cast<std::size_t>(index)));
}

}  // namespace

void addRecordedMethod(ObjectiveC& runtime, const std::string& className, const std::string& selector,
                       const std::string& encoding) {
  const Signature signature(encoding);
  const std::string property = propertyOf(selector, signature);
  if (signature.arguments.empty()) {
    runtime.addMethod(className, selector, encoding, [property, result = signature.result](const Message& message) {
      give(message, result, property);
    });
  } else {
    runtime.addMethod(className, selector, encoding, [property, signature](const Message& message) {
      message.runtime.object(message.self).properties[property] = argumentsOf(message, signature);
    });
  }
}

void addProperty(ObjectiveC& runtime, const std::string& className, const std::string& name, const std::string& type) {
  std::string setter = "set" + name + ":";
  setter[3] = static_cast<char>(std::toupper(static_cast<unsigned char>(setter[3])));
  addRecordedMethod(runtime, className, name, type + "@:");
  addRecordedMethod(runtime, className, setter, "v@:" + type);
}

void addPart(ObjectiveC& runtime, const std::string& className, const std::string& name, const std::string& partClass) {
  runtime.addMethod(className, name, "@@:", [name, partClass](const Message& message) {
    const Address known = storedValue(message.runtime, message.self, name);
    const Address part = known != 0 ? known : message.runtime.make(partClass);
    storeValues(message.runtime, message.self, name, {part});
    message.answer(part);
  });
}

std::uint64_t storedValue(ObjectiveC& runtime, Address object, const std::string& property) {
  const auto& properties = runtime.object(object).properties;
  const auto found = properties.find(property);
  return found == properties.end() || found->second.empty() ? 0 : found->second.front();
}

double storedNumber(ObjectiveC& runtime, Address object, const std::string& property, std::size_t index) {
  const auto& properties = runtime.object(object).properties;
  const auto found = properties.find(property);
  return found == properties.end() ? 0 : std::bit_cast<double>(found->second.at(index));
}

void storeValues(ObjectiveC& runtime, Address object, const std::string& property, std::vector<std::uint64_t> values) {
  runtime.object(object).properties[property] = std::move(values);
}

}  // namespace device
