// Tests of invalid commands: each is rejected with an error that names the expected input.
#include "tests/support/plain_phone.hpp"

namespace {

using test::Json;
using test::PlainPhone;

struct Refusal {
  const char* line;
  const char* reason;
};

// One phone executes all of these lines, because a phone must still work after a rejected command.
constexpr Refusal refusals[] = {
    {"nonsense", "not JSON: parse error at line 1, column 2"},
    {R"({"do":"wait","seconds":1)", "not JSON: parse error at line 1, column 25"},
    {R"({"do":"wait","seconds":1}})", "not JSON"},
    {R"({"do":"wait","seconds":1e999})", "not JSON"},
    {"{\"do\":\"present\",\"section\":\"a\",\"title\":\"\xff\xfe\"}", "ill-formed UTF-8"},
    {R"({"do":"present","section":"a","title":"\ud800"})", "not JSON"},
    {"[]", "a command must be an object"},
    {"\"wait\"", "a command must be an object"},
    {"{}", "a command must be an object with a string \"do\""},
    {R"({"do":1})", "a command must be an object with a string \"do\""},
    {R"({"do":"restart","device":"iphone-se"})", "only a live phone can be restarted"},
    {R"({"do":"dance"})", "unknown command \"dance\"; the commands are present, push, update"},
    {R"({"do":"wait"})", "wait requires \"seconds\", a number of seconds"},
    {R"({"do":"wait","seconds":"1"})", "\"seconds\" of wait must be a number of seconds from 0 to a year"},
    {R"({"do":"wait","seconds":-1})", "must be a number of seconds from 0"},
    {R"({"do":"wait","seconds":1e12})", "must be a number of seconds from 0"},
    {R"({"do":"wait","seconds":1,"minutes":2})", "wait has no field \"minutes\"; its fields are seconds"},
    {R"({"do":"await","for":"rain"})", "photo, message, read, banner, http or idle"},
    {R"({"do":"await","for":"photo","seconds":0})", "no photo event occurred within the time limit"},
    {R"({"do":"await","for":"idle","seconds":0})", "did not become idle within the time limit"},
    {R"({"do":"await","for":"photo","seconds":-1})", "from 0 to 600"},
    {R"({"do":"present"})", "present requires \"section\""},
    {R"({"do":"present","section":""})", "not empty"},
    {R"({"do":"present","section":"a","title":5})", "\"title\" of present must be a string, not 5"},
    {R"({"do":"present","section":"a","title":null})", "\"title\" of present must be a string, not null"},
    {R"({"do":"present","section":"a","userInfo":[]})", "must be an object"},
    {R"({"do":"present","section":"a","clear":1})", "must be true or false"},
    {R"({"do":"present","section":"a","dismissAutomatically":"no"})", "true, false or null"},
    {R"({"do":"present","section":"a","at":"yesterday"})", "a date such as"},
    {R"({"do":"present","section":"a","actions":{}})", "an array of {\"key\""},
    {R"({"do":"present","section":"a","actions":[{"name":"x"}]})", "an array of {\"key\""},
    {R"({"do":"present","section":"a","actions":[{"key":1}]})", "an array of {\"key\""},
    {R"({"do":"present","section":"a","icon":"/nowhere.png"})", "is not a readable picture"},
    {R"({"do":"present","section":"a","icon":"/dev/null"})", "is not a readable picture"},
    {R"({"do":"update","title":"b"})", "update requires \"controller\", an integer"},
    {R"({"do":"update","controller":1})", "there is no controller 1; none has been presented yet"},
    {R"({"do":"dismiss","controller":0})", "there is no controller 0"},
    {R"({"do":"dismiss","controller":-3})", "there is no controller -3"},
    {R"({"do":"dismiss","controller":1.5})", "must be an integer"},
    {R"({"do":"dismiss","controller":18446744073709551615})", "there is no controller"},
    {R"({"do":"longlook","controller":7,"kind":"scroll"})", "there is no controller 7"},
    {R"({"do":"longlook","controller":1,"kind":"hard"})", "scroll, click or trigger"},
    {R"({"do":"state","controller":1})", "there is no controller 1"},
    {R"({"do":"state"})", "state requires \"controller\""},
    {R"({"do":"tree","controller":1})", "there is no controller 1"},
    {R"({"do":"tap"})", "exactly one of"},
    {R"({"do":"tap","at":[1,2],"label":"x"})", "exactly one of"},
    {R"({"do":"tap","at":[1]})", "[x,y], two numbers"},
    {R"({"do":"tap","at":["1","2"]})", "[x,y], two numbers"},
    {R"({"do":"tap","at":[1000,2]})", "not on the screen"},
    {R"({"do":"tap","label":"No such text"})", "no view has the text \"No such text\"; the "},
    {R"({"do":"tap","controller":1})", "there is no controller 1"},
    {R"({"do":"drag"})", "drag requires \"by\""},
    {R"({"do":"drag","by":[0,10]})", "no banner is on screen"},
    {R"({"do":"drag","by":[0,10],"at":[5,5],"controller":1})", "not both"},
    {R"({"do":"drag","by":[0,10],"at":[5,5],"steps":0})", "an integer from 1 to 10000"},
    {R"({"do":"drag","by":[0,10],"at":[5,5],"end":"fling"})", "release, cancel or hold"},
    {R"({"do":"type"})", "type requires \"text\""},
    {R"({"do":"type","text":"hello"})", "no view has the keyboard focus"},
    {R"({"do":"key","name":"return"})", "no view has the keyboard focus"},
    {R"({"do":"key","name":"escape"})", "return or backspace"},
    {R"({"do":"press","type":101})", "press requires \"force\""},
    {R"({"do":"press","type":"home","force":0})", "must be an integer"},
    {R"({"do":"lock","now":true})", "lock has no field \"now\"; it takes no fields"},
    {R"({"do":"set","key":"enabled"})", "set requires \"value\""},
    {R"({"do":"set","key":"","value":1})", "not empty"},
    {R"({"do":"set","key":"enabled","value":[null]})", "null to remove it"},
    {R"({"do":"appearance","style":"gray"})", "light or dark"},
    {R"({"do":"screenshot"})", "screenshot requires \"path\""},
    {R"({"do":"screenshot","path":"/no/such/folder/a.png"})", "could not be written"},
    {R"({"do":"screenshot","path":"a.png","scale":0})", "above 0, at most 8"},
    {R"({"do":"screenshot","path":"a.png","scale":9})", "above 0, at most 8"},
    {R"({"do":"screenshot","path":"a.png","crop":1})", "there is no controller 1"},
};

TEST(RefusedCommands, NameTheExpectedInput) {
  PlainPhone phone;
  for (const Refusal& refusal : refusals) {
    const Json answer = phone.answerLine(refusal.line);
    EXPECT_FALSE(answer.at("ok").get<bool>()) << refusal.line;
    const std::string reason = answer.value("error", "");
    EXPECT_NE(reason.find(refusal.reason), std::string::npos) << refusal.line << " was answered with " << reason;
    EXPECT_EQ(answer.size(), 2U);
  }
  EXPECT_EQ(phone.present(), 1);
}

TEST(RefusedCommands, ZeroByteDoesNotEndALine) {
  PlainPhone phone;
  using namespace std::string_literals;
  EXPECT_FALSE(phone.answerLine("{\"do\":\"log\"}\0 and more"s).at("ok").get<bool>());
}

TEST(RefusedCommands, NestingIsLimited) {
  PlainPhone phone;
  const std::string deep = std::string(100000, '[') + std::string(100000, ']');
  const Json answer = phone.answerLine(R"({"do":"present","section":"a","userInfo":{"a":)" + deep + "}}");
  EXPECT_NE(answer.value("error", "").find("levels deep"), std::string::npos);
  const Json brackets = phone.answerLine(R"({"do":"present","section":"a","title":")" + std::string(1000, '[') + "\"}");
  EXPECT_TRUE(brackets.at("ok").get<bool>());
}

std::string objectWithMembers(int count) {
  std::string object = "{";
  for (int member = 0; member < count; ++member)
    object += (member == 0 ? "\"" : ",\"") + std::to_string(member) + "\":0";
  return object + "}";
}

TEST(RefusedCommands, NumberOfMembersIsLimited) {
  PlainPhone phone;
  const std::string start = R"({"do":"present","section":"a","userInfo":)";
  EXPECT_TRUE(phone.answerLine(start + objectWithMembers(5000) + "}").at("ok").get<bool>());
  const Json answer = phone.answerLine(start + objectWithMembers(1'000'000) + "}");
  EXPECT_NE(answer.value("error", "").find("more than 10000 members"), std::string::npos) << answer;
  const Json colons = phone.answerLine(R"({"do":"present","section":"a","title":")" + std::string(20000, ':') + "\"}");
  EXPECT_TRUE(colons.at("ok").get<bool>());
}

TEST(RefusedCommands, ErrorsQuoteOnlyTheStartOfALongText) {
  PlainPhone phone;
  std::string text;
  for (int count = 0; count < 100'000; ++count) text += "é";
  const Json commands[] = {{{"do", text}},
                           {{"do", "log"}, {text, 1}},
                           {{"do", "present"}, {"section", "a"}, {"icon", text}},
                           {{"do", "push"}, {"application", text}, {"payload", {{"aps", {{"alert", "x"}}}}}},
                           {{"do", "tap"}, {"label", text}},
                           {{"do", "contacts"}, {"path", text}},
                           {{"do", "screenshot"}, {"path", text}}};
  for (const Json& command : commands) {
    const Json answer = phone.answerLine(command.dump());
    EXPECT_FALSE(answer.at("ok").get<bool>());
    EXPECT_LT(answer.value("error", "").size(), 5000U) << command.dump().substr(0, 40);
    EXPECT_NO_THROW(static_cast<void>(answer.dump())) << "the error must be valid UTF-8";
  }
  EXPECT_NE(phone.answerLine(commands[0].dump()).value("error", "").find("the commands are"), std::string::npos);
}

TEST(RefusedCommands, DismissedControllerIsNotOnScreen) {
  PlainPhone phone;
  const int controller = phone.present();
  phone.wait(10);
  const Json tap = phone.answer({{"do", "tap"}, {"controller", controller}});
  EXPECT_NE(tap.value("error", "").find("no longer on screen"), std::string::npos) << tap;
  const Json dismiss = phone.answer({{"do", "dismiss"}, {"controller", controller}});
  EXPECT_NE(dismiss.value("error", "").find("no longer exists"), std::string::npos) << dismiss;
}

TEST(RefusedCommands, IllFormedTextIsRejectedInParsedCommandsToo) {
  PlainPhone phone;
  const Json answer = phone.answer({{"do", "\xff"}});
  EXPECT_FALSE(answer.at("ok").get<bool>());
}

}  // namespace
