// Tests of input methods of the desktop. The module in input_method/ forwards the commands of InputMethod to GTK.
#include <gtest/gtest.h>
#include <poll.h>
#include <stdlib.h>
#include <sys/socket.h>

#include <fstream>
#include <stdexcept>
#include <string>

#include "simulator/foundation/local_socket.hpp"
#include "tests/window/window_phone.hpp"

namespace {

using nlohmann::json;
using test::eventually;
using test::WindowPhone;

// The process of an input method. Phones that are started afterwards use it.
class InputMethod {
 public:
  InputMethod() {
    std::ofstream(folder_.path() / "modules") << '"' << INPUT_METHOD_MODULE << "\"\n"
                                              << R"("brim-test" "Test" "brim" "" "")" << '\n';
    listening_ = foundation::listenIn(folder_.path(), "input");
    setenv("GTK_IM_MODULE_FILE", (folder_.path() / "modules").c_str(), 1);
    setenv("GTK_IM_MODULE", "brim-test", 1);
    setenv("BRIM_TEST_INPUT_METHOD", (folder_.path() / "input").c_str(), 1);
  }

  // Waits until the focused window uses the input method.
  void connect() {
    pollfd waiting = {listening_.get(), POLLIN, 0};
    poll(&waiting, 1, maxMilliseconds);
    connection_ = foundation::acceptFrom(listening_);
    if (!connection_.isOpen()) throw std::runtime_error("the phone does not use the input method");
  }
  void send(const std::string& command) const { static_cast<void>(foundation::sendAll(connection_, command + "\n")); }
  std::string ask(const std::string& command) const {
    send(command);
    pollfd waiting = {connection_.get(), POLLIN, 0};
    poll(&waiting, 1, maxMilliseconds);
    char buffer[4096];
    const ssize_t size = recv(connection_.get(), buffer, sizeof buffer, MSG_DONTWAIT);
    return {buffer, static_cast<std::size_t>(std::max<ssize_t>(size - 1, 0))};
  }
  void end() { connection_ = {}; }

 private:
  static constexpr int maxMilliseconds = 30'000;

  test::TemporaryFolder folder_;
  foundation::FileDescriptor listening_;
  foundation::FileDescriptor connection_;
};

class WindowInputMethod : public testing::Test {
 public:
  // Opens the reply field of a banner.
  WindowInputMethod() {
    phone.showBanner();
    phone.tell({{"do", "drag"}, {"by", {0, 120}}});
    phone.display.focus(phone.window);
    method.connect();
  }

  // The reply field in the tree of views.
  json field() const { return find(phone.tell({{"do", "tree"}})["windows"]); }
  bool shows(const std::string& text, const json& marked) const {
    return eventually([&] {
      const json node = field();
      if (node.is_null()) return false;
      return node.value("text", json()) == text && node.value("markedText", json()) == marked;
    });
  }

  InputMethod method;
  const WindowPhone phone;

 private:
  static json find(const json& node) {
    if (node.is_object() && node.contains("text") && node.value("firstResponder", false)) return node;
    if (!node.is_structured()) return {};
    for (const json& child : node)
      if (json found = find(child); !found.is_null()) return found;
    return {};
  }
};

TEST_F(WindowInputMethod, UnfinishedTextIsMarkedAndThenReplaced) {
  phone.display.send("type --delay 20 Hi");
  ASSERT_TRUE(shows("Hi", nullptr));
  method.send("preedit 2 ni");
  EXPECT_TRUE(shows("Hini", "ni"));
  const std::string caret = method.ask("caret");
  method.send("preedit 5 nihao");
  EXPECT_TRUE(shows("Hinihao", "nihao"));
  EXPECT_TRUE(eventually([&] { return method.ask("caret") != caret; }));
  EXPECT_TRUE(eventually([&] { return phone.showsScreen(); }));
  method.send("commit \u4f60\u597d");
  EXPECT_TRUE(shows("Hi\u4f60\u597d", nullptr));
}

TEST_F(WindowInputMethod, CanceledTextLeavesNoTrace) {
  phone.display.send("type --delay 20 Hi");
  ASSERT_TRUE(shows("Hi", nullptr));
  const json before = field();
  method.send("preedit 1 ni");
  ASSERT_TRUE(shows("Hini", "ni"));
  method.send("preedit 0 ");
  EXPECT_TRUE(eventually([&] { return field() == before; }));
}

TEST_F(WindowInputMethod, EditsTheSurroundingText) {
  phone.display.send("type --delay 20 Hello");
  ASSERT_TRUE(shows("Hello", nullptr));
  EXPECT_EQ(method.ask("surrounding"), "Hello|");
  method.send("delete -3 2");
  EXPECT_TRUE(shows("Heo", nullptr));
  method.send("preedit 2 ni");
  ASSERT_TRUE(shows("Heoni", "ni"));
  EXPECT_EQ(method.ask("surrounding"), "Heo|");
  method.send("delete -1 9");
  EXPECT_TRUE(shows("Heni", "ni"));
}

TEST_F(WindowInputMethod, EndOfItsProcessRemovesTheUnfinishedText) {
  phone.display.send("type --delay 20 Hi");
  method.send("preedit 2 ni");
  ASSERT_TRUE(shows("Hini", "ni"));
  method.end();
  EXPECT_TRUE(shows("Hi", nullptr));
  phone.display.send("type --delay 20 '!!'");
  EXPECT_TRUE(shows("Hi!!", nullptr));
}

TEST_F(WindowInputMethod, NextKeyRemovesAnUnfinishedTextThatVanishedSilently) {
  phone.display.send("type --delay 20 Hi");
  method.send("preedit 2 ni");
  ASSERT_TRUE(shows("Hini", "ni"));
  method.send("forget");
  ASSERT_EQ(method.ask("surrounding"), "Hi|");
  phone.display.send("key BackSpace");
  EXPECT_TRUE(shows("H", nullptr)) << field();
}

TEST_F(WindowInputMethod, EndOfEditingFinishesTheText) {
  method.send("preedit 2 ni");
  ASSERT_TRUE(shows("ni", "ni"));
  phone.display.send("key Escape");
  ASSERT_TRUE(eventually([&] { return field().is_null(); }));
  EXPECT_TRUE(phone.showsText("ni"));
}

}  // namespace
