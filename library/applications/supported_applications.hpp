// The applications whose notifications show the sender's photo, one row for each application. Main thread.
#pragma once

#include <span>

#include "platform/ns_string.hpp"

struct SupportedApplication {
  const char* bundleIdentifier;
  // The setting that enables the photos of this application.
  const bool* isEnabled;
  // The class of the photo provider, and the function that registers it with the runtime.
  Class (*photoProvider)();
  bool (*registerPhotoProvider)();
  // The name of the glyph in the asset bundle's folders glyphs/black and glyphs/white.
  const char* glyph;
};

std::span<const SupportedApplication> supportedApplications();

// The row of the application. nullptr if the application is not supported. The identifier is compared exactly.
const SupportedApplication* supportedApplication(NSString* bundleIdentifier);

// Registers the providers' classes, in the order of the table. Call once. Returns false if a class cannot be
// registered.
bool registerPhotoProviders();

// The Messages app, which sends replies and read receipts on behalf of its banners.
inline NSString* messagesIdentifier() { return "com.apple.MobileSMS"_ns; }
