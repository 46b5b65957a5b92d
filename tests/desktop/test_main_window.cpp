#include <QAccessible>
#include <QPdfDocument>
#include <QPdfSelection>
#include <QtWidgets>
#include <thread>

#include "MainWindowTest.h"
#include "day/day_formats.h"
#include "host/desk/rows/Notification.h"
#include "host/desk/rows/channel_names.h"
#include "host/desk/user_options.h"
#include "host/desk/work/firm_details.h"
#include "host/desk/work/note_call.h"
#include "host/desk/work/notification_list.h"
#include "preview/PdfPages.h"
#include "preview/PreviewWindow.h"

namespace autonotify::desktop {
namespace {

using testing::HasSubstr;

TEST_F(MainWindowTest, ComposersLeaveNothingBehindHoweverTheyAreLeft) {
  open();
  const std::tuple<const char*, Visitor::Act, int> exits[] = {
      {"composeEmail", closeBox, 0},  {"scheduleEmail", cancel, 0},
      {"notifyNow", cancel, 0},       {"notifyAutomatically", closeBox, 0},
      {"blankFax", closeBox, 0},      {"blankLetter", cancel, 0},
      {"scheduleYear", closeBox, 0},  {"scheduleYear", cancel, 0},
      {"editEmail", closeBox, 0},     {"editEmail", cancel, 0},
      {"scheduleEmail", closeBox, 0}, {"scheduleEmail", finish, 1}};
  const auto other = host::openSqlite(path());
  const auto claims = host::claimsOf(*other);
  const std::string left = plain(folder_.filePath("left.db"));
  for (const auto& [command, leave, added] : exits) {
    const Id task = chooseTaskFor(command);
    const int before = rows();
    const auto act = [&, &leave = leave](QDialog& composer) {
      SQLite::Statement marked(other->connection(),
                               "SELECT max(ClientNotificationID) FROM ClientNotification");
      marked.executeStep();
      if (rows() > before) {
        EXPECT_EQ(claims->tryTake(host::WorkItem::notification, marked.getColumn(0)), nullptr);
      }
      marked.reset();
      execute("VACUUM INTO '" + left + "'");
      leave(composer);
    };
    EXPECT_THAT(run(command, act), testing::IsEmpty());
    EXPECT_EQ(rows(), before + added) << command;
    // As the next desk finds it, had this one died in the window.
    window_->openDatabase(shown(left));
    EXPECT_EQ(rows(left), before) << command;
    window_->openDatabase(shown(path()));
    QFile::remove(shown(left));
    EXPECT_EQ(!host::findWaitingEmail(*window_->desk(), task),
              std::string_view(command) != "editEmail" && !added)
        << command;
  }
}

TEST_F(MainWindowTest, WhatIsSentAtOnceStaysOnRecordAndTheEmailThatWaitsIsOffered) {
  open();
  const Id task = chooseTaskFor("editEmail");
  const std::string name = host::findTask(*window_->desk(), task)->name;
  for (const bool agrees : {false, true}) {
    EXPECT_THAT(run("composeEmail", finish, agrees),
                testing::ElementsAre(HasSubstr("An email about this task still waits for")));
    EXPECT_THAT(plain(window_->statusBar()->currentMessage()), testing::StartsWith("Sent to "));
    EXPECT_EQ(!host::findWaitingEmail(*window_->desk(), task), agrees);
    int records = 0;
    host::listNotifications(*window_->desk(), {.standing = &host::notificationStanding("sent")},
                            [&](const host::NotificationLine& line) {
                              if (line.row.sentTime.dateOnly() != today) return;
                              EXPECT_EQ(line.item, name);
                              ++records;
                            });
    EXPECT_EQ(records, agrees ? 2 : 1);
  }
}

TEST_F(MainWindowTest, WhatAPersonWritesIsNeitherLostNorLetGoWithBadAddresses) {
  open();
  execute("UPDATE ClientNotification SET Field2='bob@x.example' WHERE ScheduleIDNum=" +
          toText(chooseTaskFor("editEmail")));
  const auto rewrite = [](QDialog& composer, const char* text) {
    auto* cc = composer.findChild<QComboBox*>("cboCc")->lineEdit();
    cc->setFocus();
    cc->selectAll();
    QTest::keyClick(cc, Qt::Key_Delete);
    QTest::keyClicks(cc, text);
  };
  const auto staysAt = [](const Visitor::Act& act, QDialog& composer) {
    act(composer);
    EXPECT_TRUE(composer.isVisible());
  };
  const char* loss = "lose what you have changed";
  EXPECT_THAT(run("editEmail",
                  [&](QDialog& composer) {
                    rewrite(composer, "bob@");
                    for (const Visitor::Act& act :
                         {Visitor::Act(finish), Visitor::Act(cancel), Visitor::Act(closeBox)})
                      staysAt(act, composer);
                    rewrite(composer, "");
                    staysAt(finish, composer);
                    rewrite(composer, "bob@x.example");
                    cancel(composer);
                  }),
              testing::ElementsAre(HasSubstr("Please correct the field Cc."), HasSubstr(loss),
                                   HasSubstr(loss), HasSubstr("keeps what it held, \"bob@x")));
  for (const auto& [leave, words] : {std::pair(Visitor::Act(cancel), loss),
                                     std::pair(Visitor::Act(finish), "The field Cc is empty")}) {
    const auto act = [&, &leave = leave](QDialog& composer) {
      rewrite(composer, "");
      leave(composer);
      EXPECT_FALSE(composer.isVisible());
    };
    EXPECT_THAT(run("editEmail", act, true), testing::ElementsAre(HasSubstr(words)));
  }
}

TEST_F(MainWindowTest, BesideFinishStandsWhatItDoesAndBesideTheDateWhatIsOddAboutIt) {
  open();
  execute("UPDATE Schedule SET DueDate='2026-04-30'");
  const auto write = [](QDialog& composer, QLineEdit& field, const char* text) {
    field.setFocus();
    field.selectAll();
    QTest::keyClicks(&field, text);
    QTest::keyClick(&composer, Qt::Key_Tab);
    QApplication::processEvents();
  };
  const auto toField = [](QDialog& composer) -> QLineEdit& {
    return *composer.findChild<QComboBox*>("cboTo")->lineEdit();
  };
  chooseTaskFor("scheduleEmail");
  run(
      "composeEmail",
      [&](QDialog& composer) {
        write(composer, toField(composer), "a&b@x.example; c@x.example");
        EXPECT_EQ(read(composer, "staticFollowFinish"),
                  "Sends it now to a&&b@x.example and 1 more");
        EXPECT_EQ(read(composer, "staticFollowDate"), "");
        for (auto* field : composer.findChildren<QLineEdit*>()) field->clear();
        composer.close();
      },
      true);
  const std::string due = plain(longDate(QDate(2026, 4, 30)));
  const std::tuple<QDate, std::string> dates[] = {
      {QDate(2026, 4, 14), "This day has passed."},
      {QDate(2026, 5, 1), "This is after the due date, " + due + "."},
      {QDate(2026, 4, 15), ""},
      {QDate(2026, 4, 30), ""}};
  EXPECT_THAT(run("scheduleEmail",
                  [&](QDialog& composer) {
                    write(composer, toField(composer), "a@x.example");
                    for (const auto& [day, oddity] : dates) {
                      const std::string date = plain(QLocale::c().toString(day, "MMMM d, yyyy"));
                      write(composer, *composer.findChild<QLineEdit*>("txtNotificationField"),
                            date.c_str());
                      EXPECT_EQ(read(composer, "staticFollowDate"), oddity);
                      EXPECT_THAT(read(composer, "staticFollowFinish"),
                                  testing::AllOf(HasSubstr("sent to a@x.example on"),
                                                 testing::EndsWith(plain(longDate(day)))));
                      finish(composer);
                      EXPECT_EQ(composer.isVisible(), !oddity.empty()) << date;
                      if (!composer.isVisible()) break;
                    }
                  }),
              testing::ElementsAre(HasSubstr("has passed.  Do you"), HasSubstr(due + ".  Do")));
  // The date that the composer comes up with is no other case.
  execute("DELETE FROM ClientNotification; UPDATE Schedule SET DueDate='2026-03-31'");
  trigger("refresh");
  for (const bool agrees : {false, true}) {
    const int before = rows();
    const auto leave = [&](QDialog& composer) {
      finish(composer);
      EXPECT_EQ(composer.isVisible(), !agrees);
      if (composer.isVisible()) composer.close();
    };
    EXPECT_THAT(run("scheduleEmail", leave, agrees),
                testing::ElementsAre(HasSubstr("has passed.  Do you")));
    EXPECT_EQ(rows(), before + agrees);
  }
}

TEST_F(MainWindowTest, AddressesAndNumbersAreListedWithTheNamesBehindThem) {
  open();
  execute(
      "UPDATE AccountantEmployeeInfo SET BusinessEmail='staff@x.example', PersonalEmail='', "
      "BusinessPhone_Fax='555-1', DisplayName='Nora Pine'; "
      "UPDATE Companies SET Email='Client@x.example', FaxNumber='555-2', OfficeNumber='555-4', "
      "CompanyName='Works'; "
      "UPDATE Contacts SET PersonalEmail='Client@x.example', BusinessEmail='', "
      "HomePhone_Fax='555-3', HomePhone_Main='555-3', BusinessPhone_Main='', "
      "DisplayName=CASE ContactID WHEN (SELECT MIN(ContactID) FROM Contacts) THEN 'B' ELSE 'A & "
      "Co' END");
  const auto expectLists = [](std::map<const char*, QStringList> lists) {
    return [=](QDialog& composer) {
      for (const auto& [name, entries] : lists) {
        QStringList spoken;
        auto& box = *composer.findChild<QComboBox*>(name);
        for (int row = 0; row < box.count(); ++row)
          spoken += box.itemData(row, Qt::AccessibleTextRole).toString();
        for (const QString& entry : entries)
          EXPECT_TRUE(spoken.contains(entry)) << name << ": " << plain(spoken.join('|'));
        box.showPopup();
        EXPECT_GE(box.view()->viewport()->width(), box.view()->sizeHintForColumn(0));
        box.hidePopup();
      }
      composer.close();
    };
  };
  const QString staff = "staff@x.example, Nora Pine (our firm)";
  const QStringList emails{"Client@x.example, A & Co, B", staff};
  chooseTaskFor("composeEmail");
  run("composeEmail", expectLists({{"cboTo", emails}, {"cboCc", emails}, {"cboBcc", emails}}));
  run("blankFax", expectLists({{"cboFromFaxNumber", {"555-1, Nora Pine (our firm)"}},
                               {"cboToFaxNumber", {"555-2, Works", "555-3, A & Co, B"}}}));
  run("notifyNow", [&](QDialog& wizard) {
    actAbove(wizard, expectLists({{"cboPhoneNumber", {"555-4, Works", "555-3, A & Co, B"}}}));
    press(wizard, "chkNotify(3)");
  });
}

/// Closes the preview that comes up; `seen` is what stood on its first page.
void closePreview(QTimer& timer, QString& seen) {
  timer.callOnTimeout([&seen] {
    auto* preview = qobject_cast<PreviewWindow*>(QApplication::activeModalWidget());
    if (!preview) return;
    seen = preview->findChild<PdfPages*>()->document()->getAllText(0).text();
    preview->close();
  });
  timer.start(5);
}

TEST_F(MainWindowTest, ABlankLetterIsSeenAsItIsPrintedAndFiledWhenItIsClosed) {
  open();
  chooseTaskFor("blankLetter");
  QString seen;
  QTimer reader;
  closePreview(reader, seen);
  EXPECT_THAT(run("blankLetter",
                  [](QDialog& composer) {
                    EXPECT_FALSE(read(composer, "staticNoteClient").empty());
                    QTest::keyClicks(composer.findChild<QTextEdit*>(), "Good day");
                    QTest::keyClick(composer.findChild<QTextEdit*>(), Qt::Key_Return,
                                    Qt::ControlModifier);
                  }),
              testing::IsEmpty());
  EXPECT_THAT(plain(seen), HasSubstr("Good day"));
  QDirIterator filed(shown(path() + ".documents"), {"Letter - *.mvw"}, QDir::Files,
                     QDirIterator::Subdirectories);
  ASSERT_TRUE(filed.hasNext());
  EXPECT_THAT(plain(window_->statusBar()->currentMessage()), HasSubstr("Filed as "));
  QFile file(filed.next());
  EXPECT_TRUE(file.open(QIODevice::ReadOnly) && file.readAll().contains("Good day"));
}

TEST_F(MainWindowTest, ADocumentSentAtOnceStaysInItsClientsHistory) {
  open();
  const host::Task task = *host::findTask(*window_->desk(), chooseTaskFor("blankFax"));
  QString seen;
  QTimer reader;
  closePreview(reader, seen);
  const auto inWizard = [](int channel, const Visitor::Act& leave) {
    return [=](QDialog& wizard) {
      actAbove(wizard, leave);
      press(wizard, ("chkNotify(" + toText(channel) + ")").c_str());
    };
  };
  const std::tuple<const char*, Visitor::Act, std::string> ways[] = {
      {"notifyNow", inWizard(1, cancel), ""},
      {"notifyNow", inWizard(1, closeBox), ""},
      {"notifyNow", inWizard(1, finish), "fax " + task.name},
      {"notifyNow", inWizard(2, finish), "letter " + task.name},
      {"blankFax", finish, "fax "},
      {"blankLetter", finish, "letter "}};
  std::vector<std::string> history;
  for (const auto& [command, act, added] : ways) {
    const int before = rows();
    EXPECT_THAT(run(command, act), testing::IsEmpty());
    EXPECT_EQ(rows(), before + !added.empty());
    if (!added.empty()) history.push_back(added);
    std::vector<std::string> told;
    const host::Client client{enumAutoNotifyCompany, companyOf(*window_->desk(), task)};
    host::listNotifications(*window_->desk(),
                            {.standing = &host::notificationStanding("sent"), .client = client},
                            [&](const host::NotificationLine& line) {
                              if (line.row.sentTime.dateOnly() != today) return;
                              told.push_back(host::channelName(line.row.channel) + " " + line.item);
                            });
    EXPECT_THAT(told, testing::UnorderedElementsAreArray(history));
  }
}

TEST_F(MainWindowTest, AClientWithoutATaskIsWrittenToFromItsPage) {
  execute("DELETE FROM ClientNotification; DELETE FROM Schedule");
  open();
  window_->goTo(Navigation::Place::clients);
  auto& clients = *window_->findChild<QTableView*>("clients");
  QString seen;
  QTimer reader;
  closePreview(reader, seen);
  const std::tuple<const char*, int, std::string> ways[] = {
      {"blankFax", 0, "CompanyIDNum>0 AND ContactIDNum=-1 AND NotificationType=2"},
      {"blankLetter", clients.model()->rowCount() - 1,
       "CompanyIDNum=-1 AND ContactIDNum>0 AND NotificationType=4"}};
  for (const auto& [command, row, written] : ways) {
    clients.setCurrentIndex({});
    EXPECT_FALSE(action(command).isEnabled());
    clients.selectRow(row);
    EXPECT_TRUE(clients.actions().contains(&action(command)) && action(command).isEnabled());
    const std::string name = plain(clients.model()->index(row, 0).data().toString());
    EXPECT_THAT(run(command,
                    [&](QDialog& composer) {
                      EXPECT_EQ(read(composer, "staticNoteClient"), name);
                      finish(composer);
                    }),
                testing::IsEmpty());
    EXPECT_EQ(read(*window_, "clientTitle"), name);
    EXPECT_EQ(window_->findChild<QTableView*>("told")->model()->rowCount(), 1);
    const std::string sent =
        "SELECT count(*) FROM ClientNotification WHERE NotificationSent=1 AND ";
    EXPECT_EQ(host::openSqlite(path())->connection().execAndGet(sent + written).getInt(), 1);
  }
}

TEST_F(MainWindowTest, TheWorklistOfAPageIsSeenAsItIsPrinted) {
  open();
  execute("UPDATE ClientNotification SET NotificationDate='2026-04-14' WHERE NotificationSent=0");
  for (const auto& [place, title] :
       {std::pair(Navigation::Place::calls, "Calls to be made by 2026-04-15"),
        std::pair(Navigation::Place::tasks, "Letters, faxes and calls by 2026-04-15")}) {
    window_->goTo(place);
    const auto look = [title = title](QDialog& preview) {
      auto* pages = preview.findChild<PdfPages*>()->document();
      EXPECT_THAT(plain(pages->getAllText(0).text()), testing::StartsWith(title));
      preview.close();
    };
    EXPECT_THAT(run("printWorklist", look), testing::IsEmpty());
  }
}

TEST_F(MainWindowTest, TheWizardTellsOfEachChannelAndEscapeLeavesIt) {
  open();
  execute("UPDATE ClientNotification SET NotificationDate='2026-05-04' WHERE ScheduleIDNum=" +
          std::to_string(chooseTaskFor("editEmail")));
  host::setAsksBeforeCancelling(*window_->desk(), false);
  const std::string goesOut = "Goes out on " + plain(longDate(QDate(2026, 5, 4)));
  for (const std::string address : {"1 Elm", ""}) {
    execute("UPDATE Companies SET FaxNumber='', Address='" + address +
            "'; UPDATE Contacts SET BusinessPhone_Fax='', HomePhone_Fax='', HomeAddress='" +
            address + "', BusinessAddress=''");
    const auto expectNotes = [&](QDialog& wizard, const char* email) {
      const char* letter = address.empty() ? "No address on file" : "Not set up";
      const char* notes[] = {email, "No fax number on file", letter, "Not set up"};
      for (int i = 0; i < 4; ++i)
        EXPECT_EQ(read(wizard, QString("staticNote(%1)").arg(i)), notes[i]);
    };
    const auto messages = run("notifyAutomatically", [&](QDialog& wizard) {
      expectNotes(wizard, goesOut.c_str());
      if (address.empty()) wizard.findChild<QCheckBox*>("chkAutoNotify(0)")->click();
      if (address.empty()) expectNotes(wizard, "Not set up");
      QTest::keyClick(&wizard, Qt::Key_Escape);
      EXPECT_FALSE(wizard.isVisible());
    });
    EXPECT_THAT(messages, testing::IsEmpty());
  }
}

TEST_F(MainWindowTest, ACallIsNotedAsItWent) {
  open();
  const Id task = chooseTaskFor("callClient");
  for (const char* button : {"noAnswer", "callMade"}) {
    const auto call = host::findWaitingCall(*window_->desk(), task);
    ASSERT_TRUE(call) << button;
    EXPECT_THAT(run("callClient",
                    [&](QDialog& dialog) {
                      QTest::keyClicks(dialog.findChild<QLineEdit*>("note"), "on Monday");
                      QTest::keyClick(dialog.findChild<QLineEdit*>("note"), Qt::Key_Return);
                      EXPECT_TRUE(dialog.isVisible()) << "Enter tells nothing";
                      QTest::keyClick(&dialog, Qt::Key_Escape);
                      EXPECT_TRUE(dialog.isVisible());
                      press(dialog, button);
                    }),
                testing::ElementsAre(HasSubstr("lose your note")));
    const auto noted = *host::findNotification(*window_->desk(), call->id);
    EXPECT_EQ(noted.sent, button == std::string("callMade"));
    EXPECT_THAT(noted.memo, HasSubstr(noted.sent ? "called; on Monday" : "no answer; on Monday"));
  }
  EXPECT_FALSE(host::findWaitingCall(*window_->desk(), task));
}

TEST_F(MainWindowTest, AYearIsScheduledInWholeTasksOrNotAtAll) {
  open();
  execute("DELETE FROM ClientNotification");
  execute("UPDATE Schedule SET notifyType=0, totalNum=101, Year=2026, Closed=0, ClientNum=" +
          toText(host::findTask(*window_->desk(), chooseTaskFor("scheduleYear"))->clientNum));
  trigger("refresh");
  const std::string sent = toText(chooseTaskFor("scheduleYear"));
  execute(
      "INSERT INTO ClientNotification (ScheduleIDNum, NotificationType, Field1, NotificationSent, "
      "NotificationSentStatus) VALUES (" +
      sent + ", 1, 'kept@birch', 1, 2)");
  const std::string other = "(SELECT max(ScheduleID) FROM Schedule WHERE ScheduleID<>" + sent + ")";
  execute("CREATE TRIGGER Failing BEFORE INSERT ON ClientNotification WHEN NEW.ScheduleIDNum=" +
          other + " BEGIN SELECT RAISE(ABORT, 'no room'); END");
  const auto count = [&](const char* from) {
    const std::string sql = std::string("SELECT count(*) FROM ") + from;
    return host::openSqlite(path())->connection().execAndGet(sql).getInt();
  };
  const int tasks = count("Schedule");
  std::vector<std::string> asked;
  for (const std::string way : {"left", "failed", "stopped", "done"}) {
    const bool isKept = way == "stopped" || way == "done";
    QTimer watch;
    watch.callOnTimeout([&] {
      const auto* question = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      if (question && question->button(QMessageBox::Yes)) {
        asked.push_back(plain(question->text()));
        question->button(QMessageBox::Yes)->click();
      }
      auto* progress = qobject_cast<QProgressDialog*>(QApplication::activeModalWidget());
      if (way != "stopped" || !progress || progress->value() < 2) return;
      EXPECT_EQ(count("ClientNotification WHERE Field1='kept@birch'"), 1) << "were it killed now";
      progress->findChild<QPushButton*>()->click();
    });
    watch.start(0);
    const auto told = run("scheduleYear", [&](QDialog& panel) {
      press(panel, "cmdSelectAllAuto");
      press(panel, "cmdNext");
      if (way == "left") {
        actAbove(panel, [](QDialog& editor) {
          press(editor, "cmdNotifyComment(3)");
          editor.close();
        });
        press(panel, "cmdEditNotificationTemplate");
      }
      press(panel, way == "left" ? "cmdCancel" : "cmdFinish");
    });
    EXPECT_EQ(told.empty(), isKept) << way;
    if (way == "failed") execute("DROP TRIGGER Failing");
    const int armed = count("Schedule WHERE notifyType=1");
    EXPECT_EQ(rows(), isKept ? armed : 1) << way;
    EXPECT_TRUE(isKept ? armed >= 2 : armed == (way == "failed")) << way << armed;
    EXPECT_EQ(armed == tasks, way == "done") << armed << " of " << tasks;
    EXPECT_EQ(count("ClientScheduleAutoNotifications WHERE GSTNotifyType=1 AND LawNotifyType=1"),
              isKept);
    EXPECT_EQ(count("ClientNotification WHERE Field1='kept@birch'"), 1) << way;
  }
  const int past = count("ClientNotification WHERE NotificationDate<'2026-04-15'");
  EXPECT_THAT(asked, testing::Contains(HasSubstr("of " + toText(past) + " tasks are past")));
  execute("UPDATE Schedule SET DueDate='soon' WHERE ScheduleID=" + other);
  EXPECT_THAT(run("scheduleYear"), testing::ElementsAre(HasSubstr("DueDate")));
}

TEST_F(MainWindowTest, OptionsAreTheUsersOwn) {
  using Option = bool (*)(host::Desk&);
  open();
  for (const auto& [name, isOn] :
       {std::pair<const char*, Option>{"confirm", host::confirmsScheduling},
        {"askToCancel", host::asksBeforeCancelling}}) {
    const bool before = isOn(*window_->desk());
    run("options", [&, name = name](QDialog& dialog) {
      EXPECT_EQ(dialog.findChild<QCheckBox*>(name)->isChecked(), before);
      dialog.findChild<QCheckBox*>(name)->click();
      dialog.accept();
    });
    EXPECT_NE(isOn(*window_->desk()), before) << name;
  }
}

TEST_F(MainWindowTest, EscapeLeavesAWindowAndAsksWhereSomethingWasTyped) {
  open();
  const std::pair<const char*, const char*> fields[] = {{"options", "documents"},
                                                        {"scheduleYear", "cboCc"},
                                                        {"blankFax", "cboToFaxNumber"},
                                                        {"scheduleEmail", "cboCc"}};
  chooseTaskFor("scheduleEmail");
  for (const auto& [command, name] : fields) {
    for (const bool isChanged : {false, true}) {
      const auto leave = [&, name = name, command = command](QDialog& window) {
        if (window.findChild<QPushButton*>("cmdNext")) {
          press(window, "cmdSelectAllAuto");
          press(window, "cmdNext");
        }
        auto* box = window.findChild<QComboBox*>(name);
        auto* field = box ? box->lineEdit() : window.findChild<QLineEdit*>(name);
        field->setFocus();
        if (isChanged) QTest::keyClicks(field, "x");
        QTest::keyClick(&window, Qt::Key_Escape);
        EXPECT_FALSE(window.isVisible()) << command;
      };
      const auto told = run(command, leave, true);
      EXPECT_EQ(told.size(), isChanged ? 1U : 0U) << command;
      EXPECT_THAT(told, testing::Each(HasSubstr("lose what you have changed")));
    }
  }
}

TEST_F(MainWindowTest, FinishPressedTwiceSendsAndSavesOnce) {
  open();
  chooseTaskFor("scheduleEmail");
  for (const char* command : {"composeEmail", "scheduleEmail"}) {
    const int before = rows();
    run(
        command,
        [](QDialog& composer) {
          auto* button = composer.findChild<QPushButton*>("cmdFinish");
          for (int press = 0; press < 2; ++press)
            QMetaObject::invokeMethod(button, &QPushButton::click, Qt::QueuedConnection);
        },
        true);
    EXPECT_EQ(rows(), before + 1) << command;
  }
  EXPECT_EQ(QDir(shown(path() + ".outbox")).entryList({"*.eml"}).size(), 1);
}

TEST_F(MainWindowTest, FaultsUnderAnOpenComposerEndInMessages) {
  open();
  auto& connection = static_cast<host::SqliteDatabase&>(window_->desk()->database()).connection();
  connection.setBusyTimeout(20);
  const std::pair<const char*, Visitor::Act> exits[] = {
      {"Finish", finish}, {"Cancel", cancel}, {"close box", closeBox}};
  const auto other = host::openSqlite(path());
  for (const char* command : commands) {
    for (const auto& [name, leave] : exits) {
      SCOPED_TRACE(std::string(command) + ", " + name);
      chooseTaskFor(command);
      const auto messages = run(command, [&, &leave = leave](QDialog& composer) {
        other->connection().exec("BEGIN IMMEDIATE");
        leave(composer);
        if (composer.isVisible()) composer.close();
      });
      other->connection().exec("ROLLBACK");
      // Leaving an email that is only edited writes nothing.
      const bool writes = command != commands[2] || std::string(name) == "Finish";
      if (writes && name != std::string("close box")) {
        EXPECT_THAT(messages, testing::Contains(HasSubstr("lock")));
      }
    }
  }
}

TEST_F(MainWindowTest, AnEmailThatSomeoneDeletedIsMissedAtFinish) {
  open();
  for (const char* command : {"editEmail", "scheduleEmail"}) {
    chooseTaskFor(command);
    const auto messages = run(command, [&](QDialog& composer) {
      execute("DELETE FROM ClientNotification WHERE ScheduleIDNum>=0");
      press(composer, "cmdFinish");
      composer.close();
    });
    EXPECT_THAT(messages, testing::ElementsAre(HasSubstr("Do you want to close it"),
                                               HasSubstr("What you wrote is lost.")));
  }
}

TEST_F(MainWindowTest, WhatSomeoneElseDidSinceTheListWasReadIsLeftAlone) {
  open();
  const Id task = chooseTaskFor("scheduleEmail");
  execute("UPDATE ClientNotification SET ScheduleIDNum=" + std::to_string(task) +
          " WHERE NotificationType=1 AND NotificationSent=0");
  EXPECT_THAT(run("scheduleEmail"), testing::ElementsAre("The email is scheduled already."));
  execute("UPDATE ClientNotification SET NotificationSent=1, NotificationSentStatus=2");
  EXPECT_THAT(enabled(), testing::ElementsAre(true, false, true)) << "as the list has it";
  EXPECT_THAT(run("editEmail"), testing::IsEmpty());
  EXPECT_THAT(enabled(), testing::ElementsAre(true, true, false)) << "the list is read again";
}

TEST_F(MainWindowTest, WhatAnotherDeskWorksOnIsNotComposed) {
  open();
  const auto other = host::openSqlite(path());
  const auto claims = host::claimsOf(*other);
  const auto busy = testing::ElementsAre(HasSubstr("Another desk is at work on it."));
  auto task = claims->take(host::WorkItem::task, chooseTaskFor("scheduleEmail"));
  for (const char* command : {"composeEmail", "scheduleEmail", "notifyNow", "notifyAutomatically"})
    EXPECT_THAT(run(command), busy);
  task = claims->take(host::WorkItem::task, chooseTaskFor("editEmail"));
  EXPECT_THAT(run("editEmail"), busy);
  task.reset();
  std::vector<std::unique_ptr<host::Claim>> emails;
  const Id edited = chooseTaskFor("editEmail");
  for (const auto& row : host::readNotificationsOf(*window_->desk(), edited).rows)
    emails.push_back(claims->take(host::WorkItem::notification, row.id));
  EXPECT_THAT(run("editEmail"), busy);
  const auto take = [&] { return claims->tryTake(host::WorkItem::templates, host::wholeFirm); };
  auto templates = take();
  chooseTaskFor("scheduleEmail");
  const auto messages = run("notifyAutomatically", [&](QDialog& wizard) {
    press(wizard, "cmdEditNotificationTemplate");
    templates.reset();
    QTimer::singleShot(50, [&] {
      auto& editor = static_cast<QDialog&>(*QApplication::activeModalWidget());
      EXPECT_EQ(take(), nullptr);
      QTest::keyClicks(editor.findChild<QTextEdit*>(), "A");
      EXPECT_FALSE(window_->closeWindows());
      press(editor, "cmdNotifyComment(0)");
      EXPECT_TRUE(window_->closeWindows());
    });
    press(wizard, "cmdEditNotificationTemplate");
  });
  EXPECT_THAT(messages, testing::ElementsAre(HasSubstr("changing the templates"),
                                             HasSubstr("without saving"), HasSubstr("saved")));
  EXPECT_NE(take(), nullptr);
  task = claims->take(host::WorkItem::task, chooseTaskFor("callClient"));
  EXPECT_THAT(run("callClient"), busy);
  const std::jthread colleague([&] {
    std::this_thread::sleep_for(std::chrono::milliseconds(300));
    execute("UPDATE ClientNotification SET NotificationSent=1, NotificationSentStatus=2");
    task.reset();
  });
  EXPECT_THAT(run("callClient"), testing::ElementsAre("No call of this task waits any more."));
}

TEST_F(MainWindowTest, ARowThatCannotBeReadIsNamedAndNothingIsComposedBesideIt) {
  open();
  const std::string email =
      " WHERE NotificationType=1 AND ScheduleIDNum=" + std::to_string(chooseTaskFor("editEmail"));
  for (const auto& [date, words] : {std::pair("soon", "1 row cannot be read: ClientNotification "),
                                    std::pair("2026-05-04", "")}) {
    execute("UPDATE ClientNotification SET NotificationDate='" + std::string(date) + "'" + email);
    trigger("refresh");
    EXPECT_THAT(read(*window_, "unreadable"), testing::StartsWith(words));
    if (*words) {
      EXPECT_THAT(run("scheduleEmail"), testing::ElementsAre(HasSubstr("\"soon\" is no date")));
    }
    EXPECT_THAT(enabled(), testing::ElementsAre(true, *words != 0, *words == 0));
  }
}

TEST_F(MainWindowTest, CommandsCanBeRunWhereTheyMakeSense) {
  open("");
  EXPECT_THAT(enabled(), testing::Each(false));
  for (const char* each : {"refresh", "notifyNow", "blankFax"})
    EXPECT_FALSE(action(each).isEnabled()) << each;
  EXPECT_TRUE(action("openDatabase").isEnabled());
  open();
  chooseTaskFor("scheduleEmail");
  EXPECT_THAT(enabled(), testing::ElementsAre(true, true, false));
  chooseTaskFor("editEmail");
  EXPECT_THAT(enabled(), testing::ElementsAre(true, false, true));
  for (const char* each : {"notifyNow", "notifyAutomatically", "blankFax", "blankLetter"}) {
    EXPECT_TRUE(action(each).isEnabled()) << each;
    EXPECT_TRUE(window_->findChild<QTableView*>("tasks")->actions().contains(&action(each)));
  }
  trigger("quit");
  QApplication::processEvents();
  EXPECT_FALSE(window_->isVisible());
}

TEST_F(MainWindowTest, TheBarHasRoomForItsCommandsOnASmallScreen) {
  open();
  const auto& bar = *window_->findChild<QToolBar*>("commands");
  EXPECT_TRUE(bar.actions().contains(&action("notifications")));
  for (const int percent : {150, 200, 100}) {
    window_->resize(136600 / percent, 76800 / percent);
    QApplication::processEvents();
    EXPECT_EQ(bar.toolButtonStyle() == Qt::ToolButtonIconOnly, percent == 200);
    for (QAction* each : bar.actions())
      EXPECT_TRUE(bar.widgetForAction(each)->isVisible()) << plain(each->text()) << percent;
  }
}

TEST_F(MainWindowTest, TheFieldLeadsToTheTasksThatItFinds) {
  open();
  QApplication::setActiveWindow(window_.get());
  auto& field = *window_->findChild<QLineEdit*>("filter");
  auto& tasks = *window_->findChild<QTableView*>("tasks");
  const int all = tasks.model()->rowCount();
  QTest::keyClicks(&field, tasks.model()->index(0, TaskTableModel::client).data().toString());
  QTest::keyClick(&field, Qt::Key_Down);
  EXPECT_TRUE(tasks.hasFocus() && tasks.model()->rowCount() < all);
  trigger("find");
  QTest::keyClick(&field, Qt::Key_Escape);
  EXPECT_EQ(field.text(), "");
}

TEST_F(MainWindowTest, TheFirmsDetailsAreStoredWhenTheyHold) {
  open();
  const auto type = [&](const char* email, QDialogButtonBox::StandardButton button) {
    return run("firm", [=](QDialog& dialog) {
      EXPECT_LE(dialog.height(), 440);  // what 1366 x 768 dots at 150 % leave
      for (QLineEdit* each : dialog.findChildren<QLineEdit*>())
        EXPECT_NE(QAccessible::queryAccessibleInterface(each)->text(QAccessible::Name), QString());
      auto& field = *dialog.findChild<QLineEdit*>("email");
      const QString before = field.text();
      field.setText(email);
      dialog.findChild<QDialogButtonBox*>()->button(button)->click();
      field.setText(before);
      if (dialog.isVisible()) dialog.reject();
    });
  };
  const auto stored = [&](const char* email) {
    const auto texts = host::readFirmDetails(*window_->desk());
    return std::ranges::find(texts, email) != texts.end();
  };
  EXPECT_THAT(type("nobody@", QDialogButtonBox::Save),
              testing::ElementsAre(HasSubstr("is no email address.")));
  EXPECT_THAT(type("lost@firm.example", QDialogButtonBox::Cancel),
              testing::ElementsAre(HasSubstr("lose your changes")));
  EXPECT_FALSE(stored("nobody@") || stored("lost@firm.example"));
  EXPECT_THAT(type(" new@firm.example", QDialogButtonBox::Save), testing::IsEmpty());
  EXPECT_TRUE(stored("new@firm.example"));
}

TEST_F(MainWindowTest, ALostDatabaseEndsInMessages) {
  open();
  chooseTaskFor("scheduleEmail");
  const auto messages = run("scheduleEmail", [&](QDialog& composer) {
    for (const char* end : {"", "-wal", "-shm"}) QFile::remove(shown(path() + end));
    press(composer, "cmdFinish");
    if (composer.isVisible()) composer.close();
  });
  EXPECT_THAT(messages, testing::Contains(HasSubstr("no longer in its place")));
}

TEST_F(MainWindowTest, NothingElseRunsBesideAComposer) {
  open();
  chooseTaskFor("composeEmail");
  const host::Desk* desk = window_->desk();
  EXPECT_THAT(
      run("composeEmail",
          [&](QDialog& composer) {
            EXPECT_THAT(read(composer, "staticNoteClient"), HasSubstr(", due on "));
            for (const char* each : {"composeEmail", "refresh", "options", "openDatabase", "quit"})
              trigger(each);
            window_->close();
            EXPECT_TRUE(window_->isVisible());
            EXPECT_EQ(QApplication::activeModalWidget(), &composer);
            composer.close();
          }),
      testing::IsEmpty());
  EXPECT_EQ(window_->desk(), desk);
  EXPECT_TRUE(window_->close());
}

}  // namespace
}  // namespace autonotify::desktop
