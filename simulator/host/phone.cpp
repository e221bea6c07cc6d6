#include "simulator/host/phone.hpp"

#include <dlfcn.h>

#include <chrono>
#include <filesystem>
#include <string>

#include "objc/autorelease_pool.hpp"
#include "simulator/foundation/classes.hpp"
#include "simulator/foundation/injection_loader.hpp"
#include "simulator/foundation/locale.hpp"
#include "simulator/foundation/root.hpp"
#include "simulator/host/banner_state.hpp"
#include "simulator/host/root.hpp"
#include "simulator/host/session.hpp"
#include "simulator/springboard/classes.hpp"
#include "simulator/springboard/observation.hpp"
#include "simulator/uikit/classes.hpp"
#include "simulator/uikit/environment.hpp"
#include "simulator/url_loading/classes.hpp"

namespace host {

namespace {

constexpr const char* homeScreenIdentifier = "com.apple.springboard";

// Null until it is mapped; it stays mapped.
void* libraryHandle = nullptr;

void stopOn(const std::optional<std::string>& failure) {
  if (failure) throw StartError(*failure);
}

void useRoot(const std::filesystem::path& chosen) {
  const bool isDefault = chosen.empty();
  const std::filesystem::path root = isDefault ? defaultRoot() : chosen;
  stopOn(foundation::useRoot(root,
                             isDefault ? foundation::DefaultsDatabase::OfUser : foundation::DefaultsDatabase::OfRoot));
  stopOn(prepareRoot(root));
}

double realTime() { return std::chrono::duration<double>(std::chrono::system_clock::now().time_since_epoch()).count(); }

uikit::Environment environmentOf(const Options& options) {
  uikit::Environment environment;
  const DeviceProfile* device = findDeviceProfile(options.device);
  if (device == nullptr) throw StartError("there is no device " + options.device);
  environment.device = *device;
  environment.systemVersion = options.systemVersion;
  environment.locale = options.locale;
  environment.style =
      options.appearance == StartAppearance::Dark ? UIUserInterfaceStyle::Dark : UIUserInterfaceStyle::Light;
  environment.direction = uikit::directionOfLocale(options.locale);
  return environment;
}

void mapLibrary() {
  const foundation::LoadOutcome outcome = foundation::injectLibraries(homeScreenIdentifier);
  if (!outcome.failures.empty()) throw StartError("a library could not be mapped: " + outcome.failures.front());
  for (const std::filesystem::path& library : outcome.loaded) {
    void* handle = dlopen(library.c_str(), RTLD_NOW | RTLD_NOLOAD);
    if (handle != nullptr && dlsym(handle, "brim_settings") != nullptr) libraryHandle = handle;
  }
}

template <class Entry>
std::span<const Entry> listOf(const char* symbol) {
  if (libraryHandle == nullptr) return {};
  const auto list = reinterpret_cast<const Entry* (*)(std::size_t*)>(dlsym(libraryHandle, symbol));
  if (list == nullptr) return {};
  std::size_t count = 0;
  const Entry* entries = list(&count);
  return {entries, count};
}

}  // namespace

void startPhone(const Options& options, foundation::ClockMode clock) {
  useRoot(options.root);
  foundation::registerClasses();
  url_loading::registerClasses();
  const objc::AutoreleasePool pool;
  foundation::useLocale(options.locale);
  foundation::useClock(clock, options.time.value_or(realTime()));
  uikit::setEnvironment(environmentOf(options));
  uikit::registerClasses();
  springboard::registerClasses();
  springboard::observePosts();
  if (options.library == LibraryUse::Mapped) mapLibrary();
  observeBanners();
  springboard::start(installation().applications);
  foundation::drainMainQueue();
}

std::span<const BrimInstalledMethod> installedMethods() {
  return listOf<BrimInstalledMethod>("brim_installed_methods");
}

std::span<const BrimSetting> librarySettings() { return listOf<BrimSetting>("brim_settings"); }

}  // namespace host
