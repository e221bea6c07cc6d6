// Plugins are shared libraries that connect the simulator to large external libraries. They are loaded at first use,
// because most processes need none of them.
#pragma once

namespace foundation {

// Returns a function of a plugin. The first call loads the plugin, which is never unloaded. The plugin's file is in the
// folder of this library. Returns null, with an error on standard error, if the plugin, one of its libraries or the
// function is missing. Any thread.
void* pluginFunction(const char* plugin, const char* function);

}  // namespace foundation
