// Registers the library's classes, and its categories on the platform's classes, with the Objective-C runtime. Main
// thread.
#pragma once

// Superclasses first. Call once, before you install the hooks that use the classes.
void registerClasses();
