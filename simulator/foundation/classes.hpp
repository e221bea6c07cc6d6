// Extends GNUstep Foundation to the behavior of the platform's Foundation: adds classes and categories, and replaces
// methods.
#pragma once

namespace foundation {

// Defines the classes and installs the categories and replacements. Call this once at the start of main, after useRoot
// and before any other object is created. Main thread.
void registerClasses();

}  // namespace foundation
