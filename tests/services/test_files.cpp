#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "host/services/HostFileUtility.h"
#include "host/services/HostWorkingFolder.h"
#include "host/services/host_errors.h"
#include "support/temporary_folder.h"

namespace autonotify::host {
namespace {

namespace fs = std::filesystem;
using test::TemporaryFolder;
using test::writeFile;

TEST(FileUtilityTest, uniqueNamesCountUpBeforeTheExtension) {
  TemporaryFolder folder;
  HostFileUtility files;
  const std::string path = folder / "Fax - Apr 30 2026.mvw";
  EXPECT_EQ(files.getUniqueFileName(path), path);
  writeFile(path, "");
  EXPECT_EQ(files.getUniqueFileName(path), folder / "Fax - Apr 30 2026 (2).mvw");
  fs::create_symlink("nowhere", folder / "Fax - Apr 30 2026 (2).mvw");
  EXPECT_EQ(files.getUniqueFileName(path), folder / "Fax - Apr 30 2026 (3).mvw");
}

TEST(FileUtilityTest, seesAndDeletesFilesAloneAndTellsWhyNot) {
  TemporaryFolder folder;
  HostFileUtility files;
  const auto numberOf = [&](const std::string& path) {
    try {
      files.deleteFile(path);
    } catch (const PlatformError& error) {
      EXPECT_NE(error.description().find(path), std::string::npos);
      return error.number();
    }
    return 0;
  };
  writeFile(folder / "temp.txt", "x");
  fs::create_directory(folder / "sub");
  EXPECT_TRUE(files.fileExists(folder / "temp.txt"));
  for (const char* none : {"none", "sub", ""}) EXPECT_FALSE(files.fileExists(folder / none));
  EXPECT_EQ(numberOf(folder / "temp.txt"), 0);
  EXPECT_EQ(numberOf(folder / "temp.txt"), error_number::fileNotFound);
  EXPECT_EQ(numberOf(folder / "sub"), error_number::pathFileAccess);
  EXPECT_TRUE(fs::exists(folder / "sub"));
}

TEST(WorkingFolderTest, isMadeForItsOwnerAloneOrToldWhyNot) {
  TemporaryFolder folder;
  HostWorkingFolder working(folder / "a/b");
  EXPECT_EQ(working.getWorkingFolder(), folder / "a/b");
  EXPECT_EQ(fs::status(folder / "a/b").permissions(), fs::perms::owner_all);
  fs::permissions(folder / "a/b", fs::perms::group_read, fs::perm_options::add);
  EXPECT_THROW(working.getWorkingFolder(), PlatformError) << "others could read it";
  writeFile(folder / "file", "");
  EXPECT_THROW(HostWorkingFolder(folder / "file").getWorkingFolder(), PlatformError);
}

}  // namespace
}  // namespace autonotify::host
