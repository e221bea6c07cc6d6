#include "simulator/foundation/preference_domain.hpp"

#include <map>
#include <memory>
#include <utility>

#include "objc/autorelease_pool.hpp"
#include "platform/ns_string.hpp"
#include "simulator/foundation/folder_watch.hpp"
#include "simulator/foundation/ignored_leaks.hpp"
#include "simulator/foundation/property_list_files.hpp"

extern "C" {
NSString* GSDefaultsRootForUser(NSString* user);
NSString* NSUserName();
}

namespace foundation {

namespace {

// Returns the path of the folder without symbolic links, because error messages show it, and because Foundation's path
// can contain the alias of the root.
std::filesystem::path defaultsFolder() {
  const objc::AutoreleasePool pool;
  return std::filesystem::weakly_canonical(GSDefaultsRootForUser(NSUserName())->UTF8String());
}

std::map<std::string, std::unique_ptr<PreferenceDomain>>& domains() {
  static auto& all = *new std::map<std::string, std::unique_ptr<PreferenceDomain>>;
  return all;
}

void reloadChanged(const std::string& fileName) {
  for (const auto& [name, domain] : domains())
    if (fileName.empty() || domain->file().filename() == fileName) domain->reload();
}

void watchDefaultsFolder() {
  const IgnoredLeaks ignored;
  static const FolderWatch& watch = *new FolderWatch(defaultsFolder(), &reloadChanged);
  static_cast<void>(watch);
}

}  // namespace

PreferenceDomain& PreferenceDomain::named(const std::string& name) {
  std::unique_ptr<PreferenceDomain>& domain = domains()[name];
  if (domain == nullptr) domain.reset(new PreferenceDomain(name));
  return *domain;
}

PreferenceDomain::PreferenceDomain(const std::string& name) {
  if (name.empty() || name.find('/') != std::string::npos) return;
  watchDefaultsFolder();
  path_ = defaultsFolder() / (name + ".plist");
  reload();
}

NSObject* PreferenceDomain::value(NSString* key) const { return key == nullptr ? nullptr : values_->objectForKey(key); }

void PreferenceDomain::reload() {
  values_ = path_.empty() ? nullptr : readPropertyList(path_);
  for (const Observer& observer : observers_) observer.changed();
}

void PreferenceDomain::observe(const void* owner, std::function<void()> changed) {
  observers_.push_back({owner, std::move(changed)});
}

void PreferenceDomain::stopObserving(const void* owner) {
  std::erase_if(observers_, [owner](const Observer& observer) { return observer.owner == owner; });
}

}  // namespace foundation
