#pragma once

#include "control/contract/HostObject.h"
#include "control/contract/errorClass.h"

namespace autonotify {

class DatabaseReference;
class clientDropDownCtrlReference;

/// The host's object for a client id. It takes the services that it works with; none is owned.
class ClientIDClass : public HostObject {
 public:
  static constexpr const char* className = "ClientIDClass";
  virtual void put_errorClass(errorClass* value) = 0;
  virtual void put_DatabaseReference(DatabaseReference* value) = 0;
  virtual void put_clientDropDownCtrlReference(clientDropDownCtrlReference* value) = 0;
};

}  // namespace autonotify
