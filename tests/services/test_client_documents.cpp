#include "host/clients/ClientDirectory.h"
#include "host/database/sqlite/SqliteDatabase.h"
#include "host/documents/HostClientDocumentFolder.h"
#include "host/documents/PdfFile.h"
#include "host/documents/safe_name.h"
#include "host/services/HeadlessFormHost.h"
#include "host/services/HostFileSystemObject.h"
#include "host/services/host_errors.h"
#include "support/error_number.h"
#include "support/full_disk.h"
#include "support/table_rows.h"
#include "support/temporary_folder.h"
#include "support/text_table.h"

namespace autonotify::host {
namespace {

namespace fs = std::filesystem;
using namespace test;

TEST(SafeNameTest, isOneOnAnyFileSystem) {
  expectRows("service_texts.txt", "safe names", safeName);
  std::string emoji;
  for (int i = 0; i < 300; ++i) emoji += "😀";
  EXPECT_LE(safeName(emoji).size() + sizeof "P2147483647 ", 255u);
}

class ClientDocumentFolderTest : public testing::Test {
 protected:
  /// The folder's name, relative to the folder of them all; nothing when it cannot be opened.
  std::string opened(Id company, Id contact = noId) {
    HostClientDocumentFolder folder(clients, documents.path().string());
    const bool isOpen =
        company >= 0 ? folder.openForCompany(company) : folder.openForContact(contact);
    if (!isOpen) return {};
    folder.selectFolderKind(document_folder_kind::correspondence);
    EXPECT_TRUE(fs::is_directory(folder.getFolderPath()));
    return fs::relative(folder.getFolderPath(), documents.path()).string();
  }

  std::unique_ptr<SqliteDatabase> database = createSqliteInMemory();
  TableRows rows{*database};
  ClientDirectory clients{*database};
  TemporaryFolder documents;
};

TEST_F(ClientDocumentFolderTest, isThatOfTheNumberWhateverTheNameIs) {
  const Id company = rows.addRow("Companies", {{"CompanyName", "a/../CON. "}});
  const Id contact = rows.addRow("Contacts", {{"DisplayName", "Jane"}});
  const Id nameless = rows.addRow("Companies", {});
  rows.addRow("ClientData", {{"CompanyIDNum", nameless}, {"ShowThisClient", "True"}});
  const std::string number = std::to_string(company);
  fs::create_directory(documents / (number + "0 other"));
  writeFile(documents / (number + " a file"), "");
  for (int round = 0; round < 2; ++round) {
    EXPECT_EQ(opened(company), number + " a-..-CON");
    EXPECT_EQ(opened(noId, contact), "P" + std::to_string(contact) + " Jane");
    EXPECT_EQ(opened(nameless), std::to_string(nameless));
  }
  fs::rename(documents / (number + " a-..-CON"), documents / (number + " as it was"));
  EXPECT_EQ(opened(company), number + " as it was");
  EXPECT_EQ(documents.fileCount(), 5u);
  EXPECT_EQ(opened(99), "");
  EXPECT_EQ(opened(noId, 99), "");
  HostClientDocumentFolder none(clients, documents.path().string());
  EXPECT_EQ(errorOf([&] { none.getFolderPath(); }), error_number::pathNotFound);
  EXPECT_EQ(errorOf([&] { none.selectFolderKind(3); }), error_number::invalidProcedureCall);
}

TEST_F(ClientDocumentFolderTest, leadsNowhereElse) {
  const Id company = rows.addRow("Companies", {{"CompanyName", "Roy"}});
  const TemporaryFolder elsewhere;
  fs::create_directory_symlink(elsewhere.path(), documents / (std::to_string(company) + " Roy"));
  EXPECT_EQ(errorOf([&] { opened(company); }), error_number::pathFileAccess);
  HostClientDocumentFolder readOnly(clients, "/sys");
  EXPECT_EQ(errorOf([&] { readOnly.openForCompany(company); }), error_number::pathFileAccess);
  fs::remove_all(documents.path());
  EXPECT_EQ(errorOf([&] { opened(company); }), error_number::pathNotFound);
}

class TextFilesTest : public testing::Test {
 protected:
  int create(HostFileSystemObject& service, const std::string& name, bool overwrite) {
    return errorOf([&] {
      const auto file = service.createTextFile(folder / name, overwrite);
      file->write("new ");
      file->write("text\xFF");
      file->close();
      file->close();
    });
  }

  TemporaryFolder folder;
  HostFileSystemObject files;
};

TEST_F(TextFilesTest, areThereAsAWholeAndReplacedWhenToldAlone) {
  for (const auto& [name, overwrite, number] : {std::tuple("a", false, 0),
                                                {"a", false, error_number::fileAlreadyExists},
                                                {"none/a", true, error_number::pathNotFound},
                                                {"", true, error_number::pathNotFound}})
    EXPECT_EQ(create(files, name, overwrite), number) << name;
  EXPECT_EQ(files.openTextFile(folder / "a", FileSystemObject::OpenFor::reading, false)->readAll(),
            "new text\xFF");
  writeFile(folder / "a", "old");
  EXPECT_EQ(create(files, "a", true), 0);
  EXPECT_EQ(readFile(folder / "a"), "new text\xFF");
  files.createTextFile(folder / "b", true)->write("never closed");
  const auto read = [&](const char* name, bool make) {
    return errorOf(
        [&] { files.openTextFile(folder / name, FileSystemObject::OpenFor::reading, make); });
  };
  EXPECT_EQ(read("b", false), error_number::fileNotFound);
  EXPECT_EQ(read("b", true), 0);
  EXPECT_EQ(folder.fileCount(), 2u);
}

TEST_F(TextFilesTest, takeANameBesideWhatIsKept) {
  std::vector<std::string> written;
  HostFileSystemObject keeping(folder.path().string(), [&](const std::string& path, bool isBeside) {
    written.push_back(path + (isBeside ? ", beside" : ""));
  });
  fs::create_symlink("nowhere", folder / "a (2).mvw");
  for (const char* name : {".hvnotify.7.tmp", ".hvnotify.8.tmp"}) {
    writeFile(folder / name, "left by one that was killed");
    EXPECT_EQ(create(keeping, "a.mvw", true), 0);
  }
  EXPECT_EQ(written, (std::vector{folder / "a.mvw", folder / "a (3).mvw, beside"}));
  EXPECT_EQ(folder.fileCount(), 4u) << "the folder is looked through once";
}

TEST_F(TextFilesTest, aDiskThatFillsLeavesNothingAndMayBeTriedAgain) {
  const auto file = files.createTextFile(folder / "a", true);
  file->write(std::string(100000, 'x'));
  {
    const FullDisk full;
    EXPECT_EQ(errorOf([&] { file->close(); }), error_number::diskFull);
    EXPECT_EQ(folder.fileCount(), 0u);
  }
  file->close();
  EXPECT_EQ(readFile(folder / "a"), std::string(100000, 'x'));
}

class DrawnReport : public Report {
 public:
  DrawnReport(FormHost& forms, const std::string& body, int margin = 1440)
      : Report(forms, "drLetter", "Letter"), body_(*this, "Section1", "lblBody", body) {
    margins.left = margins.top = margin;
  }

 private:
  ReportLabel body_;
};

class PdfTest : public testing::Test {
 protected:
  int pagesOf(const std::string& body, int margin = 1440) {
    return document.add(PrintedReport(DrawnReport(forms, body, margin)));
  }
  static std::string repeated(const std::string& text, int times) {
    return replaceAll(std::string(static_cast<std::size_t>(times), '.'), ".", text);
  }

  HeadlessFormHost forms;
  std::string bytes;
  PdfDocument document{[this](std::string_view part) { bytes += part; }};
  TemporaryFolder folder;
};

TEST_F(PdfTest, anyBodyFlowsOverAsManyPagesAsItNeeds) {
  // Of lines, of one long paragraph, and of blank lines, which begin no page.
  const int ofLines = pagesOf(repeated("a line\r\n", 400));
  const int ofOneParagraph = pagesOf(repeated("one word after the other and no end ", 4000));
  EXPECT_GE(ofLines, 400 / 50);
  EXPECT_LE(ofLines, 400 / 40);
  EXPECT_GE(ofOneParagraph, 25);
  EXPECT_LE(ofOneParagraph, 50);
  EXPECT_LE(pagesOf("a" + repeated("\n", 4000) + "b"), 2);
  EXPECT_GT(pagesOf(repeated("a line\r\n", 400), 4000), ofLines) << "its margins are wider";
  for (const std::string& body :
       {std::string(), std::string("\0\xFF\xC3\x28 \xED\xA0\x80\x01", 10), repeated("x", 20000),
        repeated("\xFF", 20000), repeated("e\xCC\x81", 20000), std::string("שלום 你好 😀")})
    EXPECT_GE(pagesOf(body, -70000), 1);
  document.finish();
  EXPECT_TRUE(bytes.starts_with("%PDF-"));
  EXPECT_TRUE(bytes.ends_with("%%EOF\n"));
}

TEST_F(PdfTest, isThereAsAWholeAndNeverOverAFile) {
  const PrintedReport page(DrawnReport(forms, repeated("an unlike line\r\n", 400)));
  for (const bool isNew : {true, false}) {
    PdfFile file(folder / "a.pdf");
    file.add(page, "Letter");
    EXPECT_EQ(file.publish(), isNew);
  }
  EXPECT_EQ(folder.fileCount(), 1u);
  EXPECT_EQ(errorOf([&] { PdfFile(folder / "none/a.pdf"); }), error_number::pathNotFound);
}

}  // namespace
}  // namespace autonotify::host
