// Checks that the simulator's classes implement every message that the headers in platform/ send. Without a method for
// a message, a test of the library would end with an unknown selector, or would pass without testing anything.
#include <dlfcn.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <string>
#include <vector>

#include "objc/runtime.hpp"
#include "simulator/messages/messages_classes.hpp"
#include "simulator/settings/list_controller.hpp"
#include "tests/library/phone.hpp"

namespace {

enum class Receiver { Instance, Class };

struct Binding {
  std::string className;
  std::string selector;
  Receiver receiver;
};

std::string readFile(const std::filesystem::path& path) {
  std::ifstream file(path);
  return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<std::string> readHeaders() {
  std::vector<std::string> texts;
  for (const auto& entry : std::filesystem::directory_iterator(PLATFORM_HEADERS))
    if (entry.path().extension() == ".hpp") texts.push_back(readFile(entry.path()));
  return texts;
}

// Matches the declaration of a class, and messages that are sent to `this`, to a newly allocated object or to the
// class.
const std::regex declarationOrMessage(
    R"re(objc::Interface<"(\w+)",|objc::send<[^"]*?"([^"]+)">\s*\(\s*(this|objc::allocate|classObject))re");

std::vector<Binding> bindings() {
  std::vector<Binding> found;
  for (const std::string& text : readHeaders()) {
    std::string className;
    for (auto match = std::sregex_iterator(text.begin(), text.end(), declarationOrMessage);
         match != std::sregex_iterator(); ++match) {
      if ((*match)[1].matched) {
        className = (*match)[1];
      } else {
        found.push_back({className, (*match)[2], (*match)[3] == "classObject" ? Receiver::Class : Receiver::Instance});
      }
    }
  }
  return found;
}

std::vector<std::string> cFunctions() {
  const std::regex block(R"re(extern "C" \{([^}]*)\})re");
  const std::regex name(R"re([\s*](\w+)\()re");
  std::vector<std::string> found;
  for (const std::string& text : readHeaders()) {
    for (auto match = std::sregex_iterator(text.begin(), text.end(), block); match != std::sregex_iterator(); ++match) {
      const std::string inside = std::regex_replace((*match)[1].str(), std::regex("//[^\n]*"), "");
      for (auto each = std::sregex_iterator(inside.begin(), inside.end(), name); each != std::sregex_iterator(); ++each)
        found.push_back((*each)[1]);
    }
  }
  return found;
}

TEST(Bindings, SimulatorClassesImplementEveryMessage) {
  const test::Phone phone;
  // The process also registers the classes of the Messages app, which loads the library too, and those of the Settings
  // application, which loads the settings pane.
  messages::registerClasses();
  settings_application::registerClasses();
  const std::vector<Binding> all = bindings();
  ASSERT_GT(all.size(), 150u);
  for (const Binding& binding : all) {
    const auto target =
        reinterpret_cast<Class>(binding.receiver == Receiver::Class ? objc_getMetaClass(binding.className.c_str())
                                                                    : objc_getClass(binding.className.c_str()));
    ASSERT_NE(target, nullptr) << "the simulator does not define the class " << binding.className;
    EXPECT_TRUE(class_respondsToSelector(target, sel_registerName(binding.selector.c_str())))
        << (binding.receiver == Receiver::Class ? "+" : "-") << "[" << binding.className << " " << binding.selector
        << "]";
  }
}

TEST(Bindings, EveryFunctionIsExported) {
  const std::vector<std::string> all = cFunctions();
  ASSERT_GT(all.size(), 6u);
  for (const std::string& name : all) EXPECT_NE(dlsym(RTLD_DEFAULT, name.c_str()), nullptr) << name;
}

}  // namespace
