#pragma once

#include "merge/clsInsertFieldsInRTB.h"
#include "merge/fields/field_list_columns.h"
#include "support/HostTest.h"

namespace autonotify::test {

/// The rows of a table of merge_tables.txt.
inline std::vector<std::vector<std::string>> rowsOf(const std::string& table, std::size_t cells) {
  return rowsOf("merge_tables.txt", table, cells);
}
template <class... Cells>
auto casesOf(const std::string& table) {
  return casesOf<Cells...>("merge_tables.txt", table);
}

/// A merge object on a host with an empty database.
class MergeTest : public HostTest {
 protected:
  MergeTest() {
    clock.set(DateTime::of(2026, 4, 30, 14, 5));
    merge = std::make_unique<clsInsertFieldsInRTB>();
  }
  ~MergeTest() override {
    merge.reset();
    EXPECT_EQ(errors.entered(), errors.left());
  }

  /// A company with one of everything that its accounts are joined of.
  Id addAccountingClient(const RowFields& services = {}) {
    const Id company = addRow("Companies", {{"CompanyName", "Elm Ltd."}});
    for (const char* table : {"ClientData", "Clients"}) addRow(table, {{"CompanyIDNum", company}});
    addRow("CompaniesNotes", {{"CompanyNum", company}});
    addRow("AccountingServices", services);
    for (const char* table :
         {"CorpTaxInfo", "ClientOptions", "LawInfo", "OtherInfo", "WSIB_EHTInfo", "ClientUSInfo"})
      addRow(table, {});
    addRow("SoftwareInfo", {{"DefaultSoftware", "True"},
                            {"SoftwareName", "Ledger 9"},
                            {"CompanyIDNum", company},
                            {"CompanyID", company}});
    return company;
  }

  void live(int country, int province) {
    plainLocale.settings().country = static_cast<countryCode>(country);
    plainLocale.settings().province = static_cast<provinceCode>(province);
  }

  /// Builds the list without opening any source and gives its display names in order.
  std::vector<std::string> build(int listType, int use = 1) {
    merge->ListType = listType;
    merge->put_MergeFieldListUse(use);
    bool noListBox = false, clearListBox = true;
    merge->createDefaultFieldListStructure(noListBox, clearListBox);
    return column(field_column::displayName);
  }

  std::vector<std::string> column(int item) {
    std::vector<std::string> texts;
    GridColumnList& list = *merge->get_FieldList();
    for (list.moveFirst(); !list.isAtEnd(); list.moveNext())
      texts.push_back(list.getItem(item).isNull() ? "" : toText(list.getItem(item)));
    return texts;
  }

  struct Field {
    const char* displayName;
    const char* sample;
    int type = 1;
  };
  /// Replaces the list by fields that have nothing but a sample, which each merge then prints.
  void listSamples(const std::vector<Field>& fields) {
    GridColumnList& list = *merge->get_FieldList();
    list.clearEntries();
    int row = 0;
    for (const Field& field : fields) {
      const Value items[] = {"Column", field.displayName, "None", field.type, field.sample};
      list.addEntry(++row, items);
    }
    merge->TestComment = true;
  }

  /// The values that templates of one field each print, of "name|name@format", joined like these.
  std::string print(const std::string& fields) {
    std::string values;
    GridColumnList& list = *merge->get_FieldList();
    for (const std::string& field : split(fields)) {
      std::vector<std::string> parts = split(field, '@');
      EXPECT_GE(list.findEntry(field_column::displayName, parts[0]), 0) << parts[0];
      parts.resize(2);
      values += "|" + merge->getDataFieldInfo(toInteger(list.getEntryKey()), parts[1]);
    }
    return values.substr(1);
  }

  std::string merged(const std::string& text) {
    merge->TemplateText = text;
    return merge->parseRTBComment();
  }

  std::unique_ptr<clsInsertFieldsInRTB> merge;
};

}  // namespace autonotify::test
