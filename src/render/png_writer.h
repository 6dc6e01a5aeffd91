#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <streambuf>
#include <vector>

namespace quorvel {

/// Writes a PNG (RGB, 8 bits a channel) row by row, so that a picture need never be in memory whole. Holds
/// two rows and some 700 KB.
class PngWriter {
 public:
  /// Writes the head. Sides from 1 to 2^31 - 1 pixels; `out` must outlive the writer.
  PngWriter(std::streambuf& out, std::uint32_t width, std::uint32_t height);
  ~PngWriter();
  PngWriter(const PngWriter&) = delete;
  PngWriter& operator=(const PngWriter&) = delete;

  /// The next row, top first: `width` pixels 0x??RRGGBB. False: `out` took no more bytes.
  bool AddRow(const std::uint32_t* pixels);
  /// Ends the file after its last row.
  bool Finish();

 private:
  struct Deflater;

  bool Compress(std::span<std::uint8_t> bytes, bool isLast);
  void WriteCompressed();
  bool WriteChunk(const char (&type)[5], std::span<const std::uint8_t> content);

  std::streambuf& out_;
  bool isGood_ = true;
  std::vector<std::uint32_t> above_;      // the row before; black before the first
  std::vector<std::uint8_t> filtered_;    // filter type, then the row's bytes less those above
  std::vector<std::uint8_t> compressed_;  // content of the next IDAT chunk
  std::unique_ptr<Deflater> deflater_;
};

}  // namespace quorvel
