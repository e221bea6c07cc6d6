#include "simulator/contacts/vcard_plugin.hpp"

#include <libebook-contacts/libebook-contacts.h>

#include <memory>
#include <string_view>

namespace {

using contacts::LabelledText;
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

// The card's character set may be any, and may not be what it says.
std::string valid(std::string_view bytes) {
  const Text text(g_utf8_make_valid(bytes.data(), static_cast<gssize>(bytes.size())));
  return text.get();
}

std::string firstParameter(EVCardAttribute* attribute, const char* name) {
  const GList* const values = e_vcard_attribute_get_param(attribute, name);
  return values == nullptr ? "" : static_cast<const char*>(values->data);
}

// The bytes of a value, or of one component of it.
std::string decoded(EVCardAttribute* attribute, guint component = 0) {
  const auto* const value =
      static_cast<const GString*>(g_list_nth_data(e_vcard_attribute_get_values_decoded(attribute), component));
  return value == nullptr ? "" : std::string(value->str, value->len);
}

std::string textOf(EVCardAttribute* attribute, guint component = 0) {
  const std::string bytes = decoded(attribute, component);
  const std::string characterSet = firstParameter(attribute, "CHARSET");
  if (characterSet.empty()) return valid(bytes);
  gsize size = 0;
  const Text converted(g_convert(bytes.data(), static_cast<gssize>(bytes.size()), "UTF-8", characterSet.c_str(),
                                 nullptr, &size, nullptr));
  return valid(converted == nullptr ? std::string_view(bytes) : std::string_view(converted.get(), size));
}

struct PlatformLabel {
  const char* type;
  const char* label;
};
constexpr PlatformLabel platformLabels[] = {
    {"CELL", "_$!<Mobile>!$_"}, {"HOME", "_$!<Home>!$_"}, {"WORK", "_$!<Work>!$_"}, {"OTHER", "_$!<Other>!$_"}};

std::string labelOf(EVCardAttribute* attribute) {
  for (const PlatformLabel& known : platformLabels)
    if (e_vcard_attribute_has_type(attribute, known.type)) return known.label;
  return "";
}

LabelledText labelledTextOf(EVCardAttribute* attribute) { return {labelOf(attribute), textOf(attribute)}; }

std::string bytesOfBase64(const char* text) {
  gsize size = 0;
  const Bytes bytes(g_base64_decode(text, &size));
  return {reinterpret_cast<const char*>(bytes.get()), size};
}

// "data:image/png;base64,…", which version 4.0 has in place of an encoded value.
std::optional<std::string> bytesOfAddress(const std::string& address) {
  constexpr std::string_view mark = ";base64,";
  const std::size_t begin = address.find(mark);
  if (g_ascii_strncasecmp(address.c_str(), "data:", 5) != 0 || begin == address.npos) return std::nullopt;
  return bytesOfBase64(address.c_str() + begin + mark.size());
}

// The address is cut where its reader takes a semicolon or a comma for the end of a component.
std::string wholeValue(EVCardAttribute* attribute) {
  std::string whole;
  for (const GList* value = e_vcard_attribute_get_values(attribute); value != nullptr; value = value->next) {
    if (!whole.empty()) whole += whole.ends_with(";base64") ? ',' : ';';
    whole += static_cast<const char*>(value->data);
  }
  return whole;
}

// A picture that is only named by its address on the web is not in the card.
std::optional<std::string> imageOf(EVCardAttribute* attribute) {
  if (firstParameter(attribute, EVC_ENCODING).empty()) return bytesOfAddress(wholeValue(attribute));
  std::string bytes = decoded(attribute);
  if (bytes.empty()) return std::nullopt;
  return bytes;
}

void addAttribute(EVCardAttribute* attribute, Person& person) {
  const std::string_view name = e_vcard_attribute_get_name(attribute);
  const auto is = [name](const char* wanted) { return g_ascii_strcasecmp(name.data(), wanted) == 0; };
  if (is(EVC_UID)) {
    person.identifier = textOf(attribute);
  } else if (is(EVC_N)) {
    constexpr guint givenName = 1;
    person.givenName = textOf(attribute, givenName);
  } else if (is(EVC_EMAIL)) {
    person.emailAddresses.push_back(labelledTextOf(attribute));
  } else if (is(EVC_TEL)) {
    person.phoneNumbers.push_back(labelledTextOf(attribute));
  } else if (is(EVC_PHOTO) && !person.image) {
    person.image = imageOf(attribute);
  }
}

// In the form of the platform's own identifiers, the same for the same card.
std::string identifierOf(const std::string& card) {
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
  // Version 4.0 does without the parts of the name.
  if (e_vcard_get_attribute(parsed.get(), EVC_N) == nullptr && fullName != nullptr) person.givenName = textOf(fullName);
  if (person.identifier.empty()) person.identifier = identifierOf(card);
}
