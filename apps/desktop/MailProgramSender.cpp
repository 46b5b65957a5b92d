#include "MailProgramSender.h"

#include <QDesktopServices>
#include <QObject>

#include "host/mail/addresses.h"
#include "host/mail/mail_message.h"
#include "qt_text.h"

namespace autonotify::desktop {
namespace {

QByteArray encoded(const std::string& text) {
  return QUrl::toPercentEncoding(shown(text));
}

/// The addresses without names, which mail programs do not agree about.
QByteArray addressList(const std::string& recipients) {
  QByteArray list;
  for (const host::Mailbox& mailbox : host::parseRecipients(recipients)) {
    if (!list.isEmpty()) list += ',';
    list += QUrl::toPercentEncoding(shown(mailbox.address), "@");
  }
  return list;
}

std::string bodyLines(const std::string& body) {
  return plain(shown(host::cleanText(body)).replace("\n", "\r\n"));
}

}  // namespace

QUrl MailProgramSender::address() const {
  QByteArray url = "mailto:" + addressList(to_);
  char separator = '?';
  const auto add = [&](const char* name, const QByteArray& value) {
    if (value.isEmpty()) return;
    url += separator + QByteArray(name) + '=' + value;
    separator = '&';
  };
  add("cc", addressList(cc_));
  add("bcc", addressList(bcc_));
  add("subject", encoded(host::cleanLine(subject_)));
  add("body", encoded(bodyLines(body_)));
  return QUrl::fromEncoded(url, QUrl::StrictMode);
}

bool MailProgramSender::send() {
  lastError_.clear();
  try {
    if (QDesktopServices::openUrl(address())) return true;
    lastError_ = plain(QObject::tr("The mail program of this desktop cannot be opened."));
  } catch (const host::MailError& error) {
    lastError_ = error.what();
  }
  return false;
}

}  // namespace autonotify::desktop
