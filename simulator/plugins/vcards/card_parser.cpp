#include "simulator/contacts/vcard_plugin.hpp"

#include <libebook-contacts/libebook-contacts.h>

#include <memory>
#include <string_view>

namespace {

using contacts::LabeledText;
using contacts::Person;

template <auto release>
struct Release {
  template <class Type>
  void operator()(Type* owned) const {
    release(owned);
  }
};

using Card = std::unique_ptr<EVCard, Release<&g_object_unref>>;
using Text = std::unique_ptr<char, Release<&g_free>>;
using Bytes = std::unique_ptr<guchar, Release<&g_free>>;

// Replaces bytes that are not valid UTF-8. They occur because a card can use any character set and can declare a wrong
// one.
std::string validUtf8(std::string_view bytes) {
  const Text text(g_utf8_make_valid(bytes.data(), static_cast<gssize>(bytes.size())));
  return text.get();
}

std::string firstParameter(EVCardAttribute* attribute, const char* name) {
  const GList* const values = e_vcard_attribute_get_param(attribute, name);
  return values == nullptr ? "" : static_cast<const char*>(values->data);
}

// Returns the decoded bytes of the value, or of one component of a structured value.
std::string decodedValue(EVCardAttribute* attribute, guint component = 0) {
  const auto* const value =
      static_cast<const GString*>(g_list_nth_data(e_vcard_attribute_get_values_decoded(attribute), component));
  return value == nullptr ? "" : std::string(value->str, value->len);
}

std::string textOf(EVCardAttribute* attribute, guint component = 0) {
  const std::string bytes = decodedValue(attribute, component);
  const std::string characterSet = firstParameter(attribute, "CHARSET");
  if (characterSet.empty()) return validUtf8(bytes);
  gsize size = 0;
  const Text converted(g_convert(bytes.data(), static_cast<gssize>(bytes.size()), "UTF-8", characterSet.c_str(),
                                 nullptr, &size, nullptr));
  return validUtf8(converted == nullptr ? std::string_view(bytes) : std::string_view(converted.get(), size));
}

struct PlatformLabel {
  const char* type;
  const char* label;
};
constexpr PlatformLabel platformLabels[] = {
    {"CELL", "_$!<Mobile>!$_"}, {"HOME", "_$!<Home>!$_"}, {"WORK", "_$!<Work>!$_"}, {"OTHER", "_$!<Other>!$_"}};

std::string labelOf(EVCardAttribute* attribute) {
  for (const PlatformLabel& candidate : platformLabels)
    if (e_vcard_attribute_has_type(attribute, candidate.type)) return candidate.label;
  return "";
}

LabeledText labeledTextOf(EVCardAttribute* attribute) { return {labelOf(attribute), textOf(attribute)}; }

std::string decodeBase64(const char* text) {
  gsize size = 0;
  const Bytes bytes(g_base64_decode(text, &size));
  return {reinterpret_cast<const char*>(bytes.get()), size};
}

// Decodes a URL such as "data:image/png;base64,…", which cards of version 4.0 use instead of an encoded value. Returns
// nothing for any other URL.
std::optional<std::string> decodeDataUrl(const std::string& url) {
  constexpr std::string_view marker = ";base64,";
  const std::size_t begin = url.find(marker);
  if (g_ascii_strncasecmp(url.c_str(), "data:", 5) != 0 || begin == url.npos) return std::nullopt;
  return decodeBase64(url.c_str() + begin + marker.size());
}

// Returns a URL in one piece. The parser has split it at semicolons and commas, because they separate components in
// other values.
std::string joinedValue(EVCardAttribute* attribute) {
  std::string joined;
  for (const GList* value = e_vcard_attribute_get_values(attribute); value != nullptr; value = value->next) {
    if (!joined.empty()) joined += joined.ends_with(";base64") ? ',' : ';';
    joined += static_cast<const char*>(value->data);
  }
  return joined;
}

// Returns the image of the attribute. Returns nothing if the attribute contains only the web address of an image.
std::optional<std::string> imageOf(EVCardAttribute* attribute) {
  if (firstParameter(attribute, EVC_ENCODING).empty()) return decodeDataUrl(joinedValue(attribute));
  std::string bytes = decodedValue(attribute);
  if (bytes.empty()) return std::nullopt;
  return bytes;
}

void addAttribute(EVCardAttribute* attribute, Person& person) {
  const std::string_view name = e_vcard_attribute_get_name(attribute);
  const auto is = [name](const char* other) { return g_ascii_strcasecmp(name.data(), other) == 0; };
  if (is(EVC_UID)) {
    person.identifier = textOf(attribute);
  } else if (is(EVC_N)) {
    constexpr guint givenName = 1;
    person.givenName = textOf(attribute, givenName);
  } else if (is(EVC_EMAIL)) {
    person.emailAddresses.push_back(labeledTextOf(attribute));
  } else if (is(EVC_TEL)) {
    person.phoneNumbers.push_back(labeledTextOf(attribute));
  } else if (is(EVC_PHOTO) && !person.image) {
    person.image = imageOf(attribute);
  }
}

// Derives an identifier in the platform's format from the card. Equal cards have equal identifiers.
std::string derivedIdentifier(const std::string& card) {
  const Text digest(g_compute_checksum_for_string(G_CHECKSUM_MD5, card.data(), static_cast<gssize>(card.size())));
  const Text upper(g_ascii_strup(digest.get(), -1));
  const std::string_view digits = upper.get();
  std::string identifier;
  for (const auto& [begin, count] : {std::pair{0, 8}, {8, 4}, {12, 4}, {16, 4}, {20, 12}}) {
    identifier.append(identifier.empty() ? "" : "-")
        .append(digits.substr(static_cast<std::size_t>(begin), static_cast<std::size_t>(count)));
  }
  return identifier;
}

}  // namespace

void brim_read_card(const std::string& card, Person& person) {
  const Card parsed(e_vcard_new_from_string(card.c_str()));
  for (const GList* entry = e_vcard_get_attributes(parsed.get()); entry != nullptr; entry = entry->next)
    addAttribute(static_cast<EVCardAttribute*>(entry->data), person);
  EVCardAttribute* const fullName = e_vcard_get_attribute(parsed.get(), EVC_FN);
  // A card of version 4.0 can omit the structured name. Its full name is used instead.
  if (e_vcard_get_attribute(parsed.get(), EVC_N) == nullptr && fullName != nullptr) person.givenName = textOf(fullName);
  if (person.identifier.empty()) person.identifier = derivedIdentifier(card);
}
