#include "contacts/modDatabaseFunctions.h"

#include <map>
#include <string>
#include <vector>

#include "contacts/recipient_lists.h"
#include "contract/ListCleaner.h"
#include "contract/recordsets.h"
#include "platform/controls/ComboBox.h"

namespace autonotify {
namespace {

/// Gathers the texts of one list, and by column the ones that may become the default.
class Recipients {
 public:
  explicit Recipients(Step& step) : step_(step) {}

  void gather(const RecipientSource& source, Id client) {
    std::string sql = source.statement;
    if (!sql.ends_with(';')) {
      if (client < 0) return;
      sql = statementFor(sql, client);
    }
    withFirstRow(step_, sql, keysetRead, [&](RecordsetHandle handle) {
      if (source.rows == RecipientSource::Rows::first) return takeRow(handle, source);
      if (source.rows == RecipientSource::Rows::people) keepDefaultContact(handle, source);
      for (const RecipientColumn& column : source.columns) takeColumn(handle, column);
    });
  }

  void clean() {
    std::unique_ptr<ListCleaner> cleaner;
    step_.assign(cleaner, [] { return createHostObject<ListCleaner>(); });
    if (cleaner) step_.run([&] { cleaner->cleanList(texts_); });
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
  void takeRow(RecordsetHandle handle, const RecipientSource& source) {
    for (const RecipientColumn& column : source.columns) {
      const std::string text = labelled(readField(step_, handle, column.name), column);
      if (!text.empty()) texts_.push_back(text);
      kept_[column.name] = text;
    }
  }

  void takeColumn(RecordsetHandle handle, const RecipientColumn& column) {
    std::vector<Value> values;
    step_.assign(values, [&] {
      std::vector<Value> read;
      database().readColumnIntoArray(handle, read, column.name);
      return read;
    });
    for (const Value& value : values) {
      const std::string text = labelled(value, column);
      if (!text.empty()) texts_.push_back(text);
    }
  }

  void keepDefaultContact(RecordsetHandle handle, const RecipientSource& source) {
    while (!step_.value(true, [&] { return database().isEndOfRecordset(handle); })) {
      if (readFlag(step_, handle, "DefaultContact")) {
        for (const RecipientColumn& column : source.columns)
          kept_[column.name] = labelled(readField(step_, handle, column.name), column);
        return;
      }
      step_.run([&] { database().moveNext(handle); });
    }
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
  return include ? recipient_list::firmAndStaffEmails : std::span<const RecipientSource>{};
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
  populateRecipients(recipient_list::contactEmails, firmIf(includeFirmAndStaff), contactID, combo,
                     choiceOf(selectDefault));
}

void populateCompanyAndContactEmailAddressesInCombo(Id companyID, ComboBox& combo,
                                                    bool includeFirmAndStaff, bool selectDefault) {
  populateRecipients(recipient_list::companyEmails, firmIf(includeFirmAndStaff), companyID, combo,
                     choiceOf(selectDefault));
}

void populateContactFaxNumbersInCombo(Id contactID, ComboBox& combo, bool selectDefault) {
  populateRecipients(recipient_list::contactFaxes, {}, contactID, combo, choiceOf(selectDefault));
}

void populateCompanyAndContactFaxNumbersInCombo(Id companyID, ComboBox& combo, bool selectDefault) {
  populateRecipients(recipient_list::companyFaxes, {}, companyID, combo, choiceOf(selectDefault));
}

void populateAccountingFirmsAndStaffFaxNumbersInCombo(ComboBox& combo) {
  populateRecipients(recipient_list::firmFaxes, {}, noId, combo, RecipientChoice::none);
}

void populateContactFaxRecipientInCombo(Id contactID, ComboBox& combo, bool selectFirst) {
  populateRecipients(recipient_list::contactFaxRecipient, {}, contactID, combo,
                     firstIf(selectFirst));
}

void populateCompanyAndContactFaxRecipientInCombo(Id companyID, ComboBox& combo,
                                                  bool selectDefault) {
  populateRecipients(recipient_list::companyFaxRecipients, {}, companyID, combo,
                     choiceOf(selectDefault));
}

void populateContactContactNamesInCombo(Id contactID, ComboBox& combo, bool selectDefault) {
  populateRecipients(recipient_list::contactNames, {}, contactID, combo, firstIf(selectDefault));
}

void populateCompanyContactNamesInCombo(Id companyID, ComboBox& combo, bool selectDefault) {
  populateRecipients(recipient_list::companyNames, {}, companyID, combo, choiceOf(selectDefault));
}

void populateContactPhoneNumbersInCombo(Id contactID, ComboBox& combo, bool selectDefault) {
  populateRecipients(recipient_list::contactPhones, {}, contactID, combo, choiceOf(selectDefault));
}

void populateCompanyAndContactPhoneNumbersInCombo(Id companyID, ComboBox& combo,
                                                  bool selectDefault) {
  populateRecipients(recipient_list::companyPhones, {}, companyID, combo, choiceOf(selectDefault));
}

}  // namespace autonotify
