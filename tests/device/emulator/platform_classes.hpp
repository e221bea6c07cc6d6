// Emulated classes of the platform, limited to what the tested parts of the library use.
#pragma once

#include <string>
#include <vector>

#include "tests/device/emulator/objective_c.hpp"

namespace device {

// A setting that the library has registered with one of its variables.
struct Registration {
  std::string domain;
  std::string key;
  std::string type;  // "bool" or "integer"
  std::int64_t standard;
  Address variable;
};

// A call of a platform method's original implementation.
struct OriginalCall {
  std::string selector;
  Address self;
  std::vector<std::uint64_t> integers;
  std::vector<double> numbers;
};

struct Platform {
  std::string systemVersion = "12.4";
  // The values in the settings' domain. Booleans are 0 or 1.
  std::map<std::string, std::int64_t> storedSettings;
  // The value of the phone's _feedbackSupportLevel.
  std::int64_t feedbackSupportLevel = 0;
  // The result of original implementations that return a boolean: 0 or 1.
  std::uint64_t truthOfOriginals = 1;

  std::vector<Registration> registrations;
  std::vector<OriginalCall> originalCalls;
  // Registered notification observers as "name selector", in order.
  std::vector<std::string> observers;
  std::vector<std::pair<Address, std::uint64_t>> published;  // bulletin and destinations
  std::vector<Address> dictionaries;                         // created with a capacity, in order
  std::vector<Address> constraints;                          // in the order of creation
  Address application = 0;
};

// The platform must live as long as the runtime.
void defineStrings(ObjectiveC& runtime);
void defineCollections(ObjectiveC& runtime, Platform& platform);
void defineFoundation(ObjectiveC& runtime, Platform& platform);
void defineViews(ObjectiveC& runtime, Platform& platform);
void defineLayoutAnchors(ObjectiveC& runtime, Platform& platform);
// Also calls defineViews() and defineLayoutAnchors().
void defineViewToolkit(ObjectiveC& runtime, Platform& platform);
// Defines the classes whose methods the library replaces, with those methods.
void defineHookedClasses(ObjectiveC& runtime, Platform& platform);

// Creates an autoreleased string.
Address makeString(ObjectiveC& runtime, const std::string& text, const std::string& className = "NSString");
std::string textOf(ObjectiveC& runtime, Address string);

}  // namespace device
