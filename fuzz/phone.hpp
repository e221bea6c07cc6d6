// A phone that fuzzers run in: with data of other applications, a banner, and no network.
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

// Starts the phone, once a process. Its root is a folder of its own that goes with the process.
void startPhone();

const std::filesystem::path& root();
// On screen, and stays there.
BrimContainer* banner();

// Has a provider find a picture for the banner, and does all that comes of it, requests excepted.
void findPicture(Class provider, NCNotificationRequest* request);
// A request of an application with these values for its own use.
objc::Ref<NCNotificationRequest> requestWith(nlohmann::ordered_json userInfo, std::string thread = "1@s");

// What the page is answered that a provider asks for meanwhile; nothing by default.
void answerPageWith(NSData* data);

NSData* dataOf(const std::uint8_t* bytes, std::size_t size);
void writeFile(const std::filesystem::path& path, const std::uint8_t* bytes, std::size_t size);

}  // namespace fuzz
