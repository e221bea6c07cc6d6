#include <cctype>

#include "tests/device/emulator/platform_classes.hpp"

namespace device {

namespace {

std::string& valueOf(const Message& message) {
  return std::any_cast<std::string&>(message.runtime.object(message.self).value);
}

// Digit sequences compare by numeric value.
int compareNumerically(const std::string& first, const std::string& second) {
  const auto isDigit = [](const std::string& text, std::size_t at) {
    return at < text.size() && std::isdigit(static_cast<unsigned char>(text[at])) != 0;
  };
  std::size_t left = 0;
  std::size_t right = 0;
  while (left < first.size() && right < second.size()) {
    if (isDigit(first, left) && isDigit(second, right)) {
      std::size_t leftLength = 0;
      std::size_t rightLength = 0;
      const unsigned long leftNumber = std::stoul(first.substr(left), &leftLength);
      const unsigned long rightNumber = std::stoul(second.substr(right), &rightLength);
      if (leftNumber != rightNumber) return leftNumber < rightNumber ? -1 : 1;
      left += leftLength;
      right += rightLength;
    } else if (first[left] != second[right]) {
      return first[left] < second[right] ? -1 : 1;
    } else {
      ++left;
      ++right;
    }
  }
  return left == first.size() ? (right == second.size() ? 0 : -1) : 1;
}

void compare(const Message& message) {
  constexpr std::uint64_t numeric = 64;
  const std::string other = message.text(0);
  const int order =
      message.argument(1) == numeric ? compareNumerically(valueOf(message), other) : valueOf(message).compare(other);
  message.answer(static_cast<std::uint64_t>(std::int64_t{order}));
}

void rangeOfString(const Message& message) {
  constexpr std::uint64_t notFound = 0x7fffffffffffffff;
  const std::string wanted = message.text(0);
  const std::size_t found = valueOf(message).find(wanted);
  message.answer(found == std::string::npos ? notFound : found);
  message.processor.setX(1, found == std::string::npos ? 0 : wanted.size());
}

void replaceCharacters(const Message& message) {
  std::string replaced = valueOf(message);
  replaced.replace(message.argument(0), message.argument(1), message.text(2));
  message.answer(makeString(message.runtime, replaced));
}

}  // namespace

Address makeString(ObjectiveC& runtime, const std::string& text, const std::string& className) {
  const Address made = runtime.allocate(*runtime.find(className));
  runtime.object(made).value = text;
  return runtime.autorelease(made);
}

std::string textOf(ObjectiveC& runtime, Address string) {
  return std::any_cast<const std::string&>(runtime.object(string).value);
}

void defineStrings(ObjectiveC& runtime) {
  runtime.define("NSString");
  runtime.define("NSMutableString", "NSString");
  runtime.addClassMethod("NSString", "stringWithUTF8String:", "@@:*", [](const Message& message) {
    message.answer(makeString(message.runtime, message.processor.text(message.argument(0))));
  });
  runtime.addClassMethod("NSMutableString", "stringWithCapacity:", "@@:Q", [](const Message& message) {
    message.answer(makeString(message.runtime, "", "NSMutableString"));
  });
  runtime.addMethod("NSMutableString", "appendString:", "v@:@",
                    [](const Message& message) { valueOf(message) += message.text(0); });
  for (const char* name : {"UTF8String", "fileSystemRepresentation"}) {
    runtime.addMethod("NSString", name, "*@:", [](const Message& message) {
      message.answer(message.processor.allocateText(valueOf(message)));
    });
  }
  runtime.addMethod("NSString", "length",
                    "Q@:", [](const Message& message) { message.answer(valueOf(message).size()); });
  runtime.addMethod("NSString", "copyWithZone:", "@@:^v", [](const Message& message) {
    message.runtime.retain(message.self);
    message.answer(message.self);
  });
  runtime.addMethod("NSString", "compare:options:", "q@:@Q", compare);
  runtime.addMethod("NSString", "rangeOfString:", "{_NSRange=QQ}@:@", rangeOfString);
  runtime.addMethod("NSString", "stringByReplacingCharactersInRange:withString:", "@@:{_NSRange=QQ}@",
                    replaceCharacters);
  runtime.addMethod("NSString", "isEqualToString:", "B@:@", [](const Message& message) {
    message.answer(message.argument(0) != 0 && valueOf(message) == message.text(0));
  });
  runtime.addMethod("NSString", "lowercaseString", "@@:", [](const Message& message) {
    std::string lower = valueOf(message);
    for (char& letter : lower) letter = static_cast<char>(std::tolower(static_cast<unsigned char>(letter)));
    message.answer(makeString(message.runtime, lower));
  });
  runtime.addMethod("NSString", "stringByAppendingString:", "@@:@", [](const Message& message) {
    message.answer(makeString(message.runtime, valueOf(message) + message.text(0)));
  });
}

}  // namespace device
