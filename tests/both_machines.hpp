// Values that are the same on the phone as in the simulator, although the two differ in the representation of bool, in
// the calling convention for structs, in the root of paths and in the loader.
#pragma once

namespace test {

// The encodings of a flag's getter and setter.
inline constexpr const char* flagGetterEncoding = "B@:";
inline constexpr const char* flagSetterEncoding = "v@:B";

// The distance of the status line from the banner's top, for a bottom safe area. Points.
struct StatusLine {
  double bottomSafeArea;
  double top;
};
inline constexpr StatusLine statusLineWithHomeButton = {0, 65};
inline constexpr StatusLine statusLineWithoutHomeButton = {34, 44};

// Relative to the root folder of the phone.
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
