// The asset bundle: localized texts, glyphs and the addresses of web services. Main thread.
#pragma once

#include "platform/ns_bundle.hpp"
#include "platform/ns_string.hpp"

// Lives until the process ends. nil while no bundle is installed.
NSBundle* assetBundle();

// The path of a file in the bundle's folder. nil while no bundle is installed.
NSString* assetPath(NSString* file);

// The text of the key in the user's language. The fallback if the bundle is nil or does not have the key.
NSString* localizedText(NSBundle* bundle, NSString* key, NSString* fallback);
