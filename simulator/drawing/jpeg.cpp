// jpeglib.h uses types of <cstdio> without including it, so <cstdio> must come first.
#include <csetjmp>
#include <cstdio>
#include <cstdlib>

#include <jerror.h>
#include <jpeglib.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <utility>

#include "simulator/drawing/codecs.hpp"
#include "simulator/drawing/exif_orientation.hpp"

namespace drawing {
namespace {

// A progressive image consists of scans, and each scan can refine all pixels. Normal images have about ten scans. The
// limits reject images that would take extremely long to decode.
constexpr int maxScans = 200;
constexpr std::int64_t maxScannedPixels = 2'000'000'000;

constexpr int metadataMarker = JPEG_APP0 + 1;
constexpr unsigned maxMarkerLength = 0xFFFF;

// On an error, the library calls a function that must not return, so the function uses longjmp. The jump does not run
// destructors. Therefore, all objects that have a destructor are members of Decoder and Encoder, which remain alive
// during the jump.
struct ErrorHandler {
  jpeg_error_mgr base{};
  std::jmp_buf jumpTarget;

  static ErrorHandler& of(j_common_ptr codec) { return *reinterpret_cast<ErrorHandler*>(codec->err); }
};

[[noreturn]] void fail(j_common_ptr codec) { std::longjmp(ErrorHandler::of(codec).jumpTarget, 1); }

// Ends decoding if the data is truncated. The library itself only warns and fills the missing pixels with gray.
void failOnTruncation(j_common_ptr codec, int level) {
  const int message = codec->err->msg_code;
  if (level < 0 && (message == JWRN_JPEG_EOF || message == JWRN_HIT_MARKER)) fail(codec);
}

void failOnTooManyScans(j_common_ptr codec) {
  const auto* const decoder = reinterpret_cast<j_decompress_ptr>(codec);
  const std::int64_t scans = decoder->input_scan_number;
  const std::int64_t pixels = std::int64_t{decoder->image_width} * decoder->image_height;
  if (scans > maxScans || scans * pixels > maxScannedPixels) fail(codec);
}

void prepare(ErrorHandler& errors) {
  jpeg_std_error(&errors.base);
  errors.base.error_exit = &fail;
  errors.base.emit_message = &failOnTruncation;
  errors.base.output_message = [](j_common_ptr) {};
}

struct Decoder {
  jpeg_decompress_struct codec{};
  ErrorHandler errors;
  jpeg_progress_mgr progress{};
  SurfaceHandle surface;
  Orientation orientation = Orientation::Upright;

  Decoder() {
    prepare(errors);
    codec.err = &errors.base;
    progress.progress_monitor = &failOnTooManyScans;
  }
  ~Decoder() { jpeg_destroy_decompress(&codec); }
  Decoder(const Decoder&) = delete;
  Decoder& operator=(const Decoder&) = delete;
};

// Collects the compressed output of the library, one block at a time.
struct Encoder {
  jpeg_compress_struct codec{};
  ErrorHandler errors;
  jpeg_destination_mgr destination{};
  std::array<unsigned char, 16384> block;
  std::vector<unsigned char> row;
  std::vector<std::byte> written;

  Encoder() {
    prepare(errors);
    codec.err = &errors.base;
    codec.client_data = this;
    destination.init_destination = [](j_compress_ptr encoder) { of(encoder).startBlock(); };
    destination.empty_output_buffer = [](j_compress_ptr encoder) -> boolean {
      of(encoder).append(sizeof block);
      of(encoder).startBlock();
      return TRUE;
    };
    destination.term_destination = [](j_compress_ptr encoder) {
      of(encoder).append(sizeof block - of(encoder).destination.free_in_buffer);
    };
  }
  ~Encoder() { jpeg_destroy_compress(&codec); }
  Encoder(const Encoder&) = delete;
  Encoder& operator=(const Encoder&) = delete;

  static Encoder& of(j_compress_ptr codec) { return *static_cast<Encoder*>(codec->client_data); }
  void startBlock() {
    destination.next_output_byte = block.data();
    destination.free_in_buffer = block.size();
  }
  void append(std::size_t count) {
    const auto* bytes = reinterpret_cast<const std::byte*>(block.data());
    written.insert(written.end(), bytes, bytes + count);
  }
};

unsigned char* rowOf(cairo_surface_t* surface, unsigned row) {
  return cairo_image_surface_get_data(surface) +
         static_cast<std::ptrdiff_t>(row) * cairo_image_surface_get_stride(surface);
}

bool isCmyk(J_COLOR_SPACE space) { return space == JCS_CMYK || space == JCS_YCCK; }

// Converts CMYK pixels in place to opaque ARGB pixels. The CMYK values are inverted, because programs store them
// inverted in JPEG files.
void convertCmykRow(unsigned char* row, unsigned width) {
  for (std::size_t x = 0; x < width; ++x) {
    unsigned char* cell = row + 4 * x;
    const std::uint32_t key = cell[3];
    const auto blend = [key](std::uint32_t ink) { return (ink * key + 127) / 255; };
    *reinterpret_cast<std::uint32_t*>(cell) = 0xFF000000U | blend(cell[0]) << 16 | blend(cell[1]) << 8 | blend(cell[2]);
  }
}

void readRows(jpeg_decompress_struct& decoder, cairo_surface_t* surface) {
  while (decoder.output_scanline < decoder.output_height) {
    unsigned char* row = rowOf(surface, decoder.output_scanline);
    jpeg_read_scanlines(&decoder, &row, 1);
    if (decoder.out_color_space == JCS_CMYK) convertCmykRow(row, decoder.output_width);
  }
}

// Reads the orientation from the first metadata segment.
Orientation orientationOf(const jpeg_decompress_struct& decoder) {
  const jpeg_saved_marker_ptr marker = decoder.marker_list;
  if (marker == nullptr) return Orientation::Upright;
  return orientationIn({reinterpret_cast<const std::byte*>(marker->data), marker->data_length});
}

bool decode(Decoder& decoder, std::span<const std::byte> data) {
  if (setjmp(decoder.errors.jumpTarget)) return false;
  jpeg_decompress_struct& codec = decoder.codec;
  jpeg_create_decompress(&codec);
  codec.progress = &decoder.progress;
  jpeg_mem_src(&codec, reinterpret_cast<const unsigned char*>(data.data()), data.size());
  jpeg_save_markers(&codec, metadataMarker, maxMarkerLength);
  jpeg_read_header(&codec, TRUE);
  decoder.orientation = orientationOf(codec);
  if (!isAcceptableSize(codec.image_width, codec.image_height)) return false;
  decoder.surface.reset(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, static_cast<int>(codec.image_width),
                                                   static_cast<int>(codec.image_height)));
  if (cairo_surface_status(decoder.surface.get()) != CAIRO_STATUS_SUCCESS) return false;

  // libjpeg-turbo sets the fourth byte of each pixel to 255, so the pixels are opaque.
  codec.out_color_space = isCmyk(codec.jpeg_color_space) ? JCS_CMYK : JCS_EXT_BGRA;
  codec.dct_method = JDCT_ISLOW;
  jpeg_start_decompress(&codec);
  readRows(codec, decoder.surface.get());
  jpeg_finish_decompress(&codec);
  cairo_surface_mark_dirty(decoder.surface.get());
  return true;
}

// Blends premultiplied pixels with white. The result has three bytes per pixel: red, green and blue.
void flattenRow(const std::uint32_t* pixels, int width, unsigned char* row) {
  for (int x = 0; x < width; ++x) {
    const std::uint32_t white = 255 - (pixels[x] >> 24);
    for (int channel = 0; channel < 3; ++channel) {
      const std::uint32_t value = (pixels[x] >> (16 - 8 * channel) & 0xFF) + white;
      *row++ = static_cast<unsigned char>(std::min<std::uint32_t>(value, 255));
    }
  }
}

bool encode(Encoder& encoder, cairo_surface_t* surface, int quality) {
  if (setjmp(encoder.errors.jumpTarget)) return false;
  jpeg_compress_struct& codec = encoder.codec;
  // jpeg_create_compress clears the whole structure except for the error handler and the client data.
  jpeg_create_compress(&codec);
  codec.dest = &encoder.destination;
  codec.image_width = static_cast<JDIMENSION>(cairo_image_surface_get_width(surface));
  codec.image_height = static_cast<JDIMENSION>(cairo_image_surface_get_height(surface));
  codec.input_components = 3;
  codec.in_color_space = JCS_RGB;
  jpeg_set_defaults(&codec);
  jpeg_set_quality(&codec, quality, TRUE);
  codec.dct_method = JDCT_ISLOW;
  jpeg_start_compress(&codec, TRUE);
  unsigned char* row = encoder.row.data();
  while (codec.next_scanline < codec.image_height) {
    flattenRow(reinterpret_cast<const std::uint32_t*>(rowOf(surface, codec.next_scanline)),
               static_cast<int>(codec.image_width), row);
    jpeg_write_scanlines(&codec, &row, 1);
  }
  jpeg_finish_compress(&codec);
  return true;
}

}  // namespace

SurfaceHandle decodeJpeg(std::span<const std::byte> data) {
  Decoder decoder;
  if (!decode(decoder, data)) return nullptr;
  return uprightPicture(std::move(decoder.surface), decoder.orientation);
}

std::vector<std::byte> encodeJpeg(cairo_surface_t* surface, int quality) {
  Encoder encoder;
  encoder.row.resize(static_cast<std::size_t>(cairo_image_surface_get_width(surface)) * 3);
  return encode(encoder, surface, quality) ? std::move(encoder.written) : std::vector<std::byte>();
}

}  // namespace drawing
