#include "tests/window/page_connection.hpp"

#include <algorithm>
#include <chrono>
#include <stdexcept>
#include <thread>

namespace test {

namespace {

constexpr std::chrono::seconds maxWait(30);

bool iterateUntil(const std::function<bool()>& condition) {
  const auto end = std::chrono::steady_clock::now() + maxWait;
  while (!condition()) {
    if (std::chrono::steady_clock::now() > end) return false;
    if (g_main_context_iteration(nullptr, FALSE) == FALSE) std::this_thread::sleep_for(std::chrono::milliseconds(2));
  }
  return true;
}

std::unique_ptr<SoupMessage, Unreference> makeMessage(const char* method, const std::string& address,
                                                      const RequestHeaders& headers) {
  std::unique_ptr<SoupMessage, Unreference> message(soup_message_new(method, address.c_str()));
  if (!headers.host.empty())
    soup_message_headers_replace(soup_message_get_request_headers(message.get()), "Host", headers.host.c_str());
  return message;
}

std::string originOf(const std::string& page) { return page.substr(0, page.find('/', std::string("http://").size())); }

std::vector<unsigned char> decompressed(const unsigned char* data, std::size_t size, std::size_t expected) {
  std::vector<unsigned char> pixels(expected + 1);
  const std::unique_ptr<GZlibDecompressor, Unreference> decompressor(
      g_zlib_decompressor_new(G_ZLIB_COMPRESSOR_FORMAT_ZLIB));
  std::size_t consumed = 0;
  std::size_t produced = 0;
  GConverterResult result = G_CONVERTER_CONVERTED;
  while (result == G_CONVERTER_CONVERTED) {
    gsize read = 0;
    gsize written = 0;
    result =
        g_converter_convert(G_CONVERTER(decompressor.get()), data + consumed, size - consumed, pixels.data() + produced,
                            pixels.size() - produced, G_CONVERTER_INPUT_AT_END, &read, &written, nullptr);
    consumed += read;
    produced += written;
  }
  if (result != G_CONVERTER_FINISHED || produced != expected || consumed != size)
    throw std::runtime_error("the pixels of a frame are not valid");
  return pixels;
}

std::uint32_t integerAt(const unsigned char* data) {
  std::uint32_t value = 0;
  for (int index = 3; index >= 0; --index) value = value << 8 | data[index];
  return value;
}

}  // namespace

Response request(const std::string& address, const RequestHeaders& headers, const char* method) {
  const std::unique_ptr<SoupSession, Unreference> session(soup_session_new());
  const auto message = makeMessage(method, address, headers);
  GBytes* const body = soup_session_send_and_read(session.get(), message.get(), nullptr, nullptr);
  Response response;
  if (body == nullptr) return response;
  response.status = soup_message_get_status(message.get());
  gsize size = 0;
  const auto* const data = static_cast<const char*>(g_bytes_get_data(body, &size));
  response.body.assign(data == nullptr ? "" : data, size);
  g_bytes_unref(body);
  const auto add = +[](const char* name, const char* value, void* found) {
    (*static_cast<std::map<std::string, std::string>*>(found))[name] = value;
  };
  soup_message_headers_foreach(soup_message_get_response_headers(message.get()), add, &response.headers);
  return response;
}

PageConnection::PageConnection(const std::string& page, const RequestHeaders& headers, const char* name,
                               const char* protocol)
    : session_(soup_session_new()), message_(makeMessage("GET", page + name, headers)) {
  const std::string origin = headers.origin.empty() ? originOf(page) : headers.origin;
  std::string protocolName = protocol;
  char* protocols[] = {protocolName.data(), nullptr};
  const auto answered = +[](GObject* session, GAsyncResult* result, void* self) {
    auto* const client = static_cast<PageConnection*>(self);
    client->connection_ = soup_session_websocket_connect_finish(SOUP_SESSION(session), result, nullptr);
    client->status_ = soup_message_get_status(client->message_.get());
    client->isAnswered_ = true;
    if (client->connection_ == nullptr) return;
    // Messages with frames exceed the default size limit.
    soup_websocket_connection_set_max_incoming_payload_size(client->connection_, 0);
    const auto received = +[](SoupWebsocketConnection*, int type, GBytes* content, PageConnection* receiver) {
      receiver->receive(static_cast<SoupWebsocketDataType>(type), content);
    };
    const auto closed = +[](SoupWebsocketConnection* connection, PageConnection* receiver) {
      const unsigned short code = soup_websocket_connection_get_close_code(connection);
      receiver->closeCode_ = code == 0 ? static_cast<unsigned short>(SOUP_WEBSOCKET_CLOSE_ABNORMAL) : code;
    };
    g_signal_connect(client->connection_, "message", G_CALLBACK(received), client);
    g_signal_connect(client->connection_, "closed", G_CALLBACK(closed), client);
  };
  soup_session_websocket_connect_async(session_.get(), message_.get(), origin.c_str(), protocols, G_PRIORITY_DEFAULT,
                                       nullptr, answered, this);
  if (!iterateUntil([&] { return isAnswered_; })) throw std::runtime_error("the server does not answer");
}

PageConnection::~PageConnection() {
  if (connection_ == nullptr) return;
  if (isOpen()) {
    soup_websocket_connection_close(connection_, SOUP_WEBSOCKET_CLOSE_NORMAL, nullptr);
    iterateUntil([&] { return closeCode_ != 0; });
  }
  g_signal_handlers_disconnect_by_data(connection_, this);
  g_object_unref(connection_);
}

bool PageConnection::isOpen() const {
  return connection_ != nullptr && soup_websocket_connection_get_state(connection_) == SOUP_WEBSOCKET_STATE_OPEN;
}

void PageConnection::sendText(const std::string& text) {
  soup_websocket_connection_send_text(connection_, text.c_str());
}

void PageConnection::sendBinary(const std::string& bytes) {
  soup_websocket_connection_send_binary(connection_, bytes.data(), bytes.size());
}

void PageConnection::sendFrame(unsigned char firstByte, const std::string& payload) {
  constexpr unsigned char masked = 0x80;
  constexpr unsigned char longLength = 126;
  constexpr int byteBits = 8;
  constexpr int maskBytes = 4;
  std::string frame = {static_cast<char>(firstByte)};
  // The protocol requires the shortest form of the length.
  if (payload.size() < longLength) {
    frame += static_cast<char>(masked | payload.size());
  } else {
    frame += static_cast<char>(masked | longLength);
    frame += static_cast<char>(payload.size() >> byteBits);
    frame += static_cast<char>(payload.size());
  }
  frame.append(maskBytes, '\0');
  frame += payload;
  GOutputStream* const stream = g_io_stream_get_output_stream(soup_websocket_connection_get_io_stream(connection_));
  std::size_t written = 0;
  while (written < frame.size()) {
    GError* error = nullptr;
    const gssize size = g_pollable_output_stream_write_nonblocking(
        G_POLLABLE_OUTPUT_STREAM(stream), frame.data() + written, frame.size() - written, nullptr, &error);
    const bool isBlocked = g_error_matches(error, G_IO_ERROR, G_IO_ERROR_WOULD_BLOCK) != FALSE;
    g_clear_error(&error);
    if (size < 0 && !isBlocked) return;
    written += static_cast<std::size_t>(std::max<gssize>(size, 0));
    g_main_context_iteration(nullptr, FALSE);
  }
}

void PageConnection::show(int width, int height) {
  width_ = 0;
  send({{"do", "show"}, {"width", width}, {"height", height}});
  if (!until([&] { return width_ > 0; })) throw std::runtime_error("the phone sends no picture");
}

void PageConnection::touch(const char* phase, double x, double y) {
  send({{"do", "touch"}, {"phase", phase}, {"x", x / width_}, {"y", y / height_}});
}

bool PageConnection::until(const std::function<bool()>& condition) { return iterateUntil(condition); }

void PageConnection::setAcknowledgement(Acknowledgement mode) {
  acknowledgement_ = mode;
  while (mode == Acknowledgement::Automatic && unacknowledged_ > 0) acknowledge();
}

void PageConnection::acknowledge() {
  --unacknowledged_;
  send({{"do", "acknowledge"}});
}

void PageConnection::receive(SoupWebsocketDataType type, GBytes* content) {
  gsize size = 0;
  const auto* const data = static_cast<const unsigned char*>(g_bytes_get_data(content, &size));
  ++received_;
  ++unacknowledged_;
  if (type == SOUP_WEBSOCKET_DATA_BINARY) {
    readFrame(data, size);
  } else {
    values_.update(nlohmann::json::parse(data, data + size));
  }
  if (acknowledgement_ == Acknowledgement::Automatic && isOpen()) acknowledge();
}

void PageConnection::readFrame(const unsigned char* data, std::size_t size) {
  constexpr std::size_t integerSize = 4;
  std::vector<int> header;
  const auto next = [&] {
    if (size < (header.size() + 1) * integerSize) throw std::runtime_error("a frame is too short");
    header.push_back(static_cast<int>(integerAt(data + header.size() * integerSize)));
    return header.back();
  };
  const int width = next();
  const int height = next();
  const int count = next();
  if (width != width_ || height != height_) {
    width_ = width;
    height_ = height;
    pixels_.assign(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), 0);
  }
  std::size_t expected = 0;
  for (int index = 0; index < count; ++index) {
    const int x = next();
    const int y = next();
    const int partWidth = next();
    const int partHeight = next();
    if (x < 0 || y < 0 || partWidth <= 0 || partHeight <= 0 || x + partWidth > width || y + partHeight > height)
      throw std::runtime_error("a rectangle of a frame is not valid");
    expected += integerSize * static_cast<std::size_t>(partWidth) * static_cast<std::size_t>(partHeight);
  }
  const std::size_t headerSize = header.size() * integerSize;
  const std::vector<unsigned char> bytes = decompressed(data + headerSize, size - headerSize, expected);
  const unsigned char* pixel = bytes.data();
  for (std::size_t part = 3; part < header.size(); part += 4) {
    for (int y = header[part + 1]; y < header[part + 1] + header[part + 3]; ++y) {
      for (int x = header[part]; x < header[part] + header[part + 2]; ++x, pixel += integerSize) {
        pixels_[static_cast<std::size_t>(y) * static_cast<std::size_t>(width) + static_cast<std::size_t>(x)] =
            static_cast<std::uint32_t>(pixel[3]) << 24 | static_cast<std::uint32_t>(pixel[0]) << 16 |
            static_cast<std::uint32_t>(pixel[1]) << 8 | pixel[2];
      }
    }
  }
}

}  // namespace test
