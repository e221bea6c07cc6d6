// Tests of splitting vCard files into cards.
#include "simulator/contacts/vcard_splitting.hpp"

#include <gtest/gtest.h>

namespace contacts {

namespace {

using Texts = std::vector<std::string>;

std::string card(const std::string& lines) { return "BEGIN:VCARD\r\n" + lines + "END:VCARD\r\n"; }

TEST(VcardSplitting, ReturnsEachCard) {
  EXPECT_EQ(splitCards(card("N:A\r\n") + "\r\n" + card("N:B\r\n")), (Texts{card("N:A\r\n"), card("N:B\r\n")}));
}

TEST(VcardSplitting, AcceptsAnyLineEndingAndCase) {
  const Texts expected = {card("N:A\r\n")};
  EXPECT_EQ(splitCards("begin:vcard\nN:A\nend:vcard\n"), expected);
  EXPECT_EQ(splitCards("Begin:VCard\rN:A\rEnd:VCard"), expected);
  EXPECT_EQ(splitCards("\xef\xbb\xbf  BEGIN:VCARD \r\nN:A\r\nEND:VCARD \r\n"), expected);
}

TEST(VcardSplitting, FindsNoCardsInOtherFormats) {
  EXPECT_EQ(splitCards(""), Texts());
  EXPECT_EQ(splitCards("name,address\nAnna,anna@example.org\n"), Texts());
  EXPECT_EQ(splitCards(std::string("\x89PNG\0\0\n\r", 8)), Texts());
  EXPECT_EQ(splitCards("END:VCARD\nEND:VCARD\n"), Texts());
}

TEST(VcardSplitting, RemovesSoftLineBreaks) {
  EXPECT_EQ(splitCards(card("NOTE;ENCODING=QUOTED-PRINTABLE:one=\r\ntwo=\r\nthree\r\nN:A\r\n")),
            (Texts{card("NOTE;ENCODING=QUOTED-PRINTABLE:onetwothree\r\nN:A\r\n")}));
  EXPECT_EQ(splitCards(card("NOTE;quoted-printable:one=\r\ntwo\r\n")),
            (Texts{card("NOTE;quoted-printable:onetwo\r\n")}));
}

TEST(VcardSplitting, PreservesEqualsSignsOfOtherEncodings) {
  const std::string picture = card("PHOTO;ENCODING=b:AA==\r\nNOTE:QUOTED-PRINTABLE=\r\nN:A\r\n");
  EXPECT_EQ(splitCards(picture), Texts{picture});
}

TEST(VcardSplitting, JoinsFoldedLines) {
  EXPECT_EQ(splitCards(card("PHOTO;ENCODING=b:AAAA\r\n AA\n\tBB==\r\nN:A\r\n")),
            Texts{card("PHOTO;ENCODING=b:AAAAAABB==\r\nN:A\r\n")});
  EXPECT_EQ(splitCards(card("N;ENCODING=QUOTED-PRINTABLE:=41=\r\n=42\r\n  C=\r\nD\r\n")),
            Texts{card("N;ENCODING=QUOTED-PRINTABLE:=41=42 CD\r\n")});
  std::string folds;
  for (int count = 0; count < 100'000; ++count) folds += "\r\n ";
  EXPECT_EQ(splitCards(card("N:A" + folds + "B\r\n")), Texts{card("N:AB\r\n")});
}

TEST(VcardSplitting, TruncatesPropertiesWithTooManyComponents) {
  const auto separators = [](std::size_t count) { return std::string(count, ';'); };
  EXPECT_EQ(splitCards(card("N:A;B" + separators(100'000) + "\r\nTEL:1\r\n")),
            Texts{card("N:A;B" + separators(999) + "\r\nTEL:1\r\n")});
  EXPECT_EQ(splitCards(card("N:A" + separators(600) + "\r\n " + separators(600) + "\r\nTEL:1\r\n")),
            Texts{card("N:A" + separators(1000) + "\r\nTEL:1\r\n")});
}

TEST(VcardSplitting, OmitsCardsWithoutAnEnd) {
  EXPECT_EQ(splitCards("BEGIN:VCARD\r\nN:Lost\r\n" + card("N:A\r\n") + "BEGIN:VCARD\r\nN:Cut"), Texts{card("N:A\r\n")});
}

TEST(VcardSplitting, OmitsCardsInsideOtherCards) {
  EXPECT_EQ(splitCards(card("AGENT:\r\n" + card("N:B\r\n") + "N:A\r\n")), Texts{card("AGENT:\r\nN:A\r\n")});
}

TEST(VcardSplitting, OmitsCardsThatAreTooLarge) {
  const std::string line = "NOTE:" + std::string(1 << 20, 'x') + "\r\n";
  std::string lines;
  for (int count = 0; count < 40; ++count) lines += line;
  EXPECT_EQ(splitCards(card(lines) + card("N:A\r\n")), Texts{card("N:A\r\n")});
}

}  // namespace

}  // namespace contacts
