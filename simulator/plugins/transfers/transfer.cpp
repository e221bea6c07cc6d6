#include "simulator/plugins/transfers/transfer.hpp"

#include <cstdlib>
#include <string>
#include <utility>

namespace transfers {

namespace {

using url_loading::UrlError;

constexpr long maxRedirects = 20;
constexpr std::size_t maxHeaderBytes = 256 << 10;
constexpr long minRedirectStatus = 300;
constexpr long minErrorStatus = 400;

struct KnownError {
  CURLcode code;
  UrlError error;
};
constexpr KnownError knownErrors[] = {
    {CURLE_URL_MALFORMAT, UrlError::BadUrl},
    {CURLE_OPERATION_TIMEDOUT, UrlError::TimedOut},
    {CURLE_COULDNT_RESOLVE_HOST, UrlError::CannotFindHost},
    {CURLE_COULDNT_CONNECT, UrlError::CannotConnectToHost},
    {CURLE_PARTIAL_FILE, UrlError::ConnectionLost},
    {CURLE_GOT_NOTHING, UrlError::ConnectionLost},
    {CURLE_SEND_ERROR, UrlError::ConnectionLost},
    {CURLE_RECV_ERROR, UrlError::ConnectionLost},
    {CURLE_HTTP2, UrlError::ConnectionLost},
    {CURLE_HTTP2_STREAM, UrlError::ConnectionLost},
    {CURLE_TOO_MANY_REDIRECTS, UrlError::TooManyRedirects},
    {CURLE_BAD_CONTENT_ENCODING, UrlError::CannotDecodeBody},
    {CURLE_WEIRD_SERVER_REPLY, UrlError::CannotParseResponse},
    {CURLE_SSL_CONNECT_ERROR, UrlError::SecureConnectionFailed},
    {CURLE_PEER_FAILED_VERIFICATION, UrlError::CertificateUntrusted},
};

// Returns whether the text is a single line. A line break in a header would let its value add further headers to the
// request.
bool isSingleLine(std::string_view text) { return text.find_first_of(std::string_view("\r\n\0", 3)) == text.npos; }

std::string_view trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(" \t\r\n");
  if (first == text.npos) return {};
  return text.substr(first, text.find_last_not_of(" \t\r\n") - first + 1);
}

std::string environmentValue(const char* name) {
  const char* const value = std::getenv(name);
  return value == nullptr ? "" : value;
}

}  // namespace

Transfer::Transfer(url_loading::Request request, url_loading::Completion completion)
    : easy_(curl_easy_init(), &curl_easy_cleanup),
      headerLines_(nullptr, &curl_slist_free_all),
      request_(std::move(request)),
      completion_(std::move(completion)) {
  configure();
}

Transfer::~Transfer() = default;

void Transfer::configure() {
  CURL* const curl = handle();
  curl_easy_setopt(curl, CURLOPT_URL, request_.url.c_str());
  curl_easy_setopt(curl, CURLOPT_PROTOCOLS_STR, "http,https");
  curl_easy_setopt(curl, CURLOPT_REDIR_PROTOCOLS_STR, "http,https");
  curl_easy_setopt(curl, CURLOPT_FOLLOWLOCATION, 1L);
  curl_easy_setopt(curl, CURLOPT_MAXREDIRS, maxRedirects);
  curl_easy_setopt(curl, CURLOPT_ACCEPT_ENCODING, "gzip, deflate, br");
  curl_easy_setopt(curl, CURLOPT_NOSIGNAL, 1L);
  // Without this option, a pending name lookup would delay the end of the transfer.
  curl_easy_setopt(curl, CURLOPT_QUICK_EXIT, 1L);
  curl_easy_setopt(curl, CURLOPT_TIMEOUT, url_loading::maxTransferSeconds);
  curl_easy_setopt(curl, CURLOPT_CONNECTTIMEOUT, url_loading::maxTransferSeconds);
  if (!request_.certificateFile.empty()) {
    curl_easy_setopt(curl, CURLOPT_CAINFO, request_.certificateFile.c_str());
    curl_easy_setopt(curl, CURLOPT_CAPATH, nullptr);
  }
  configureProxy();
  addHeaders();
  curl_easy_setopt(curl, CURLOPT_HEADERFUNCTION, &receiveHeader);
  curl_easy_setopt(curl, CURLOPT_HEADERDATA, this);
  curl_easy_setopt(curl, CURLOPT_WRITEFUNCTION, &receiveBody);
  curl_easy_setopt(curl, CURLOPT_WRITEDATA, this);
  curl_easy_setopt(curl, CURLOPT_XFERINFOFUNCTION, &observeProgress);
  curl_easy_setopt(curl, CURLOPT_XFERINFODATA, this);
  curl_easy_setopt(curl, CURLOPT_NOPROGRESS, 0L);
}

// Makes connections to this machine's own addresses bypass the proxy.
void Transfer::configureProxy() {
  std::string excludedHosts = "localhost,127.0.0.0/8,::1";
  for (const char* name : {"no_proxy", "NO_PROXY"})
    if (const std::string value = environmentValue(name); !value.empty()) excludedHosts.append(",").append(value);
  curl_easy_setopt(handle(), CURLOPT_NOPROXY, excludedHosts.c_str());
}

void Transfer::addHeaders() {
  for (const auto& [name, value] : request_.headers) {
    if (!isSingleLine(name) || !isSingleLine(value)) continue;
    const std::string line = name + ": " + value;
    headerLines_.reset(curl_slist_append(headerLines_.release(), line.c_str()));
  }
  curl_easy_setopt(handle(), CURLOPT_HTTPHEADER, headerLines_.get());
}

Clock::time_point Transfer::deadline() const {
  return lastActivity_ +
         std::chrono::duration_cast<Clock::duration>(std::chrono::duration<double>(request_.idleTimeoutSeconds));
}

std::size_t Transfer::receiveHeader(char* text, std::size_t size, std::size_t count, void* transfer) {
  const std::size_t length = size * count;
  return static_cast<Transfer*>(transfer)->addHeaderLine({text, length}) ? length : 0;
}

std::size_t Transfer::receiveBody(char* text, std::size_t size, std::size_t count, void* transfer) {
  const std::size_t length = size * count;
  return static_cast<Transfer*>(transfer)->addBody({text, length}) ? length : 0;
}

int Transfer::observeProgress(void* transfer, curl_off_t, curl_off_t received, curl_off_t, curl_off_t) {
  auto& self = *static_cast<Transfer*>(transfer);
  if (std::exchange(self.receivedBytes_, received) != received) self.lastActivity_ = Clock::now();
  return 0;
}

bool Transfer::addHeaderLine(std::string_view line) {
  lastActivity_ = Clock::now();
  headerBytes_ += line.size();
  if (headerBytes_ > maxHeaderBytes) return false;
  // A status line begins a new response. After a redirect, the headers of the previous response are removed.
  if (line.starts_with("HTTP/")) result_.headers.clear();
  if (const std::size_t colon = line.find(':'); colon != line.npos)
    result_.headers.emplace_back(trimmed(line.substr(0, colon)), trimmed(line.substr(colon + 1)));
  return true;
}

bool Transfer::addBody(std::string_view bytes) {
  bodyIsTooLong_ = bytes.size() > url_loading::maxBodyBytes - result_.body.size();
  if (!bodyIsTooLong_) result_.body.append(bytes);
  return !bodyIsTooLong_;
}

UrlError Transfer::errorOf(CURLcode code) const {
  if (code == CURLE_WRITE_ERROR) return bodyIsTooLong_ ? UrlError::BodyTooLong : UrlError::CannotParseResponse;
  // Either a redirect leads to a URL of an unsupported scheme, or the server does not use HTTP.
  if (code == CURLE_UNSUPPORTED_PROTOCOL) {
    const bool isRedirect = result_.status >= minRedirectStatus && result_.status < minErrorStatus;
    return isRedirect ? UrlError::UnsupportedUrl : UrlError::CannotParseResponse;
  }
  for (const KnownError& knownError : knownErrors)
    if (knownError.code == code) return knownError.error;
  return UrlError::Unknown;
}

void Transfer::finish(CURLcode code) {
  long status = 0;
  const char* lastUrl = nullptr;
  curl_easy_getinfo(handle(), CURLINFO_RESPONSE_CODE, &status);
  curl_easy_getinfo(handle(), CURLINFO_EFFECTIVE_URL, &lastUrl);
  result_.status = static_cast<int>(status);
  result_.url = lastUrl == nullptr ? request_.url : lastUrl;
  if (code != CURLE_OK) result_.error = errorOf(code);
  complete();
}

void Transfer::timeOut() {
  result_.url = request_.url;
  result_.error = UrlError::TimedOut;
  complete();
}

void Transfer::complete() {
  if (result_.error) result_.body.clear();
  completion_(std::move(result_));
}

}  // namespace transfers
