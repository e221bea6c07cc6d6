// Stand-ins for the platform's classes in emulated code: as much of each as the tested parts of the library use.
#pragma once

#include <string>
#include <vector>

#include "tests/device/emulator/objective_c.hpp"

namespace device {

// One setting that the library has bound to a variable of its own.
struct Registration {
  std::string domain;
  std::string key;
  std::string type;  // "bool" or "integer"
  std::int64_t standard;
  Address variable;
};

// What a class of the platform was asked to do before the library took over.
struct OriginalCall {
  std::string selector;
  Address self;
  std::vector<std::uint64_t> integers;
  std::vector<double> numbers;
};

struct Platform {
  std::string systemVersion = "12.4";
  // Of the settings' domain. Flags are 0 or 1.
  std::map<std::string, std::int64_t> storedSettings;
  // What the phone says of its haptic engine.
  std::int64_t feedbackSupportLevel = 0;
  // What replaced methods answer that answer a truth value: 0 or 1.
  std::uint64_t truthOfOriginals = 1;

  std::vector<Registration> registrations;
  std::vector<OriginalCall> originalCalls;
  // "name selector" of each, in order.
  std::vector<std::string> observers;
  std::vector<std::pair<Address, std::uint64_t>> published;  // bulletin and destinations
  std::vector<Address> dictionaries;                         // made with a capacity, in order
  std::vector<Address> constraints;                          // in the order of their making
  Address application = 0;
};

// The platform must live as long as the runtime.
void defineStrings(ObjectiveC& runtime);
void defineCollections(ObjectiveC& runtime, Platform& platform);
void defineFoundation(ObjectiveC& runtime, Platform& platform);
void defineViews(ObjectiveC& runtime, Platform& platform);
void defineLayoutAnchors(ObjectiveC& runtime, Platform& platform);
// Views and anchors included.
void defineViewToolkit(ObjectiveC& runtime, Platform& platform);
// The classes whose methods the library replaces, with those methods.
void defineHookedClasses(ObjectiveC& runtime, Platform& platform);

// A string that lives until the innermost pool is drained.
Address makeString(ObjectiveC& runtime, const std::string& text, const std::string& className = "NSString");
std::string textOf(ObjectiveC& runtime, Address string);

}  // namespace device
