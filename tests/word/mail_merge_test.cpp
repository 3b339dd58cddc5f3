// MailMerge through the word-processor objects: data sources, states, Execute, and the
// settings that link a main document to its source.
#include <gtest/gtest.h>

#include <filesystem>

#include "docx/docx_test_support.h"
#include "services/word/word_engine.h"
#include "support/test_support.h"

namespace nvwm::testing {
namespace {

namespace fs = std::filesystem;

class MailMergeTest : public ::testing::Test {
 protected:
  MailMergeTest() {
    wordengine::WordEngineOptions options;
    options.presenter = [this](const std::vector<wordengine::OpenDocumentInfo>& docs) {
      shown_ = docs;
    };
    app_ = wordengine::createWordApplication(options);
    execSqlite(db_, R"(
      CREATE TABLE WordMergeTable ("First Name" TEXT, Balance REAL, Due DATETIME, Active BOOLEAN, Visits INTEGER);
      INSERT INTO WordMergeTable VALUES ('Ann', 1234.5, '2026-11-23 00:00:00', 1, 3);
      INSERT INTO WordMergeTable VALUES ('Bob', -20, '2027-01-02 00:00:00', 0, NULL);
      INSERT INTO WordMergeTable VALUES ('Cy', 0, NULL, 1, 12);)");
    writeDocxBody(para(run("Dear ") + simpleField(" MERGEFIELD \"First Name\" ") + run(",")) +
                      para(simpleField(" MERGEFIELD Balance \\# \"$#,##0.00\" ") + run(" due ") +
                           simpleField(" MERGEFIELD Due \\@ \"MMMM d, yyyy\" ")) +
                      para(simpleField(" MERGEFIELD Active ") + run(" ") +
                           simpleField(" MERGEFIELD Visits ")),
                  main_);
  }

  // As the library calls it: Name, ReadOnly True, LinkToSource True, Connection.
  void openSource(const std::shared_ptr<word::Document>& doc, const std::string& name,
                  const std::string& connection) {
    doc->MailMerge()->OpenDataSource(Variant(name), word::kMissing, word::kMissing, Variant(true),
                                     Variant(true), word::kMissing, word::kMissing, word::kMissing,
                                     word::kMissing, word::kMissing, word::kMissing,
                                     Variant(connection));
  }
  // The active document saved and parsed.
  std::unique_ptr<pugi::xml_document> savedPart(const std::shared_ptr<word::Document>& doc,
                                                const std::string& part) {
    std::string path = dir_.file("saved-" + std::to_string(++saves_) + ".docx");
    doc->SaveAs(Variant(path));
    return loadPart(path, part);
  }
  std::shared_ptr<word::Document> documentNamed(const std::string& name) {
    app_->Visible(true);
    for (const auto& d : shown_) {
      if (d.name == name) return d.document;
    }
    return nullptr;
  }

  TempDir dir_;
  std::string db_ = dir_.file("WordMergeSource.db");
  std::string main_ = dir_.file("main.docx");
  std::shared_ptr<word::Application> app_;
  std::vector<wordengine::OpenDocumentInfo> shown_;
  int saves_ = 0;
};

TEST_F(MailMergeTest, ExecuteMakesAnActiveMergedDocumentWithTypedValues) {
  auto doc = app_->Documents()->Open(Variant(main_));
  EXPECT_EQ(doc->MailMerge()->State(), 0);
  openSource(doc, db_, "TABLE WordMergeTable");
  EXPECT_EQ(doc->MailMerge()->State(), 2);
  doc->MailMerge()->Execute();
  auto merged = documentNamed("Letters1");
  ASSERT_TRUE(merged);
  EXPECT_EQ(shown_.size(), 2u);
  EXPECT_EQ(dumpBody(*savedPart(merged, "word/document.xml")),
            "Dear Ann,\n$1,234.50 due November 23, 2026\nTrue 3\n\n==section==\n"
            "Dear Bob,\n-$  20.00 due January 2, 2027\nFalse \n\n==section==\n"
            "Dear Cy,\n$   0.00 due \nTrue 12\n");
  // The merged document is the active one: the selection writes into it.
  app_->Selection()->InsertDateTime(Variant("'X'"), Variant(false));
  EXPECT_EQ(dumpBody(*savedPart(merged, "word/document.xml")).substr(0, 10), "XDear Ann,");
}

TEST_F(MailMergeTest, TheMainDocumentRemembersItsSourceAndTheMergedOneDoesNot) {
  auto doc = app_->Documents()->Open(Variant(main_));
  openSource(doc, db_, "TABLE WordMergeTable");
  std::string saved = dir_.file("main-linked.docx");
  doc->SaveAs(Variant(saved));
  auto settings = loadPart(saved, "word/settings.xml");
  auto rels = loadPart(saved, "word/_rels/settings.xml.rels");
  EXPECT_EQ(xpathText(*settings, "//w:mailMerge/w:mainDocumentType/@w:val"), "formLetters");
  EXPECT_EQ(xpathText(*settings, "//w:mailMerge/w:query/@w:val"), "SELECT * FROM `WordMergeTable`");
  std::string id = xpathText(*settings, "//w:mailMerge/w:dataSource/@r:id");
  EXPECT_EQ(xpathText(*rels, "//Relationship[@Id='" + id + "']/@Target"), "file://" + db_);
  // The mail merge settings come before the settings that follow them in the schema.
  EXPECT_EQ(countXPath(*settings, "//w:mailMerge/following-sibling::w:defaultTabStop"), 1u);

  doc->MailMerge()->Execute();
  auto merged = documentNamed("Letters1");
  std::string out = dir_.file("merged.docx");
  merged->SaveAs(Variant(out));
  EXPECT_EQ(countXPath(*loadPart(out, "word/settings.xml"), "//w:mailMerge"), 0u);
  auto package = docx::Package::load(out);
  EXPECT_FALSE(package->has("word/_rels/settings.xml.rels") &&
               package->bytes("word/_rels/settings.xml.rels").find("mailMergeSource") !=
                   std::string::npos);
}

TEST_F(MailMergeTest, ReopeningASavedMainDocumentReattachesItsSource) {
  auto doc = app_->Documents()->Open(Variant(main_));
  openSource(doc, db_, "TABLE WordMergeTable");
  std::string saved = dir_.file("main-linked.docx");
  doc->SaveAs(Variant(saved));
  doc->Close(Variant(int32_t{0}));

  auto again = app_->Documents()->Open(Variant(saved));
  EXPECT_EQ(again->MailMerge()->State(), 2);
  again->Close(Variant(int32_t{0}));
  fs::remove(db_);
  // Without its source it is a main document alone.
  EXPECT_EQ(app_->Documents()->Open(Variant(saved))->MailMerge()->State(), 1);
}

TEST_F(MailMergeTest, ACsvSourceWithAHeaderRowMergesQuotedNamesWithBlanks) {
  std::string csv = dir_.file("clients.csv");
  writeFile(csv, "\xEF\xBB\xBF\"First Name\",Note\r\nann,\"said \"\"hi\"\"\r\nthen left\"\r\n");
  auto doc = app_->Documents()->Open(
      Variant(std::string(NVWM_SOURCE_DIR) + "/tests/data/mergefield-split-over-runs.docx"));
  doc->MailMerge()->OpenDataSource(Variant(csv));
  EXPECT_EQ(doc->MailMerge()->State(), 2);
  doc->MailMerge()->Execute();
  EXPECT_EQ(dumpBody(*savedPart(documentNamed("Letters1"), "word/document.xml")), "Dear ANN,\n");
}

TEST_F(MailMergeTest, ExecuteWithoutADataSourceRaises) {
  auto doc = app_->Documents()->Open(Variant(main_));
  EXPECT_RUNTIME_ERROR(doc->MailMerge()->Execute(), 4605);
}

TEST_F(MailMergeTest, BadDataSourcesRaiseAndChangeNothing) {
  writeFile(dir_.file("long.csv"), "a,b\n1,2,3\n");
  writeFile(dir_.file("empty.csv"), "");
  writeFile(dir_.file("latin1.csv"), "name\ncaf\xE9\n");
  // The description after "the data source '<name>' ".
  const struct {
    std::string name;
    std::string connection;
    int32_t error;
    const char* says;
  } cases[] = {
      {dir_.file("missing.db"), "TABLE WordMergeTable", 53, "does not exist"},
      {db_, "TABLE NoSuchTable", 4198, "can't be used: it has no table \"NoSuchTable\""},
      {db_, "DSN=whatever", 4198,
       "can't be used: the connection \"DSN=whatever\" does not name a table (expected \"TABLE "
       "name\")"},
      {dir_.file("long.csv"), "", 4198, "can't be used: record 2 has 3 values for 2 columns"},
      {dir_.file("empty.csv"), "", 4198, "can't be used: it has no header row"},
      {dir_.file("latin1.csv"), "", 4198, "can't be used: line 2 is not UTF-8 text"},
  };
  auto doc = app_->Documents()->Open(Variant(main_));
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name + " " + c.connection);
    std::string kind = c.error == 53 ? "File not found: " : "Command failed: ";
    EXPECT_RUNTIME_ERROR_MSG(openSource(doc, c.name, c.connection), c.error,
                             kind + "the data source '" + c.name + "' " + c.says);
    EXPECT_EQ(doc->MailMerge()->State(), 0);
  }
}

TEST_F(MailMergeTest, ConnectionTextsNameTheTableInWordsForms) {
  execSqlite(db_,
             "CREATE TABLE \"Other Table\" (\"First Name\" TEXT); INSERT INTO \"Other Table\" "
             "VALUES ('Zed');");
  for (const char* connection :
       {"TABLE `Other Table`", "table [Other Table]", "TABLE \"Other Table\""}) {
    SCOPED_TRACE(connection);
    auto app = wordengine::createWordApplication({});
    auto doc = app->Documents()->Open(Variant(main_));
    openSource(doc, db_, connection);
    EXPECT_EQ(doc->MailMerge()->State(), 2);
  }
}

}  // namespace
}  // namespace nvwm::testing
