// What is asked of a server and what came back, as plain values.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace url_loading {

// Why there is no answer, in the platform's numbers.
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

// A GET of an http or https address.
struct Request {
  std::string url;
  HeaderFields headers = {};
  // How long the server may be silent.
  double idleSeconds = 60;
  // A file of the certificates that are trusted; empty: those that the machine trusts.
  std::string certificates = {};
};

struct Answer {
  // Of the last response, after all redirections; 0 without one.
  int status = 0;
  std::string url = {};
  HeaderFields headers = {};
  // Decompressed.
  std::string body = {};
  std::optional<UrlError> error = {};
};

// The most that a body may hold once it is decompressed, and the longest that a transfer may take.
inline constexpr std::size_t maxBody = 32 << 20;
inline constexpr long maxTransferSeconds = 600;

}  // namespace url_loading
