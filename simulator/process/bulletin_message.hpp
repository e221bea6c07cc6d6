// The message by which a process of the phone asks the home screen to show a notification: one JSON object, sent over a
// socket in the root. The sender closes the connection after the message.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace process {

inline constexpr const char* bulletinSocket = "bulletins.socket";
// The folder of that socket.
std::filesystem::path bulletinFolder(const std::filesystem::path& root);

// UTF-8.
struct Bulletin {
  std::string section;  // the application's bundle identifier
  std::string thread;
  std::string title;
  std::string message;
};

// Sends the bulletin to the home screen that runs on the root. Returns false if none runs.
bool sendBulletin(const std::filesystem::path& root, const Bulletin& bulletin);

// Missing members and members that are not strings are empty. Returns nothing if the text is not a JSON object.
std::optional<Bulletin> parseBulletin(const std::string& text);

}  // namespace process
