#pragma once

#include <streambuf>

#include <QIODevice>

namespace quorvel {

/// Lets the drawing library write into a stream buffer.
class StreamDevice : public QIODevice {
 public:
  /// Open from the beginning; `out` must outlive the device.
  explicit StreamDevice(std::streambuf& out) : out_(out) {
    open(QIODevice::WriteOnly | QIODevice::Unbuffered);
  }

  /// False: the buffer took no more bytes.
  bool IsGood() const { return isGood_; }

  bool isSequential() const override { return true; }

 protected:
  qint64 readData(char*, qint64) override { return -1; }
  qint64 writeData(const char* from, qint64 count) override {
    isGood_ = isGood_ && out_.sputn(from, count) == count;
    return isGood_ ? count : -1;
  }

 private:
  std::streambuf& out_;
  bool isGood_ = true;
};

}  // namespace quorvel
