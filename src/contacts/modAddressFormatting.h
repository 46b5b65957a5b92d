#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>

#include "platform/DateTime.h"
#include "platform/Value.h"

// Address blocks as they stand at the head of a letter or fax, and the heading made of one.
//
// All procedures settle their failures at the error dialog. With the database closed, or without a
// row, a block is empty. An id below 0 is not looked up. Line ends are carriage return and line
// feed. `asRTF` spells them for a rich text; no other character is escaped.

namespace autonotify {

class RichTextBox;

/// The fields of an address record in their order.
enum class AddressField : std::size_t {
  businessName,
  personName,
  street,
  city,
  province,
  postalCode,
  country,
  phone,
  fax,
  cell,
  homePhone,
  email,
  webSite
};
inline constexpr std::size_t addressFieldCount = 13;

/// What is known of an address; a field is empty when it is not.
struct AddressRecord {
  std::array<std::string, addressFieldCount> fields;

  std::string& operator[](AddressField field) { return fields[static_cast<std::size_t>(field)]; }
  const std::string& operator[](AddressField field) const {
    return fields[static_cast<std::size_t>(field)];
  }
};

void clearAddressFields(AddressRecord& record);

/// Name, person, street, the line of the city, and the country unless it is Canada. Fields are used
/// without blanks around them. A name without a street leaves an empty line in the street's place.
std::string createAddress(const AddressRecord& record, bool includePerson, bool asRTF);

/// The same with a line for each number and address that is known ("Phone: ", "Email: " and so on).
/// `asRTF` converts the block twice, so that its line ends carry two "\par ".
std::string createAddressWithContactInfo(const AddressRecord& record, bool includePerson,
                                         bool asRTF);

/// "\par " before every line end; all else stays.
std::string convertToRTF(const std::string& text);

/// Which parts of a block are wanted.
struct AddressParts {
  bool address = false;
  bool phones = false;
  bool email = false;

  bool hasContactLines() const { return phones || email; }
};

/// A contact or, with `contactId` below 0, a member of staff.
struct AddressPerson {
  Id contactId = noId;
  Id employeeId = noId;
};

/// The block of a company or, with `firmId` not below 0, of the firm itself. The person is the
/// company's default contact; without one `includePerson` is cleared, for the caller as well.
/// Phones or email bring the lines of createAddressWithContactInfo.
std::string createCompanyAddress(Id companyId, Id firmId, const AddressParts& parts,
                                 bool& includePerson, bool asRTF);

/// The block at work. A contact that inherits from its company (staff: from its firm) takes the
/// company's address before its own, part by part, but the company's phone and fax only in place of
/// missing ones. `companyId` is that of the contact's link.
std::string createBusinessContactAddress(const AddressPerson& person, Id companyId,
                                         const AddressParts& parts, bool includeBusinessName,
                                         bool asRTF);

/// The block at home.
std::string createPersonalContactAddress(const AddressPerson& person, const AddressParts& parts,
                                         bool asRTF);

// Headings of letters: one blank, the date, the address block, the salutation; each ends in two
// line ends. A rich-text box takes plain text, so whoever wants to put a heading into one leaves
// `asRTF` at False.

struct HeadingParts {
  /// None: the heading has no date.
  std::optional<DateTime> date;
  bool salutation = false;
  /// Converts the block of a company; that of a contact stays plain.
  bool asRTF = false;
};

/// Of a company: addressed to its default contact, who is greeted as well.
std::string createInsertBusinessAddress(Id companyId, const HeadingParts& parts);
/// Of a contact at home.
std::string createInsertContactPersonalAddress(Id contactId, const HeadingParts& parts);

/// Puts the heading at the start of the box. An empty box gets a blank behind it, also where there
/// is no heading.
void insertBusinessAddress(RichTextBox& box, Id companyId, const HeadingParts& parts);
void insertContactPersonalAddress(RichTextBox& box, Id contactId, const HeadingParts& parts);

/// Takes the heading that would be inserted now out of the box again, found in any case. When it is
/// not there to the letter, because it was edited or the date is another one, the box stays as it
/// is.
void removeBusinessAddress(RichTextBox& box, Id companyId, const HeadingParts& parts);
void removeContactPersonalAddress(RichTextBox& box, Id contactId, const HeadingParts& parts);

}  // namespace autonotify
