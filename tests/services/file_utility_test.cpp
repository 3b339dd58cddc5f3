#include "services/file_utility.h"

#include <gtest/gtest.h>

#include <fstream>

#include "support/test_support.h"

namespace nvwm {
namespace {

using testing::TempDir;

void touch(const std::string& path) { std::ofstream(path) << "x"; }

TEST(FileUtilityTest, PathPieces) {
  PosixFileUtility utility;
  const struct {
    const char* path;
    const char* folder;
    const char* name;
    const char* title;
  } cases[] = {
      {"/home/a/Temp/WordMergeSource1.db", "/home/a/Temp", "WordMergeSource1.db",
       "WordMergeSource1"},
      {"/home/a/Temp/", "/home/a", "Temp", "Temp"},
      {"/c.db", "/", "c.db", "c"},
      {"c.db", "", "c.db", "c"},
      {"Temp/x.tar.gz", "Temp", "x.tar.gz", "x.tar"},
      {"Temp/x.db-journal", "Temp", "x.db-journal", "x"},
      {"Temp/.profile", "Temp", ".profile", ".profile"},
      {"Temp/noext", "Temp", "noext", "noext"},
      {"/a//b", "/a", "b", "b"},
      {"/", "", "", ""},
      {"", "", "", ""},
      {"/tmp/Société é.db", "/tmp", "Société é.db", "Société é"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.path);
    EXPECT_EQ(utility.getFolderOfPath(c.path), c.folder);
    EXPECT_EQ(utility.getFileNameOfPath(c.path), c.name);
    EXPECT_EQ(utility.getFileTitle(c.path), c.title);
  }
}

TEST(FileUtilityTest, WithTrailingSeparatorEndsInOneSlash) {
  PosixFileUtility utility;
  const struct {
    const char* folder;
    const char* expected;
  } cases[] = {
      {"/a/b", "/a/b/"}, {"/a/b/", "/a/b/"}, {"/a/b///", "/a/b/"},
      {"/", "/"},        {"Temp", "Temp/"},  {"", ""},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.folder);
    EXPECT_EQ(utility.withTrailingSeparator(c.folder), c.expected);
  }
}

TEST(FileUtilityTest, ExistenceOfFilesAndFolders) {
  PosixFileUtility utility;
  TempDir dir;
  touch(dir.file("a.txt"));
  EXPECT_TRUE(utility.fileExists(dir.file("a.txt")));
  EXPECT_TRUE(utility.fileExists(dir.path().string()));  // a folder counts as a file
  EXPECT_FALSE(utility.fileExists(dir.file("b.txt")));
  EXPECT_FALSE(utility.fileExists(""));
  EXPECT_TRUE(utility.folderExists(dir.path().string()));
  EXPECT_FALSE(utility.folderExists(dir.file("a.txt")));
  EXPECT_FALSE(utility.folderExists(dir.file("none")));
  EXPECT_FALSE(utility.folderExists(""));
}

TEST(FileUtilityTest, EnsureFolderExistsMakesParentsAndReportsAFileInTheWay) {
  PosixFileUtility utility;
  TempDir dir;
  const std::string deep = dir.file("one/two/Temp");
  utility.ensureFolderExists(deep);
  EXPECT_TRUE(utility.folderExists(deep));
  utility.ensureFolderExists(deep);  // again: nothing happens
  utility.ensureFolderExists("");
  touch(dir.file("blocker"));
  EXPECT_RUNTIME_ERROR(utility.ensureFolderExists(dir.file("blocker/sub")), 76);
}

TEST(FileUtilityTest, MakeUniqueFilePathKeepsTheStartOfTheName) {
  PosixFileUtility utility;
  TempDir dir;
  const std::string wanted = dir.file("WordMergeSource.db");
  EXPECT_EQ(utility.makeUniqueFilePath(wanted), dir.file("WordMergeSource1.db"));
  touch(dir.file("WordMergeSource1.db"));
  EXPECT_EQ(utility.makeUniqueFilePath(wanted), dir.file("WordMergeSource2.db"));
  // A leftover companion of another title takes that title out of use, in any case.
  touch(dir.file("wordmergesource2.db-journal"));
  touch(dir.file("WordMergeSource3.ldb"));
  EXPECT_EQ(utility.makeUniqueFilePath(wanted), dir.file("WordMergeSource4.db"));
  // Other names don't matter, and gaps are reused.
  touch(dir.file("Other5.db"));
  std::filesystem::remove(dir.file("WordMergeSource1.db"));
  EXPECT_EQ(utility.makeUniqueFilePath(wanted), dir.file("WordMergeSource1.db"));
}

TEST(FileUtilityTest, MakeUniqueFilePathInAFolderNotMadeYet) {
  PosixFileUtility utility;
  TempDir dir;
  EXPECT_EQ(utility.makeUniqueFilePath(dir.file("Temp/WordMergeSource.db")),
            dir.file("Temp/WordMergeSource1.db"));
  EXPECT_EQ(utility.makeUniqueFilePath("Report"), "Report1");
}

}  // namespace
}  // namespace nvwm
