// An emulated process of a phone, with the library loaded.
#pragma once

#include <optional>

#include "tests/device/emulator/c_library.hpp"
#include "tests/device/emulator/image.hpp"
#include "tests/device/emulator/imports.hpp"
#include "tests/device/emulator/picture_sources.hpp"
#include "tests/device/emulator/platform_classes.hpp"
#include "tests/device/emulator/runtime_functions.hpp"

namespace device {

// The kind of process. It determines which of the classes that the library changes exist.
enum class Process { HomeScreen, Other };

class Phone {
 public:
  // Creates the process and loads the library, whose initializer runs.
  explicit Phone(Platform platform = {}, Process process = Process::HomeScreen);
  Phone(const Phone&) = delete;
  Phone& operator=(const Phone&) = delete;

  // A hook that the library reports. `effective` means that it is in effect.
  struct ReportedMethod {
    std::string className;
    std::string selector;
    std::string encoding;
    std::string kind;
    bool effective;
  };
  std::vector<ReportedMethod> reportedMethods();

  struct ReportedSetting {
    std::string key;
    std::string type;
    Address variable;
  };
  std::vector<ReportedSetting> reportedSettings();

  Address string(const std::string& text) { return makeString(runtime, text); }
  std::string text(Address string) { return textOf(runtime, string); }
  // Returns the value of an object's instance variable.
  Address variable(Address object, const std::string& name);

  Processor processor;
  ObjectiveC runtime;
  Imports imports;
  CLibrary c;
  Platform platform;
  std::optional<PictureSources> pictures;
  std::vector<ChangedMethod> changes;

  const Image& library() const { return *image; }

 private:
  std::optional<Image> image;
};

}  // namespace device
