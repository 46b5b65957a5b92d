#include <gmock/gmock.h>

#include <QStandardPaths>

#include "QtRenderer.h"
#include "binding/FaultWatch.h"
#include "icon_theme.h"

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  // The platform without a screen says so at every window.
  qputenv("QT_LOGGING_RULES", "qt.qpa.*=false");
  qputenv("AUTONOTIFY_SHORT_WALKS", "1");
  autonotify::desktop::GuardedApplication app(argc, argv);
  autonotify::desktop::supplyIcons();
  QApplication::setOrganizationName("hvnotify-tests");
  QStandardPaths::setTestModeEnabled(true);
  autonotify::test::QtRenderer renderer;
  autonotify::test::WindowRenderer::inUse() = &renderer;
  testing::InitGoogleMock(&argc, argv);
  const int result = RUN_ALL_TESTS();
  autonotify::test::WindowRenderer::inUse() = nullptr;
  return result;
}
