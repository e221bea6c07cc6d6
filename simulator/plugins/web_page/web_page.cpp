#include "simulator/plugins/web_page/web_page.hpp"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string_view>
#include <utility>
#include <vector>

#include "simulator/base/installation.hpp"
#include "simulator/drawing/canvas.hpp"
#include "simulator/foundation/main_queue.hpp"
#include "simulator/foundation/root.hpp"
#include "simulator/plugins/phone_display/phone_drawing.hpp"
#include "simulator/plugins/web_page/access_token.hpp"
#include "simulator/plugins/web_page/composer_data.hpp"
#include "simulator/process/control_socket.hpp"
#include "simulator/uikit/environment/environment.hpp"

namespace web_page {

namespace {

constexpr std::size_t maxClients = 8;
constexpr double iconSide = 64;

std::string fileContent(const std::string& name) {
  std::ifstream stream(base::installation().page / name, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

std::string pageContent() {
  constexpr std::string_view placeholder = "{device}";
  std::string content = fileContent("page.html");
  const std::size_t place = content.find(placeholder);
  if (place != std::string::npos)
    content.replace(place, placeholder.size(), phone_display::productName(uikit::environment().device.name));
  return content;
}

std::string iconContent() {
  const drawing::Canvas canvas({iconSide, iconSide}, 1);
  phone_display::drawIcon(canvas.context(), iconSide);
  const std::vector<std::byte> png = canvas.pixelsAsPng();
  return {reinterpret_cast<const char*>(png.data()), png.size()};
}

std::vector<Resource> resources() {
  return {
      {"", "text/html; charset=utf-8", &pageContent},
      {"page.css", "text/css; charset=utf-8", [] { return fileContent("page.css"); }},
      {"page.js", "text/javascript; charset=utf-8", [] { return fileContent("page.js"); }},
      {"icon.png", "image/png", &iconContent},
      {"composer.json", "application/json", &composerJson},
  };
}

}  // namespace

WebPage::WebPage(const std::string& token)
    : server_(token, resources(), [this](SoupWebsocketConnection* connection) { connect(connection); }),
      mainContext_(phone_display::MainContext::noDisplay, [] {}) {}

WebPage::~WebPage() {
  *exists_ = false;
  for (PageClient& client : clients_) client.end();
  mainContext_.dispatch();
}

bool WebPage::open() {
  const bool isOpen = server_.listen();
  if (!isOpen) std::fputs("springboard: the ports for the page, from 8085 to 8184, are in use\n", stderr);
  mainContext_.dispatch();
  return isOpen;
}

void WebPage::connect(SoupWebsocketConnection* connection) {
  // The server closes the connection after this function returns, unless a client retains it.
  if (clients_.size() >= maxClients) return;
  clients_.emplace_back(connection, finger_, [this] { scheduleUpdate(); });
  scheduleUpdate();
}

void WebPage::present() {
  for (PageClient& client : clients_) client.present();
  mainContext_.dispatch();
}

void WebPage::scheduleUpdate() {
  foundation::onMainThread([this, exists = exists_] {
    if (*exists) updateClients();
  });
}

void WebPage::updateClients() {
  std::erase_if(clients_, [](const PageClient& client) { return client.isClosed(); });
  if (clients_.empty()) return displayLink_.reset();
  if (!displayLink_) displayLink_.emplace([this] { present(); });
  present();
}

}  // namespace web_page

runner::PhoneWindow* brim_open_window() {
  const std::string token = web_page::accessToken(process::controlFolder(foundation::root()));
  if (token.empty()) return nullptr;
  auto page = std::make_unique<web_page::WebPage>(token);
  return page->open() ? page.release() : nullptr;
}
