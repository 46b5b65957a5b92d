#include <gmock/gmock.h>

#include <QApplication>
#include <QStandardPaths>

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication app(argc, argv);
  QApplication::setOrganizationName("hvnotify-tests");
  QStandardPaths::setTestModeEnabled(true);
  testing::InitGoogleMock(&argc, argv);
  return RUN_ALL_TESTS();
}
