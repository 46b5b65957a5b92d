#include "channels/modApptNotifications.h"
#include "channels/modChannelNotifications.h"
#include "component_host.h"
#include "contacts/modContactSummaries.h"
#include "contacts/modDefaultContact.h"
#include "contract/GridColumnList.h"
#include "editor/frmTaskAutoNotification.h"
#include "list/frmAutoNotifyList.h"
#include "scheduling/modNotificationComments.h"
#include "scheduling/modNotificationDates.h"
#include "store/modNotificationLinks.h"
#include "store/modNotifyClients.h"
#include "support/fault_walk.h"
#include "support/told_rows.h"
#include "wizards/frmSendNotificationWizard.h"
#include "wizards/frmSendNotificationWizardApptNotifyNow.h"
#include "wizards/frmSendNotificationWizardEmail.h"
#include "wizards/frmSendNotificationWizardFax.h"
#include "wizards/frmSendNotificationWizardLetter.h"
#include "wizards/frmSendNotificationWizardPhone.h"

namespace autonotify::test {
namespace {

// One office for all operations, in which no two things have the same number: a company with a
// default contact, an entry of it with an email and a fax (the fax sent), a stale bit for a letter,
// and an older entry with an email; an appointment with an email, and its twin.
constexpr Id company = 2, contact = 3, client = 4, entry = 5, oldEntry = 6, task = 8;
constexpr Id kind = 1, meeting = 9, twin = 10, emailRow = 21, faxRow = 22, oldRow = 23,
             meetingRow = 24;
constexpr DateTime dueDate = DateTime::of(2026, 4, 30);

void fillOffice(TableRows rows) {
  addAllTold(rows, "control_office.txt", "office");
}

/// What a person does in the window of that name and in the composer that it leads to, if any.
void expectWizard(TestHost& host, const char* window, const char* click, const char* composer) {
  // What the composer leaves where it cannot delete its row is none too many.
  host.plainDatabase->connection().exec("DELETE FROM ClientNotification WHERE Field1 LIKE '%App%'");
  host.screen.answerAll(true);
  const auto act = [](const char* control) {
    return [control](WindowInUse& shown) {
      shown.click(control);
      if (shown.form().isVisible())
        shown.click(shown.form().find("cmdCancel") ? "cmdCancel" : "cmdClose");
    };
  };
  host.screen.expectWindow(window, act(click));
  if (composer) host.screen.expectWindow(composer, act("cmdCancel"));
}

template <class Call>
std::string resultOf(Call call) {
  using Result = decltype(call());
  if constexpr (std::is_void_v<Result>) {
    call();
    return "";
  } else if constexpr (std::is_same_v<Result, DateExplanation>) {
    return toText(call().result);
  } else {
    return toText(call());
  }
}

/// An operation of the component, and what it is to do when it is linked into the test.
struct Operation {
  const char* name;
  /// Of the operation's own frame; empty when it has none.
  std::string tag;
  std::function<std::string(ComponentHost&)> run;
  Run procedure;

  friend void PrintTo(const Operation& operation, std::ostream* out) { *out << operation.name; }
};

template <class Call, class Procedure>
Operation operation(const char* name, std::string tag, Call call, Procedure procedure) {
  return {name, std::move(tag),
          [=](ComponentHost& host) { return resultOf([&] { return call(host); }); },
          [=](TestHost&) { return resultOf(procedure); }};
}

// CONTROL(procedure, arguments): the operation of the control that passes all its arguments on to
// its procedure. CONTROL_AS and TOOL name the operation and the call that it stands for; ADDS_...
// do so for the adds of a channel.
#define CONTROL(procedure, ...) CONTROL_AS(cls_##procedure, (__VA_ARGS__), procedure(__VA_ARGS__))
#define CONTROL_AS(operation, arguments, call)                      \
  OPERATION(operation, "Morvane.exe-clsAutoNotifyCtrl-" #operation, \
            host.control->operation arguments, call)
#define ADDS_FOR_ENTRY(channel)                                               \
  CONTROL(addNew##channel##NotificationFromScheduleIDNum, entry),             \
      CONTROL_AS(cls_addNew##channel##NotificationFromScheduleNameAndDueDate, \
                 (oldEntry, task, company, contact, "GST", dueDate, "Hello"), \
                 addNew##channel##NotificationFromScheduleNameAndDueDate(     \
                     {oldEntry, {company, contact}, "GST", dueDate, "Hello"}))
#define ADDS_FOR_ITEM(channel)                                                            \
  CONTROL_AS(cls_addNewAppt##channel##Notification,                                       \
             (Appointments, twin, dueDate, emailRow, company, contact),                   \
             addNewAppt##channel##Notification(                                           \
                 {Appointments, twin, dueDate, emailRow, {company, contact}})),           \
      CONTROL_AS(cls_addNewAppt##channel##Notification, (Appointments, meeting, dueDate), \
                 addNewAppt##channel##Notification({Appointments, meeting, dueDate}))
#define FOR_ALL_CHANNELS(each) each(Email), each(Fax), each(Letter), each(Phone)
#define TOOL(operation, arguments, tag, call) \
  OPERATION(operation, tag, host.library.createTools()->operation arguments, call)
#define OPERATION(name, tag, call, procedure) \
  operation(                                  \
      #name, tag, [](ComponentHost& host) { return call; }, [] { return procedure; })

/// What the operation leaves in cancelFlag, False where it keeps that.
template <class Panel>
std::string outcomeOf(const Panel& panel) {
  if constexpr (std::is_same_v<Panel, frmSendNotificationWizard>) return toText(panel.cancelFlag());
  return toText(false);
}
#define WIZARD(operation, window, click, composer, call, initialize)            \
  {                                                                             \
    "cls_open" #operation, "Morvane.exe-clsAutoNotifyCtrl-cls_open" #operation, \
        [](ComponentHost& host) {                                               \
          expectWizard(host, #window, click, composer);                         \
          host.control->cls_open##operation call;                               \
          return toText(host.control->get_cancelFlag());                        \
        },                                                                      \
        [](TestHost& host) {                                                    \
          expectWizard(host, #window, click, composer);                         \
          window panel;                                                         \
          panel.initialize;                                                     \
          panel.unload();                                                       \
          return outcomeOf(panel);                                              \
        }                                                                       \
  }

constexpr const char* sentTag = "Morvane.exe-clsNotificationTools-changeNotificationToSent";
constexpr const char* setDefaultTag = "Morvane.exe-clsNotificationTools-setDefaultContact";
constexpr const char* greeting =
    "Dear \xc2\xab"
    "Company Name\xc2\xbb";

const Operation operations[] = {
    CONTROL(doesClientHaveAssociatedUnsentNotifications, client),
    CONTROL(cancelAllUnsentNotificationsForClientID, client),
    CONTROL(getNotificationID, entry, nt_Fax),
    CONTROL(getNotificationStatus, entry, nt_Fax),
    CONTROL(getNotificationStatus, entry, nt_Letter),
    CONTROL_AS(cls_ChangeNotificationNotifiedDate, (emailRow, dueDate),
               changeNotificationNotifiedDate(emailRow, dueDate)),
    CONTROL(changeNotificationStatus, nt_Phone, nt_AddStatus, entry),
    CONTROL(changeNotificationStatus, nt_Fax, nt_RemoveStatus, entry),
    CONTROL(needToSendAutoNotificationsToday),
    CONTROL(IsEmailSelected, 1),
    CONTROL(IsFaxSelected, 2),
    CONTROL(IsLetterSelected, 4),
    CONTROL(IsPhoneSelected, 8),
    FOR_ALL_CHANNELS(ADDS_FOR_ENTRY),
    CONTROL_AS(cls_editEmailNotification, (emailRow, "a", "b", "c", "d", "e"),
               editEmailNotification(emailRow, {"a", "b", "c", "d", "e"})),
    CONTROL_AS(cls_editEmailNotification, (emailRow), editEmailNotification(emailRow, {})),
    CONTROL_AS(cls_editFaxNotification, (faxRow, "a", "b", "c", "d", "e", "f", "g"),
               editFaxNotification(faxRow, {"a", "b", "c", "d", "e", "f", "g"})),
    CONTROL_AS(cls_editFaxNotification, (faxRow), editFaxNotification(faxRow, {})),
    CONTROL(editLetterNotification, emailRow, "a"),
    CONTROL_AS(cls_editPhoneNotification, (emailRow, "a", "b", "c", "d"),
               editPhoneNotification(emailRow, {"a", "b", "c", "d"})),
    CONTROL_AS(cls_editPhoneNotification, (emailRow), editPhoneNotification(emailRow, {})),
    CONTROL(copyOldNotificationInfoToNewNotificationByScheduleIDNum, emailRow, oldEntry),
    CONTROL_AS(cls_deleteNotification, (oldRow), void(deleteNotification(oldRow))),
    CONTROL(deleteApptNotification, Appointments, nt_Email, meeting),
    CONTROL(getApptNotificationStatus, Appointments, meeting, nt_Email),
    CONTROL(getApptNotificationID, Appointments, meeting, nt_Email),
    CONTROL(getApptNotificationDate, meetingRow),
    CONTROL(resetApptNotificationBody, Appointments, meetingRow, twin),
    CONTROL(changeApptNotificationStatus, Appointments, nt_Phone, nt_AddStatus, meeting),
    CONTROL(changeApptNotificationStatus, Appointments, nt_Fax, nt_RemoveStatus, meeting),
    CONTROL(copyOldApptNotificationInfoToNewApptNotificationByTaskIDNum, Appointments, oldRow,
            meeting),
    FOR_ALL_CHANNELS(ADDS_FOR_ITEM),
    CONTROL_AS(cls_editApptEmailNotification, (Dockets, meetingRow, "a", "b", "c", "d", "e"),
               editApptEmailNotification(Dockets, meetingRow, {"a", "b", "c", "d", "e"})),
    CONTROL_AS(cls_editApptEmailNotification, (Tasks, meetingRow),
               editApptEmailNotification(Tasks, meetingRow, {})),
    CONTROL_AS(cls_editApptFaxNotification,
               (Dockets, meetingRow, "a", "b", "c", "d", "e", "f", "g"),
               editApptFaxNotification(Dockets, meetingRow, {"a", "b", "c", "d", "e", "f", "g"})),
    CONTROL_AS(cls_editApptFaxNotification, (Tasks, meetingRow),
               editApptFaxNotification(Tasks, meetingRow, {})),
    CONTROL(editApptLetterNotification, Dockets, meetingRow, "a"),
    CONTROL_AS(cls_editApptPhoneNotification, (Dockets, meetingRow, "a", "b", "c", "d"),
               editApptPhoneNotification(Dockets, meetingRow, {"a", "b", "c", "d"})),
    CONTROL_AS(cls_editApptPhoneNotification, (Tasks, meetingRow),
               editApptPhoneNotification(Tasks, meetingRow, {})),
    CONTROL(getNotificationPeriod, 103, 1, true),
    CONTROL_AS(cls_getNotificationPeriod, (103, 1), getNotificationPeriod(103, 1, false)),
    CONTROL(refreshNotificationDate, oldEntry),
    CONTROL(generateClientAutoNotifyComment, entry),
    TOOL(cancelNotification, (emailRow), "", cancelNotification(emailRow)),
    TOOL(changeNotificationToSent, (emailRow), sentTag,
         changeNotificationToSent(emailRow, platformClock().now(), true)),
    TOOL(mergeTemplate, (greeting, entry), "", generateCommentFromTemplate(greeting, entry)),
    TOOL(explainNotificationDate, (entry), "", explainNotificationDate(entry)),
    TOOL(lastWorkingDay, (DateTime::of(2026, 4, 18)), "",
         adjustDateToFridayIfWeekendOrHoliday(DateTime::of(2026, 4, 18))),
    TOOL(checkForDefaultContact, (company), "", checkForDefaultContact(company, noId)),
    TOOL(setDefaultContact, (company, noId), setDefaultTag,
         (setNoContactAsDefault(company), saveCompanyContactRTF(company), true)),
    TOOL(setDefaultContact, (company, contact), setDefaultTag,
         setContactAsDefault(company, contact) && (saveCompanyContactRTF(company), true)),
    WIZARD(SendNotificationWizardForm_InitializeAutoNotify, frmSendNotificationWizard,
           "chkAutoNotify(3)", "frmSendNotificationWizardPhone", (2, entry),
           InitializeAutoNotify(enumAutoNotifyCompany, entry)),
    WIZARD(SendNotificationWizardForm_InitializeAutoNotify, frmSendNotificationWizard,
           "chkAutoNotify(0)", nullptr, (1, entry),
           InitializeAutoNotify(enumAutoNotifyContact, entry)),
    WIZARD(SendNotificationWizardForm_InitializeAutoNotifyNow, frmSendNotificationWizard,
           "chkNotify(3)", "frmSendNotificationWizardPhone", (1, entry),
           InitializeNotifyNow(enumAutoNotifyContact, entry)),
    WIZARD(SendNotificationWizardApptNotifyNowForm, frmSendNotificationWizardApptNotifyNow,
           "cmdFinish", "frmSendNotificationWizardLetter", (Appointments, twin, nt_Letter, entry),
           InitializeNotifyNow(Appointments, twin, nt_Letter)),
    WIZARD(TaskAutoNotificationForm, frmTaskAutoNotification, "cmdNotifyComment(0)", nullptr,
           (kind), Initialize(kind)),
    WIZARD(TaskAutoNotificationForm, frmTaskAutoNotification, "cmdNotifyComment(2)", nullptr, (),
           Initialize(noId)),
    WIZARD(SendAutoNotifyListForm, frmAutoNotifyList, "cmdRefreshTaskGrid", nullptr, (kind),
           Initialize()),
    WIZARD(TaskAutoNotificationForm_WithTotalNumAndScheduleNum, frmTaskAutoNotification,
           "cmdNotifyComment(3)", nullptr, (103, 1), InitializeWithTotalNumAndScheduleNum(103, 1)),
    WIZARD(TaskAutoNotificationForm_WithTotalNumAndScheduleNum, frmTaskAutoNotification, "cmdClose",
           nullptr, (), InitializeWithTotalNumAndScheduleNum(noId, noId)),
};

/// What a person does in a composer: writes into the field, presses the button, and closes the
/// document that comes up then.
struct ComposerUse {
  const char *field, *button, *document = nullptr;
};

/// Opens the composer in either way and uses it.
template <class Composer>
Operation window(const char* name, ComposerUse use, void (*open)(clsAutoNotifyCtrl&),
                 void (*initialize)(Composer&)) {
  const auto expect = [use](TestHost& host) {
    host.screen.answerAll(true);
    host.screen.expectWindow(Composer().name(), [use](WindowInUse& window) {
      window.type(use.field, "Hello");
      window.click(use.button);
    });
    if (use.document)
      host.screen.expectReport(use.document, [](ReportInUse& shown) { shown.close(); });
  };
  return {name, std::string("Morvane.exe-clsAutoNotifyCtrl-") + name,
          [=](ComponentHost& host) {
            expect(host);
            host.control->put_cancelFlag(use.button == std::string("cmdFinish"));
            open(*host.control);
            return toText(host.control->get_cancelFlag());
          },
          [=](TestHost& host) {
            expect(host);
            Composer composer;
            initialize(composer);
            composer.unload();
            return toText(composer.cancelFlag());
          }};
}

// What is not walked through: the copy by id, which meets its unfinished statement, and windows.
const Operation further[] = {
    CONTROL(copyOldNotificationInfoToNewNotification, emailRow, oldRow),
#define WINDOW(channel, operation, use, arguments, initialize)                       \
  window<frmSendNotificationWizard##channel>(                                        \
      "cls_openSendNotificationWizard" #channel "Form_" #operation, UNPACKED use,    \
      [](clsAutoNotifyCtrl& control) {                                               \
        control.cls_openSendNotificationWizard##channel##Form_##operation arguments; \
      },                                                                             \
      [](frmSendNotificationWizard##channel& composer) { composer.initialize; })
#define UNPACKED(...) \
  { __VA_ARGS__ }
#define COMPOSER(channel, field, row, document)                                      \
  WINDOW(channel, InitializeNewAutoNotify, (field, "cmdCancel"),                     \
         (Dockets, appointmentNotification, noId, oldEntry),                         \
         InitializeNewAutoNotify(appointmentNotification, noId, Dockets, oldEntry)), \
      WINDOW(channel, InitializeAutoNotifyNow, (field, "cmdFinish", document),       \
             (Dockets, appointmentNotification, row, oldEntry),                      \
             InitializeNotifyNow(appointmentNotification, row, Dockets, oldEntry))
    COMPOSER(Email, "txtSubject", emailRow, nullptr),
    COMPOSER(Fax, "txtPages", faxRow, "drFax"),
    COMPOSER(Letter, "rtbText", meetingRow, "drLetter"),
    COMPOSER(Phone, "txtToCall", meetingRow, nullptr),
    WINDOW(Fax, InitializeBlankSend, ("txtPages", "cmdFinish", "drFax"),
           (remittanceNotification, company, contact, Dockets),
           InitializeBlankSend(remittanceNotification, company, contact, Dockets)),
    WINDOW(Letter, InitializeBlankSend, ("rtbText", "cmdCancel"),
           (remittanceNotification, noId, contact),
           InitializeBlankSend(remittanceNotification, noId, contact, noId)),
};

/// What a run does in the office: the first procedures that it enters, its host calls, its result
/// and what it leaves. A person leaves whatever fails.
template <class Host, class Run>
std::string traceOf(Host& host, const Run& run, std::size_t procedures) {
  host.calls.reset();
  host.calls.record(true);
  host.errors.answerRest(error_choice::leave, 9);
  const std::size_t before = host.errors.tags().size();
  const std::string result = run(host);
  std::string trace;
  for (std::size_t i = before; i < before + procedures; ++i)
    trace += host.errors.tags().at(i) + "\n";
  for (const std::string& call : host.calls.log())
    trace += replaceAll(call, host.documents.path().string(), "documents") + "\n";
  trace += result + "\n" + std::to_string(host.errors.dialogs()) + " dialogs\n";
  for (const char* table : {"Appointments", "ContactLinks", "Companies"})
    trace += host.dump(std::string("SELECT * FROM ") + table);
  EXPECT_EQ(host.errors.entered(), host.errors.left());
  host.screen.finish();
  return trace + host.dumpWritten();
}

/// Runs the operation and its procedure on twin hosts.
void expectTheSame(const Operation& operation) {
  const std::string frame = operation.tag.empty() ? "" : operation.tag + "\n";
  AttachedHost direct(fillOffice);
  const std::string expected = frame + traceOf(direct, operation.procedure, 1);
  ComponentHost component(fillOffice);
  EXPECT_EQ(traceOf(component, operation.run, frame.empty() ? 1 : 2), expected) << operation.name;
}

TEST(Wiring, EachOperationDoesWhatItsProcedureDoes) {
  for (const Operation& operation : operations) expectTheSame(operation);
  for (const Operation& operation : further) expectTheSame(operation);
}

class Operations : public testing::TestWithParam<Operation> {};

TEST_P(Operations, SurviveAFailureOfAnyHostCall) {
  const auto makeHost = [](FillRows fill) { return std::make_unique<ComponentHost>(fill); };
  walkFaults(
      {.run = [](TestHost& host) { return GetParam().run(static_cast<ComponentHost&>(host)); },
       .defaultResult = resultWhenLeft(GetParam().procedure, fillOffice, 1)},
      {.fill = fillOffice, .makeHost = makeHost});
}

/// Each operation once.
std::vector<Operation> walked() {
  std::vector<Operation> rows;
  for (const Operation& row : operations) {
    const auto isSame = [&](const Operation& other) { return std::string(other.name) == row.name; };
    if (std::ranges::none_of(rows, isSame)) rows.push_back(row);
  }
  return rows;
}

INSTANTIATE_TEST_SUITE_P(Component, Operations, testing::ValuesIn(walked()),
                         [](const auto& operation) { return std::string(operation.param.name); });

TEST_F(ComponentTest, ToolsEditEmailsAlone) {
  const auto tools = library.createTools();
  const Id scheduled = addSchedule(103, 1, clock.today(), {{"scheduleName", "GST Return"}});
  EXPECT_FALSE(tools->editEmailNotification(addNotification(scheduled, nt_Letter, dueDate)));
  const Id email = addNotification(scheduled, nt_Email, dueDate);
  EXPECT_FALSE(tools->editEmailNotification(email + 1));
  for (const char* button : {"cmdCancel", "cmdFinish"}) {
    screen.expectWindow("frmSendNotificationWizardEmail",
                        [&](WindowInUse& window) { window.click(button); });
    EXPECT_EQ(tools->editEmailNotification(email), button == std::string("cmdFinish"));
  }
}

TEST_F(ComponentTest, ToolsMakeDocumentsOfFaxesAndLetters) {
  const Id person = addRow("Contacts", {{"DisplayName", "Jo Park"}});
  const Id scheduled = addSchedule(103, 1, dueDate, {{"ContactIDNum", person}});
  for (const auto& [channel, report] :
       {std::pair{nt_Email, ""}, {nt_Phone, ""}, {nt_Fax, "drFax"}, {nt_Letter, "drLetter"}}) {
    if (*report) screen.expectReport(report, [](ReportInUse& inUse) { inUse.close(); });
    const Id notification = addNotification(scheduled, channel, dueDate);
    EXPECT_EQ(library.createTools()->makeDocument(notification), *report != 0);
    EXPECT_FALSE(library.createTools()->makeDocument(notification + 1));
  }
  EXPECT_NE(readFile(documents / "Contact 1/2/Letter - Apr 15 2026.mvw"), "");
}

TEST_F(ComponentTest, TakesItsPanelBackBeforeItGoes) {
  for (const bool isReplaced : {true, false}) {
    screen.expectWindow("frmAutoNotifyList", [](WindowInUse& list) {
      for (const char* button : {"imgTopBarButton(0)", "cmdClose"}) list.click(button);
    });
    screen.expectWindow("frmAutoNotifySearch", [](WindowInUse& panel) { panel.closeBox(); });
    control->cls_openSendAutoNotifyListForm();
    EXPECT_NE(plainClients.getPanel(searchPanelKey), nullptr);
    isReplaced ? control->put_clientDropDownCtrlReference(&clients) : control.reset();
    EXPECT_EQ(plainClients.getPanel(searchPanelKey), nullptr);
  }
}

TEST_F(ComponentTest, ToolsListNoFieldsWithoutAListOfTheHost) {
  registry.registerClass(GridColumnList::className, [] { return std::unique_ptr<HostObject>(); });
  errors.answerRest(error_choice::next, 20);
  EXPECT_TRUE(library.createTools()->listMergeFields(MergeUse::task).empty());
}

TEST_F(ComponentTest, NoTemplateIsCarriedForAKindThatIsNotThere) {
  addNotification(addSchedule(0, 0, dueDate), nt_Letter, dueDate);
  int looks = 0;
  library.createTools()->propagateTemplate(99, [&](int, int) { ++looks; });
  EXPECT_EQ(looks, 0);
}

}  // namespace
}  // namespace autonotify::test
