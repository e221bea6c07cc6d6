// A card of the address book, as plain values in UTF-8.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace contacts {

struct LabelledText {
  std::string label;  // the platform's, such as "_$!<Home>!$_"; empty for none
  std::string text;
};

struct Person {
  // The card's own, or one that follows from its text where it has none.
  std::string identifier = {};
  std::string givenName = {};
  std::vector<LabelledText> emailAddresses = {};
  std::vector<LabelledText> phoneNumbers = {};
  // The bytes of a picture file, which nobody has looked at; nothing without a picture inside the card.
  std::optional<std::string> image = {};
};

}  // namespace contacts
