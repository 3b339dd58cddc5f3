// Which files the service can use: missing, not a database, unreadable, read-only.
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "services/sqlite/practice_schema.h"
#include "support/practice_db.h"

namespace nvwm {
namespace {

using testing::PracticeDb;
using testing::TempDir;

TEST(ConnectionTest, MissingFileIsNotConnectedAndIsNotCreated) {
  TempDir dir;
  SqliteDatabase svc(dir.file("nowhere.db"));
  EXPECT_FALSE(svc.isConnected());
  EXPECT_FALSE(std::filesystem::exists(dir.file("nowhere.db")));
  EXPECT_RUNTIME_ERROR(svc.openRecordset("SELECT 1", kCursorKeyset, kLockReadOnly), 3001);
  EXPECT_FALSE(svc.isRecordsetOpen(1));
}

TEST(ConnectionTest, FileThatIsNotADatabaseIsNotConnected) {
  TempDir dir;
  std::ofstream(dir.file("notes.db")) << "Dear client, this is not a database at all.\n";
  SqliteDatabase svc(dir.file("notes.db"));
  EXPECT_FALSE(svc.isConnected());
}

TEST(ConnectionTest, FolderIsNotConnected) {
  TempDir dir;
  SqliteDatabase svc(dir.path().string());
  EXPECT_FALSE(svc.isConnected());
}

TEST(ConnectionTest, UnreadableFileIsNotConnected) {
  if (geteuid() == 0) GTEST_SKIP() << "root reads every file";
  TempDir dir;
  createPracticeDatabase(dir.file("locked.db"));
  std::filesystem::permissions(dir.file("locked.db"), std::filesystem::perms::none);
  SqliteDatabase svc(dir.file("locked.db"));
  EXPECT_FALSE(svc.isConnected());
}

// Reads work, every write raises with SQLite's message, and the snapshot keeps the old value.
void expectReadsOnly(SqliteDatabase& svc) {
  ASSERT_TRUE(svc.isConnected());
  Handle h = svc.openRecordset("SELECT Companies.* FROM Companies", kCursorKeyset, kLockOptimistic);
  EXPECT_EQ(svc.getField(h, "CompanyName"), Variant("Maple Leaf Bakery"));
  EXPECT_RUNTIME_ERROR(svc.setField(h, "CompanyName", "Other"), 3001);
  EXPECT_RUNTIME_ERROR(svc.addNewRecord(h), 3001);
  EXPECT_EQ(svc.getField(h, "CompanyName"), Variant("Maple Leaf Bakery"));
}

TEST(ConnectionTest, ReadOnlyFileReadsButRefusesWrites) {
  if (geteuid() == 0) GTEST_SKIP() << "root writes every file";
  PracticeDb db;
  db.exec("INSERT INTO Companies (CompanyName) VALUES ('Maple Leaf Bakery');");
  std::filesystem::permissions(db.path(), std::filesystem::perms::owner_read);
  SqliteDatabase svc(db.path());
  expectReadsOnly(svc);
}

TEST(ConnectionTest, ReadOnlyConnectionReadsButRefusesWrites) {
  PracticeDb db;
  db.exec("INSERT INTO Companies (CompanyName) VALUES ('Maple Leaf Bakery');");
  SqliteDatabase svc(db.path(), /*readOnly=*/true);
  expectReadsOnly(svc);
  EXPECT_EQ(db.stored("SELECT CompanyName FROM Companies"), "Maple Leaf Bakery");
}

TEST(ConnectionTest, CreatingOverAnExistingFileRaises58) {
  PracticeDb db;
  EXPECT_RUNTIME_ERROR(createPracticeDatabase(db.path()), 58);
}

}  // namespace
}  // namespace nvwm
