#pragma once

#include <gmock/gmock.h>

#include "host/loader/ComponentLibrary.h"
#include "support/TestHost.h"

namespace autonotify::test {

/// Assigns the six references.
inline void lendServices(TestHost& host, clsAutoNotifyCtrl& control) {
  control.put_errorClass(&host.errors);
  control.put_MsgboxClass(&host.screen);
  control.put_DatabaseReference(&host.database);
  control.put_WorkingFolderReference(&host.workingFolder);
  control.put_LocaleReference(&host.locale);
  control.put_clientDropDownCtrlReference(&host.clients);
}

/// A test host that has loaded the component from its file, as any program would, and has a control
/// with all six references. Each one loads the library anew, with a context of its own.
class ComponentHost : public TestHost {
 public:
  explicit ComponentHost(FillRows fill = nullptr)
      : TestHost(fill), library(COMPONENT_FILE, platform()), control(library.createControl()) {
    lendServices(*this, *control);
  }

  host::ComponentLibrary library;
  std::unique_ptr<clsAutoNotifyCtrl> control;
};

/// A test on such a host.
class ComponentTest : public testing::Test, public ComponentHost, public TableRows {
 protected:
  ComponentTest() : TableRows(*plainDatabase) {}
  ~ComponentTest() override {
    EXPECT_EQ(errors.answersLeft(), 0u);
    EXPECT_EQ(errors.entered(), errors.left());
    screen.finish();
  }
};

}  // namespace autonotify::test
