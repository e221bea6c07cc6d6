// Values that the library must produce both on the phone and in the simulator, although the two differ in the
// representation of bool, in the calling convention for structs, in the root folder and in the loader of libraries.
#pragma once

namespace test {

// The type encodings of the getter and the setter of a Boolean property.
inline constexpr const char* flagGetterEncoding = "B@:";
inline constexpr const char* flagSetterEncoding = "v@:B";

// The distance from the banner's top to its status line, on a screen with this bottom safe area. In points.
struct StatusLine {
  double bottomSafeArea;
  double top;
};
inline constexpr StatusLine statusLineWithHomeButton = {0, 65};
inline constexpr StatusLine statusLineWithoutHomeButton = {34, 44};

// The path of the asset bundle, relative to the phone's root folder.
inline constexpr const char* assetBundle = "/Library/Application Support/Brim/Assets.bundle";

// The bulletin that the library publishes when a test banner is requested.
struct TestBulletin {
  const char* title;
  const char* message;
  const char* section;
  unsigned destinations;
};
inline constexpr TestBulletin testBulletin = {"Brim", "Test notification", "com.apple.MobileSMS", 15};

}  // namespace test
