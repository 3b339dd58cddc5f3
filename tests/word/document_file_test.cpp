// Documents.Add, Open, SaveAs and Close over real .docx files, and what bad files do.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/wait.h>
#include <unistd.h>
#include <zip.h>

#include <filesystem>

#include "docx/docx_test_support.h"
#include "runtime/clock.h"
#include "services/word/word_engine.h"
#include "support/test_support.h"

namespace nvwm::testing {
namespace {

namespace fs = std::filesystem;

class DocumentFileTest : public ::testing::Test {
 protected:
  std::shared_ptr<word::Application> app_ = wordengine::createWordApplication({});
  TempDir dir_;

  void writeZip(const std::string& path,
                const std::vector<std::pair<std::string, std::string>>& entries) {
    int error = 0;
    zip_t* z = zip_open(path.c_str(), ZIP_CREATE | ZIP_TRUNCATE, &error);
    ASSERT_TRUE(z);
    for (const auto& [name, content] : entries) {
      zip_source_t* s = zip_source_buffer(z, content.data(), content.size(), 0);
      zip_file_add(z, name.c_str(), s, 0);
    }
    ASSERT_EQ(zip_close(z), 0);
  }
  // No file but the expected ones in the temporary folder (no temporary leftovers).
  std::vector<std::string> filesInDir() {
    std::vector<std::string> names;
    for (const auto& e : fs::directory_iterator(dir_.path()))
      names.push_back(e.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
  }
};

TEST_F(DocumentFileTest, AddThenSaveAsWritesAValidDocxWhateverTheExtension) {
  auto doc = app_->Documents()->Add();
  app_->Selection()->InsertDateTime(Variant("yyyy"), Variant(false));
  std::string path = dir_.file("Letter.doc");
  doc->SaveAs(Variant(path));
  auto reopened = docx::Package::load(path);
  EXPECT_EQ(reopened->mainPart(), "word/document.xml");
  auto xml = loadPart(path, "word/document.xml");
  EXPECT_EQ(countXPath(*xml, "/w:document/w:body/w:p"), 1u);
  EXPECT_EQ(countXPath(*xml, "/w:document/w:body/w:sectPr/w:pgSz"), 1u);
  EXPECT_EQ(filesInDir(), std::vector<std::string>{"Letter.doc"});
}

TEST_F(DocumentFileTest, OpenKeepsWhitespaceAndUnknownPartsThroughASave) {
  // The fixture carries a part no word processor knows and a run of one blank.
  std::string fixture =
      std::string(NVWM_SOURCE_DIR) + "/tests/data/mergefield-split-over-runs.docx";
  auto doc = app_->Documents()->Open(Variant(fixture));
  std::string out = dir_.file("copy.docx");
  doc->SaveAs(Variant(out));
  auto original = docx::Package::load(fixture);
  auto copy = docx::Package::load(out);
  EXPECT_EQ(copy->bytes("customXml/item1.xml"), original->bytes("customXml/item1.xml"));
  auto xml = loadPart(out, "word/document.xml");
  EXPECT_EQ(countXPath(*xml, "//w:t[@xml:space='preserve' and .=' ']"), 1u);
  EXPECT_EQ(countXPath(*xml, "//w:instrText"), 5u);
}

TEST_F(DocumentFileTest, BadFilesRaiseAndLeaveNothingOpen) {
  writeFile(dir_.file("text.docx"), "this is not a zip");
  writeZip(dir_.file("other.zip"), {{"readme.txt", "hello"}});
  writeZip(dir_.file("noBody.docx"), {{"[Content_Types].xml", "<Types/>"}});
  writeZip(dir_.file("badXml.docx"),
           {{"[Content_Types].xml", "<Types/>"}, {"word/document.xml", "<w:document><w:body>"}});
  // The description after the file's path in quotes.
  const struct {
    const char* file;
    int32_t error;
    const char* says;
  } cases[] = {
      {"missing.docx", 53, "File not found: '<path>' does not exist"},
      {"text.docx", 4198, "Command failed: '<path>' is not a .docx document (Not a zip archive)"},
      {"other.zip", 4198,
       "Command failed: '<path>' is a zip file but not a .docx document (no "
       "[Content_Types].xml)"},
      {"noBody.docx", 4198,
       "Command failed: '<path>' is a zip file but not a .docx document (no "
       "word/document.xml)"},
      {"badXml.docx", 4198,
       "Command failed: '<path>' is damaged: part word/document.xml is not well-formed XML "
       "(Start-end tags mismatch at offset 19)"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.file);
    std::string says = c.says;
    if (size_t at = says.find("<path>"); at != std::string::npos)
      says.replace(at, 6, dir_.file(c.file));
    EXPECT_RUNTIME_ERROR_MSG(app_->Documents()->Open(Variant(dir_.file(c.file))), c.error, says);
  }
}

TEST_F(DocumentFileTest, AFailedOpenLeavesNoDocumentBehind) {
  wordengine::WordEngineOptions options;
  std::vector<std::string> shown;
  options.presenter = [&](const std::vector<wordengine::OpenDocumentInfo>& docs) {
    for (const auto& d : docs) shown.push_back(d.name);
  };
  auto app = wordengine::createWordApplication(options);
  writeFile(dir_.file("text.docx"), "this is not a zip");
  EXPECT_RUNTIME_ERROR(app->Documents()->Open(Variant(dir_.file("text.docx"))), 4198);
  app->Documents()->Add();
  app->Visible(true);
  EXPECT_EQ(shown, std::vector<std::string>{"Document1"});
}

TEST_F(DocumentFileTest, AFileLockedWithFlockIsRefused) {
  std::string path = dir_.file("locked.docx");
  writeDocxBody(para(run("x")), path);
  int fd = ::open(path.c_str(), O_RDONLY);
  ASSERT_EQ(::flock(fd, LOCK_EX), 0);
  EXPECT_RUNTIME_ERROR(app_->Documents()->Open(Variant(path)), 70);
  ::close(fd);
  EXPECT_TRUE(app_->Documents()->Open(Variant(path)));
}

TEST_F(DocumentFileTest, AFileWithAnotherProcesssFcntlLockIsRefused) {
  std::string path = dir_.file("locked.docx");
  writeDocxBody(para(run("x")), path);
  int ready[2], done[2];
  ASSERT_EQ(::pipe(ready), 0);
  ASSERT_EQ(::pipe(done), 0);
  pid_t child = ::fork();
  if (child == 0) {
    int fd = ::open(path.c_str(), O_RDWR);
    struct flock lock {};
    lock.l_type = F_WRLCK;
    lock.l_whence = SEEK_SET;
    ::fcntl(fd, F_SETLKW, &lock);
    char c = 1;
    (void)!::write(ready[1], &c, 1);
    (void)!::read(done[0], &c, 1);
    ::_exit(0);
  }
  char c;
  ASSERT_EQ(::read(ready[0], &c, 1), 1);
  EXPECT_RUNTIME_ERROR(app_->Documents()->Open(Variant(path)), 70);
  (void)!::write(done[1], &c, 1);
  ::waitpid(child, nullptr, 0);
  EXPECT_TRUE(app_->Documents()->Open(Variant(path)));
}

TEST_F(DocumentFileTest, AddFromATemplateMakesADocumentWithItsContent) {
  std::string templatePath = dir_.file("letter.dotx");
  writeDocxBody(para(run("Letterhead")), templatePath);
  {
    auto t = docx::Package::load(templatePath);
    t->setContentTypeOverride(
        "word/document.xml",
        "application/vnd.openxmlformats-officedocument.wordprocessingml.template.main+xml");
    t->save(templatePath);
  }
  auto doc = app_->Documents()->Add(Variant(templatePath));
  std::string out = dir_.file("new.docx");
  doc->SaveAs(Variant(out));
  EXPECT_EQ(dumpBody(*loadPart(out, "word/document.xml")), "Letterhead\n");
  EXPECT_EQ(xpathText(*loadPart(out, "[Content_Types].xml"),
                      "//Override[@PartName='/word/document.xml']/@ContentType"),
            "application/vnd.openxmlformats-officedocument.wordprocessingml.document.main+xml");
}

TEST_F(DocumentFileTest, SaveAsIntoAMissingFolderLeavesNoFile) {
  auto doc = app_->Documents()->Add();
  EXPECT_RUNTIME_ERROR(doc->SaveAs(Variant(dir_.file("nowhere/x.docx"))), 76);
  EXPECT_TRUE(filesInDir().empty());
}

TEST_F(DocumentFileTest, SaveAsOverAnExistingFileReplacesItWhole) {
  std::string path = dir_.file("x.docx");
  writeFile(path, "old contents");
  app_->Documents()->Add()->SaveAs(Variant(path));
  EXPECT_TRUE(docx::Package::load(path));
  EXPECT_EQ(filesInDir(), std::vector<std::string>{"x.docx"});
}

TEST_F(DocumentFileTest, CloseWithoutSavingDiscardsAndTheDocumentIsGone) {
  std::string path = dir_.file("kept.docx");
  writeDocxBody(para(run("original")), path);
  auto doc = app_->Documents()->Open(Variant(path));
  app_->Selection()->InsertDateTime(Variant("yyyy"), Variant(false));
  doc->Close(Variant(int32_t{0}));
  EXPECT_EQ(dumpBody(*loadPart(path, "word/document.xml")), "original\n");
  EXPECT_RUNTIME_ERROR_MSG(doc->SaveAs(Variant(dir_.file("again.docx"))), 5825,
                           "Object has been deleted: the document \"kept.docx\" is closed");
  EXPECT_RUNTIME_ERROR(doc->Activate(), 5825);
  EXPECT_RUNTIME_ERROR(doc->MailMerge(), 5825);
  EXPECT_RUNTIME_ERROR(doc->Close(), 5825);
}

TEST_F(DocumentFileTest, CloseWithSaveChangesWritesToItsFile) {
  std::string path = dir_.file("kept.docx");
  writeDocxBody(para(run("original")), path);
  auto doc = app_->Documents()->Open(Variant(path));
  setClock(std::make_shared<FixedClock>(Date::fromYmd(2026, 11, 23)));
  app_->Selection()->InsertDateTime(Variant("yyyy "), Variant(false));
  setClock(nullptr);
  doc->Close(Variant(int32_t{-1}));
  EXPECT_EQ(dumpBody(*loadPart(path, "word/document.xml")), "2026 original\n");
}

}  // namespace
}  // namespace nvwm::testing
