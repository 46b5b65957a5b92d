#include <QAbstractItemView>
#include <QLineEdit>
#include <QMenuBar>
#include <QPdfDocument>
#include <QPdfSelection>
#include <QTranslator>
#include <algorithm>

#include "MainWindowTest.h"
#include "day/day_formats.h"
#include "host/database/postgres/ServerAddress.h"
#include "host/desk/claims.h"
#include "host/loader/ComponentLibrary.h"
#include "host/mail/Outbox.h"
#include "host/mail/addresses.h"
#include "host/mail/smtp.h"
#include "host/services/HostFileSystemObject.h"
#include "host/words/Words.h"
#include "preview/PdfPages.h"
#include "translations.h"

namespace autonotify::desktop {
namespace {

/// Marks all that is translated.
class Marker : public QTranslator {
 public:
  Marker() { QCoreApplication::installTranslator(this); }
  bool isEmpty() const override { return false; }
  QString translate(const char*, const char* source, const char*, int) const override {
    return "\u00ab" + QString(source);
  }
};

/// Until its end the program speaks the language.
class Speaking {
 public:
  explicit Speaking(const QLocale& locale) {
    QLocale::setDefault(locale);
    speakLanguageOf(locale);
  }
  ~Speaking() {
    QLocale::setDefault(former_);
    host::Words::speak(nullptr);
    qDeleteAll(qApp->findChildren<QTranslator*>(Qt::FindDirectChildrenOnly));
  }

 private:
  const QLocale former_;
};

/// What the program itself says in a window, without what it shows of the firm.
QStringList wordsIn(const QWidget& window) {
  QStringList words{window.windowTitle()};
  for (const QAction* action : window.findChildren<QAction*>())
    words << action->text() << action->toolTip();
  for (const QWidget* widget : window.findChildren<QWidget*>()) {
    words << widget->accessibleName();
    if (widget->objectName() != "navigation") words << widget->toolTip();
    if (const auto* field = qobject_cast<const QLineEdit*>(widget))
      words << field->placeholderText();
    if (const auto* button = qobject_cast<const QAbstractButton*>(widget)) words << button->text();
    const auto* view = qobject_cast<const QAbstractItemView*>(widget);
    for (int i = 0; view && view->model() && i < view->model()->columnCount(); ++i)
      words << view->model()->headerData(i, Qt::Horizontal).toString();
  }
  return words;
}

void expectMarked(const QWidget& window, const QStringList& others) {
  static const QRegularExpression letters("[a-z]{2}");
  for (const QString& word : wordsIn(window)) {
    if (!word.contains(letters) || others.contains(word)) continue;
    EXPECT_TRUE(word.contains(QChar(0xab))) << plain(word);
  }
}

void expectDistinctKeys(const QStringList& texts) {
  static const QRegularExpression key("&(\\w)");
  QStringList keys;
  for (const QString& text : texts)
    if (const auto match = key.match(text); match.hasMatch()) keys << match.captured(1).toLower();
  EXPECT_EQ(keys.size(), texts.size()) << plain(texts.join(" | "));
  keys.sort();
  EXPECT_EQ(keys.removeDuplicates(), 0) << plain(texts.join(" | "));
}

QStringList textsOf(const QList<QAction*>& actions) {
  QStringList texts;
  for (const QAction* action : actions)
    if (!action->isSeparator()) texts << action->text();
  return texts;
}

class TranslationTest : public MainWindowTest {};

TEST_F(TranslationTest, EveryWordOfTheProgramIsGivenToTranslation) {
  const Marker marker;
  open();
  expectMarked(*window_, {"firm.db"});
  const QString example = "smtp://user@mail.example:587";
  run("options", [&](QDialog& dialog) {
    expectMarked(dialog, {example});
    dialog.reject();
  });
  chooseTaskFor("callClient");
  run("callClient", [](QDialog& dialog) {
    expectMarked(dialog, {});
    dialog.reject();
  });
}

TEST_F(TranslationTest, KeysOfAMenuAreDistinctInFrench) {
  const Speaking french{QLocale("fr_CA")};
  open();
  expectDistinctKeys(textsOf(window_->menuBar()->actions()));
  for (const QAction* menu : window_->menuBar()->actions())
    if (!menu->text().contains("Aller")) expectDistinctKeys(textsOf(menu->menu()->actions()));
}

TEST_F(TranslationTest, LayoutsSpeakFrenchAndTheComponentsWindowsKeepTheirWords) {
  const Speaking french{QLocale("fr_CA")};
  open();
  run("notifications", [](QDialog& list) {
    EXPECT_EQ(list.findChild<QAbstractButton*>("imgTopBarButton(0)")->text(),
              "Recherche a&vanc\u00e9e");
    EXPECT_TRUE(
        list.findChild<QTableView*>()->property("emptyText").toString().contains("Actualisez"));
    EXPECT_EQ(list.findChild<QAbstractButton*>("cmdClose")->text(), "Close");
    press(list, "cmdClose");
  });
}

TEST_F(TranslationTest, TheHostSpeaksFrenchToo) {
  const Speaking french{QLocale("fr_CA")};
  open();
  chooseTaskFor("editEmail");
  const auto leaveWithFault = [](QDialog& composer) {
    QTest::keyClicks(composer.findChild<QWidget*>("cboCc"), "@");
    finish(composer);
    cancel(composer);
  };
  EXPECT_THAT(run("editEmail", leaveWithFault, true),
              testing::ElementsAre("«\u00a0@\u00a0» n’est pas une adresse de courriel valide. "
                                   "Veuillez corriger le champ Cc.",
                                   "Voulez-vous fermer et perdre vos modifications?"));
  execute("UPDATE ClientNotification SET NotificationDate='2026-04-14' WHERE NotificationSent=0");
  const auto look = [](QDialog& preview) {
    const QString text = preview.findChild<PdfPages*>()->document()->getAllText(0).text();
    EXPECT_THAT(plain(text), testing::StartsWith("Lettres, télécopies et appels d’ici le 2026"));
    for (const char* word : {"Tâche", "lettre", "fax", "appel"})
      EXPECT_TRUE(text.contains(word)) << word;
    preview.close();
  };
  EXPECT_THAT(run("printWorklist", look), testing::IsEmpty());
  Visitor visitor(nullptr);
  EXPECT_FALSE(window_->openDatabase("/none.db"));
  EXPECT_THAT(
      visitor.messages,
      testing::ElementsAre(testing::EndsWith("\n\nIl n’y a pas de base de données /none.db")));
}

TEST(Translation, FaultsOfTheHostAreGivenToIt) {
  const Speaking english{QLocale("en")};
  const Marker marker;
  const std::function<void()> faulty[] = {
      [] { host::openSqlite("/"); },
      [] { host::openSqlite("/dev/null"); },
      [] { host::ServerAddress("x"); },
      [] { host::parseRecipients("x"); },
      [] { host::readSmtpServer("x", "", {}); },
      [] { host::readSmtpServer("smtp://a:b@c", "", {}); },
      [] { host::readSmtpServer("smtp://a@b", "/none", {}); },
      [] { host::Outbox("/none").makeSubfolders(); },
      [] {
        host::HostFileSystemObject().openTextFile("/none", FileSystemObject::OpenFor::reading,
                                                  false);
      },
      [] { host::ComponentLibrary::locate("/none"); },
  };
  for (const auto& act : faulty)
    EXPECT_THAT(act, testing::ThrowsMessage<std::runtime_error>(testing::StartsWith("«")));
  EXPECT_EQ(subjectOf(host::WorkItem::task, 1), "«task 1");
}

TEST(Words, AreFilledAsTheyAreTranslated) {
  using host::Words;
  EXPECT_EQ(Words::tr("%2, %1 and %3: 5 %", {"%2", "b"}), "b, %2 and %3: 5 %");
  Words::speak([](const char*) {
    errno = 0;
    return std::string("%2 %1");
  });
  errno = ENOSPC;
  EXPECT_EQ(Words::tr("%1, %2", {"a", "b"}), "b a");
  EXPECT_EQ(errno, ENOSPC);
  Words::speak(nullptr);
  EXPECT_EQ(Words::tr("a"), "a");
}

TEST(Translation, ALanguageThatThereIsNotIsEnglishWithItsPlurals) {
  const auto found = [](int count) {
    return QCoreApplication::translate("autonotify::desktop::WeeksCard",
                                       "Weeks ahead, %Ln notifications in 12 weeks", "", count);
  };
  const Speaking english{QLocale(QLocale::German)};
  EXPECT_EQ(found(1), "Weeks ahead, 1 notification in 12 weeks");
  EXPECT_EQ(found(2), "Weeks ahead, 2 notifications in 12 weeks");
  EXPECT_EQ(longDate(QDate(2026, 4, 30)), "Thursday, April 30, 2026");
  const Speaking french{QLocale("fr_CA")};
  EXPECT_EQ(longDate(QDate(2026, 4, 30)), "jeudi 30 avril 2026");
}

}  // namespace
}  // namespace autonotify::desktop
