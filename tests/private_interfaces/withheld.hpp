// Withholds an interface of the platform from the library, as if the process did not have it. The simulator itself
// still uses it. A test process withholds at most one interface, before it starts the phone. Main thread.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <ostream>
#include <string>
#include <vector>

#include "library/startup/private_interfaces.hpp"

namespace test {

struct PrivateInterface {
  InterfaceKind kind;
  const char* className;
  const char* name;
  const char* since;
  const char* until;
  Requirement requirement;
  const char* effect;
};

// Every row of the library's list.
const std::vector<PrivateInterface>& privateInterfaces();

enum class App : std::uint8_t { HomeScreen, Messages };

// The rows that the library uses in this app. Each row belongs to at least one app.
std::vector<PrivateInterface> interfacesIn(App app);

// Returns a text such as "-[NSData ic_md5]".
std::string descriptionOf(const PrivateInterface& interface);
inline void PrintTo(const PrivateInterface& interface, std::ostream* stream) { *stream << descriptionOf(interface); }

// The name of the test with this parameter: letters, digits and underscores.
std::string testName(const testing::TestParamInfo<PrivateInterface>& test);

// The interface must exist until the process ends.
void withhold(const PrivateInterface& interface);

// Makes the runtime refuse to define the class with this name.
void refuseToDefine(const char* className);

// Replaces the platform's dismissal of a banner's controller: it calls the completion immediately, with this value in
// the register of the argument, and does nothing else.
void completeDismissalsWith(unsigned value);

// The data for which the library itself has computed MD5 digests.
const std::vector<std::string>& digestedData();

// The messages that the library has sent although the receiver does not respond to them. On a phone, each of these
// messages would end the process.
const std::vector<std::string>& unrecognizedSelectors();

}  // namespace test
