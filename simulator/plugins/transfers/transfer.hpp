// One request on its way, as the platform's loading makes it: redirections followed, bodies decompressed, certificates
// checked, and no server able to hang or fill the process.
#pragma once

#include <curl/curl.h>

#include <chrono>
#include <memory>
#include <string_view>

#include "simulator/url_loading/transfers.hpp"

namespace transfers {

using Clock = std::chrono::steady_clock;

// On the transfers' thread, once it has been made.
class Transfer {
 public:
  Transfer(url_loading::Request request, url_loading::Completion completion);
  Transfer(const Transfer&) = delete;
  Transfer& operator=(const Transfer&) = delete;
  ~Transfer();

  CURL* handle() const { return easy.get(); }
  static Transfer& of(CURL* handle);

  // When it has failed unless the server says something before.
  Clock::time_point deadline() const;

  // Ends it and calls the completion.
  void finish(CURLcode result);
  void timeOut();

 private:
  using Handle = std::unique_ptr<CURL, decltype(&curl_easy_cleanup)>;

  static std::size_t receiveHeader(char* text, std::size_t size, std::size_t count, void* transfer);
  static std::size_t receiveBody(char* text, std::size_t size, std::size_t count, void* transfer);
  static int noticeProgress(void* transfer, curl_off_t total, curl_off_t received, curl_off_t, curl_off_t);

  void configure();
  void configureProxy();
  void addHeaders();
  bool addHeaderLine(std::string_view line);
  bool addBody(std::string_view bytes);
  url_loading::UrlError errorOf(CURLcode result) const;
  void complete();

  Handle easy;
  std::unique_ptr<curl_slist, decltype(&curl_slist_free_all)> headerLines;
  url_loading::Request request;
  url_loading::Completion completion;
  url_loading::Answer answer;
  Clock::time_point lastNews = Clock::now();
  curl_off_t bytesSeen = 0;
  std::size_t headerBytes = 0;
  bool bodyIsTooLong = false;
};

}  // namespace transfers
