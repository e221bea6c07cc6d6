// The data of the demonstration: files on the phone and web pages that contain the pictures of the senders.
#pragma once

#include <nlohmann/json_fwd.hpp>
#include <string>

namespace runner {

// Copies the files into the phone's root, starts a web server for the pages on the loopback interface, and configures
// the library to use this server. The server runs until the process ends. Returns the address of the server, such as
// "http://127.0.0.1:8080". Call this once, after the phone has started. Throws CommandError. Main thread.
std::string installDemonstrationData();
// Returns the address of the server, or an empty string if the data is not installed.
const std::string& demonstrationAddress();

// Stores the message of a notification as a received message in the conversation that the notification's thread names,
// because the Messages app sends a reply only to a stored conversation. Throws messages::StoreError.
void storeConversation(const nlohmann::ordered_json& notification);

}  // namespace runner
