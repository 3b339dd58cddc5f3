// The application: version, start-up failure, presenting documents, printing, the selection
// and quitting.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <sstream>

#include "docx/docx_test_support.h"
#include "host/references.h"
#include "runtime/clock.h"
#include "services/default_factories.h"
#include "services/word/word_engine.h"
#include "support/scoped_env.h"
#include "support/test_support.h"

namespace nvwm::testing {
namespace {

namespace fs = std::filesystem;

class WordApplicationTest : public ::testing::Test {
 protected:
  ~WordApplicationTest() override { setClock(nullptr); }
  TempDir dir_;
};

TEST_F(WordApplicationTest, VersionIsConfigurableAndStartUpCanFail) {
  EXPECT_EQ(wordengine::createWordApplication({})->Version(), "16.0");
  wordengine::WordEngineOptions options;
  options.version = "8.0";
  EXPECT_EQ(wordengine::createWordApplication(options)->Version(), "8.0");
  options.failToStart = true;
  EXPECT_RUNTIME_ERROR(wordengine::createWordApplication(options), 429);
}

TEST_F(WordApplicationTest, TheDefaultFactoryCreatesTheEngineWithTheThreadsOptions) {
  ServiceFactories defaults = makeDefaultServiceFactories();
  ASSERT_TRUE(defaults.createWordApplication);
  wordengine::wordEngineOptions().version = "9.0";
  EXPECT_EQ(defaults.createWordApplication()->Version(), "9.0");
  wordengine::wordEngineOptions().failToStart = true;
  EXPECT_RUNTIME_ERROR(defaults.createWordApplication(), 429);
  wordengine::wordEngineOptions() = {};
}

TEST_F(WordApplicationTest, VisibleSavesUnsavedDocumentsIntoTheOutputFolderAndReportsThem) {
  std::string existing = dir_.file("existing.docx");
  writeDocxBody(para(run("x")), existing);
  std::ostringstream report;
  wordengine::WordEngineOptions options;
  std::string folder = dir_.file("out");
  options.presenter = wordengine::savingPresenter(folder, report);
  auto app = wordengine::createWordApplication(options);
  app->Documents()->Open(Variant(existing));
  app->Documents()->Add();
  app->Visible(false);
  EXPECT_EQ(report.str(), "");
  app->Visible(true);
  std::string saved = (fs::path(folder) / "Document1.docx").string();
  EXPECT_EQ(report.str(), "existing.docx: " + existing + "\nDocument1: " + saved + "\n");
  EXPECT_TRUE(docx::Package::load(saved));
  // A second document of the same name does not overwrite the first.
  auto other = wordengine::createWordApplication(options);
  other->Documents()->Add();
  other->Visible(true);
  EXPECT_TRUE(fs::exists(fs::path(folder) / "Document1 (2).docx"));
}

TEST_F(WordApplicationTest, WithoutAnOutputFolderDocumentsGoUnderTheProductsDataFolder) {
  ScopedEnv xdg("XDG_DATA_HOME", dir_.path().c_str());
  auto app = wordengine::createWordApplication({});
  app->Documents()->Add();
  ::testing::internal::CaptureStdout();
  app->Visible(true);
  ::testing::internal::GetCapturedStdout();
  EXPECT_TRUE(fs::exists(dir_.path() / "nvwordmerge6" / "Documents" / "Document1.docx"));
}

TEST_F(WordApplicationTest, PrintOutRunsThePrintCommandWithTheDocument) {
  wordengine::WordEngineOptions options;
  std::string printed = dir_.file("printed.docx");
  options.printCommand = {"/bin/sh", "-c", "cp \"$1\" '" + printed + "'", "sh"};
  auto app = wordengine::createWordApplication(options);
  app->Documents()->Add()->PrintOut();
  EXPECT_TRUE(docx::Package::load(printed));
}

TEST_F(WordApplicationTest, PrintOutReportsAFailingCommandAndAMissingPrinter) {
  wordengine::WordEngineOptions options;
  options.printCommand = {"/bin/sh", "-c", "exit 3", "sh"};
  auto doc = wordengine::createWordApplication(options)->Documents()->Add();
  EXPECT_RUNTIME_ERROR_MSG(doc->PrintOut(), 4198,
                           "Command failed: the print command '/bin/sh' failed (exit status 3)");
  std::string path = std::getenv("PATH") ? std::getenv("PATH") : "";
  ::setenv("PATH", dir_.path().c_str(), 1);
  auto plain = wordengine::createWordApplication({})->Documents()->Add();
  EXPECT_RUNTIME_ERROR_MSG(
      plain->PrintOut(), 4198,
      "Command failed: no print command: install CUPS (lp) or configure the engine's print "
      "command");
  ::setenv("PATH", path.c_str(), 1);
}

TEST_F(WordApplicationTest, InsertDateTimePutsTodayAsTextAtTheSelectionAndMovesPastIt) {
  setClock(std::make_shared<FixedClock>(Date::fromParts({2026, 11, 23, 9, 5, 0})));
  std::string path = dir_.file("letter.docx");
  writeDocxBody(para(run("Body", "<w:b/>"), "<w:jc w:val=\"right\"/>") + para(run("Second")), path);
  auto app = wordengine::createWordApplication({});
  auto doc = app->Documents()->Open(Variant(path));
  auto selection = app->Selection();
  selection->InsertDateTime(Variant("dddd, MMMM dd, yyyy"), Variant(false));
  selection->InsertDateTime(Variant(" h:mm am/pm "), Variant(false));
  std::string out = dir_.file("out.docx");
  doc->SaveAs(Variant(out));
  auto xml = loadPart(out, "word/document.xml");
  EXPECT_EQ(dumpBody(*xml), "Monday, November 23, 2026 9:05 AM Body\nSecond\n");
  // Inserted text takes the formatting where it goes; the paragraph keeps its properties.
  EXPECT_EQ(countXPath(*xml, "//w:body/w:p[1]/w:r[w:rPr/w:b]"), 3u);
  EXPECT_EQ(countXPath(*xml, "//w:body/w:p[1]/w:pPr/w:jc"), 1u);
  EXPECT_EQ(countXPath(*xml, "//w:fldSimple"), 0u);
}

TEST_F(WordApplicationTest, InsertDateTimeAsFieldLeavesADateField) {
  setClock(std::make_shared<FixedClock>(Date::fromYmd(2026, 11, 23)));
  auto app = wordengine::createWordApplication({});
  auto doc = app->Documents()->Add();
  app->Selection()->InsertDateTime(Variant("MMMM d, yyyy"), Variant(true));
  std::string out = dir_.file("out.docx");
  doc->SaveAs(Variant(out));
  auto xml = loadPart(out, "word/document.xml");
  EXPECT_EQ(xpathText(*xml, "//w:fldSimple/@w:instr"), " DATE \\@ \"MMMM d, yyyy\" ");
  EXPECT_EQ(dumpBody(*xml), "November 23, 2026\n");
}

TEST_F(WordApplicationTest, TheSelectionFollowsTheActiveDocument) {
  setClock(std::make_shared<FixedClock>(Date::fromYmd(2026, 11, 23)));
  auto app = wordengine::createWordApplication({});
  auto first = app->Documents()->Add();
  auto second = app->Documents()->Add();
  first->Activate();
  app->Selection()->InsertDateTime(Variant("yyyy"), Variant(false));
  std::string a = dir_.file("a.docx"), b = dir_.file("b.docx");
  first->SaveAs(Variant(a));
  second->SaveAs(Variant(b));
  EXPECT_EQ(dumpBody(*loadPart(a, "word/document.xml")), "2026\n");
  EXPECT_EQ(dumpBody(*loadPart(b, "word/document.xml")), "\n");
}

TEST_F(WordApplicationTest, NothingWorksAfterQuit) {
  auto app = wordengine::createWordApplication({});
  auto doc = app->Documents()->Add();
  app->NormalTemplate()->Saved(true);
  app->Quit();
  EXPECT_RUNTIME_ERROR(app->Documents(), 462);
  EXPECT_RUNTIME_ERROR(app->Version(), 462);
  EXPECT_RUNTIME_ERROR(doc->Activate(), 5825);
}

TEST_F(WordApplicationTest, InsertDateTimeWithoutADocumentRaises) {
  auto app = wordengine::createWordApplication({});
  EXPECT_RUNTIME_ERROR(app->Selection()->InsertDateTime(Variant("yyyy"), Variant(false)), 4248);
}

}  // namespace
}  // namespace nvwm::testing
