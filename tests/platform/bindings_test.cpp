// Walks every message of platform/ and asks the simulator's class whether it answers: a binding that the phone has and
// the simulator lacks would make a test of the library end the process, or worse, pass.
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
#include "tests/library/phone.hpp"

namespace {

enum class Receiver { Instance, Class };

struct Binding {
  std::string className;
  std::string selector;
  Receiver receiver;
};

std::string contents(const std::filesystem::path& path) {
  std::ifstream file(path);
  return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<std::string> headers() {
  std::vector<std::string> texts;
  for (const auto& entry : std::filesystem::directory_iterator(PLATFORM_HEADERS))
    if (entry.path().extension() == ".hpp") texts.push_back(contents(entry.path()));
  return texts;
}

// A class declaration, or a message sent to this, to a new object or to the class.
const std::regex declarationOrMessage(
    R"re(objc::Interface<"(\w+)",|objc::send<[^"]*?"([^"]+)">\s*\(\s*(this|objc::allocate|classObject))re");

std::vector<Binding> bindings() {
  std::vector<Binding> found;
  for (const std::string& text : headers()) {
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
  for (const std::string& text : headers()) {
    for (auto match = std::sregex_iterator(text.begin(), text.end(), block); match != std::sregex_iterator(); ++match) {
      const std::string inside = std::regex_replace((*match)[1].str(), std::regex("//[^\n]*"), "");
      for (auto each = std::sregex_iterator(inside.begin(), inside.end(), name); each != std::sregex_iterator(); ++each)
        found.push_back((*each)[1]);
    }
  }
  return found;
}

TEST(Bindings, EveryMessageIsAnsweredByTheSimulatorsClass) {
  const test::Phone phone;
  // Those of the other process that the library is mapped into.
  messages::registerClasses();
  const std::vector<Binding> all = bindings();
  ASSERT_GT(all.size(), 150u);
  for (const Binding& binding : all) {
    const auto target =
        reinterpret_cast<Class>(binding.receiver == Receiver::Class ? objc_getMetaClass(binding.className.c_str())
                                                                    : objc_getClass(binding.className.c_str()));
    ASSERT_NE(target, nullptr) << "there is no class " << binding.className;
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
