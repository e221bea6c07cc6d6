// How other processes of the phone have the home screen show a notification: one line of JSON over a socket in the
// root.
#pragma once

#include <filesystem>
#include <string>

namespace springboard {

struct Bulletin {
  std::string section;  // the application's bundle identifier
  std::string thread;
  std::string title;
  std::string message;
};

// From now on bulletins are presented as banners when the main thread lets in what comes from outside; each is in the
// event log as "banner". Once, when the home screen is there. Main thread.
void listenForBulletins();

// Sends one to the home screen that runs on the root. False where none does. Any process.
bool sendBulletin(const std::filesystem::path& root, const Bulletin& bulletin);

}  // namespace springboard
