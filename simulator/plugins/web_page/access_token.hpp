// The secret part of the page's address, without which other users of this computer cannot open the page. Main thread.
#pragma once

#include <filesystem>
#include <string>

namespace web_page {

// Returns the token of the phone, 32 hexadecimal digits. The token is in a file of this folder that only the user can
// read, so the address stays valid when the phone is started again. If there is no valid file, a new token is stored.
// Returns an empty text, with an error on standard error, if no token can be stored.
std::string accessToken(const std::filesystem::path& folder);

}  // namespace web_page
