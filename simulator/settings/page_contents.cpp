#include "simulator/settings/page_contents.hpp"

#include <algorithm>
#include <cmath>
#include <optional>
#include <string_view>

#include "platform/ns_number.hpp"
#include "simulator/base/foundation_json.hpp"
#include "simulator/foundation/preference_value.hpp"
#include "simulator/settings/list_controller.hpp"

namespace settings_application {

namespace {

constexpr int maxSegments = 1000;
constexpr NSUInteger maxChoices = 1000;

std::string textAt(const PSSpecifier* specifier, NSString* key) {
  return base::textOf(objc::as<NSString>(specifier->propertyForKey(key)));
}

double numberAt(const PSSpecifier* specifier, NSString* key, double fallback) {
  const auto* const number = objc::as<NSNumber>(specifier->propertyForKey(key));
  return number == nullptr ? fallback : number->doubleValue();
}

bool flagAt(const PSSpecifier* specifier, NSString* key) {
  return foundation::booleanPreference(specifier->propertyForKey(key)).value_or(false);
}

bool hasKey(const Row& row) {
  return !textAt(row.specifier, "key"_ns).empty() && !textAt(row.specifier, "defaults"_ns).empty();
}

bool readButton(Row& row) { return !textAt(row.specifier, "action"_ns).empty() && !row.label.empty(); }

bool readSlider(Row& row) {
  const double segments = numberAt(row.specifier, "segmentCount"_ns, 0);
  row.range = {numberAt(row.specifier, "min"_ns, 0), numberAt(row.specifier, "max"_ns, 1), 0};
  if (flagAt(row.specifier, "isSegmented"_ns) && segments >= 1 && segments <= maxSegments)
    row.range.segments = static_cast<int>(segments);
  if (flagAt(row.specifier, "showValue"_ns)) row.valueLabel = ValueLabel::Shown;
  return hasKey(row) && std::isfinite(row.range.max - row.range.min) && row.range.min < row.range.max;
}

bool readList(Row& row) {
  const auto* const values = objc::as<NSArray>(row.specifier->propertyForKey("validValues"_ns));
  const auto* const titles = objc::as<NSArray>(row.specifier->propertyForKey("validTitles"_ns));
  const NSUInteger count = std::min({values->count(), titles->count(), maxChoices});
  for (NSUInteger index = 0; index < count; ++index)
    row.choices.push_back(
        {base::textOf(objc::as<NSString>(titles->objectAtIndex(index))), objc::retain(values->objectAtIndex(index))});
  return hasKey(row) && !row.choices.empty();
}

struct CellType {
  std::string_view name;
  RowKind kind;
  // Reads the other properties. Returns false if they are not valid, so the row cannot work.
  bool (*read)(Row& row);
};

constexpr CellType cellTypes[] = {
    {"PSSwitchCell", RowKind::Switch, [](Row& row) { return hasKey(row); }},
    {"PSSliderCell", RowKind::Slider, &readSlider},
    {"PSLinkListCell", RowKind::List, &readList},
    {"PSButtonCell", RowKind::Button, &readButton},
};

std::optional<Row> readRow(PSSpecifier* specifier, std::string_view cell) {
  const auto* const type = std::ranges::find(cellTypes, cell, &CellType::name);
  if (type == std::ranges::end(cellTypes)) return std::nullopt;
  Row row;
  row.kind = type->kind;
  row.specifier = objc::retain(specifier);
  row.label = base::textOf(specifier->name());
  if (!type->read(row)) return std::nullopt;
  return row;
}

NSObject* storedValue(PSSpecifier* specifier) {
  auto* const page = static_cast<PSListController*>(objc::state(specifier).target);
  return page->readPreferenceValue(specifier);
}

std::optional<double> number(const NSObject* value) {
  if (const auto* const number = objc::as<NSNumber>(value)) return number->doubleValue();
  if (const auto integer = foundation::integerPreference(value)) return static_cast<double>(*integer);
  return std::nullopt;
}

bool isSameValue(NSObject* left, NSObject* right) {
  const auto leftNumber = number(left);
  return leftNumber ? leftNumber == number(right) : objc::send<bool, "isEqual:">(left, right);
}

std::size_t indexOf(NSObject* value, const std::vector<Choice>& choices) {
  const auto found = std::ranges::find_if(
      choices, [value](const Choice& choice) { return value != nullptr && isSameValue(value, choice.value); });
  return static_cast<std::size_t>(found - choices.begin());
}

}  // namespace

std::vector<Section> sectionsOf(const NSArray* specifiers) {
  std::vector<Section> sections;
  for (NSUInteger index = 0; index < specifiers->count(); ++index) {
    auto* const specifier = static_cast<PSSpecifier*>(specifiers->objectAtIndex(index));
    const std::string cell = textAt(specifier, "cell"_ns);
    const bool isGroup = cell == "PSGroupCell";
    if (isGroup || sections.empty()) sections.emplace_back();
    if (isGroup) {
      sections.back().header = base::textOf(specifier->name());
      sections.back().footer = textAt(specifier, "footerText"_ns);
    } else if (auto row = readRow(specifier, cell)) {
      sections.back().rows.push_back(std::move(*row));
    }
  }
  return sections;
}

Section choicesOf(const Row& list) {
  Section section;
  for (const Choice& choice : list.choices) {
    Row row;
    row.kind = RowKind::Choice;
    row.specifier = list.specifier;
    row.label = choice.title;
    row.choices = {choice};
    section.rows.push_back(std::move(row));
  }
  return section;
}

bool switchValue(PSSpecifier* specifier) {
  const auto stored = foundation::booleanPreference(storedValue(specifier));
  return stored ? *stored : flagAt(specifier, "default"_ns);
}

double sliderValue(const Row& row) {
  const auto stored = number(storedValue(row.specifier));
  const double value = stored ? *stored : numberAt(row.specifier, "default"_ns, row.range.min);
  return std::isfinite(value) ? value : row.range.min;
}

std::size_t selectedChoice(PSSpecifier* specifier, const std::vector<Choice>& choices) {
  const std::size_t stored = indexOf(storedValue(specifier), choices);
  if (stored < choices.size() || number(storedValue(specifier))) return stored;
  return indexOf(specifier->propertyForKey("default"_ns), choices);
}

std::vector<std::string> domainsOf(const NSArray* specifiers) {
  std::vector<std::string> domains;
  for (NSUInteger index = 0; index < specifiers->count(); ++index) {
    auto* const specifier = static_cast<PSSpecifier*>(specifiers->objectAtIndex(index));
    std::string domain = textAt(specifier, "defaults"_ns);
    if (!domain.empty() && std::ranges::find(domains, domain) == domains.end()) domains.push_back(std::move(domain));
  }
  return domains;
}

}  // namespace settings_application
