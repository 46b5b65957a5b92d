#pragma once

#include <span>
#include <string_view>

#include "contract/procedure.h"
#include "platform/Value.h"

// The one pattern of all lists of recipients, and their rows.

namespace autonotify {

class ComboBox;

struct RecipientColumn {
  const char* name;
  /// Stands behind every text of the column.
  const char* label = "";
};

/// A statement, which of its rows are taken, and the columns in the order of the list.
struct RecipientSource {
  enum class Extent {
    first,
    /// Column by column; the first row with `DefaultContact` is the one that counts as the default.
    people,
    /// Column by column.
    all
  };
  /// Wants the client's id behind it, unless it ends in ";".
  const char* statement;
  Extent extent;
  std::span<const RecipientColumn> columns;
};

/// A list: its sources in order, and the columns whose text may become the default, the likeliest
/// first.
struct RecipientList {
  std::string_view tag;
  std::span<const RecipientSource> sources;
  std::span<const char* const> defaults = {};
};

namespace recipient_list {
extern const RecipientList contactEmails, companyEmails, contactFaxes, companyFaxes, firmFaxes,
    contactFaxRecipient, companyFaxRecipients, contactNames, companyNames, contactPhones,
    companyPhones;
/// The sources that the firm and its staff add to a list of emails.
extern const std::span<const RecipientSource> firmAndStaffEmails;
}  // namespace recipient_list

enum class RecipientChoice { none, byDefault, first };

/// The whole procedure: gathers, cleans, fills and chooses.
void populateRecipients(const RecipientList& list, std::span<const RecipientSource> more, Id client,
                        ComboBox& combo, RecipientChoice choice);

}  // namespace autonotify
