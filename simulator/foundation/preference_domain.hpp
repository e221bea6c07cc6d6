// One domain of the defaults database as it is stored now, kept up to date while other processes write it.
#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "platform/ns_dictionary.hpp"

namespace foundation {

// Main thread. Domains live as long as the process.
class PreferenceDomain {
 public:
  // The domain of that name; one without a name, or with a name that is no file's, is always empty.
  static PreferenceDomain& named(const std::string& name);

  // The stored value of the key, or nil. Good until the domain changes.
  NSObject* value(NSString* key) const;
  // The file the domain is stored in; empty for a domain that is none.
  const std::filesystem::path& file() const { return path; }
  // Reads the file again and tells the observers.
  void reload();

  // `changed` is called after every reload, until `forget` with the same owner.
  void observe(const void* owner, std::function<void()> changed);
  void forget(const void* owner);

 private:
  struct Observer {
    const void* owner;
    std::function<void()> changed;
  };

  explicit PreferenceDomain(const std::string& name);

  std::filesystem::path path;
  objc::Ref<NSDictionary> values;
  std::vector<Observer> observers;
};

}  // namespace foundation
