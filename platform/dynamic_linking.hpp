// Symbols of the running program.
#pragma once

#include <dlfcn.h>
