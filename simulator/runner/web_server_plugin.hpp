// The interface of the web server plugin. The simulator looks up this function by name.
#pragma once

#include <cstdint>

// Starts a web server for the files of a folder, on the loopback interface. It runs until the process ends. Returns the
// port, or 0 on failure.
extern "C" std::uint16_t brim_serve_folder(const char* folder);
