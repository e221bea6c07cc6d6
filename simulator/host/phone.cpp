#include "simulator/host/phone.hpp"

#include <malloc.h>

#include "objc/autorelease_pool.hpp"
#include "simulator/contacts/classes.hpp"
#include "simulator/foundation/classes.hpp"
#include "simulator/foundation/locale.hpp"
#include "simulator/host/banner_state.hpp"
#include "simulator/host/iso_time.hpp"
#include "simulator/host/process.hpp"
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

// The allocator takes a freed picture as a hint to keep later ones in the heap, where they lie between small objects
// and the heap grows by a picture or two for good. With a fixed threshold each has pages of its own and gives them
// back.
void keepPicturesOutOfTheHeap() {
  constexpr int smallestPicture = 256 * 1024;
  mallopt(M_MMAP_THRESHOLD, smallestPicture);
}

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

}  // namespace

void startPhone(const Options& options, foundation::ClockMode clock) {
  keepPicturesOutOfTheHeap();
  if (options.root.empty() && !options.demonstration.empty()) {
    host::useRoot(demonstrationRoot(), foundation::DefaultsDatabase::OfUser);
  } else {
    useRoot(options.root);
  }
  foundation::registerClasses();
  url_loading::registerClasses();
  contacts::registerClasses();
  const objc::AutoreleasePool pool;
  foundation::useLocale(options.locale);
  foundation::useClock(clock, options.time.value_or(realTime()));
  uikit::setEnvironment(environmentOf(options));
  uikit::registerClasses();
  springboard::registerClasses();
  springboard::observePosts();
  if (options.library == LibraryUse::Mapped) mapLibrary(homeScreenIdentifier);
  observeBanners();
  springboard::start(installation().applications);
  foundation::drainMainQueue();
}

}  // namespace host
