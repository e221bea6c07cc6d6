// The contents of a page of the Settings application as plain values, read from specifiers. The specifiers are
// untrusted input. Main thread.
#pragma once

#include <string>
#include <vector>

#include "platform/ns_array.hpp"
#include "platform/ps_list_controller.hpp"
#include "simulator/uikit/controls/slider.hpp"

namespace settings_application {

enum class RowKind { Switch, Slider, List, Button, Choice };

// One value of a list.
struct Choice {
  std::string title;
  objc::Ref<NSObject> value;
};

enum class ValueLabel { Hidden, Shown };

struct Row {
  RowKind kind = RowKind::Button;
  objc::Ref<PSSpecifier> specifier;
  std::string label;                           // empty if the row has none
  uikit::SliderRange range;                    // of a slider
  ValueLabel valueLabel = ValueLabel::Hidden;  // of a slider
  std::vector<Choice> choices;                 // the values of a list; the only value of a choice
};

struct Section {
  std::string header;  // empty if the section has none
  std::string footer;  // empty if the section has none
  std::vector<Row> rows;
};

// Returns the sections of a page. A group begins a section; rows before the first group form a separate section. Skips
// rows that cannot work: rows of an unknown type, rows that have no key or no action, sliders whose range is empty or
// not finite, and lists without values. The result is empty for nil.
std::vector<Section> sectionsOf(const NSArray* specifiers);

// Returns the section of the page that a list opens. It has one row for each value.
Section choicesOf(const Row& list);

// The value that a control shows: the stored value, or the default if the stored value is missing or has another type.
bool switchValue(PSSpecifier* specifier);
double sliderValue(const Row& row);
// Returns the index of the stored value in the choices, or the number of choices if no choice has that value.
std::size_t selectedChoice(PSSpecifier* specifier, const std::vector<Choice>& choices);

// Returns the names of the specifiers' preferences domains, without duplicates.
std::vector<std::string> domainsOf(const NSArray* specifiers);

}  // namespace settings_application
