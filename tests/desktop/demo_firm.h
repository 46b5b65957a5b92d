#pragma once

#include "host/demo/DemoFirm.h"
#include "host/desk/found_database.h"

namespace autonotify::desktop {

/// Makes the file with an invented firm in it.
inline void makeDemoFirm(const std::string& path, int companies, int contacts, DateTime today) {
  host::DemoOptions demo;
  demo.companies = companies;
  demo.contacts = contacts;
  demo.today = today;
  host::foundDatabase(path, [&](host::RowSink& sink) { host::makeDemoFirm(sink, demo); });
}

}  // namespace autonotify::desktop
