// Registers the classes of the view toolkit with the Objective-C runtime.
#pragma once

namespace uikit {

// Defines all classes, superclasses first. Call this once per process, on the main thread, after Foundation's classes
// are registered.
void registerClasses();

}  // namespace uikit
