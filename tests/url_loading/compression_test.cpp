// Bodies that come compressed.
#include <zlib.h>

#include "tests/url_loading/loading.hpp"

namespace test {

namespace {

using Compression = UrlLoading;

enum class Format { Zlib = 15, Gzip = 15 + 16 };

std::string compressed(const std::string& text, Format format) {
  z_stream stream = {};
  deflateInit2(&stream, Z_BEST_COMPRESSION, Z_DEFLATED, static_cast<int>(format), 9, Z_DEFAULT_STRATEGY);
  std::string out(deflateBound(&stream, text.size()) + 64, '\0');
  stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(text.data()));
  stream.avail_in = static_cast<uInt>(text.size());
  stream.next_out = reinterpret_cast<Bytef*>(out.data());
  stream.avail_out = static_cast<uInt>(out.size());
  deflate(&stream, Z_FINISH);
  out.resize(stream.total_out);
  deflateEnd(&stream);
  return out;
}

Answer encoded(const std::string& body, const std::string& encoding) {
  return {.body = body, .headers = {{"Content-Encoding", encoding}}};
}

const std::string text(5000, 'x');

TEST_F(Compression, IsOffered) {
  loadAnswer({});
  EXPECT_EQ(server.requests().front().header("Accept-Encoding"), "gzip, deflate, br");
}

TEST_F(Compression, IsUndone) {
  EXPECT_EQ(loadAnswer(encoded(compressed(text, Format::Gzip), "gzip")).body, text);
  EXPECT_EQ(loadAnswer(encoded(compressed(text, Format::Zlib), "deflate")).body, text);
  // The word "brim" as a stream of one uncompressed block.
  EXPECT_EQ(loadAnswer(encoded("\x8b\x01\x80"
                               "brim"
                               "\x03",
                               "br"))
                .body,
            "brim");
}

TEST_F(Compression, ThatIsBrokenIsAnError) {
  std::string broken = compressed(text, Format::Gzip);
  for (std::size_t index = 10; index < broken.size(); ++index) broken[index] = '\x55';
  EXPECT_EQ(loadAnswer(encoded(broken, "gzip")).error, UrlError::CannotDecodeBody);
  EXPECT_EQ(loadAnswer(encoded("no gzip", "gzip")).error, UrlError::CannotDecodeBody);
}

TEST_F(Compression, OfMoreThanABodyMayHoldIsAnError) {
  const std::string bomb = compressed(std::string(url_loading::maxBody + 1, '\0'), Format::Gzip);
  ASSERT_LT(bomb.size(), 50'000u);
  EXPECT_EQ(loadAnswer(encoded(bomb, "gzip")).error, UrlError::BodyTooLong);
}

TEST_F(Compression, OfAsMuchAsABodyMayHoldIsUndone) {
  const std::string most = compressed(std::string(url_loading::maxBody, '\0'), Format::Gzip);
  EXPECT_EQ(loadAnswer(encoded(most, "gzip")).body.value_or("").size(), url_loading::maxBody);
}

TEST_F(Compression, AppliedAgainAndAgainIsAnError) {
  std::string encodings = "gzip";
  for (int count = 0; count < 100; ++count) encodings += ", gzip";
  EXPECT_EQ(loadAnswer(encoded(compressed(text, Format::Gzip), encodings)).error, UrlError::CannotDecodeBody);
}

}  // namespace

}  // namespace test
