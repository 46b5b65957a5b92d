#pragma once

#include <string>

#include "platform/HostObject.h"

namespace autonotify {

/// Styles of a message, which the host renders by icon and buttons.
namespace message_style {
inline constexpr int notice = 1;           ///< a notice
inline constexpr int inputRefused = 3;     ///< a refusal of input, or a question before leaving
inline constexpr int valueRefused = 4;     ///< a refusal of a value
inline constexpr int alreadySent = 6;      ///< already sent; moving a date to the previous Friday
inline constexpr int warning = 7;          ///< a plain warning
inline constexpr int batchNotice = 10;     ///< a notice of a batch, or before refreshing a comment
inline constexpr int reportError = 11;     ///< an error text of a report
inline constexpr int armedConfirmed = 18;  ///< the confirmation that a notification is armed
}  // namespace message_style

/// Answers to a question.
namespace message_answer {
inline constexpr int yes = 0;
inline constexpr int no = 1;  ///< as is every other value
}  // namespace message_answer

/// The host's message boxes. The arguments behind `owner` are the same at every call: 0, 0, 101,
/// 0, empty text, 0. `owner` is what LocaleReference::getActiveWindow gives, which may be null, or
/// the component's window that asks.
class MsgboxClass {
 public:
  virtual ~MsgboxClass() = default;
  virtual void showMessage(const std::string& text, int style, HostObject* owner, int reserved1,
                           int reserved2, int reserved3, int reserved4,
                           const std::string& reserved5, int reserved6) = 0;
  /// One of message_answer.
  virtual int askQuestion(const std::string& text, int style, HostObject* owner, int reserved1,
                          int reserved2, int reserved3, int reserved4, const std::string& reserved5,
                          int reserved6) = 0;
};

}  // namespace autonotify
