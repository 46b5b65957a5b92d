#pragma once

#include "contract/ClientIDClass.h"

namespace autonotify::host {

/// Two ids. The services are held and not asked: the ids alone tell the kind of client.
class HostClientIDClass : public ClientIDClass {
 public:
  void put_errorClass(errorClass* value) override { errors_ = value; }
  void put_DatabaseReference(DatabaseReference* value) override { database_ = value; }
  void put_clientDropDownCtrlReference(clientDropDownCtrlReference* value) override {
    clients_ = value;
  }
  Id get_CompanyIDNum() override { return companyId_; }
  void put_CompanyIDNum(Id value) override { companyId_ = value; }
  Id get_ContactIDNum() override { return contactId_; }
  void put_ContactIDNum(Id value) override { contactId_ = value; }
  enumAutoNotifyClientType get_ClientType() override {
    if (companyId_ >= 0) return enumAutoNotifyCompany;
    return contactId_ >= 0 ? enumAutoNotifyContact : enumAutoNotifyNone;
  }
  void Terminate() override {
    errors_ = nullptr;
    database_ = nullptr;
    clients_ = nullptr;
  }

 private:
  Id companyId_ = noId;
  Id contactId_ = noId;
  errorClass* errors_ = nullptr;
  DatabaseReference* database_ = nullptr;
  clientDropDownCtrlReference* clients_ = nullptr;
};

}  // namespace autonotify::host
