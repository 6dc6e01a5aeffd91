#include "render/png_writer.h"

#include <random>
#include <sstream>
#include <vector>

#include <QImage>
#include <gtest/gtest.h>

namespace quorvel {
namespace {

std::string Written(const QImage& image) {
  std::stringbuf out;
  PngWriter writer(out, static_cast<std::uint32_t>(image.width()),
                   static_cast<std::uint32_t>(image.height()));
  for (int y = 0; y < image.height(); ++y)
    EXPECT_TRUE(writer.AddRow(reinterpret_cast<const std::uint32_t*>(image.constScanLine(y))));
  EXPECT_TRUE(writer.Finish());
  return out.str();
}

QImage Noise(int width, int height, unsigned colours) {
  std::mt19937 random(static_cast<unsigned>(width));
  QImage image(width, height, QImage::Format_RGB32);
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x)
      image.setPixel(x, y, 0xff000000 | static_cast<QRgb>(random() % colours * 0x10203));
  }
  return image;
}

TEST(PngWriter, WritesWhatReadersRead) {
  const QImage pictures[] = {
      Noise(1, 1, 2), Noise(7, 300, 4), Noise(5000, 2, 256),
      Noise(700, 500, 0x1000000),  // cannot be compressed: more than one chunk
  };
  for (const QImage& picture : pictures) {
    SCOPED_TRACE(testing::Message() << picture.width() << " x " << picture.height());
    const std::string bytes = Written(picture);
    QImage read;
    ASSERT_TRUE(read.loadFromData(reinterpret_cast<const uchar*>(bytes.data()),
                                  static_cast<int>(bytes.size()), "PNG"));
    EXPECT_EQ(read.convertToFormat(QImage::Format_RGB32), picture);
  }
}

/// A disk that is full after some bytes.
class FullDisk : public std::streambuf {
 public:
  explicit FullDisk(std::streamsize room) : room_(room) {}

 protected:
  std::streamsize xsputn(const char*, std::streamsize count) override {
    const std::streamsize taken = std::min(count, room_);
    room_ -= taken;
    return taken;
  }

 private:
  std::streamsize room_;
};

TEST(PngWriter, SaysWhenNoMoreIsTaken) {
  const QImage picture = Noise(700, 500, 0x1000000);
  const auto size = static_cast<std::streamsize>(Written(picture).size());
  for (const std::streamsize room : {std::streamsize{0}, std::streamsize{20}, size / 2, size - 1, size}) {
    FullDisk disk(room);
    PngWriter writer(disk, 700, 500);
    for (int y = 0; y < 500; ++y)
      writer.AddRow(reinterpret_cast<const std::uint32_t*>(picture.constScanLine(y)));
    EXPECT_EQ(writer.Finish(), room == size) << room;
  }
}

}  // namespace
}  // namespace quorvel
