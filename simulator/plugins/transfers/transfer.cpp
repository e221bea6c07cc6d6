#include "simulator/plugins/transfers/transfer.hpp"

#include <cstdlib>
#include <string>
#include <utility>

namespace transfers {

namespace {

using url_loading::UrlError;

constexpr long maxRedirections = 20;
constexpr std::size_t maxHeaders = 256 << 10;
constexpr long firstRedirection = 300;
constexpr long firstFailure = 400;

struct KnownError {
  CURLcode result;
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

// No line of a request may bring another one along.
bool isOneLine(std::string_view text) { return text.find_first_of(std::string_view("\r\n\0", 3)) == text.npos; }

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

Transfer::Transfer(url_loading::Request wanted, url_loading::Completion whenDone)
    : easy(curl_easy_init(), &curl_easy_cleanup),
      headerLines(nullptr, &curl_slist_free_all),
      request(std::move(wanted)),
      completion(std::move(whenDone)) {
  configure();
}

Transfer::~Transfer() = default;

Transfer& Transfer::of(CURL* handle) {
  Transfer* transfer = nullptr;
  curl_easy_getinfo(handle, CURLINFO_PRIVATE, &transfer);
  return *transfer;
}

void Transfer::configure() {
  CURL* const curl = handle();
  curl_easy_setopt(curl, CURLOPT_PRIVATE, this);
  curl_easy_setopt(curl, CURLOPT_URL, request.url.c_str());
  curl_easy_setopt(curl, CURLOPT_PROTOCOLS_STR, "http,https");
  curl_easy_setopt(curl, CURLOPT_REDIR_PROTOCOLS_STR, "http,https");
  curl_easy_setopt(curl, CURLOPT_FOLLOWLOCATION, 1L);
  curl_easy_setopt(curl, CURLOPT_MAXREDIRS, maxRedirections);
  curl_easy_setopt(curl, CURLOPT_ACCEPT_ENCODING, "gzip, deflate, br");
  curl_easy_setopt(curl, CURLOPT_NOSIGNAL, 1L);
  // A name that is being looked up does not delay the end of a transfer.
  curl_easy_setopt(curl, CURLOPT_QUICK_EXIT, 1L);
  curl_easy_setopt(curl, CURLOPT_TIMEOUT, url_loading::maxTransferSeconds);
  curl_easy_setopt(curl, CURLOPT_CONNECTTIMEOUT, url_loading::maxTransferSeconds);
  if (!request.certificates.empty()) {
    curl_easy_setopt(curl, CURLOPT_CAINFO, request.certificates.c_str());
    curl_easy_setopt(curl, CURLOPT_CAPATH, nullptr);
  }
  configureProxy();
  addHeaders();
  curl_easy_setopt(curl, CURLOPT_HEADERFUNCTION, &receiveHeader);
  curl_easy_setopt(curl, CURLOPT_HEADERDATA, this);
  curl_easy_setopt(curl, CURLOPT_WRITEFUNCTION, &receiveBody);
  curl_easy_setopt(curl, CURLOPT_WRITEDATA, this);
  curl_easy_setopt(curl, CURLOPT_XFERINFOFUNCTION, &noticeProgress);
  curl_easy_setopt(curl, CURLOPT_XFERINFODATA, this);
  curl_easy_setopt(curl, CURLOPT_NOPROGRESS, 0L);
}

// What is on this machine is reached without a proxy.
void Transfer::configureProxy() {
  std::string direct = "localhost,127.0.0.0/8,::1";
  for (const char* name : {"no_proxy", "NO_PROXY"})
    if (const std::string others = environmentValue(name); !others.empty()) direct.append(",").append(others);
  curl_easy_setopt(handle(), CURLOPT_NOPROXY, direct.c_str());
}

void Transfer::addHeaders() {
  for (const auto& [name, value] : request.headers) {
    if (!isOneLine(name) || !isOneLine(value)) continue;
    const std::string line = name + ": " + value;
    headerLines.reset(curl_slist_append(headerLines.release(), line.c_str()));
  }
  curl_easy_setopt(handle(), CURLOPT_HTTPHEADER, headerLines.get());
}

Clock::time_point Transfer::deadline() const {
  return lastNews + std::chrono::duration_cast<Clock::duration>(std::chrono::duration<double>(request.idleSeconds));
}

std::size_t Transfer::receiveHeader(char* text, std::size_t size, std::size_t count, void* transfer) {
  const std::size_t length = size * count;
  return static_cast<Transfer*>(transfer)->addHeaderLine({text, length}) ? length : 0;
}

std::size_t Transfer::receiveBody(char* text, std::size_t size, std::size_t count, void* transfer) {
  const std::size_t length = size * count;
  return static_cast<Transfer*>(transfer)->addBody({text, length}) ? length : 0;
}

int Transfer::noticeProgress(void* transfer, curl_off_t, curl_off_t received, curl_off_t, curl_off_t) {
  auto& self = *static_cast<Transfer*>(transfer);
  if (std::exchange(self.bytesSeen, received) != received) self.lastNews = Clock::now();
  return 0;
}

bool Transfer::addHeaderLine(std::string_view line) {
  lastNews = Clock::now();
  headerBytes += line.size();
  if (headerBytes > maxHeaders) return false;
  // Each response of a chain of redirections begins with its status.
  if (line.starts_with("HTTP/")) answer.headers.clear();
  if (const std::size_t colon = line.find(':'); colon != line.npos)
    answer.headers.emplace_back(trimmed(line.substr(0, colon)), trimmed(line.substr(colon + 1)));
  return true;
}

bool Transfer::addBody(std::string_view bytes) {
  bodyIsTooLong = bytes.size() > url_loading::maxBody - answer.body.size();
  if (!bodyIsTooLong) answer.body.append(bytes);
  return !bodyIsTooLong;
}

UrlError Transfer::errorOf(CURLcode result) const {
  if (result == CURLE_WRITE_ERROR) return bodyIsTooLong ? UrlError::BodyTooLong : UrlError::CannotParseResponse;
  // Either a redirection leads to what is not loaded, or what answers does not speak the protocol.
  if (result == CURLE_UNSUPPORTED_PROTOCOL) {
    const bool isRedirection = answer.status >= firstRedirection && answer.status < firstFailure;
    return isRedirection ? UrlError::UnsupportedUrl : UrlError::CannotParseResponse;
  }
  for (const KnownError& known : knownErrors)
    if (known.result == result) return known.error;
  return UrlError::Unknown;
}

void Transfer::finish(CURLcode result) {
  long status = 0;
  const char* lastUrl = nullptr;
  curl_easy_getinfo(handle(), CURLINFO_RESPONSE_CODE, &status);
  curl_easy_getinfo(handle(), CURLINFO_EFFECTIVE_URL, &lastUrl);
  answer.status = static_cast<int>(status);
  answer.url = lastUrl == nullptr ? request.url : lastUrl;
  if (result != CURLE_OK) answer.error = errorOf(result);
  complete();
}

void Transfer::timeOut() {
  answer.url = request.url;
  answer.error = UrlError::TimedOut;
  complete();
}

void Transfer::complete() {
  if (answer.error) answer.body.clear();
  completion(std::move(answer));
}

}  // namespace transfers
