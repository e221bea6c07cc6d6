// What Linux's Foundation lacks of the platform's: classes, categories and run-time functions.
#pragma once

namespace foundation {

// Defines the classes and installs the categories. Once, first thing in a process's main function, after useRoot and
// before any other object is made. Main thread.
void registerClasses();

}  // namespace foundation
