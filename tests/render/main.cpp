#include <QGuiApplication>
#include <gtest/gtest.h>

// Labels need fonts, and fonts need an application.
int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  testing::InitGoogleTest(&argc, argv);
  QGuiApplication application(argc, argv);
  return RUN_ALL_TESTS();
}
