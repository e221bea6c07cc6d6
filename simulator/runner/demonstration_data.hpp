// What the demonstration's applications have on the phone and on the web: pictures of the people who write.
#pragma once

#include <string>

namespace runner {

// Puts their files into the phone's root, serves their web pages on this machine's loopback interface until the process
// ends, and has the library look for them there. Answers the address of the web server, such as
// "http://127.0.0.1:8080". Throws CommandError. Once, when the phone has started.
std::string installDemonstrationData();

}  // namespace runner
