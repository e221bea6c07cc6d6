// The asset bundle: localized texts, glyphs and the addresses of web services. Main thread.
#pragma once

#include "platform/ns_bundle.hpp"
#include "platform/ns_string.hpp"

inline NSString* assetBundlePath() { return "/Library/Application Support/Brim/Assets.bundle"_ns; }

// Lives until the process ends. nil while no bundle is installed.
NSBundle* assetBundle();

// The text of the key in the user's language. The fallback if the bundle is nil or does not have the key.
NSString* localizedText(NSBundle* bundle, NSString* key, NSString* fallback);
