#include "contacts/modDatabaseFunctions.h"

#include <map>
#include <string>
#include <vector>

#include "contacts/recipient_lists.h"
#include "contract/ListCleaner.h"
#include "contract/rows.h"
#include "platform/controls/ComboBox.h"

namespace autonotify {

using namespace recipient_list;

namespace {

std::vector<Value> columnValues(RecordsetHandle handle, const char* column) {
  std::vector<Value> values;
  database().readColumnIntoArray(handle, values, column);
  return values;
}

/// Gathers the texts of one list, and by column the ones that may become the default.
class Recipients {
 public:
  explicit Recipients(Step& step) : step_(step) {}

  void gather(const RecipientSource& source, Id client) {
    const std::string statement = source.statement;
    const bool isWhole = statement.ends_with(';');
    if (!isWhole && client < 0) return;
    Rows rows(step_, isWhole ? statement : statementFor(statement, client), keysetRead);
    if (!rows) return;
    if (source.extent == RecipientSource::Extent::first) return takeRow(rows, source);
    if (source.extent == RecipientSource::Extent::people) keepDefaultContact(rows, source);
    for (const RecipientColumn& column : source.columns) takeColumn(rows, column);
  }

  void clean() {
    std::unique_ptr<ListCleaner> cleaner;
    step_.assign(cleaner, createHostObject<ListCleaner>);
    if (cleaner) step_.run(&ListCleaner::cleanList, cleaner, texts_);
  }

  const std::vector<std::string>& texts() const { return texts_; }

  /// The text kept of the first of the columns that has one.
  std::string firstKept(std::span<const char* const> columns) const {
    for (const char* column : columns) {
      const auto found = kept_.find(column);
      if (found != kept_.end() && !found->second.empty()) return found->second;
    }
    return {};
  }

 private:
  void takeRow(const Row& row, const RecipientSource& source) {
    for (const RecipientColumn& column : source.columns)
      kept_[column.name] = take(row.value(column.name), column);
  }

  void takeColumn(const Row& row, const RecipientColumn& column) {
    for (const Value& value :
         step_.value(std::vector<Value>{}, columnValues, row.handle(), column.name))
      take(value, column);
  }

  void keepDefaultContact(Rows& people, const RecipientSource& source) {
    for (const Row& person : people) {
      if (!person.flag("DefaultContact")) continue;
      for (const RecipientColumn& column : source.columns)
        kept_[column.name] = labelled(person.value(column.name), column);
      return;
    }
  }

  /// Gives the text, and puts it into the list unless it is empty.
  std::string take(const Value& value, const RecipientColumn& column) {
    std::string text = labelled(value, column);
    if (!text.empty()) texts_.push_back(text);
    return text;
  }

  /// Empty for an empty value.
  std::string labelled(const Value& value, const RecipientColumn& column) {
    if (isEmpty(step_, value)) return {};
    return step_.value(std::string{}, [&] { return toText(value) + column.label; });
  }

  Step& step_;
  std::vector<std::string> texts_;
  std::map<std::string, std::string, std::less<>> kept_;
};

RecipientChoice choiceOf(bool byDefault) {
  return byDefault ? RecipientChoice::byDefault : RecipientChoice::none;
}
RecipientChoice firstIf(bool selectFirst) {
  return selectFirst ? RecipientChoice::first : RecipientChoice::none;
}
std::span<const RecipientSource> firmIf(bool include) {
  return include ? firmAndStaffEmails : std::span<const RecipientSource>{};
}

void choose(Step& step, ComboBox& combo, RecipientChoice choice, const std::string& likeliest) {
  if (choice == RecipientChoice::first) {
    if (combo.listCount() > 0) step.run([&] { combo.setListIndex(0); });
  } else if (choice == RecipientChoice::byDefault && !likeliest.empty()) {
    step.run([&] { generalUtilities().selectComboText(combo, likeliest, -1, -1); });
  }
}

}  // namespace

void populateRecipients(const RecipientList& list, std::span<const RecipientSource> more, Id client,
                        ComboBox& combo, RecipientChoice choice) {
  procedure(list.tag, [&](Step& step) {
    if (!isDatabaseOpen(step)) return;
    Recipients recipients(step);
    for (const RecipientSource& source : list.sources) recipients.gather(source, client);
    const std::string likeliest = recipients.firstKept(list.defaults);
    for (const RecipientSource& source : more) recipients.gather(source, client);
    recipients.clean();
    step.run([&] { generalUtilities().fillComboFromList(recipients.texts(), combo, true); });
    choose(step, combo, choice, likeliest);
  });
}

void populateContactEmailAddressesInCombo(Id contactID, ComboBox& combo, bool includeFirmAndStaff,
                                          bool selectDefault) {
  populateRecipients(contactEmails, firmIf(includeFirmAndStaff), contactID, combo,
                     choiceOf(selectDefault));
}

void populateCompanyAndContactEmailAddressesInCombo(Id companyID, ComboBox& combo,
                                                    bool includeFirmAndStaff, bool selectDefault) {
  populateRecipients(companyEmails, firmIf(includeFirmAndStaff), companyID, combo,
                     choiceOf(selectDefault));
}

void populateContactFaxNumbersInCombo(Id contactID, ComboBox& combo, bool selectDefault) {
  populateRecipients(contactFaxes, {}, contactID, combo, choiceOf(selectDefault));
}

void populateCompanyAndContactFaxNumbersInCombo(Id companyID, ComboBox& combo, bool selectDefault) {
  populateRecipients(companyFaxes, {}, companyID, combo, choiceOf(selectDefault));
}

void populateAccountingFirmsAndStaffFaxNumbersInCombo(ComboBox& combo) {
  populateRecipients(firmFaxes, {}, noId, combo, RecipientChoice::none);
}

void populateContactFaxRecipientInCombo(Id contactID, ComboBox& combo, bool selectFirst) {
  populateRecipients(contactFaxRecipient, {}, contactID, combo, firstIf(selectFirst));
}

void populateCompanyAndContactFaxRecipientInCombo(Id companyID, ComboBox& combo,
                                                  bool selectDefault) {
  populateRecipients(companyFaxRecipients, {}, companyID, combo, choiceOf(selectDefault));
}

void populateContactContactNamesInCombo(Id contactID, ComboBox& combo, bool selectDefault) {
  populateRecipients(contactNames, {}, contactID, combo, firstIf(selectDefault));
}

void populateCompanyContactNamesInCombo(Id companyID, ComboBox& combo, bool selectDefault) {
  populateRecipients(companyNames, {}, companyID, combo, choiceOf(selectDefault));
}

void populateContactPhoneNumbersInCombo(Id contactID, ComboBox& combo, bool selectDefault) {
  populateRecipients(contactPhones, {}, contactID, combo, choiceOf(selectDefault));
}

void populateCompanyAndContactPhoneNumbersInCombo(Id companyID, ComboBox& combo,
                                                  bool selectDefault) {
  populateRecipients(companyPhones, {}, companyID, combo, choiceOf(selectDefault));
}

}  // namespace autonotify
