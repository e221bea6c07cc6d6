#include "simulator/foundation/injection_loader.hpp"

#include <dlfcn.h>

#include <algorithm>
#include <cstdio>
#include <system_error>

#include "objc/autorelease_pool.hpp"
#include "platform/ns_dictionary.hpp"
#include "platform/ns_string.hpp"
#include "simulator/foundation/property_list_files.hpp"
#include "simulator/foundation/root.hpp"

namespace foundation {

namespace {

namespace fs = std::filesystem;

constexpr const char* librariesFolder = "/Library/MobileSubstrate/DynamicLibraries";

std::vector<fs::path> filtersIn(const fs::path& folder) {
  std::vector<fs::path> filters;
  std::error_code error;
  for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error))
    if (entry->path().extension() == ".plist") filters.push_back(entry->path());
  std::sort(filters.begin(), filters.end());
  return filters;
}

void reportFailure(LoadOutcome& outcome, const fs::path& file, const std::string& reason) {
  outcome.failures.push_back(file.string() + ": " + reason);
  std::fprintf(stderr, "%s\n", outcome.failures.back().c_str());
}

// Returns the bundle identifiers that the filter lists, or nil if the dictionary is not a valid filter.
NSArray* bundlesOf(NSDictionary* filter) {
  const auto* const conditions = objc::as<NSDictionary>(filter->objectForKey("Filter"_ns));
  return objc::as<NSArray>(conditions->objectForKey("Bundles"_ns));
}

void load(LoadOutcome& outcome, const fs::path& library) {
  if (dlopen(library.c_str(), RTLD_NOW | RTLD_LOCAL) != nullptr) {
    outcome.loaded.push_back(library);
  } else {
    const char* const reason = dlerror();
    reportFailure(outcome, library, reason == nullptr ? "cannot be loaded" : reason);
  }
}

void applyFilter(LoadOutcome& outcome, const fs::path& file, NSString* identifier) {
  const objc::AutoreleasePool pool;
  const objc::Ref<NSDictionary> filter = readPropertyList(file);
  const NSArray* const bundles = bundlesOf(filter);
  if (bundles == nullptr) {
    reportFailure(outcome, file,
                  "not a filter; a filter is a property list { Filter = { Bundles = (\"identifier\"); }; }");
  } else if (objc::send<bool, "containsObject:">(bundles, identifier)) {
    load(outcome, fs::path(file).replace_extension(".dylib"));
  }
}

}  // namespace

LoadOutcome injectLibraries(const std::string& bundleIdentifier) {
  const objc::AutoreleasePool pool;
  LoadOutcome outcome;
  NSString* const identifier = NSString::stringWithUTF8String(bundleIdentifier.c_str());
  for (const fs::path& filter : filtersIn(pathUnderRoot(librariesFolder))) applyFilter(outcome, filter, identifier);
  return outcome;
}

}  // namespace foundation
