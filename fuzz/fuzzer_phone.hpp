// The phone in which the fuzzers run. It has data of other applications and a banner on screen, but no network. Main
// thread.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <string_view>

#include "library/photos/provider.hpp"
#include "library/view/brim_container.hpp"
#include "simulator/springboard/services/notification_request.hpp"

namespace fuzz {

// Starts the phone. Call it once per process. The root is in a temporary folder, which is removed when the process
// exits.
void startPhone();

const std::filesystem::path& root();
// The banner, which is never dismissed.
BrimContainer* banner();

// Makes an instance of a provider class find a picture for the banner, and runs the main queue.
void findPicture(Class provider, NCNotificationRequest* request);
// Creates a notification request with this user info.
objc::Ref<NCNotificationRequest> requestWith(nlohmann::ordered_json userInfo, std::string thread = "1@s");

// Sets the response to each request for a web page. Without one, requests are not answered.
void setPageResponse(NSData* data);

NSData* dataOf(const std::uint8_t* bytes, std::size_t size);
void writeFile(const std::filesystem::path& path, const std::uint8_t* bytes, std::size_t size);

}  // namespace fuzz
