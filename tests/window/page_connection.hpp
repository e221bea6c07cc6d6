// A client of the web page of a live phone, which sends requests and messages as a browser does.
#pragma once

#include <libsoup/soup.h>

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

namespace test {

struct Unreference {
  void operator()(void* object) const { g_object_unref(object); }
};

struct Response {
  unsigned status = 0;
  std::string body;
  std::map<std::string, std::string> headers;
};

// The headers of a request. An empty text selects the header that a browser sends for the page itself.
struct RequestHeaders {
  std::string host = {};
  std::string origin = {};
};

Response request(const std::string& address, const RequestHeaders& headers = {}, const char* method = "GET");

enum class Acknowledgement { Automatic, Manual };

// A WebSocket connection of a page, and the picture that the page shows.
class PageConnection {
 public:
  // `page` is the address of the page. Waits until the connection is open or has been refused.
  explicit PageConnection(const std::string& page, const RequestHeaders& headers = {}, const char* name = "connection",
                          const char* protocol = "brim-phone");
  PageConnection(const PageConnection&) = delete;
  PageConnection& operator=(const PageConnection&) = delete;
  ~PageConnection();

  // The HTTP status of the server's response to the connection request.
  unsigned status() const { return status_; }
  bool isOpen() const;
  // The code with which the server has closed the connection, or 0 while it is open.
  unsigned short closeCode() const { return closeCode_; }

  void send(const nlohmann::json& message) { sendText(message.dump()); }
  void sendText(const std::string& text);
  void sendBinary(const std::string& bytes);
  // Sends a frame whose first byte contains the opcode and the final bit. The mask is zero, and the payload
  // has at most 65535 bytes. Does nothing if the server has closed the connection.
  void sendFrame(unsigned char firstByte, const std::string& payload);
  // Requests a picture that fits into a page of this size, and waits for it.
  void show(int width, int height);
  // Sends a touch at the point (x, y) of the picture. The coordinates are in pixels.
  void touch(const char* phase, double x, double y);

  // Receives messages until the condition is true. Returns false on timeout.
  bool until(const std::function<bool()>& condition);

  void setAcknowledgement(Acknowledgement mode);
  // The number of messages that the page has not acknowledged.
  int unacknowledged() const { return unacknowledged_; }
  int received() const { return received_; }

  int width() const { return width_; }
  int height() const { return height_; }
  // The pixels of the picture as 0xAARRGGBB, row by row.
  const std::vector<std::uint32_t>& pixels() const { return pixels_; }
  // The last value of each member of the text messages.
  const nlohmann::json& values() const { return values_; }

 private:
  void receive(SoupWebsocketDataType type, GBytes* content);
  void readFrame(const unsigned char* data, std::size_t size);
  void acknowledge();

  std::unique_ptr<SoupSession, Unreference> session_;
  std::unique_ptr<SoupMessage, Unreference> message_;
  SoupWebsocketConnection* connection_ = nullptr;
  bool isAnswered_ = false;
  unsigned status_ = 0;
  unsigned short closeCode_ = 0;
  Acknowledgement acknowledgement_ = Acknowledgement::Automatic;
  int unacknowledged_ = 0;
  int received_ = 0;
  int width_ = 0;
  int height_ = 0;
  std::vector<std::uint32_t> pixels_;
  nlohmann::json values_ = nlohmann::json::object();
};

}  // namespace test
