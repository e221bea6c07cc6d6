// PSListController: a page of the Settings application. PSSpecifier: one control, group or link on a page, with the
// properties that the page's property list specifies.
#pragma once

#include "platform/ns_bundle.hpp"
#include "platform/ui_view_controller.hpp"

class PSSpecifier : public objc::Interface<"PSSpecifier", NSObject> {
 public:
  // The localized label. nil if the specifier has none.
  NSString* name() const { return objc::send<NSString*, "name">(this); }
  // nil if the specifier has no such property.
  NSObject* propertyForKey(NSString* key) const { return objc::send<NSObject*, "propertyForKey:">(this, key); }
};

class PSListController : public objc::Interface<"PSListController", UIViewController> {
 public:
  // The folder with the page's property list and strings.
  NSBundle* bundle() const { return objc::send<NSBundle*, "bundle">(this); }
  // The specifiers of the page, in order. Subclasses create them at the first call, and store them in the instance
  // variable _specifiers, which the superclass reads, clears and releases.
  NSArray* specifiers() { return objc::send<NSArray*, "specifiers">(this); }
  // Creates the specifiers that a property list of the bundle describes. Controls send their messages to the target.
  NSArray* loadSpecifiers(NSString* propertyList, NSObject* target) {
    return objc::send<NSArray*, "loadSpecifiersFromPlistName:target:">(this, propertyList, target);
  }
  // The stored value of the specifier's key, or its default. nil if there is neither.
  NSObject* readPreferenceValue(PSSpecifier* specifier) {
    return objc::send<NSObject*, "readPreferenceValue:">(this, specifier);
  }
  // Stores the value under the specifier's key, and posts the notification that its PostNotification property names.
  void setPreferenceValue(NSObject* value, PSSpecifier* specifier) {
    objc::send<void, "setPreferenceValue:specifier:">(this, value, specifier);
  }
};
