// The web page that displays the phone in browsers of this computer. Main thread.
#pragma once

#include <list>
#include <memory>
#include <optional>
#include <string>

#include "simulator/plugins/phone_display/finger_input.hpp"
#include "simulator/plugins/phone_display/main_context.hpp"
#include "simulator/plugins/web_page/page_client.hpp"
#include "simulator/plugins/web_page/page_server.hpp"
#include "simulator/runner/window_plugin.hpp"
#include "simulator/uikit/rendering/display_link.hpp"

namespace web_page {

class WebPage final : public runner::PhoneWindow {
 public:
  explicit WebPage(const std::string& token);
  WebPage(const WebPage&) = delete;
  WebPage& operator=(const WebPage&) = delete;
  ~WebPage() override;

  // Starts the server. Returns false, with an error on standard error, if all ports are in use.
  bool open();

  runner::WindowState state() const override { return runner::WindowState::Open; }
  std::string address() const override { return server_.address(); }

 private:
  void connect(SoupWebsocketConnection* connection);
  void present();
  // Updates the list of the clients and the display link on the main queue, because the display link must not be
  // created or destroyed while it calls present().
  void scheduleUpdate();
  void updateClients();

  phone_display::FingerInput finger_;
  PageServer server_;
  std::list<PageClient> clients_;
  // Has no value while there is no client, because the display link causes the screen to be rendered.
  std::optional<uikit::DisplayLink> displayLink_;
  std::shared_ptr<bool> exists_ = std::make_shared<bool>(true);
  phone_display::MainContext mainContext_;
};

}  // namespace web_page
