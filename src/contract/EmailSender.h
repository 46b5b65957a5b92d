#pragma once

#include <string>

#include "platform/HostObject.h"

namespace autonotify {

class errorClass;
class MsgboxClass;
class LocaleReference;
class DatabaseReference;

/// Puts one email into the user's email program; a new object for each message.
///
/// The calls come in the order of declaration. Several recipients are separated by commas or
/// semicolons. The references are not owned.
class EmailSender : public HostObject {
 public:
  static constexpr const char* className = "EmailSender";
  virtual void put_errorClass(errorClass* value) = 0;
  virtual void put_MsgboxClass(MsgboxClass* value) = 0;
  virtual void put_LocaleReference(LocaleReference* value) = 0;
  virtual void put_DatabaseReference(DatabaseReference* value) = 0;
  virtual void put_workingFolder(const std::string& folder) = 0;
  virtual void put_to(const std::string& recipients) = 0;
  virtual void put_cc(const std::string& recipients) = 0;
  virtual void put_bcc(const std::string& recipients) = 0;
  virtual void put_subject(const std::string& subject) = 0;
  /// Plain text, UTF-8, lines ended by line feeds with or without carriage returns.
  virtual void put_body(const std::string& body) = 0;
  /// True when the message was handed over whole; False when nothing was.
  virtual bool send() = 0;
  /// Why the last send failed, as a sentence for staff; empty when it did not.
  virtual std::string getLastError() = 0;
};

}  // namespace autonotify
