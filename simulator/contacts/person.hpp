// A person in the address book. All texts are UTF-8.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace contacts {

struct LabeledText {
  std::string label;  // a label of the platform, such as "_$!<Home>!$_"; empty if there is none
  std::string text;
};

struct Person {
  // The UID property of the card. If the card has none, the identifier is a digest of the card's text.
  std::string identifier = {};
  std::string givenName = {};
  std::vector<LabeledText> emailAddresses = {};
  std::vector<LabeledText> phoneNumbers = {};
  // The contents of an image file in any format. They are not validated. Nothing if the card contains no image.
  std::optional<std::string> image = {};
};

}  // namespace contacts
