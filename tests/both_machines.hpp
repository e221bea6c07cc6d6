// What shall be seen alike on Linux and on the phone where the two differ beneath: in how a truth value is written and
// returned, how structs are returned, where paths begin, and how the running program is opened. Each machine has a
// test of its own against these values.
#pragma once

namespace test {

// The encodings of a flag's getter and setter.
inline constexpr const char* flagGetterEncoding = "B@:";
inline constexpr const char* flagSetterEncoding = "v@:B";

// Where the status line begins below the banner's top, by the safe area at the bottom of the screen.
struct StatusLine {
  double bottomSafeArea;
  double top;
};
inline constexpr StatusLine statusLineWithHomeButton = {0, 65};
inline constexpr StatusLine statusLineWithoutHomeButton = {34, 44};

// Below whatever the machine holds for the phone's root folder.
inline constexpr const char* assetBundle = "/Library/Application Support/Brim/Assets.bundle";

// The bulletin that a request for a test banner publishes.
struct TestBulletin {
  const char* title;
  const char* message;
  const char* section;
  unsigned destinations;
};
inline constexpr TestBulletin testBulletin = {"Brim", "Test notification", "com.apple.MobileSMS", 15};

}  // namespace test
