#include "host/mail/mail_message.h"

#include <algorithm>

#include "host/mail/gmime_handles.h"
#include "platform/utf8.h"

namespace autonotify::host {
namespace {

constexpr const char* testHeader = "X-Test-Of-Message-To";

GHandle<GMimePart> textPart(const char* subtype, const std::string& text) {
  GHandle<GMimePart> part(g_mime_part_new_with_type("text", subtype));
  g_mime_object_set_content_type_parameter(GMIME_OBJECT(part.get()), "charset", "utf-8");
  const GHandle<GMimeStream> stream(g_mime_stream_mem_new_with_buffer(text.data(), text.size()));
  const GHandle<GMimeDataWrapper> content(
      g_mime_data_wrapper_new_with_stream(stream.get(), GMIME_CONTENT_ENCODING_DEFAULT));
  g_mime_part_set_content(part.get(), content.get());
  g_mime_part_set_content_encoding(part.get(), g_mime_part_get_best_content_encoding(
                                                   part.get(), GMIME_ENCODING_CONSTRAINT_7BIT));
  return part;
}

/// Whole lines: an encoding that needs none would end the last one anyway.
std::string bodyText(const std::string& body) {
  std::string text = cleanText(body);
  if (!text.empty() && !text.ends_with('\n')) text += '\n';
  return text;
}

/// The plain text first: programs show the last part that they can.
GHandle<GMimeObject> partsOf(const MailMessage& message) {
  GHandle<GMimePart> body = textPart("plain", bodyText(message.body));
  if (message.page.empty()) return GHandle<GMimeObject>(GMIME_OBJECT(body.release()));
  const GHandle<GMimePart> page = textPart("html", bodyText(message.page));
  GMimeMultipart* both = g_mime_multipart_new_with_subtype("alternative");
  // Of its own, so that the same message is the same text.
  const std::string own = message.messageId.substr(0, message.messageId.find('@'));
  g_mime_multipart_set_boundary(both, ("=_" + own).c_str());
  g_mime_multipart_add(both, GMIME_OBJECT(body.get()));
  g_mime_multipart_add(both, GMIME_OBJECT(page.get()));
  return GHandle<GMimeObject>(GMIME_OBJECT(both));
}

DateTimeHandle localTime(DateTime date) {
  return DateTimeHandle(g_date_time_new_local(date.year(), static_cast<int>(date.month()),
                                              static_cast<int>(date.day()), date.hour(),
                                              date.minute(), date.second()));
}

/// All at once: the header is written anew with every change of the message's own list.
void setMailboxes(GMimeMessage* message, GMimeAddressType type,
                  const std::vector<Mailbox>& mailboxes) {
  const GHandle<InternetAddressList> list(internet_address_list_new());
  for (const Mailbox& mailbox : mailboxes) {
    const GHandle<InternetAddress> address(internet_address_mailbox_new(
        mailbox.name.empty() ? nullptr : mailbox.name.c_str(), mailbox.address.c_str()));
    internet_address_list_add(list.get(), address.get());
  }
  if (!mailboxes.empty())
    internet_address_list_append(g_mime_message_get_addresses(message, type), list.get());
}

}  // namespace

std::string cleanText(std::string_view text) {
  std::string clean;
  for (std::size_t at = 0; at < text.size();) {
    const Utf8Step step = utf8StepAt(text, at);
    at += step.length;
    const bool isLineEnd = step.value == '\r' && (at == text.size() || text[at] != '\n');
    const bool isPlain = step.value >= 0x20 || step.value == '\n' || step.value == '\t';
    if (isLineEnd) {
      clean += '\n';
    } else if (isPlain && step.value != 0x7F) {
      appendUtf8(clean, step.isWellFormed() ? step.value : replacementCharacter);
    }
  }
  return clean;
}

std::string cleanLine(std::string_view text) {
  std::string line = cleanText(text);
  std::ranges::replace_if(
      line, [](char byte) { return byte == '\n' || byte == '\t'; }, ' ');
  return line;
}

std::string messageText(const MailMessage& message) {
  initMail();
  const GHandle<GMimeMessage> mime(g_mime_message_new(TRUE));
  setMailboxes(mime.get(), GMIME_ADDRESS_TYPE_FROM, {message.from});
  setMailboxes(mime.get(), GMIME_ADDRESS_TYPE_TO, message.to);
  setMailboxes(mime.get(), GMIME_ADDRESS_TYPE_CC, message.cc);
  setMailboxes(mime.get(), GMIME_ADDRESS_TYPE_BCC, message.bcc);
  g_mime_message_set_subject(mime.get(), cleanLine(message.subject).c_str(), "utf-8");
  if (const DateTimeHandle date = localTime(message.date))
    g_mime_message_set_date(mime.get(), date.get());
  g_mime_message_set_message_id(mime.get(), message.messageId.c_str());
  if (!message.testOf.empty())
    g_mime_object_set_header(GMIME_OBJECT(mime.get()), testHeader,
                             cleanLine(message.testOf).c_str(), "utf-8");
  const GHandle<GMimeObject> content = partsOf(message);
  g_mime_message_set_mime_part(mime.get(), content.get());
  const FormatOptionsHandle format(g_mime_format_options_new());
  g_mime_format_options_set_newline_format(format.get(), GMIME_NEWLINE_FORMAT_DOS);
  const GText text(g_mime_object_to_string(GMIME_OBJECT(mime.get()), format.get()));
  return text.get();
}

}  // namespace autonotify::host
