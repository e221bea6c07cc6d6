#include "simulator/plugins/web_page/access_token.hpp"

#include <fcntl.h>
#include <glib.h>
#include <sys/random.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <memory>
#include <string_view>

#include "simulator/foundation/descriptor.hpp"

namespace web_page {

namespace {

constexpr const char* fileName = "page.token";
constexpr std::size_t randomBytes = 16;
constexpr std::string_view digits = "0123456789abcdef";

bool isToken(std::string_view text) {
  return text.size() == 2 * randomBytes && text.find_first_not_of(digits) == std::string_view::npos;
}

// Returns an empty text if the file does not exist, or if another user could have read or written it.
std::string storedToken(const std::filesystem::path& path) {
  const foundation::FileDescriptor file(open(path.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
  struct stat status = {};
  if (!file.isOpen() || fstat(file.get(), &status) != 0 || !S_ISREG(status.st_mode)) return "";
  if (status.st_uid != geteuid() || (status.st_mode & (S_IRWXG | S_IRWXO)) != 0) return "";
  char text[2 * randomBytes + 1];
  const ssize_t size = read(file.get(), text, sizeof text);
  const std::string_view token(text, static_cast<std::size_t>(std::max<ssize_t>(size, 0)));
  return isToken(token) ? std::string(token) : "";
}

std::string newToken() {
  unsigned char bytes[randomBytes];
  if (getrandom(bytes, sizeof bytes, 0) != sizeof bytes) return "";
  std::string token;
  for (const unsigned char byte : bytes) {
    token += digits[byte / 16];
    token += digits[byte % 16];
  }
  return token;
}

}  // namespace

std::string accessToken(const std::filesystem::path& folder) {
  const std::filesystem::path path = folder / fileName;
  if (std::string token = storedToken(path); !token.empty()) return token;
  std::string token = newToken();
  GError* error = nullptr;
  if (g_file_set_contents_full(path.c_str(), token.data(), static_cast<gssize>(token.size()),
                               G_FILE_SET_CONTENTS_CONSISTENT, S_IRUSR | S_IWUSR, &error) != FALSE)
    return token;
  std::fprintf(stderr, "springboard: %s: %s\n", path.c_str(), error->message);
  g_error_free(error);
  return "";
}

}  // namespace web_page
