#pragma once

#include <QWidget>

#include "binding/QtFormHost.h"
#include "support/WindowRenderer.h"

namespace autonotify::test {

/// Draws the windows of the tests with the desktop's renderer; the person acts by keys and mouse.
class QtRenderer : public WindowRenderer {
 public:
  QtRenderer();
  void show(Form& form, const Use& use) override;
  void show(Report& report, const ReportUse& use) override;
  void hidden(Form& form) override { host_.formHidden(form); }
  void closed(Report& report) override { host_.reportClosed(report); }
  void pump() override { host_.pumpMessages(); }

 private:
  QWidget program_;
  desktop::QtFormHost host_{program_};
};

}  // namespace autonotify::test
