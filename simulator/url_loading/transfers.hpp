// HTTP transfers, independent of the platform's classes. The transfers plugin implements them.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace url_loading {

// The platform's error codes of NSURLErrorDomain.
enum class UrlError : std::int64_t {
  Unknown = -1,
  BadUrl = -1000,
  TimedOut = -1001,
  UnsupportedUrl = -1002,
  CannotFindHost = -1003,
  CannotConnectToHost = -1004,
  ConnectionLost = -1005,
  TooManyRedirects = -1007,
  CannotDecodeBody = -1015,
  CannotParseResponse = -1017,
  BodyTooLong = -1103,
  SecureConnectionFailed = -1200,
  CertificateUntrusted = -1202,
};

using HeaderFields = std::vector<std::pair<std::string, std::string>>;

// A GET request for an http or https URL.
struct Request {
  std::string url;
  HeaderFields headers = {};
  // The transfer times out if the server sends nothing for this time.
  double idleTimeoutSeconds = 60;
  // A file of trusted certificates in PEM format. If it is empty, the system's certificates are trusted.
  std::string certificateFile = {};
};

struct TransferResult {
  // The status code of the last response after all redirects. It is 0 if there was no response.
  int status = 0;
  // The URL of the last response, after all redirects.
  std::string url = {};
  HeaderFields headers = {};
  // The decompressed body.
  std::string body = {};
  // The error; nothing if the transfer succeeded.
  std::optional<UrlError> error = {};
};

// The maximum size of a decompressed body.
inline constexpr std::size_t maxBodyBytes = 32 << 20;
inline constexpr long maxTransferSeconds = 600;

// The function that is called when a transfer has ended. It is called once, usually on the transfer thread. It must not
// block.
using Completion = std::function<void(TransferResult)>;

// Starts a transfer. If the plugin is missing, calls the completion with an error before it returns. Unfinished
// transfers end with the process, and their completions are not called. Any thread.
void startTransfer(Request request, Completion completion);

}  // namespace url_loading

// The function that the transfers plugin exports. It implements startTransfer.
extern "C" void brim_start_transfer(url_loading::Request request, url_loading::Completion completion);
