// A saved or merged document gets the mode a new file gets under the umask.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "docx/data_source.h"
#include "docx/docx_test_support.h"
#include "docx/mail_merge.h"
#include "docx/output_file.h"
#include "support/temp_dir.h"

namespace nvwm::testing {
namespace {

unsigned modeOf(const std::string& path) {
  struct stat st {};
  EXPECT_EQ(::stat(path.c_str(), &st), 0);
  return st.st_mode & 07777;
}

class OutputModeTest : public ::testing::TestWithParam<unsigned> {
 protected:
  void SetUp() override { old_ = ::umask(GetParam()); }
  void TearDown() override { ::umask(old_); }
  mode_t old_ = 0;
};

TEST_P(OutputModeTest, MergedAndSavedDocumentsFollowTheUmask) {
  TempDir dir;
  EXPECT_EQ(docx::processUmask(), GetParam());
  writeDocx({.body = para(simpleField(" MERGEFIELD Name "))}, dir.file("main.docx"));
  EXPECT_EQ(modeOf(dir.file("main.docx")), 0666 & ~GetParam());
  auto main = docx::Package::load(dir.file("main.docx"));
  docx::mergeDocumentToFile(*main, docx::MergeData({"Name"}, {{Variant("Ann")}}),
                            dir.file("merged.docx"));
  EXPECT_EQ(modeOf(dir.file("merged.docx")), 0666 & ~GetParam());
}

INSTANTIATE_TEST_SUITE_P(Umasks, OutputModeTest, ::testing::Values(022u, 027u, 077u, 002u));

}  // namespace
}  // namespace nvwm::testing
