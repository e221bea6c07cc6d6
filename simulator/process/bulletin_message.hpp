// The message with which a process of the phone asks the home screen to show a notification. The message is one JSON
// object, which is sent over a socket in the root. The sender closes the connection after the message. Each home screen
// has its own socket, because several home screens with a stepped clock can use one root. Any thread.
#pragma once

#include <sys/types.h>

#include <filesystem>
#include <optional>
#include <string>

namespace process {

// Returns the folder of the sockets.
std::filesystem::path bulletinFolder(const std::filesystem::path& root);
// Returns the name of the socket of the home screen with this process identifier.
std::string bulletinSocketOf(pid_t process);
// Removes the sockets of home screens that were killed.
void removeStaleBulletinSockets(const std::filesystem::path& root);

// A notification. All texts are UTF-8.
struct Bulletin {
  std::string section;  // the application's bundle identifier
  std::string thread;   // the identifier of the conversation; empty if there is none
  std::string title;
  std::string message;
};

// Sends the bulletin to all home screens that use the root. Returns false if no home screen is running.
bool sendBulletin(const std::filesystem::path& root, const Bulletin& bulletin);

// Parses a received message. A member that is missing or not a string becomes empty. Returns nothing if the text is not
// a JSON object.
std::optional<Bulletin> parseBulletin(const std::string& text);

}  // namespace process
