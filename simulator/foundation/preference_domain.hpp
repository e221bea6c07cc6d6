// One domain of the user-defaults database. It is reloaded when another process changes its file.
#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "platform/ns_dictionary.hpp"

namespace foundation {

// Main thread. Domains are never destroyed.
class PreferenceDomain {
 public:
  // The domain with this name. It is always empty if the name is empty or contains a slash.
  static PreferenceDomain& named(const std::string& name);

  // The stored value of the key, or nil. Borrowed; valid until the domain is reloaded.
  NSObject* value(NSString* key) const;
  // The file that stores the domain. Empty if the name of the domain is invalid.
  const std::filesystem::path& file() const { return path_; }
  // Reads the file again and notifies the observers.
  void reload();

  // Calls `changed` after every reload, until stopObserving is called with the same owner.
  void observe(const void* owner, std::function<void()> changed);
  void stopObserving(const void* owner);

 private:
  struct Observer {
    const void* owner;
    std::function<void()> changed;
  };

  explicit PreferenceDomain(const std::string& name);

  std::filesystem::path path_;
  objc::Ref<NSDictionary> values_;
  std::vector<Observer> observers_;
};

}  // namespace foundation
