// Parts of the simulator that bring large libraries along, mapped at first use: a phone that does not need them does
// not pay for them.
#pragma once

namespace foundation {

// The function of that name in the plugin, which lies beside this library and stays mapped. Null, said on standard
// error, where the plugin or its libraries are missing. Any thread.
void* pluginFunction(const char* plugin, const char* function);

}  // namespace foundation
