// A touch screen of an X server that uses the driver inputtest.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

#include "simulator/foundation/descriptor.hpp"

namespace test {

enum class TouchChange : std::uint32_t { Begin = 18, Update = 19, End = 20 };  // as in the X Input extension

class TouchScreen {
 public:
  // Returns the configuration of an X server that has a touch screen, and a screen of this size in pixels. The driver
  // creates the socket.
  static std::string configuration(const std::filesystem::path& socket, int width, int height);

  // Connects to the driver. Width and height are those of the screen. Throws std::runtime_error if the driver does not
  // accept the connection.
  TouchScreen(const std::filesystem::path& socket, int width, int height);

  // Changes a touch, and waits until the server has processed the change. Fingers have different numbers.
  void change(std::uint32_t finger, TouchChange change, double x, double y) const;

 private:
  void send(const void* message, std::size_t size) const;
  void receive(void* message, std::size_t size) const;

  foundation::FileDescriptor socket_;
  int width_;
  int height_;
};

}  // namespace test
