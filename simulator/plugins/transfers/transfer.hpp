// One HTTP transfer. As on the platform, it follows redirects, decompresses the body and verifies certificates. Limits
// on time, headers and body protect the process from hostile servers.
#pragma once

#include <curl/curl.h>

#include <chrono>
#include <memory>
#include <string_view>

#include "simulator/url_loading/transfers.hpp"

namespace transfers {

using Clock = std::chrono::steady_clock;

// An HTTP transfer. It can be constructed on any thread. All other functions run on the transfer thread.
class Transfer {
 public:
  Transfer(url_loading::Request request, url_loading::Completion completion);
  Transfer(const Transfer&) = delete;
  Transfer& operator=(const Transfer&) = delete;
  ~Transfer();

  CURL* handle() const { return easy_.get(); }

  // The time point at which the transfer times out. It is postponed each time the server sends data.
  Clock::time_point deadline() const;

  // End the transfer and call the completion: `finish` with curl's result, `timeOut` with a timeout error.
  void finish(CURLcode code);
  void timeOut();

 private:
  using Handle = std::unique_ptr<CURL, decltype(&curl_easy_cleanup)>;

  static std::size_t receiveHeader(char* text, std::size_t size, std::size_t count, void* transfer);
  static std::size_t receiveBody(char* text, std::size_t size, std::size_t count, void* transfer);
  static int observeProgress(void* transfer, curl_off_t total, curl_off_t received, curl_off_t, curl_off_t);

  void configure();
  void configureProxy();
  void addHeaders();
  bool addHeaderLine(std::string_view line);
  bool addBody(std::string_view bytes);
  url_loading::UrlError errorOf(CURLcode code) const;
  void complete();

  Handle easy_;
  std::unique_ptr<curl_slist, decltype(&curl_slist_free_all)> headerLines_;
  url_loading::Request request_;
  url_loading::Completion completion_;
  url_loading::TransferResult result_;
  Clock::time_point lastActivity_ = Clock::now();
  curl_off_t receivedBytes_ = 0;
  std::size_t headerBytes_ = 0;
  bool bodyIsTooLong_ = false;
};

}  // namespace transfers
