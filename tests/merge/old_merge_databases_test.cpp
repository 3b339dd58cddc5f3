// The sweep of earlier runs' databases: what goes, and what is spared.
#include <filesystem>
#include <fstream>

#include "merge/cls_word_merge_internal.h"
#include "merge_test_support.h"

namespace nvwm::testing {
namespace {

namespace fs = std::filesystem;

class OldDatabasesTest : public MergeTest {
 protected:
  void touch(const std::string& name) { std::ofstream(work.file("Temp/" + name)) << "x"; }
  std::vector<std::string> left() const {
    std::vector<std::string> names;
    for (const auto& e : fs::directory_iterator(work.path() / "Temp")) {
      names.push_back(e.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
  }
};

TEST_F(OldDatabasesTest, EverythingNamedLikeAMergeDatabaseGoesButTheCurrentOne) {
  auto merge = newMerge();
  ASSERT_EQ(fs::path(merge->MergeSourceDBLocation()).filename(), "WordMergeSource1.db");
  for (const char* name :
       {"WordMergeSource1.db", "WordMergeSource1.db-journal", "WordMergeSource2.db",
        "wordmergesource7.mdb", "Old WORDMERGESOURCE notes.txt", "WordMergeSource12.ldb",
        "client-letter.docx", "MergeSource.db"}) {
    touch(name);
  }
  fs::create_directories(work.path() / "Temp" / "WordMergeSource-folder");
  clsWordMergeInternal::deleteOldMergeDatabases(*merge);
  EXPECT_EQ(left(), (std::vector<std::string>{"MergeSource.db", "WordMergeSource-folder",
                                              "WordMergeSource1.db", "WordMergeSource1.db-journal",
                                              "client-letter.docx"}));
  EXPECT_EQ(pump->processedCount(), 4 * 8) << "four times per file";
  EXPECT_TRUE(refs.errors->errors.empty());
}

TEST_F(OldDatabasesTest, AMissingFolderEndsTheSweepWithoutAnError) {
  auto merge = newMerge();
  fs::remove_all(work.path() / "Temp");
  clsWordMergeInternal::deleteOldMergeDatabases(*merge);
  EXPECT_TRUE(refs.errors->errors.empty());
}

}  // namespace
}  // namespace nvwm::testing
