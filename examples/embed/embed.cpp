// A host in one page: loads the component, lends it a database and changes a task's channels.
#include <iostream>

#include "host/loader/ComponentLibrary.h"
#include "one_row_database.h"
#include "small_services.h"

int main() {
  SmallRegistry registry;
  FixedClock clock;
  NoForms forms;
  PrintingErrors errors;
  OneRowDatabase database;
  database.row["notifyType"] = 0;

  autonotify::host::ComponentLibrary component(COMPONENT_FILE, {&registry, &clock, &forms});
  const auto control = component.createControl();
  control->put_errorClass(&errors);
  control->put_DatabaseReference(&database);

  const bool armed =
      control->cls_changeNotificationStatus(autonotify::nt_Email, autonotify::nt_AddStatus, 7);
  const auto channels = autonotify::toInteger(database.row["notifyType"]);
  std::cout << "armed: " << std::boolalpha << armed << ", channels of task 7: " << channels
            << ", by email: " << control->cls_IsEmailSelected(static_cast<std::uint8_t>(channels))
            << '\n';
  return armed && channels == autonotify::nt_Email ? 0 : 1;
}
