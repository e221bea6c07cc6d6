// The simulated phone in which the fuzzers run. It contains files of other applications and one banner. It sends
// nothing to the network; setPageResponse() provides the responses. Main thread only.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <nlohmann/json_fwd.hpp>
#include <string>

#include "library/photos/provider.hpp"
#include "library/view/brim_container.hpp"
#include "simulator/springboard/services/notification_request.hpp"

namespace fuzz {

// Starts the phone. Call it once per process. The process prints an error and aborts if the phone cannot be started.
// The root is in a temporary folder, which is removed when the process exits.
void startPhone();

// The folder that represents the phone's file system.
const std::filesystem::path& root();
// The banner. It belongs to no notification and is never dismissed.
BrimContainer* banner();

// Creates an object of the photo provider's class, requests a picture for the banner from it, and runs the main queue
// until no work is due.
void findPicture(Class provider, NCNotificationRequest* request);
// Creates a notification request from the Messages app. `thread` identifies the conversation.
objc::Ref<NCNotificationRequest> requestWith(nlohmann::ordered_json userInfo, std::string thread = "1@s");

// Sets the body of the response to each request for a web page. Before the first call, and after a call with nil, these
// requests receive no response.
void setPageResponse(NSData* data);

// Copies the bytes. The result is autoreleased.
NSData* dataOf(const std::uint8_t* bytes, std::size_t size);
// Creates the folders of the path if they are missing. Throws std::runtime_error if the file cannot be written.
void writeFile(const std::filesystem::path& path, const std::uint8_t* bytes, std::size_t size);

}  // namespace fuzz
