// The web page of the phone. A child process, GTK's display server for browsers, serves the page to this computer only.
// Main thread.
#pragma once

#include <sys/types.h>

#include <string>

namespace window {

class WebPage {
 public:
  // Starts the server on the first free port and selects it as GTK's display. Call this before connectToDisplay(). If
  // the server cannot start, isOpen() is false and an error is on standard error.
  WebPage();
  WebPage(const WebPage&) = delete;
  WebPage& operator=(const WebPage&) = delete;
  // Ends the server.
  ~WebPage();

  bool isOpen() const { return server_ != 0; }
  std::string address() const;

 private:
  enum class Start { Succeeded, ProgramMissing, Failed };

  Start start(int port);
  void end();

  pid_t server_ = 0;  // 0 if no server is running
  int port_ = 0;
};

}  // namespace window
