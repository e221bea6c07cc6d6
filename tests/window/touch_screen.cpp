#include "tests/window/touch_screen.hpp"

#include <sys/socket.h>

#include <cstddef>
#include <stdexcept>

#include "simulator/foundation/local_socket.hpp"

namespace test {

namespace {

// The messages of the driver. Each begins with its size in bytes and its type.
enum class MessageType : std::uint32_t { Version = 0, Synchronize = 1, Touch = 6 };

struct Header {
  std::uint32_t size;
  MessageType type;
};

struct VersionMessage {
  Header header;
  std::uint16_t major;
  std::uint16_t minor;
};

constexpr std::size_t maxAxes = 64;

struct TouchMessage {
  Header header;
  std::uint32_t finger;
  TouchChange change;
  std::uint32_t hasUnacceleratedValues;
  std::uint8_t axes[maxAxes / 8];  // one bit for each axis that has a value
  double values[maxAxes];
  double unacceleratedValues[maxAxes];
};

// The largest value of an axis, which represents the right or lower edge of the screen.
constexpr double maxValue = 0xFFFF;

}  // namespace

std::string TouchScreen::configuration(const std::filesystem::path& socket, int width, int height) {
  const std::string columns = std::to_string(width);
  const std::string rows = std::to_string(height);
  const std::string mode = columns + "x" + rows;
  const auto timing = [](int length) {
    return " " + std::to_string(length) + " " + std::to_string(length + 10) + " " + std::to_string(length + 20) + " " +
           std::to_string(length + 100);
  };
  // Without a pointer, the server would look for one of the machine.
  return R"(Section "ServerFlags"
  Option "AutoAddDevices" "false"
  Option "AutoAddGPU" "false"
EndSection
Section "InputDevice"
  Identifier "touch screen"
  Driver "inputtest"
  Option "DeviceType" "Touch"
  Option "TouchCount" "5"
  Option "SocketPath" ")" +
         socket.string() + R"("
EndSection
Section "InputDevice"
  Identifier "pointer"
  Driver "inputtest"
  Option "DeviceType" "Pointer"
  Option "SocketPath" ")" +
         socket.string() + R"(.pointer"
EndSection
Section "Device"
  Identifier "card"
  Driver "dummy"
  VideoRam 32768
EndSection
Section "Monitor"
  Identifier "monitor"
  HorizSync 1-1000
  VertRefresh 1-1000
  Modeline ")" +
         mode + "\" 100" + timing(width) + timing(height) + R"(
EndSection
Section "Screen"
  Identifier "screen"
  Device "card"
  Monitor "monitor"
  DefaultDepth 24
  SubSection "Display"
    Depth 24
    Modes ")" +
         mode + R"("
  EndSubSection
EndSection
Section "ServerLayout"
  Identifier "layout"
  Screen "screen"
  InputDevice "pointer" "CorePointer"
  InputDevice "touch screen" "SendCoreEvents"
EndSection
)";
}

TouchScreen::TouchScreen(const std::filesystem::path& socket, int width, int height)
    : socket_(foundation::connectIn(socket.parent_path(), socket.filename().c_str())), width_(width), height_(height) {
  if (!socket_.isOpen()) throw std::runtime_error("the driver inputtest accepts no connection");
  VersionMessage version = {{sizeof version, MessageType::Version}, 1, 0};
  send(&version, sizeof version);
  receive(&version, sizeof version);
}

void TouchScreen::change(std::uint32_t finger, TouchChange change, double x, double y) const {
  TouchMessage message = {};
  message.header = {sizeof message, MessageType::Touch};
  message.finger = finger;
  message.change = change;
  message.axes[0] = 3;
  message.values[0] = x / width_ * maxValue;
  message.values[1] = y / height_ * maxValue;
  send(&message, sizeof message);
  Header synchronization = {sizeof synchronization, MessageType::Synchronize};
  send(&synchronization, sizeof synchronization);
  receive(&synchronization, sizeof synchronization);
}

void TouchScreen::send(const void* message, std::size_t size) const {
  if (::send(socket_.get(), message, size, MSG_NOSIGNAL) != static_cast<ssize_t>(size))
    throw std::runtime_error("the driver inputtest does not read messages");
}

void TouchScreen::receive(void* message, std::size_t size) const {
  if (recv(socket_.get(), message, size, MSG_WAITALL) != static_cast<ssize_t>(size))
    throw std::runtime_error("the driver inputtest does not answer");
}

}  // namespace test
