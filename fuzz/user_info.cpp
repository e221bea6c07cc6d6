// A notification's values, as JSON, through every provider.
#include "fuzz/phone.hpp"

#include <nlohmann/json.hpp>
#include "objc/autorelease_pool.hpp"

namespace {

constexpr std::size_t maxNesting = 100;

bool nestsSensibly(std::string_view text) {
  std::size_t opened = 0;
  for (const char letter : text) opened += letter == '{' || letter == '[' ? 1 : 0;
  return opened <= maxNesting;
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  fuzz::startPhone();
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(bytes), size);
  if (!nestsSensibly(text)) return -1;
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
