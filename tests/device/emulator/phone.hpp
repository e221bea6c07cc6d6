// A phone's process in the emulator, into which the library is mapped.
#pragma once

#include <optional>

#include "tests/device/emulator/c_library.hpp"
#include "tests/device/emulator/image.hpp"
#include "tests/device/emulator/imports.hpp"
#include "tests/device/emulator/picture_sources.hpp"
#include "tests/device/emulator/platform_classes.hpp"
#include "tests/device/emulator/runtime_functions.hpp"

namespace device {

// Which of the classes that the library changes a process has.
enum class Process { HomeScreen, Other };

class Phone {
 public:
  // Starts the process and maps the library into it.
  explicit Phone(Platform platform = {}, Process process = Process::HomeScreen);
  Phone(const Phone&) = delete;
  Phone& operator=(const Phone&) = delete;

  // The rows that the library reports of itself: class, selector, encoding, kind, and whether they took effect.
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
  // The object that a variable of the class holds in another object.
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
