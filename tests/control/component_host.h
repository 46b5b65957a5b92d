#pragma once

#include <memory>

#include "host/loader/ComponentLibrary.h"
#include "support/TestHost.h"
#include "support/table_rows.h"

namespace autonotify::test {

/// A test host that has loaded the component from its file, as any program would, and has a control
/// with all six references. Each one loads the library anew, with a context of its own.
class ComponentHost : public TestHost {
 public:
  explicit ComponentHost(const std::string* content = nullptr)
      : TestHost(content), library(COMPONENT_FILE, platform()), control(library.createControl()) {
    lendServicesTo(*control);
  }

  void lendServicesTo(clsAutoNotifyCtrl& to) {
    to.put_errorClass(&errors);
    to.put_MsgboxClass(&messages);
    to.put_DatabaseReference(&database);
    to.put_WorkingFolderReference(&workingFolder);
    to.put_LocaleReference(&locale);
    to.put_clientDropDownCtrlReference(&clients);
  }

  host::ComponentLibrary library;
  std::unique_ptr<clsAutoNotifyCtrl> control;
};

}  // namespace autonotify::test
