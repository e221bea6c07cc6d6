// Registers the classes of the view toolkit with the Objective-C runtime.
#pragma once

namespace uikit {

// Defines all classes, superclasses first. Call this once, after Foundation's classes are registered. Main thread only.
void registerClasses();

}  // namespace uikit
