// The library's own classes and its additions to Foundation's and the view toolkit's.
#pragma once

// Makes them known to the runtime, superclasses first. Once, before the hooks that use them.
void registerClasses();
