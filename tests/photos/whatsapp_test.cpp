#include <gtest/gtest.h>

#include "tests/photos/photo_phone.hpp"

namespace {

namespace fs = std::filesystem;
using test::Color;
using test::Colors;
using test::Json;
using test::PhotoPhone;

constexpr const char* whatsApp = "net.whatsapp.WhatsApp";
constexpr const char* person = "4915112345678";

struct WhatsAppPhone : PhotoPhone {
  fs::path pictures = makePictureFolder("W1", "group.net.whatsapp.WhatsApp.shared");
  fs::path businessPictures = makePictureFolder("W2", "group.net.whatsapp.WhatsAppSMB.shared");

  const Colors& shownFor(const std::string& thread, const char* application = whatsApp) {
    return shownAfter(application, Json::object(), {{"thread", thread}});
  }
  bool finds(const std::string& thread) {
    const std::size_t before = PhotoPhone::pictures.all().size();
    return shownFor(thread).size() > before;
  }

 private:
  fs::path makePictureFolder(const std::string& name, const std::string& group) {
    fs::path folder = test::makeContainer(test::sharedContainers(root()), name, group) / "Media/Profile";
    fs::create_directories(folder);
    return folder;
  }
};

TEST(WhatsAppPhoto, IsThePersonsFile) {
  WhatsAppPhone phone;
  writePicture(phone.pictures / "4915112345678-1612345678.jpg", Color::Red);
  EXPECT_EQ(phone.shownFor("4915112345678@s.whatsapp.net"), Colors{Color::Red});
}

TEST(WhatsAppPhoto, IsTheGroupsFile) {
  WhatsAppPhone phone;
  writePicture(phone.pictures / "4915112345678-1612345678-99.jpg", Color::Green);
  EXPECT_EQ(phone.shownFor("4915112345678-1612345678@g.us"), Colors{Color::Green});
}

TEST(WhatsAppPhoto, IsShownInTheBannerWithTheGlyph) {
  WhatsAppPhone phone;
  writePicture(phone.pictures / "4915112345678-1.png", Color::Red);
  const int controller = phone.present(whatsApp, Json::object(), {{"thread", "4915112345678@s.whatsapp.net"}});
  const std::string picture = phone.phone.view(controller, "_appIV").at("image");
  EXPECT_TRUE(picture.ends_with("/Media/Profile/4915112345678-1.png")) << picture;
  const std::string badge = phone.phone.view(controller, "_appDetailImage").at("image");
  EXPECT_NE(badge.find("whatsapp"), std::string::npos) << badge;
}

TEST(WhatsAppPhoto, ThreadWithoutAtSignIsTheKeyWhole) {
  WhatsAppPhone phone;
  writePicture(phone.pictures / "4915112345678-1.jpg", Color::Red);
  EXPECT_TRUE(phone.finds(person));
  EXPECT_FALSE(phone.finds("491511234567@s.whatsapp.net"));
}

TEST(WhatsAppPhoto, OnlyTwoOrThreePiecesMatch) {
  WhatsAppPhone phone;
  for (const char* name : {"4915112345678", "4915112345678-1-2-3.jpg", "4915112345678-1-2.jpg", "x4915112345678-1.jpg"})
    writePicture(phone.pictures / name, Color::Red);
  EXPECT_FALSE(phone.finds("4915112345678@s.whatsapp.net"));
  EXPECT_TRUE(phone.finds("4915112345678-1@g.us"));
}

TEST(WhatsAppPhoto, BothApplicationsFoldersAreSearchedAndTheBusinessOneCountsLast) {
  WhatsAppPhone phone;
  writePicture(phone.pictures / "4915112345678-1.jpg", Color::Red);
  writePicture(phone.businessPictures / "4915112345678-1.jpg", Color::Blue);
  EXPECT_EQ(phone.shownFor(person), (Colors{Color::Red, Color::Blue}));
  EXPECT_EQ(phone.shownFor(person, "net.whatsapp.WhatsAppSMB"),
            (Colors{Color::Red, Color::Blue, Color::Red, Color::Blue}));
}

TEST(WhatsAppPhoto, BusinessFolderAloneServesBothApplications) {
  WhatsAppPhone phone;
  writePicture(phone.businessPictures / "4915112345678-1.jpg", Color::Blue);
  EXPECT_TRUE(phone.finds(person));
}

// Where each match is followed by every later entry, the number of updates tells where the first match stood.
TEST(WhatsAppPhoto, IsShownAgainForEveryEntryAfterIt) {
  WhatsAppPhone phone;
  for (const char* name : {"1-1.jpg", "2-1.jpg", "3-1.jpg", "4-1.jpg"})
    writePicture(phone.pictures / name, Color::Blue);
  writePicture(phone.pictures / "4915112345678-1.jpg", Color::Red);
  std::size_t position = 0;
  for (const auto& entry : fs::directory_iterator(phone.pictures)) {
    if (entry.path().filename() == "4915112345678-1.jpg") break;
    ++position;
  }
  EXPECT_EQ(phone.shownFor(person), Colors(5 - position, Color::Red));
}

TEST(WhatsAppPhoto, LastOfSeveralMatchesStays) {
  WhatsAppPhone phone;
  const Color colors[] = {Color::Red, Color::Green, Color::Blue};
  for (int index = 0; index < 3; ++index)
    writePicture(phone.pictures / ("4915112345678-" + std::to_string(index) + ".jpg"), colors[index]);
  Colors expected;
  for (const auto& entry : fs::directory_iterator(phone.pictures))
    expected.push_back(colors[entry.path().stem().string().back() - '0']);
  EXPECT_EQ(phone.shownFor(person), expected);
}

TEST(WhatsAppPhoto, FilesInFoldersBelowAreWalkedButTheirFoldersNamesCount) {
  WhatsAppPhone phone;
  writePicture(phone.pictures / "old/4915112345678-1.jpg", Color::Red);
  EXPECT_FALSE(phone.finds(person));
  EXPECT_TRUE(phone.finds("old/4915112345678"));
}

TEST(WhatsAppPhoto, FileThatIsNoPictureClearsThePicture) {
  WhatsAppPhone phone;
  test::writeFile(phone.pictures / "4915112345678-1.jpg", "no picture");
  EXPECT_EQ(phone.shownFor(person), Colors{std::nullopt});
}

TEST(WhatsAppPhoto, NothingIsFoundWithoutThreadContainerOrFolder) {
  WhatsAppPhone phone;
  writePicture(phone.pictures / "4915112345678-1.jpg", Color::Red);
  EXPECT_TRUE(
      phone.shownAfter(whatsApp, {{"jid", "4915112345678@s.whatsapp.net"}, {"retry-notification-key", "4915112345678"}})
          .empty());
  fs::remove_all(phone.pictures);
  EXPECT_FALSE(phone.finds(person));
  fs::remove_all(test::sharedContainers(phone.root()));
  EXPECT_FALSE(phone.finds(person));
}

TEST(WhatsAppPhoto, LoopOfLinksInTheFolderEnds) {
  WhatsAppPhone phone;
  fs::create_directory_symlink(phone.pictures, phone.pictures / "4915112345678-1");
  writePicture(phone.pictures / "4915112345678-2.jpg", Color::Red);
  const Colors& shown = phone.shownFor(person);
  EXPECT_LE(shown.size(), 2U);
  EXPECT_NE(std::find(shown.begin(), shown.end(), std::optional(Color::Red)), shown.end());
}

}  // namespace
