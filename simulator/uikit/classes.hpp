// Registers the view toolkit's classes with the Objective-C runtime.
#pragma once

namespace uikit {

// Defines all classes, superclasses first. Call it once, at the start of the process, after Foundation's classes.
void registerClasses();

}  // namespace uikit
