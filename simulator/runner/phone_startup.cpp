#include "simulator/runner/phone_startup.hpp"

#include <malloc.h>

#include <filesystem>
#include <utility>

#include "objc/autorelease_pool.hpp"
#include "simulator/base/default_root.hpp"
#include "simulator/base/installation.hpp"
#include "simulator/base/iso_time.hpp"
#include "simulator/contacts/classes.hpp"
#include "simulator/foundation/classes.hpp"
#include "simulator/foundation/locale.hpp"
#include "simulator/foundation/main_queue.hpp"
#include "simulator/foundation/root.hpp"
#include "simulator/process/control_socket.hpp"
#include "simulator/process/instance_lock.hpp"
#include "simulator/process/process_start.hpp"
#include "simulator/process/root_setup.hpp"
#include "simulator/runner/banner_inspection.hpp"
#include "simulator/runner/session.hpp"
#include "simulator/springboard/services/notification_recorder.hpp"
#include "simulator/springboard/springboard_startup.hpp"
#include "simulator/uikit/classes.hpp"
#include "simulator/uikit/environment/environment.hpp"
#include "simulator/url_loading/classes.hpp"

namespace runner {

namespace {

constexpr const char* homeScreenIdentifier = "com.apple.springboard";

// Makes the allocator map every large block, such as a picture, separately and return its pages when the block is
// freed. By default, freeing a large block raises the minimum size of separately mapped blocks. Later pictures would
// then be allocated in the heap, fragment it and increase it permanently.
void mapPicturesSeparately() {
  constexpr int minSeparateSize = 256 * 1024;
  mallopt(M_MMAP_THRESHOLD, minSeparateSize);
}

uikit::Environment environmentOf(const Options& options) {
  uikit::Environment environment;
  const base::DeviceProfile* device = base::findDeviceProfile(options.device);
  if (device == nullptr)
    throw process::StartError("there is no device " + options.device + "; --help lists the devices");
  environment.device = *device;
  environment.systemVersion = options.systemVersion;
  environment.locale = options.locale;
  environment.style =
      options.appearance == StartAppearance::Dark ? UIUserInterfaceStyle::Dark : UIUserInterfaceStyle::Light;
  environment.direction = uikit::directionOfLocale(options.locale);
  return environment;
}

// Acquires the lock of the root. A home screen with a stepped clock releases the lock immediately, because several such
// home screens can use a root, but not while a live phone uses it.
foundation::FileDescriptor lockRoot(foundation::ClockMode clock) try {
  const std::filesystem::path folder = process::controlFolder(foundation::root());
  foundation::FileDescriptor lock = process::lockInstance(folder, process::controlLock);
  if (!lock.isOpen())
    throw process::StartError("a phone is already running on " + foundation::root().string() +
                              "; send commands to it with \"./brim tell\", or select another folder with --root");
  return clock == foundation::ClockMode::Real ? std::move(lock) : foundation::FileDescriptor();
} catch (const std::filesystem::filesystem_error& error) {
  throw process::StartError(error.path1().string() + ": " + error.code().message());
}

}  // namespace

foundation::FileDescriptor startPhone(const Options& options, foundation::FileDescriptor inheritedLock) {
  mapPicturesSeparately();
  const bool usesDemonstrationData = !options.demonstration.empty() || options.welcome == Welcome::Played;
  if (options.root.empty() && usesDemonstrationData) {
    process::useRoot(base::demonstrationRoot(), foundation::DefaultsDatabase::OfUser);
  } else {
    process::useRoot(options.root);
  }
  foundation::FileDescriptor lock = inheritedLock.isOpen() ? std::move(inheritedLock) : lockRoot(options.clock);
  foundation::registerClasses();
  url_loading::registerClasses();
  contacts::registerClasses();
  const objc::AutoreleasePool pool;
  foundation::useLocale(options.locale);
  foundation::useClock(options.clock, options.time.value_or(base::systemUnixTime()));
  uikit::setEnvironment(environmentOf(options));
  uikit::registerClasses();
  springboard::registerClasses();
  springboard::recordPostedNotifications();
  if (options.library == process::LibraryUse::Loaded) process::loadLibrary(homeScreenIdentifier);
  observeBanners();
  springboard::startServices(base::installation().applications);
  springboard::startShell();
  foundation::drainMainQueue();
  return lock;
}

}  // namespace runner
