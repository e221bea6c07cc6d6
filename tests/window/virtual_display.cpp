#include "tests/window/virtual_display.hpp"

#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <stdlib.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <fstream>
#include <stdexcept>
#include <thread>

#include "simulator/foundation/descriptor.hpp"

namespace test {

namespace {

Display* displayOf(void* connection) { return static_cast<Display*>(connection); }

int ignoreError(Display*, XErrorEvent*) { return 0; }

// The server writes the number of its display when it accepts connections.
std::string readDisplayNumber(int descriptor) {
  std::string number;
  for (char character = 0; read(descriptor, &character, 1) == 1 && character != '\n';) number += character;
  return number;
}

std::string titleOf(Display* display, Window window) {
  constexpr long maxItems = 1024;
  Atom type = 0;
  int format = 0;
  unsigned long count = 0;
  unsigned long remaining = 0;
  unsigned char* data = nullptr;
  XGetWindowProperty(display, window, XInternAtom(display, "_NET_WM_NAME", False), 0, maxItems, False, AnyPropertyType,
                     &type, &format, &count, &remaining, &data);
  if (data == nullptr) return "";
  std::string title(reinterpret_cast<const char*>(data), count);
  XFree(data);
  return title;
}

constexpr int screenWidth = 1600;
constexpr int screenHeight = 1300;
constexpr const char* touchSocket = "touch";

std::vector<std::string> commandWithoutTouchScreen() {
  const std::string screen = std::to_string(screenWidth) + "x" + std::to_string(screenHeight) + "x24";
  return {"Xvfb", "-screen", "0", screen};
}

// The seat is not the one of the machine. The server therefore uses no terminal and no device of the machine.
std::vector<std::string> commandWithTouchScreen(const std::filesystem::path& folder) {
  const std::filesystem::path configuration = folder / "xorg.conf";
  std::ofstream(configuration) << TouchScreen::configuration(folder / touchSocket, screenWidth, screenHeight);
  return {"/usr/lib/xorg/Xorg", "-config", configuration, "-logfile", folder / "log", "-seat", "test", "-novtswitch"};
}

pid_t startServer(std::vector<std::string> command, int displayDescriptor) {
  constexpr int inheritedDescriptor = 3;
  command.insert(command.end(), {"-displayfd", std::to_string(inheritedDescriptor), "-nolisten", "tcp", "-noreset"});
  std::vector<char*> arguments;
  for (std::string& word : command) arguments.push_back(word.data());
  arguments.push_back(nullptr);
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, displayDescriptor, inheritedDescriptor);
  posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
  pid_t server = 0;
  const int error = posix_spawnp(&server, arguments[0], &actions, nullptr, arguments.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  if (error != 0) throw std::runtime_error("cannot start " + command[0] + "; ./brim test installs its package");
  return server;
}

}  // namespace

VirtualDisplay::VirtualDisplay(InputDevices devices) {
  int ends[2];
  // The descriptors must not have the number 3: startServer() would then close the copy that the server receives.
  if (pipe2(ends, O_CLOEXEC) != 0) throw std::runtime_error("cannot create a pipe");
  const foundation::FileDescriptor reading(ends[0]);
  {
    const foundation::FileDescriptor opened(ends[1]);
    const foundation::FileDescriptor writing(fcntl(opened.get(), F_DUPFD_CLOEXEC, 10));
    server_ = startServer(
        devices == InputDevices::Pointer ? commandWithoutTouchScreen() : commandWithTouchScreen(folder_.path()),
        writing.get());
  }
  const std::string name = ":" + readDisplayNumber(reading.get());
  setenv("DISPLAY", name.c_str(), 1);
  setenv("GDK_BACKEND", "x11", 1);
  unsetenv("WAYLAND_DISPLAY");
  XSetErrorHandler(&ignoreError);
  connection_ = XOpenDisplay(name.c_str());
  if (connection_ == nullptr) throw std::runtime_error("cannot connect to the display " + name);
  if (devices == InputDevices::PointerAndTouchScreen)
    touchScreen_ = std::make_unique<TouchScreen>(folder_.path() / touchSocket, screenWidth, screenHeight);
}

VirtualDisplay::~VirtualDisplay() { kill(); }

void VirtualDisplay::kill() {
  if (connection_ != nullptr) XCloseDisplay(displayOf(connection_));
  connection_ = nullptr;
  if (server_ == 0) return;
  ::kill(server_, SIGTERM);
  waitpid(server_, nullptr, 0);
  server_ = 0;
}

VirtualDisplay::Window VirtualDisplay::findWindow(const std::string& title) const {
  Display* const display = displayOf(connection_);
  ::Window root = 0;
  ::Window parent = 0;
  ::Window* children = nullptr;
  unsigned int count = 0;
  if (XQueryTree(display, DefaultRootWindow(display), &root, &parent, &children, &count) == 0) return 0;
  Window found = 0;
  for (unsigned int index = 0; index < count; ++index) {
    XWindowAttributes attributes = {};
    if (XGetWindowAttributes(display, children[index], &attributes) == 0 || attributes.map_state != IsViewable)
      continue;
    if (titleOf(display, children[index]) == title) found = children[index];
  }
  XFree(children);
  return found;
}

WindowSize VirtualDisplay::sizeOf(Window window) const {
  XWindowAttributes attributes = {};
  XGetWindowAttributes(displayOf(connection_), window, &attributes);
  return {attributes.width, attributes.height};
}

std::string VirtualDisplay::classOf(Window window) const {
  XClassHint hint = {};
  if (XGetClassHint(displayOf(connection_), window, &hint) == 0) return "";
  std::string name = hint.res_class;
  XFree(hint.res_name);
  XFree(hint.res_class);
  return name;
}

// The property contains the width, the height and the pixels of each icon.
bool VirtualDisplay::hasIcon(Window window, unsigned long side) const {
  constexpr long maxItems = 1L << 20;
  Display* const display = displayOf(connection_);
  Atom type = 0;
  int format = 0;
  unsigned long count = 0;
  unsigned long remaining = 0;
  unsigned char* data = nullptr;
  XGetWindowProperty(display, window, XInternAtom(display, "_NET_WM_ICON", False), 0, maxItems, False, AnyPropertyType,
                     &type, &format, &count, &remaining, &data);
  const auto* items = reinterpret_cast<const unsigned long*>(data);
  bool isFound = false;
  for (unsigned long index = 0; index + 1 < count; index += 2 + items[index] * items[index + 1])
    isFound = isFound || (items[index] == side && items[index + 1] == side);
  if (data != nullptr) XFree(data);
  return isFound;
}

std::vector<std::uint32_t> VirtualDisplay::pixelsOf(Window window) const {
  const WindowSize size = sizeOf(window);
  XImage* const image = XGetImage(displayOf(connection_), window, 0, 0, static_cast<unsigned>(size.width),
                                  static_cast<unsigned>(size.height), AllPlanes, ZPixmap);
  if (image == nullptr) return {};
  std::vector<std::uint32_t> pixels;
  for (int y = 0; y < size.height; ++y)
    for (int x = 0; x < size.width; ++x)
      pixels.push_back(static_cast<std::uint32_t>(XGetPixel(image, x, y)) & 0xFFFFFF);
  XDestroyImage(image);
  return pixels;
}

void VirtualDisplay::resize(Window window, const WindowSize& size) const {
  XResizeWindow(displayOf(connection_), window, static_cast<unsigned>(size.width), static_cast<unsigned>(size.height));
  XSync(displayOf(connection_), False);
}

void VirtualDisplay::hide(Window window) const {
  XUnmapWindow(displayOf(connection_), window);
  XSync(displayOf(connection_), False);
}

void VirtualDisplay::requestClose(Window window) const {
  Display* const display = displayOf(connection_);
  XEvent event = {};
  event.xclient.type = ClientMessage;
  event.xclient.window = window;
  event.xclient.message_type = XInternAtom(display, "WM_PROTOCOLS", False);
  event.xclient.format = 32;
  event.xclient.data.l[0] = static_cast<long>(XInternAtom(display, "WM_DELETE_WINDOW", False));
  XSendEvent(display, window, False, NoEventMask, &event);
  XSync(display, False);
}

void VirtualDisplay::focus(Window window) const {
  XSetInputFocus(displayOf(connection_), window, RevertToPointerRoot, CurrentTime);
  XSync(displayOf(connection_), False);
}

VirtualDisplay::Window VirtualDisplay::focusedWindow() const {
  ::Window focused = 0;
  int revert = 0;
  XGetInputFocus(displayOf(connection_), &focused, &revert);
  return focused;
}

VirtualDisplay::Window VirtualDisplay::openOtherWindow() const {
  Display* const display = displayOf(connection_);
  const ::Window window = XCreateSimpleWindow(display, DefaultRootWindow(display), 1400, 1200, 50, 50, 0, 0, 0);
  XMapWindow(display, window);
  XSync(display, False);
  return window;
}

bool VirtualDisplay::offerText(const std::string& text, const std::function<void()>& afterwards) const {
  constexpr int maxPolls = 1000;
  Display* const display = displayOf(connection_);
  const Window owner = openOtherWindow();
  XSetSelectionOwner(display, XInternAtom(display, "CLIPBOARD", False), owner, CurrentTime);
  XSync(display, False);
  afterwards();
  for (int poll = 0; poll < maxPolls; ++poll) {
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
    XEvent event = {};
    if (XCheckTypedEvent(display, SelectionRequest, &event) == False) continue;
    const XSelectionRequestEvent& request = event.xselectionrequest;
    const bool isText = request.target == XInternAtom(display, "UTF8_STRING", False);
    if (isText)
      XChangeProperty(display, request.requestor, request.property, request.target, 8, PropModeReplace,
                      reinterpret_cast<const unsigned char*>(text.data()), static_cast<int>(text.size()));
    XEvent answer = {};
    answer.xselection = {SelectionNotify,
                         0,
                         False,
                         display,
                         request.requestor,
                         request.selection,
                         request.target,
                         isText ? request.property : None,
                         request.time};
    XSendEvent(display, request.requestor, False, NoEventMask, &answer);
    XSync(display, False);
    if (isText) return true;
  }
  return false;
}

void VirtualDisplay::send(const std::string& events) const {
  if (std::system(("xdotool " + events).c_str()) != 0) throw std::runtime_error("xdotool " + events + " has failed");
}

void VirtualDisplay::movePointer(int x, int y) const {
  Display* const display = displayOf(connection_);
  XWarpPointer(display, None, DefaultRootWindow(display), 0, 0, 0, 0, x, y);
  XSync(display, False);
}

}  // namespace test
