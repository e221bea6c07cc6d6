// The asset bundle: localized texts, glyphs and the addresses of web services. Main thread.
#pragma once

#include "platform/ns_bundle.hpp"
#include "platform/ns_string.hpp"

inline NSString* assetBundlePath() { return "/Library/Application Support/Brim/Assets.bundle"_ns; }

// Returns the bundle, which exists until the process ends. Returns nil if no bundle is installed.
NSBundle* assetBundle();

// Returns the text for the key in the user's language. Returns the fallback if the bundle is nil or does not contain
// the key.
NSString* localizedText(NSBundle* bundle, NSString* key, NSString* fallback);
