// The docx-merge command on 20,000 records, run as a process of its own: its peak resident
// memory stays well below what holding the merged document in memory takes (157 MB for
// this letter; 60 MB streamed).
#include <gtest/gtest.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>

#include <fstream>
#include <iostream>

#include "docx/docx_test_support.h"
#include "support/temp_dir.h"

extern char** environ;

namespace nvwm::testing {
namespace {

constexpr int kRecords = 20000;
constexpr int kFields = 30;
// The records' data is read whole (about 2.6 KB a record here); the output must not be.
constexpr double kPeakLimitMb = 100;

TEST(MergeMemoryTest, TwentyThousandLettersDoNotHoldTheOutputInMemory) {
#ifdef NVWM_SANITIZED
  GTEST_SKIP() << "the sanitizers' shadow memory counts in the peak";
#endif
  TempDir dir;
  std::string body;
  for (int i = 0; i < kFields; ++i) {
    std::string name = "F" + std::to_string(i);
    body += para(run(name + ": ") + (i % 2 ? simpleField(" MERGEFIELD " + name + " ")
                                           : complexField({" MERGEFIELD ", name + " \\* Upper "})));
  }
  DocxParts parts;
  parts.body = body;
  parts.headers["default"] = para(simpleField(" MERGEFIELD F0 "));
  writeDocx(parts, dir.file("letter.docx"));
  {
    std::ofstream csv(dir.file("data.csv"));
    for (int i = 0; i < kFields; ++i) csv << (i ? ",F" : "F") << i;
    csv << "\n";
    for (int r = 0; r < kRecords; ++r) {
      for (int i = 0; i < kFields; ++i) csv << (i ? "," : "") << "value " << r << "-" << i;
      csv << "\n";
    }
  }
  std::string out = dir.file("out.docx");
  std::vector<std::string> args = {
      NVWM_CLI_PATH, "docx-merge",         "--template", dir.file("letter.docx"),
      "--data",      dir.file("data.csv"), "--out",      out};
  std::vector<char*> argv;
  for (auto& a : args) argv.push_back(a.data());
  argv.push_back(nullptr);
  pid_t pid = 0;
  ASSERT_EQ(posix_spawn(&pid, argv[0], nullptr, nullptr, argv.data(), environ), 0);
  int status = 0;
  struct rusage usage {};
  ASSERT_EQ(wait4(pid, &status, 0, &usage), pid);
  ASSERT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
  double peakMb = usage.ru_maxrss / 1024.0;
  EXPECT_LT(peakMb, kPeakLimitMb);
  RecordProperty("peak_MB", static_cast<int>(peakMb));
  std::cout << "peak " << peakMb << " MB\n";
  auto header = loadPart(out, "word/_rels/document.xml.rels");
  EXPECT_EQ(
      countXPath(*header, "//*[local-name()='Relationship' and starts-with(@Id, 'rIdMerge')]"),
      static_cast<size_t>(kRecords));
}

}  // namespace
}  // namespace nvwm::testing
