#include <QApplication>
#include <gtest/gtest.h>

namespace quorvel {
namespace {

/// One application object for all tests of windows; its arguments must live as long as it does.
class GuiApplication : public testing::Environment {
 public:
  void SetUp() override {
    QApplication::setStyle(QStringLiteral("Fusion"));
    application_ = std::make_unique<QApplication>(argc_, argv_);
  }
  void TearDown() override { application_.reset(); }

 private:
  int argc_ = 1;
  char name_[9] = "ui_tests";
  char* argv_[2] = {name_, nullptr};
  std::unique_ptr<QApplication> application_;
};

[[maybe_unused]] testing::Environment* const kApplication =
    testing::AddGlobalTestEnvironment(new GuiApplication);

}  // namespace
}  // namespace quorvel
