// The input is the user info of a notification, as JSON. Every photo provider reads it.
#include "fuzz/fuzzer_phone.hpp"

#include <nlohmann/json.hpp>
#include <string>
#include <string_view>

#include "objc/autorelease_pool.hpp"

namespace {

constexpr std::size_t maxBrackets = 100;

// Limits the nesting of the values, which is never deeper than the number of opening brackets. JSON values are copied
// and converted recursively, so deep nesting would exhaust the stack before a provider is called.
bool hasAcceptableNesting(std::string_view text) {
  std::size_t brackets = 0;
  for (const char character : text) brackets += character == '{' || character == '[' ? 1 : 0;
  return brackets <= maxBrackets;
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  fuzz::startPhone();
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(bytes), size);
  if (!hasAcceptableNesting(text)) return -1;
  const auto values = nlohmann::ordered_json::parse(text, nullptr, false);
  if (!values.is_object()) return -1;
  const objc::AutoreleasePool pool;
  const auto thread = values.find("thread");
  const auto request = fuzz::requestWith(
      values, thread != values.end() && thread->is_string() ? thread->get<std::string>() : std::string("1@s"));
  for (const Class provider :
       {BrimWhatsAppContactPhotoProvider::classObject(), BrimMessagesContactPhotoProvider::classObject(),
        BrimTwitterContactPhotoProvider::classObject(), BrimSlackContactPhotoProvider::classObject(),
        BrimDiscordContactPhotoProvider::classObject(), BrimInstagramContactPhotoProvider::classObject(),
        BrimMessengerContactPhotoProvider::classObject(), BrimTelegramContactPhotoProvider::classObject()})
    fuzz::findPicture(provider, request);
  return 0;
}
