#include "simulator/settings/list_controller.hpp"

#include <cstdio>

#include "objc/autorelease_pool.hpp"
#include "platform/ns_distributed_notification_center.hpp"
#include "simulator/base/foundation_json.hpp"
#include "simulator/foundation/preference_domain.hpp"
#include "simulator/foundation/preferences.hpp"
#include "simulator/foundation/property_list_files.hpp"
#include "simulator/settings/back_button.hpp"
#include "simulator/settings/page_view.hpp"

namespace settings_application {

namespace {

NSString* textProperty(const PSSpecifier* specifier, NSString* key) {
  return objc::as<NSString>(specifier->propertyForKey(key));
}

// The strings table of a page. Its name is that of the page's property list.
struct Localization {
  NSBundle* bundle;
  NSString* table;

  NSString* operator()(NSString* key) const {
    return objc::send<NSString*, "localizedStringForKey:value:table:">(bundle, key, key, table);
  }
};

NSArray* localizedTexts(const NSArray* texts, const Localization& localized) {
  NSMutableArray* const result = NSMutableArray::array();
  for (NSUInteger index = 0; index < texts->count(); ++index) {
    if (auto* const text = objc::as<NSString>(texts->objectAtIndex(index))) result->addObject(localized(text));
  }
  return result;
}

objc::Ref<PSSpecifier> specifier(const NSDictionary* item, NSObject* target, const Localization& localized) {
  NSMutableDictionary* const properties = NSMutableDictionary::dictionaryWithCapacity(item->count());
  objc::send<void, "addEntriesFromDictionary:">(properties, item);
  for (NSString* key : {"label"_ns, "footerText"_ns})
    if (auto* const text = objc::as<NSString>(item->objectForKey(key))) properties->setObject(localized(text), key);
  if (const auto* const titles = objc::as<NSArray>(item->objectForKey("validTitles"_ns)))
    properties->setObject(localizedTexts(titles, localized), "validTitles"_ns);
  auto made = objc::make<PSSpecifier>();
  objc::state(made.get()) = {objc::retain(static_cast<NSDictionary*>(properties)), target};
  return made;
}

NSString* name(PSSpecifier* self) { return textProperty(self, "label"_ns); }
NSObject* propertyForKey(PSSpecifier* self, NSString* key) { return objc::state(self).properties->objectForKey(key); }
NSObject* target(PSSpecifier* self) { return objc::state(self).target; }

NSBundle* bundle(PSListController* self) {
  return objc::send<NSBundle*, "bundleForClass:">(NSBundle::classObject(), object_getClass(objc::detail::toId(self)));
}

NSArray* specifiers(PSListController* self) { return objc::state(self).specifiers; }

// Returns nil if the bundle has no valid property list with this name. Skips items that are not dictionaries.
NSArray* loadSpecifiers(PSListController* self, NSString* propertyList, NSObject* target) {
  NSBundle* const bundle = self->bundle();
  NSString* const path = bundle->pathForResource(propertyList, "plist"_ns);
  if (path == nullptr) return nullptr;
  const objc::Ref<NSDictionary> page = foundation::readPropertyList(path->fileSystemRepresentation());
  const Localization localized = {bundle, propertyList};
  NSString* const title = objc::as<NSString>(page->objectForKey("title"_ns));
  objc::state(self).title = objc::retain(title == nullptr ? nullptr : localized(title));
  const auto* const items = objc::as<NSArray>(page->objectForKey("items"_ns));
  if (items == nullptr) return nullptr;
  NSMutableArray* const loaded = NSMutableArray::array();
  for (NSUInteger index = 0; index < items->count(); ++index) {
    if (const auto* const item = objc::as<NSDictionary>(items->objectAtIndex(index)))
      loaded->addObject(specifier(item, target, localized));
  }
  return loaded;
}

NSObject* readPreferenceValue(PSListController*, PSSpecifier* specifier) {
  const std::string domain = base::textOf(textProperty(specifier, "defaults"_ns));
  NSObject* const stored = foundation::PreferenceDomain::named(domain).value(textProperty(specifier, "key"_ns));
  return stored != nullptr ? stored : specifier->propertyForKey("default"_ns);
}

void loadView(PSListController* self) {
  self->specifiers();
  const auto view = makePageView(self, objc::state(self).title);
  objc::send<void, "setView:">(self, view.get());
}

void setPreferenceValue(PSListController*, NSObject* value, PSSpecifier* specifier) {
  NSString* const key = textProperty(specifier, "key"_ns);
  if (key == nullptr) return;
  const std::string domain = base::textOf(textProperty(specifier, "defaults"_ns));
  if (const auto error = foundation::writePreference(domain, base::textOf(key), value)) {
    std::fprintf(stderr, "settings: %s\n", error->c_str());
    return;
  }
  if (NSString* const notification = textProperty(specifier, "PostNotification"_ns))
    NSDistributedNotificationCenter::defaultCenter()->post(notification, nullptr);
}

}  // namespace

void registerClasses() {
  if (PSListController::classObject() != nullptr) return;
  const objc::AutoreleasePool pool;
  static constexpr objc::MethodEntry ofSpecifiers[] = {
      objc::method<"name", &name>(),
      objc::method<"propertyForKey:", &propertyForKey>(),
      objc::method<"target", &target>(),
  };
  static constexpr objc::MethodEntry ofPages[] = {
      objc::method<"bundle", &bundle>(),
      objc::method<"loadView", &loadView>(),
      objc::method<"specifiers", &specifiers>(),
      objc::method<"loadSpecifiersFromPlistName:target:", &loadSpecifiers>(),
      objc::method<"readPreferenceValue:", &readPreferenceValue>(),
      objc::method<"setPreferenceValue:specifier:", &setPreferenceValue>(),
  };
  static constexpr objc::FieldEntry fieldsOfPages[] = {
      objc::field<decltype(PSListControllerState::specifiers)>("_specifiers",
                                                               offsetof(PSListControllerState, specifiers)),
      objc::field<decltype(PSListControllerState::title)>("_title", offsetof(PSListControllerState, title)),
  };
  objc::defineClassWithState<PSSpecifier>(ofSpecifiers);
  objc::defineClassWithState<PSListController>(ofPages, fieldsOfPages);
  defineTableCell();
  defineTableView();
  defineBackButton();
  definePageView();
}

void tap(PSSpecifier* button) {
  NSString* const action = textProperty(button, "action"_ns);
  NSObject* const target = objc::state(button).target;
  if (action == nullptr || target == nullptr) return;
  const SEL selector = sel_registerName(action->UTF8String());
  if (target->respondsToSelector(selector))
    objc::send<NSObject*, "performSelector:withObject:">(target, selector, static_cast<NSObject*>(button));
}

void change(PSSpecifier* specifier, NSObject* value) {
  objc::send<void, "setPreferenceValue:specifier:">(objc::state(specifier).target, value, specifier);
}

}  // namespace settings_application
