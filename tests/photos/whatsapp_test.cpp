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

  const Colors& picturesFor(const std::string& thread, const char* application = whatsApp) {
    return picturesAfter(application, Json::object(), {{"thread", thread}});
  }
  bool findsPicture(const std::string& thread) {
    const std::size_t before = PhotoPhone::pictures.all().size();
    return picturesFor(thread).size() > before;
  }

 private:
  fs::path makePictureFolder(const std::string& name, const std::string& group) {
    fs::path folder = test::makeContainer(test::sharedContainers(root()), name, group) / "Media/Profile";
    fs::create_directories(folder);
    return folder;
  }
};

TEST(WhatsAppPhoto, IsTheFileOfThePerson) {
  WhatsAppPhone phone;
  writePicture(phone.pictures / "4915112345678-1612345678.jpg", Color::Red);
  EXPECT_EQ(phone.picturesFor("4915112345678@s.whatsapp.net"), Colors{Color::Red});
}

TEST(WhatsAppPhoto, IsTheFileOfTheGroup) {
  WhatsAppPhone phone;
  writePicture(phone.pictures / "4915112345678-1612345678-99.jpg", Color::Green);
  EXPECT_EQ(phone.picturesFor("4915112345678-1612345678@g.us"), Colors{Color::Green});
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

TEST(WhatsAppPhoto, ThreadWithoutAtSignIsUsedAsAWhole) {
  WhatsAppPhone phone;
  writePicture(phone.pictures / "4915112345678-1.jpg", Color::Red);
  EXPECT_TRUE(phone.findsPicture(person));
  EXPECT_FALSE(phone.findsPicture("491511234567@s.whatsapp.net"));
}

TEST(WhatsAppPhoto, FileNameMustHaveTwoOrThreeParts) {
  WhatsAppPhone phone;
  for (const char* name : {"4915112345678", "4915112345678-1-2-3.jpg", "4915112345678-1-2.jpg", "x4915112345678-1.jpg"})
    writePicture(phone.pictures / name, Color::Red);
  EXPECT_FALSE(phone.findsPicture("4915112345678@s.whatsapp.net"));
  EXPECT_TRUE(phone.findsPicture("4915112345678-1@g.us"));
}

TEST(WhatsAppPhoto, BothFoldersAreSearchedAndTheBusinessFolderIsLast) {
  WhatsAppPhone phone;
  writePicture(phone.pictures / "4915112345678-1.jpg", Color::Red);
  writePicture(phone.businessPictures / "4915112345678-1.jpg", Color::Blue);
  EXPECT_EQ(phone.picturesFor(person), (Colors{Color::Red, Color::Blue}));
  EXPECT_EQ(phone.picturesFor(person, "net.whatsapp.WhatsAppSMB"),
            (Colors{Color::Red, Color::Blue, Color::Red, Color::Blue}));
}

TEST(WhatsAppPhoto, BusinessFolderIsUsedForBothApplications) {
  WhatsAppPhone phone;
  writePicture(phone.businessPictures / "4915112345678-1.jpg", Color::Blue);
  EXPECT_TRUE(phone.findsPicture(person));
}

// The provider sets the picture at the matching entry of the folder and again at each later entry, so the number of
// updates depends on the position of the match.
TEST(WhatsAppPhoto, IsSetAgainForEveryEntryAfterTheMatch) {
  WhatsAppPhone phone;
  for (const char* name : {"1-1.jpg", "2-1.jpg", "3-1.jpg", "4-1.jpg"})
    writePicture(phone.pictures / name, Color::Blue);
  writePicture(phone.pictures / "4915112345678-1.jpg", Color::Red);
  std::size_t position = 0;
  for (const auto& entry : fs::directory_iterator(phone.pictures)) {
    if (entry.path().filename() == "4915112345678-1.jpg") break;
    ++position;
  }
  EXPECT_EQ(phone.picturesFor(person), Colors(5 - position, Color::Red));
}

TEST(WhatsAppPhoto, LastOfSeveralMatchesRemains) {
  WhatsAppPhone phone;
  const Color colors[] = {Color::Red, Color::Green, Color::Blue};
  for (int index = 0; index < 3; ++index)
    writePicture(phone.pictures / ("4915112345678-" + std::to_string(index) + ".jpg"), colors[index]);
  Colors expected;
  for (const auto& entry : fs::directory_iterator(phone.pictures))
    expected.push_back(colors[entry.path().stem().string().back() - '0']);
  EXPECT_EQ(phone.picturesFor(person), expected);
}

TEST(WhatsAppPhoto, FilesInSubfoldersAreMatchedByTheirRelativePath) {
  WhatsAppPhone phone;
  writePicture(phone.pictures / "old/4915112345678-1.jpg", Color::Red);
  EXPECT_FALSE(phone.findsPicture(person));
  EXPECT_TRUE(phone.findsPicture("old/4915112345678"));
}

TEST(WhatsAppPhoto, UndecodableFileClearsThePicture) {
  WhatsAppPhone phone;
  test::writeFile(phone.pictures / "4915112345678-1.jpg", "no picture");
  EXPECT_EQ(phone.picturesFor(person), Colors{std::nullopt});
}

TEST(WhatsAppPhoto, MissingThreadContainerOrFolderShowsNothing) {
  WhatsAppPhone phone;
  writePicture(phone.pictures / "4915112345678-1.jpg", Color::Red);
  EXPECT_TRUE(phone
                  .picturesAfter(whatsApp,
                                 {{"jid", "4915112345678@s.whatsapp.net"}, {"retry-notification-key", "4915112345678"}})
                  .empty());
  fs::remove_all(phone.pictures);
  EXPECT_FALSE(phone.findsPicture(person));
  fs::remove_all(test::sharedContainers(phone.root()));
  EXPECT_FALSE(phone.findsPicture(person));
}

TEST(WhatsAppPhoto, SymbolicLinkLoopTerminates) {
  WhatsAppPhone phone;
  fs::create_directory_symlink(phone.pictures, phone.pictures / "4915112345678-1");
  writePicture(phone.pictures / "4915112345678-2.jpg", Color::Red);
  const Colors& shown = phone.picturesFor(person);
  EXPECT_LE(shown.size(), 2U);
  EXPECT_NE(std::find(shown.begin(), shown.end(), std::optional(Color::Red)), shown.end());
}

}  // namespace
