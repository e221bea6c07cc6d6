// The asset bundle: localized texts, glyphs and the addresses of web services. Main thread.
#pragma once

#include "platform/ns_bundle.hpp"
#include "platform/ns_string.hpp"

// Returns the bundle, which exists until the process ends. Returns nil if no bundle is installed.
NSBundle* assetBundle();

// Returns the path of a file in the bundle's folder. Returns nil if no bundle is installed.
NSString* assetPath(NSString* file);

// Returns the text for the key in the user's language. Returns the fallback if the bundle is nil or does not contain
// the key.
NSString* localizedText(NSBundle* bundle, NSString* key, NSString* fallback);
