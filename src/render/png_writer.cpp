#include "render/png_writer.h"

#include <algorithm>
#include <array>
#include <cstring>

#include <isa-l/crc.h>
#include <isa-l/igzip_lib.h>

namespace quorvel {
namespace {

constexpr std::array<std::uint8_t, 8> kSignature = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1a, '\n'};
constexpr std::uint8_t kBitsPerChannel = 8;
constexpr std::uint8_t kColourTypeRgb = 2;
// A map repeats itself from row to row, so most differences from the row above are runs of zeros.
constexpr std::uint8_t kFilterUp = 2;
constexpr std::size_t kChunkBytes = 256 * 1024;

std::array<std::uint8_t, 4> BigEndian(std::uint32_t value) {
  return {static_cast<std::uint8_t>(value >> 24), static_cast<std::uint8_t>(value >> 16),
          static_cast<std::uint8_t>(value >> 8), static_cast<std::uint8_t>(value)};
}

constexpr std::size_t kBlockPixels = 16;

/// Writes the differences of `count` pixels to those above them, three bytes each. Where a whole block
/// repeats what is above it, as most of a map does, nothing need be taken apart.
void Subtract(const std::uint32_t* pixels, const std::uint32_t* above, std::size_t count, std::uint8_t* to) {
  if (std::memcmp(pixels, above, count * sizeof *pixels) == 0) {
    std::memset(to, 0, count * 3);
    return;
  }
  for (std::size_t at = 0; at < count; ++at, to += 3) {
    for (int channel = 0; channel < 3; ++channel) {
      const int shift = 16 - 8 * channel;
      to[channel] = static_cast<std::uint8_t>((pixels[at] >> shift) - (above[at] >> shift));
    }
  }
}

bool Write(std::streambuf& out, std::span<const std::uint8_t> bytes) {
  const auto count = static_cast<std::streamsize>(bytes.size());
  return out.sputn(reinterpret_cast<const char*>(bytes.data()), count) == count;
}

}  // namespace

/// A zlib stream: the fastest level of the library that still finds repeats.
struct PngWriter::Deflater {
  isal_zstream stream;
  std::vector<std::uint8_t> levelBuffer = std::vector<std::uint8_t>(ISAL_DEF_LVL1_DEFAULT);

  Deflater() {
    isal_deflate_init(&stream);
    stream.level = 1;
    stream.level_buf = levelBuffer.data();
    stream.level_buf_size = static_cast<std::uint32_t>(levelBuffer.size());
    stream.gzip_flag = IGZIP_ZLIB;
  }
};

PngWriter::PngWriter(std::streambuf& out, std::uint32_t width, std::uint32_t height)
    : out_(out),
      above_(width),
      filtered_(std::size_t{width} * 3 + 1, kFilterUp),
      compressed_(kChunkBytes),
      deflater_(std::make_unique<Deflater>()) {
  deflater_->stream.next_out = compressed_.data();
  deflater_->stream.avail_out = static_cast<std::uint32_t>(compressed_.size());
  std::array<std::uint8_t, 13> head = {};  // the last three name the only compression, filters and row order
  const auto widthBytes = BigEndian(width);
  const auto heightBytes = BigEndian(height);
  std::copy(widthBytes.begin(), widthBytes.end(), head.begin());
  std::copy(heightBytes.begin(), heightBytes.end(), head.begin() + 4);
  head[8] = kBitsPerChannel;
  head[9] = kColourTypeRgb;
  isGood_ = Write(out_, kSignature) && WriteChunk("IHDR", head);
}

PngWriter::~PngWriter() = default;

bool PngWriter::AddRow(const std::uint32_t* pixels) {
  for (std::size_t at = 0; at < above_.size(); at += kBlockPixels) {
    const std::size_t count = std::min(kBlockPixels, above_.size() - at);
    Subtract(pixels + at, above_.data() + at, count, filtered_.data() + 1 + 3 * at);
  }
  std::copy_n(pixels, above_.size(), above_.begin());
  return Compress(filtered_, false);
}

bool PngWriter::Finish() {
  return Compress({}, true) && WriteChunk("IEND", {});
}

bool PngWriter::Compress(std::span<std::uint8_t> bytes, bool isLast) {
  isal_zstream& stream = deflater_->stream;
  stream.next_in = bytes.data();
  stream.avail_in = static_cast<std::uint32_t>(bytes.size());
  stream.end_of_stream = isLast ? 1 : 0;
  for (bool hasMore = true; isGood_ && hasMore;) {
    isal_deflate(&stream);
    hasMore = stream.avail_out == 0;
    if (hasMore || isLast) WriteCompressed();
  }
  return isGood_;
}

void PngWriter::WriteCompressed() {
  isal_zstream& stream = deflater_->stream;
  const std::size_t count = compressed_.size() - stream.avail_out;
  if (count > 0) isGood_ = WriteChunk("IDAT", {compressed_.data(), count});
  stream.next_out = compressed_.data();
  stream.avail_out = static_cast<std::uint32_t>(compressed_.size());
}

bool PngWriter::WriteChunk(const char (&type)[5], std::span<const std::uint8_t> content) {
  const auto* typeBytes = reinterpret_cast<const std::uint8_t*>(type);
  const std::uint32_t crc = crc32_gzip_refl(crc32_gzip_refl(0, typeBytes, 4), content.data(), content.size());
  return Write(out_, BigEndian(static_cast<std::uint32_t>(content.size()))) && Write(out_, {typeBytes, 4}) &&
         Write(out_, content) && Write(out_, BigEndian(crc));
}

}  // namespace quorvel
