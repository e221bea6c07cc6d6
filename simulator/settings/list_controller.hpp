// The classes of the Settings application: its pages and their specifiers. Main thread.
#pragma once

#include "objc/class_definition.hpp"
#include "platform/ns_dictionary.hpp"
#include "platform/ps_list_controller.hpp"

struct PSSpecifierState {
  // Copied from the property list, with localized texts. Never nil.
  objc::Ref<NSDictionary> properties;
  // Not retained, because the target is the page that owns the specifier.
  NSObject* target = nullptr;
};
template <>
struct objc::StateOf<PSSpecifier> {
  using Type = PSSpecifierState;
};

struct PSListControllerState {
  objc::Ref<NSArray> specifiers;
  objc::Ref<NSString> title;  // the title in the property list that was loaded last, or nil
};
template <>
struct objc::StateOf<PSListController> {
  using Type = PSListControllerState;
};

namespace settings_application {

// Registers the classes. Call this after uikit::registerClasses. Does nothing if the classes are registered.
void registerClasses();

// Executes the action of a button, as a tap does. Does nothing if the target does not respond to the action or the
// specifier has none.
void tap(PSSpecifier* button);

// Stores a value as the specifier's control does when the user changes it. A slider stores a double, a switch stores a
// Boolean, and a list stores one of its validValues.
void change(PSSpecifier* specifier, NSObject* value);

}  // namespace settings_application
