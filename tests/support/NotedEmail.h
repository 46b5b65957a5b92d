#pragma once

#include "contract/EmailSender.h"
#include "support/host_calls.h"

namespace autonotify::test {

/// An email program that notes what it is given, in the order of the calls.
class NotedEmail : public EmailSender {
 public:
  struct Notes {
    std::vector<std::string> calls;
    bool sends = true;
    std::string lastError = "The mail program is closed.";
  };
  NotedEmail(Notes& notes, HostCalls& door) : notes_(notes), door_(door) {}

  void put_errorClass(errorClass* held) override { note("errorClass", held); }
  void put_MsgboxClass(MsgboxClass* held) override { note("MsgboxClass", held); }
  void put_LocaleReference(LocaleReference* held) override { note("locale", held); }
  void put_DatabaseReference(DatabaseReference* held) override { note("database", held); }
  void put_workingFolder(const std::string& folder) override { note("folder", !folder.empty()); }
  void put_to(const std::string& text) override { note("to", text); }
  void put_cc(const std::string& text) override { note("cc", text); }
  void put_bcc(const std::string& text) override { note("bcc", text); }
  void put_subject(const std::string& text) override { note("subject", text); }
  void put_body(const std::string& text) override { note("body", text); }
  bool send() override {
    note("send", false);
    return notes_.sends;
  }
  std::string getLastError() override { return notes_.lastError; }

 private:
  void note(const char* call, bool isSet) { note(call, std::string(isSet ? "set" : "")); }
  void note(const char* call, const std::string& text) {
    door_.pass(call);
    notes_.calls.push_back(std::string(call) + "=" + text);
  }
  Notes& notes_;
  HostCalls& door_;
};

}  // namespace autonotify::test
