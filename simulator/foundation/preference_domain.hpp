// One domain of the user-defaults database. The domain is read again when another process changes its file.
#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "platform/ns_dictionary.hpp"

namespace foundation {

// A domain, which is never destroyed. Main thread.
class PreferenceDomain {
 public:
  // Returns the domain with this name. The domain is always empty if its name is empty or contains a slash.
  static PreferenceDomain& named(const std::string& name);

  // Returns the stored value of the key, or nil. The value is borrowed and valid until the domain is reloaded.
  NSObject* value(NSString* key) const;
  // Returns the file that stores the domain. The path is empty if the name of the domain is invalid.
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
