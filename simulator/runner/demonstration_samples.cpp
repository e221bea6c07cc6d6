#include "simulator/runner/demonstration_samples.hpp"

namespace runner {

namespace {

const Json pullOpen = {{"do", "drag"}, {"by", {0, 120}}};
const Json annasCard = {{"CKBBContextKeySenderPersonCentricID", "C0FFEE00-0001-4A11-8E11-0000000000A1"}};

Json preference(const char* key, const Json& value) { return {{"do", "set"}, {"key", key}, {"value", value}}; }

std::vector<Sample> samplesWithoutPictures() {
  return {
      {.name = "mail",
       .pictureSource = PictureSource::None,
       .notification = {{"section", "com.apple.mobilemail"},
                        {"title", "Print Shop Lindner"},
                        {"subtitle", "Your order is ready"},
                        {"message",
                         "Good morning, your posters have been printed and can be collected until Saturday at six."}}},
      {.name = "alarm",
       .pictureSource = PictureSource::None,
       .notification = {{"section", "com.apple.mobiletimer"},
                        {"title", "Alarm"},
                        {"message", "Water the plants"},
                        {"close", true},
                        {"dismissAutomatically", false},
                        {"actions", {{{"key", "snooze"}, {"identifier", "MTAlarmSnoozeAction"}, {"title", "Snooze"}}}}},
       .steps = {pullOpen, waitStep(0.4)}},
      {.name = "calendar",
       .pictureSource = PictureSource::None,
       .notification = {{"section", "com.apple.mobilecal"},
                        {"title", "Design review"},
                        {"message", "Today at 14:00\nRoom 3.07"}}},
      {.name = "long-text",
       .pictureSource = PictureSource::None,
       .notification = {{"section", "com.apple.reminders"},
                        {"title", "Before the release"},
                        {"message",
                         "The build is green again. What changed since yesterday: the importer no longer stops at "
                         "empty rows, the preview draws twice as fast, and the French texts are complete. If nobody "
                         "objects by four, it goes out tonight, and the notes go to everybody tomorrow morning."}},
       .steps = {pullOpen, waitStep(0.4)}},
  };
}

// Returns one sample for each application whose pictures of senders are in the phone's files or address book.
std::vector<Sample> samplesWithFiles() {
  return {
      {.name = "messages",
       .pictureSource = PictureSource::Phone,
       .notification = {{"section", "com.apple.MobileSMS"},
                        {"title", "Anna Weber"},
                        {"message", "Are we still on for lunch? I found a place by the river 🌊"},
                        {"userInfo", annasCard}}},
      {.name = "messages-open",
       .pictureSource = PictureSource::Phone,
       .notification = {{"section", "com.apple.MobileSMS"},
                        {"title", "Anna Weber"},
                        {"message", "The table is booked for one o'clock."},
                        {"userInfo", annasCard}},
       .steps = {pullOpen, waitStep(0.4)},
       .preparation = {preference("showButtons", true)},
       .restoration = {preference("showButtons", nullptr)}},
      {.name = "messages-reply",
       .pictureSource = PictureSource::Phone,
       .notification = {{"section", "com.apple.MobileSMS"},
                        {"title", "Anna Weber"},
                        {"message", "The table is booked for one o'clock. Will you be there?"},
                        {"thread", "+491701234567"},
                        {"userInfo", annasCard}},
       .steps = {pullOpen, waitStep(0.4)},
       .reply = "On my way 🚲"},
      {.name = "whatsapp",
       .pictureSource = PictureSource::Phone,
       .notification = {{"section", "net.whatsapp.WhatsApp"},
                        {"title", "ليلى منصور"},
                        {"message", "صباح الخير! هل نلتقي اليوم في المقهى القريب من المكتبة؟"},
                        {"thread", "4915112345678@s.whatsapp.net"}}},
      {.name = "telegram",
       .pictureSource = PictureSource::Phone,
       .notification = {{"section", "ph.telegra.Telegraph"},
                        {"title", "Kenji"},
                        {"message", "The night train leaves at 22:14 from platform 7. I have the tickets."},
                        {"userInfo", {{"from_id", "42"}}}}},
  };
}

// Returns one sample for each application whose pictures of senders are on the web.
std::vector<Sample> samplesWithWebPictures(const std::string& address) {
  return {
      {.name = "slack",
       .pictureSource = PictureSource::Web,
       .notification = {{"section", "com.tinyspeck.chatlyio"},
                        {"title", "Nora"},
                        {"message", "The new icons are in. Can you have a look before the stand-up?"},
                        {"userInfo",
                         {{"aps",
                           {{"alert",
                             {{"body", "Nora: The new icons are in. Can you have a look before the stand-up?"}}},
                            {"thread-id", "D0123"}}},
                          {"team_id", "T02BRIM"}}}}},
      {.name = "discord",
       .pictureSource = PictureSource::Web,
       .notification = {{"section", "com.hammerandchisel.discord"},
                        {"title", "Mika"},
                        {"message", "Game night at eight?"},
                        {"userInfo",
                         {{"message", {{"author", {{"id", "80351110224678912"}, {"avatar", "8342729096ea"}}}}}}}}},
      {.name = "tiny",
       .pictureSource = PictureSource::Web,
       .notification = {{"section", "com.hammerandchisel.discord"},
                        {"title", "Mika"},
                        {"message", "Bring the blue dice!"},
                        {"userInfo",
                         {{"message", {{"author", {{"id", "80351110224678912"}, {"avatar", "8342729096ea"}}}}}}}},
       .preparation = {preference("tinyBanner", true)},
       .restoration = {preference("tinyBanner", nullptr)}},
      {.name = "twitter",
       .pictureSource = PictureSource::Web,
       .notification = {{"section", "com.atebits.Tweetie2"},
                        {"title", "Ada Okafor"},
                        {"message", "liked your map of the harbour"},
                        {"userInfo", {{"D", "ada_maps"}}}}},
      {.name = "instagram",
       .pictureSource = PictureSource::Web,
       .notification = {{"section", "com.burbn.instagram"},
                        {"title", "emil.lind"},
                        {"message", "commented: “What a light! Is that the old pier?”"},
                        {"userInfo", {{"a", address + "/instagram/emil.png"}}}}},
      {.name = "messenger",
       .pictureSource = PictureSource::Web,
       .notification = {{"section", "com.facebook.Messenger"},
                        {"title", "Jonas"},
                        {"message", "I'm bringing bread and cheese, who brings the blanket?"},
                        {"userInfo", {{"p", {{"a", "100004"}}}}}}},
  };
}

}  // namespace

Json waitStep(double seconds) { return {{"do", "wait"}, {"seconds", seconds}}; }

std::vector<Sample> samples(const std::string& address) {
  std::vector<Sample> all;
  for (const std::vector<Sample>& some :
       {samplesWithFiles(), samplesWithWebPictures(address), samplesWithoutPictures()})
    all.insert(all.end(), some.begin(), some.end());
  return all;
}

}  // namespace runner
