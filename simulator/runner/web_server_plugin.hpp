// What the plugin of the web server offers: the only name that the simulator looks up in it.
#pragma once

#include <cstdint>

// Serves the files of the folder on this machine's loopback interface until the process ends, and answers the port; 0
// where it cannot.
extern "C" std::uint16_t brim_serve_folder(const char* folder);
