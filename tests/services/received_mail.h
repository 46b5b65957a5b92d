#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "host/mail/gmime_handles.h"
#include "platform/text.h"

namespace autonotify::test {

/// A message as a mail program reads it.
struct ReceivedMail {
  /// Each "name <address>", or the address alone.
  std::vector<std::string> from, to, cc, bcc;
  std::string subject, messageId, contentType;
  /// "2026-04-30 14:05:00", the writer's local time.
  std::string date;
  /// Line ends as line feeds.
  std::string body;
  /// The HTML beside it, if any.
  std::string page;
  /// The names of all headers, in order.
  std::vector<std::string> headers;
};

inline std::vector<std::string> mailboxesOf(InternetAddressList* list) {
  std::vector<std::string> mailboxes;
  for (int i = 0; i < internet_address_list_length(list); ++i) {
    InternetAddress* address = internet_address_list_get_address(list, i);
    const char* name = internet_address_get_name(address);
    const std::string mailbox =
        internet_address_mailbox_get_addr(INTERNET_ADDRESS_MAILBOX(address));
    mailboxes.push_back(name && *name ? std::string(name) + " <" + mailbox + ">" : mailbox);
  }
  return mailboxes;
}

inline std::string textOf(GMimeObject* part) {
  const host::GText text(g_mime_text_part_get_text(GMIME_TEXT_PART(part)));
  return replaceAll(text.get(), "\r\n", "\n");
}

/// Fails the test when the text is no message.
inline ReceivedMail readMail(const std::string& text) {
  host::initMail();
  const host::GHandle<GMimeStream> stream(
      g_mime_stream_mem_new_with_buffer(text.data(), text.size()));
  const host::GHandle<GMimeParser> parser(g_mime_parser_new_with_stream(stream.get()));
  const host::GHandle<GMimeMessage> message(g_mime_parser_construct_message(parser.get(), nullptr));
  ReceivedMail mail;
  GMimeObject* const part = message ? g_mime_message_get_mime_part(message.get()) : nullptr;
  GMimeMultipart* const both = GMIME_IS_MULTIPART(part) ? GMIME_MULTIPART(part) : nullptr;
  GMimeObject* const body = both ? g_mime_multipart_get_part(both, 0) : part;
  GMimeObject* const page = both ? g_mime_multipart_get_part(both, 1) : nullptr;
  if (!GMIME_IS_TEXT_PART(body) || (page && !GMIME_IS_TEXT_PART(page))) {
    ADD_FAILURE() << "no message of texts: " << text.substr(0, 500);
    return mail;
  }
  const host::GText type(g_mime_content_type_encode(g_mime_object_get_content_type(part), nullptr));
  mail.from = mailboxesOf(g_mime_message_get_from(message.get()));
  mail.to = mailboxesOf(g_mime_message_get_to(message.get()));
  mail.cc = mailboxesOf(g_mime_message_get_cc(message.get()));
  mail.bcc = mailboxesOf(g_mime_message_get_bcc(message.get()));
  mail.subject = g_mime_message_get_subject(message.get());
  mail.messageId = g_mime_message_get_message_id(message.get());
  GDateTime* const date = g_mime_message_get_date(message.get());
  mail.date = date ? host::GText(g_date_time_format(date, "%Y-%m-%d %H:%M:%S")).get() : "";
  mail.contentType = trim(replaceAll(type.get(), "\n", ""));
  mail.body = textOf(body);
  if (page) mail.page = textOf(page);
  GMimeHeaderList* const headers = g_mime_object_get_header_list(GMIME_OBJECT(message.get()));
  for (int i = 0; i < g_mime_header_list_get_count(headers); ++i)
    mail.headers.emplace_back(g_mime_header_get_name(g_mime_header_list_get_header_at(headers, i)));
  return mail;
}

}  // namespace autonotify::test
