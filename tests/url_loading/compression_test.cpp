// Tests of responses with a compressed body.
#include <zlib.h>

#include "tests/url_loading/url_loading_test.hpp"

namespace test {

namespace {

using Compression = UrlLoadingTest;

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

Response encoded(const std::string& body, const std::string& encoding) {
  return {.body = body, .headers = {{"Content-Encoding", encoding}}};
}

const std::string text(5000, 'x');

TEST_F(Compression, IsOfferedInRequests) {
  loadResponse({});
  EXPECT_EQ(server.requests().front().header("Accept-Encoding"), "gzip, deflate, br");
}

TEST_F(Compression, IsDecoded) {
  EXPECT_EQ(loadResponse(encoded(compressed(text, Format::Gzip), "gzip")).body, text);
  EXPECT_EQ(loadResponse(encoded(compressed(text, Format::Zlib), "deflate")).body, text);
  // The word "brim" as a stream of one uncompressed block.
  EXPECT_EQ(loadResponse(encoded("\x8b\x01\x80"
                                 "brim"
                                 "\x03",
                                 "br"))
                .body,
            "brim");
}

TEST_F(Compression, CorruptDataIsAnError) {
  std::string broken = compressed(text, Format::Gzip);
  for (std::size_t index = 10; index < broken.size(); ++index) broken[index] = '\x55';
  EXPECT_EQ(loadResponse(encoded(broken, "gzip")).error, UrlError::CannotDecodeBody);
  EXPECT_EQ(loadResponse(encoded("no gzip", "gzip")).error, UrlError::CannotDecodeBody);
}

TEST_F(Compression, BodyAboveTheLimitIsAnError) {
  const std::string bomb = compressed(std::string(url_loading::maxBodyBytes + 1, '\0'), Format::Gzip);
  ASSERT_LT(bomb.size(), 50'000u);
  EXPECT_EQ(loadResponse(encoded(bomb, "gzip")).error, UrlError::BodyTooLong);
}

TEST_F(Compression, BodyAtTheLimitIsDecoded) {
  const std::string largest = compressed(std::string(url_loading::maxBodyBytes, '\0'), Format::Gzip);
  EXPECT_EQ(loadResponse(encoded(largest, "gzip")).body.value_or("").size(), url_loading::maxBodyBytes);
}

TEST_F(Compression, TooManyEncodingsAreAnError) {
  std::string encodings = "gzip";
  for (int count = 0; count < 100; ++count) encodings += ", gzip";
  EXPECT_EQ(loadResponse(encoded(compressed(text, Format::Gzip), encodings)).error, UrlError::CannotDecodeBody);
}

}  // namespace

}  // namespace test
