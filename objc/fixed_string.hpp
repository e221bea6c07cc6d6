// A string that can be a template argument. It is used for selectors, class names and type encodings.
#pragma once

#include <cstddef>

namespace objc {

template <std::size_t length>
struct FixedString {
  char text[length + 1] = {};

  constexpr FixedString() = default;
  // NOLINTNEXTLINE(google-explicit-constructor): string literals are passed as template arguments.
  constexpr FixedString(const char (&literal)[length + 1]) {
    for (std::size_t index = 0; index < length; ++index) text[index] = literal[index];
  }

  static constexpr std::size_t size() { return length; }
  constexpr const char* data() const { return text; }

  constexpr std::size_t count(char wanted) const {
    std::size_t found = 0;
    for (std::size_t index = 0; index < length; ++index) found += text[index] == wanted ? 1 : 0;
    return found;
  }

  template <std::size_t otherLength>
  constexpr bool operator==(const FixedString<otherLength>& other) const {
    if constexpr (length != otherLength) {
      return false;
    } else {
      for (std::size_t index = 0; index < length; ++index)
        if (text[index] != other.text[index]) return false;
      return true;
    }
  }
};

template <std::size_t size>
FixedString(const char (&)[size]) -> FixedString<size - 1>;

template <std::size_t left, std::size_t right>
constexpr FixedString<left + right> operator+(const FixedString<left>& first, const FixedString<right>& second) {
  FixedString<left + right> joined;
  for (std::size_t index = 0; index < left; ++index) joined.text[index] = first.text[index];
  for (std::size_t index = 0; index < right; ++index) joined.text[left + index] = second.text[index];
  return joined;
}

// The null-terminated text of the string. It has static storage duration.
template <FixedString string>
struct TextOf {
  static constexpr const char* text = string.data();
};

// The selector of the setter of a property: "setHasDismissed:" for "hasDismissed".
template <FixedString name>
constexpr auto setterName() {
  auto capitalized = name;
  if (capitalized.text[0] >= 'a' && capitalized.text[0] <= 'z')
    capitalized.text[0] = static_cast<char>(capitalized.text[0] - 'a' + 'A');
  return FixedString("set") + capitalized + FixedString(":");
}

}  // namespace objc
