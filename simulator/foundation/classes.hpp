// Adds to GNUstep Foundation what the platform's Foundation has: classes, categories and replaced methods.
#pragma once

namespace foundation {

// Defines the classes and installs the categories and replacements. Call it once at the start of main, after useRoot
// and before any other object is created. Main thread.
void registerClasses();

}  // namespace foundation
