#include "merge/MergeTest.h"
#include "merge/records/merge_values.h"
#include "merge/records/record_fields.h"
#include "platform/controls/RichTextBox.h"
#include "support/told_acts.h"

namespace autonotify::test {
namespace {

using std::string;

string joined(const std::vector<string>& texts) {
  string all;
  for (const string& text : texts) all += (all.empty() ? "" : "|") + text;
  return all;
}

constexpr const char* scripts = "merge_scripts.txt";

/// A merge object with a list box, a text box and records of its own.
class MergeScripts : public Scripted<MergeTest> {
 protected:
  MergeScripts() {
    merge->listBox = &list_;
    merge->RTB = &box_;
    addSettings();
    addFieldActs();
    addRecordActs();
    addPickingActs();
  }

 private:
  void addSettings() {
    for (const auto& [name, id] : {std::pair{"company", &clsInsertFieldsInRTB::companyID},
                                   {"contact", &clsInsertFieldsInRTB::contactID},
                                   {"firm", &clsInsertFieldsInRTB::firmID},
                                   {"appointment", &clsInsertFieldsInRTB::appointmentID},
                                   {"docket", &clsInsertFieldsInRTB::docketId},
                                   {"task", &clsInsertFieldsInRTB::taskID}})
      acts[name] = act([this, id = id](Id value) { (*merge).*id = value; });
    for (const auto& [name, flag] :
         {std::pair{"word wrap", &clsInsertFieldsInRTB::UseWordWrap},
          {"rich text", &clsInsertFieldsInRTB::ConvertStrToRTF},
          {"samples", &clsInsertFieldsInRTB::TestComment},
          {"person for company",
           &clsInsertFieldsInRTB::ConvertCompanyNameToContactNameForContacts}})
      acts[name] = act([this, flag = flag](bool value) { (*merge).*flag = value; });
    acts.merge(
        Acts{{"live", act([this](int country, int province) { live(country, province); })},
             {"today", act([this](DateTime day) { clock.set(day); })},
             {"add a client", [this](const auto& cells) { return toText(addClientTold(cells)); }},
             {"task of an entry", act([this](Id entry) {
                merge->put_scheduleID(entry);
                return merge->taskID;
              })}});
  }
  void addFieldActs() {
    acts.merge(Acts{
        {"list", act([this](int type) { return static_cast<int>(build(type).size()); })},
        {"list for use",
         act([this](int type, int use) { return static_cast<int>(build(type, use).size()); })},
        {"name at", act([this](int type, int place) { return build(type).at(place); })},
        {"list type", act([this] { return merge->ListType; })},
        {"clear the list", act([this] { merge->get_FieldList()->clearEntries(); })},
        {"verify the list", act([this] { return merge->verifyFieldListIsPopulated(); })},
        {"field", act([this](int key, string name, int type, string sample) {
           const Value items[] = {"Subject", name, "DocketInfo", type, sample};
           merge->get_FieldList()->addEntry(key, items);
         })},
        {"rename", act([this](int item, string from, string to) {
           merge->get_FieldList()->findEntry(item, from);
           merge->get_FieldList()->setItem(item, to);
         })},
        {"headers", act([this] { return headers(); })},
        {"print", [this](const auto& fields) { return print(joined(fields)); }},
        {"merge", act([this](string text) { return merged(text); })},
        {"value of a column",
         act([this](string column) { return merge->getMergeDataFromFieldName(column); })},
        {"value of a name",
         act([this](string name) { return merge->getMergeDataFromDisplayName(name); })},
        {"column of a name",
         act([this](string name) { return merge->getDBFieldNameFromDisplayFieldName(name); })},
        {"name of a column",
         act([this](string column) { return merge->getDisplayFieldNameFromDBFieldName(column); })},
        {"write",
         act([this](string column, string text) { merge->writeDataToField(column, text); })},
        {"duration", act([this](DateTime from, DateTime to) {
           return merge->getTimeDurationFieldValue(from, to);
         })},
        {"set up", act([this](int type, int use) {
           merge->ListType = type;
           merge->put_MergeFieldListUse(use);
           merge->initializeDataRecordsetsForSingleDocMerge();
         })},
        {"end", act([this] { merge->Terminate(); })},
        {"is a name", act([this](string name) { return merge->testStr(name); })}});
  }
  void addRecordActs() {
    acts.merge(Acts{{"open records", act([this](bool isBulk) { openRecords(isBulk); })},
                    {"in bulk", act([this](bool isBulk) { isBulk_ = isBulk; })},
                    {"record", [this](const auto& names) { return record(names); }}});
  }
  void addPickingActs() {
    acts.merge(
        Acts{{"token",
              act([this](int entry, bool marks) { return merge->parseListItem(entry, marks); })},
             {"column of an entry",
              act([this](int entry) { return merge->getDBFieldFromListItem(entry); })},
             {"click", act([this](int entry) { return merge->onListClick(entry); })},
             {"today's token", act([this](int format, bool marks) {
                return merge->insertCurrentDateMergeField(format, marks);
              })},
             {"insert today", act([this](int format) { merge->insertCurrentDate(format); })},
             {"text", act([this] { return box_.text(); })},
             {"set text", act([this](string text) { box_.setText(text); })},
             {"caret", act([this](int place) { box_.select(static_cast<std::size_t>(place)); })},
             {"no caret", act([this] { box_.acceptSelection(std::nullopt); })},
             {"no box", act([this] { merge->RTB = nullptr; })}});
  }

  Id addClientTold(const std::vector<string>& cells) {
    return addAccountingClient(cells.empty() ? RowFields{} : RowFields{{"YearEndDate", cells[0]}});
  }
  /// The lines of the list box that stand for no field and are not empty.
  string headers() const {
    std::vector<string> lines;
    for (const ListBox::Entry& entry : list_.entries())
      if (entry.itemData == -1 && !entry.text.empty()) lines.push_back(entry.text);
    return joined(lines);
  }

  MergeScope scope() const { return {*merge, isBulk_}; }
  void openRecords(bool isBulk) {
    isBulk_ = isBulk;
    procedure("test", [&](Step& step) {
      sources_.closeAll(step);
      sources_.openForOneDocument(step, scope());
    });
  }
  /// The values of the columns behind the source, which is opened where it is closed.
  string record(const std::vector<string>& names) {
    std::vector<string> values(names.size() - 1);
    const MergeSource source = findMergeSource(names[0]).value();
    const MergeScope of = scope();
    procedure("test", [&](Step& step) {
      for (std::size_t i = 1; i < names.size(); ++i) {
        string name = names[i];
        if (sources_.openOnDemand(step, of, source) && sources_.goToRow(step, of, source))
          values[i - 1] = textOf(RecordFields(step, sources_, of).read(source, name));
      }
    });
    string all;
    for (const string& value : values) all += "|" + value;
    return all.substr(1);
  }

  ListBox list_;
  RichTextBox box_;
  MergeSources sources_;
  bool isBulk_ = false;
};

TEST_P(MergeScripts, GiveWhatTheyTell) {
  follow(scripts);
}
INSTANTIATE_TEST_SUITE_P(Merge, MergeScripts, testing::ValuesIn(rowsOf(scripts, "scripts", 1)));

}  // namespace
}  // namespace autonotify::test
