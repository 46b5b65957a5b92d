#pragma once

#include "contract/enumerations.h"
#include "contract/errorClass.h"
#include "platform/HostObject.h"
#include "platform/Value.h"

namespace autonotify {

class DatabaseReference;
class clientDropDownCtrlReference;

/// The host's object for a client id: a company or a contact. It takes the services that it works
/// with; none is owned. A new object means no client.
class ClientIDClass : public HostObject {
 public:
  static constexpr const char* className = "ClientIDClass";
  virtual void put_errorClass(errorClass* value) = 0;
  virtual void put_DatabaseReference(DatabaseReference* value) = 0;
  virtual void put_clientDropDownCtrlReference(clientDropDownCtrlReference* value) = 0;
  virtual Id get_CompanyIDNum() = 0;
  virtual void put_CompanyIDNum(Id value) = 0;
  virtual Id get_ContactIDNum() = 0;
  virtual void put_ContactIDNum(Id value) = 0;
  /// A company when the company id is not below 0, otherwise a contact when the contact id is not,
  /// otherwise none.
  virtual enumAutoNotifyClientType get_ClientType() = 0;
  /// Gives the services back.
  virtual void Terminate() = 0;
};

}  // namespace autonotify
