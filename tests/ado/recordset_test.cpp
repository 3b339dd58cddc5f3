// ADO recordsets over SQLite: adding rows, the conversions of Field.Value, the limits checked
// at Update, and the transaction the rows are written in.
#include "ado_test_support.h"

namespace nvwm::testing {
namespace {

using namespace nvwm::ado;

class RecordsetTest : public ::testing::Test {
 protected:
  void SetUp() override {
    auto catalog = makeSqliteCatalog();
    catalog->Create(connectionTo(path));
    auto table = makeSqliteTable();
    table->ParentCatalog(catalog);
    table->Name("WordMergeTable");
    auto columns = table->Columns();
    columns->Append("Name", static_cast<int32_t>(DataType::kVarWChar), 5);
    columns->Append("Note", static_cast<int32_t>(DataType::kVarWChar), 255);
    columns->Append("When", static_cast<int32_t>(DataType::kDate), 0);
    columns->Append("Count", static_cast<int32_t>(DataType::kInteger), 0);
    // "Name" takes neither Null nor "", "Note" both.
    columns->Item(Variant("Note"))->Properties()->Item(Variant("Nullable"))->Value(Variant(true));
    columns->Item(Variant("Note"))
        ->Properties()
        ->Item(Variant("Jet OLEDB:Allow Zero Length"))
        ->Value(Variant(true));
    columns->Item(Variant("When"))->Properties()->Item(Variant("Nullable"))->Value(Variant(true));
    columns->Item(Variant("Count"))->Properties()->Item(Variant("Nullable"))->Value(Variant(true));
    catalog->Tables()->Append(table);

    connection = makeSqliteConnection();
    connection->CursorLocation(3);
    connection->Open(connectionTo(path), "", "", -1);
    recordset = makeSqliteRecordset();
    recordset->ActiveConnection(connection);
    recordset->Source("SELECT WordMergeTable.* FROM WordMergeTable;");
    recordset->CursorType(0);
    recordset->LockType(3);
    recordset->Open();
  }
  void set(const char* field, const Variant& value) {
    recordset->Fields()->Item(Variant(field))->Value(value);
  }
  std::vector<std::vector<std::string>> rows() {
    return query(path, "SELECT Name, Note, \"When\", Count FROM WordMergeTable ORDER BY rowid;");
  }

  TempDir dir;
  std::string path = dir.file("merge.db");
  std::shared_ptr<Connection> connection;
  std::shared_ptr<Recordset> recordset;
};

TEST_F(RecordsetTest, ValuesAreStoredInTheirColumnsKind) {
  const struct {
    const char* note;
    Variant when;
    Variant count;
    std::vector<std::string> stored;
  } cases[] = {
      {"text",
       Variant("March 31, 2026"),
       Variant("12"),
       {"a", "text", "2026-03-31 00:00:00", "12"}},
      {"",
       Variant(Date::fromYmd(2025, 12, 31)),
       Variant(int32_t{-3}),
       {"a", "", "2025-12-31 00:00:00", "-3"}},  // "" stays a zero-length text
      {"é🦆", Variant::null(), Variant(), {"a", "é🦆", "NULL", "NULL"}},
  };
  for (const auto& c : cases) {
    recordset->AddNew();
    set("Name", Variant("a"));
    set("Note", Variant(c.note));
    set("When", c.when);
    set("COUNT", c.count);  // names without regard to case
    recordset->Update();
  }
  recordset->Close();
  const auto stored = rows();
  ASSERT_EQ(stored.size(), 3u);
  for (size_t i = 0; i < 3; ++i) EXPECT_EQ(stored[i], cases[i].stored) << i;
}

TEST_F(RecordsetTest, AValueTheColumnCantHoldIsRefusedAtOnce) {
  recordset->AddNew();
  EXPECT_RUNTIME_ERROR(set("When", Variant("not a date")), 13);
  EXPECT_RUNTIME_ERROR(set("Count", Variant("twelve")), 13);
  EXPECT_RUNTIME_ERROR(set("Colour", Variant("blue")), 3265);
}

TEST_F(RecordsetTest, TheColumnsLimitsAreCheckedAtUpdate) {
  const struct {
    Variant name;
    int32_t error;
  } cases[] = {
      {Variant("sixty"), 0},     {Variant("éééé🦆"), 0},  // five characters, more bytes
      {Variant("sixty6"), 3163}, {Variant::null(), 3314},      {Variant(""), 3315},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(debugString(c.name));
    recordset->AddNew();
    set("Name", c.name);
    if (c.error == 0) {
      EXPECT_NO_THROW(recordset->Update());
    } else {
      EXPECT_RUNTIME_ERROR(recordset->Update(), c.error);
    }
  }
  recordset->Close();
  EXPECT_EQ(rows().size(), 2u);
}

TEST_F(RecordsetTest, RowsAreSeenByOthersOnceTheRecordsetCloses) {
  recordset->AddNew();
  set("Name", Variant("one"));
  recordset->AddNew();  // writes the pending row first
  set("Name", Variant("two"));
  recordset->Update();
  EXPECT_TRUE(rows().empty()) << "still one open transaction";
  recordset->Close();
  EXPECT_EQ(rows().size(), 2u);
}

TEST_F(RecordsetTest, ARecordsetLetGoOfCommitsItsRows) {
  recordset->AddNew();
  set("Name", Variant("kept"));
  recordset->Update();
  recordset->AddNew();
  set("Name", Variant("lost"));  // pending, never updated
  recordset.reset();
  connection.reset();
  EXPECT_EQ(rows(), (std::vector<std::vector<std::string>>{{"kept", "NULL", "NULL", "NULL"}}));
}

TEST_F(RecordsetTest, WritingNeedsAnUpdatableRecordsetAndARow) {
  EXPECT_RUNTIME_ERROR(set("Name", Variant("x")), 3021);
  auto readOnly = makeSqliteRecordset();
  readOnly->Open(Variant("SELECT Name FROM WordMergeTable;"), Variant(connection), 0, 1);
  EXPECT_RUNTIME_ERROR(readOnly->AddNew(), 3251);
  auto computed = makeSqliteRecordset();
  computed->Open(Variant("SELECT Name || 'x' AS Twice FROM WordMergeTable;"), Variant(connection),
                 0, 3);
  EXPECT_RUNTIME_ERROR(computed->AddNew(), 3251);
  auto closed = makeSqliteRecordset();
  EXPECT_RUNTIME_ERROR(closed->AddNew(), 3704);
  EXPECT_RUNTIME_ERROR(closed->Open(Variant("SELECT 1;")), 3709);
  EXPECT_RUNTIME_ERROR(recordset->Open(), 3705);
  EXPECT_RUNTIME_ERROR(recordset->Source("SELECT 2;"), 3705);
}

TEST_F(RecordsetTest, OneStatementAtATime) {
  auto two = makeSqliteRecordset();
  EXPECT_RUNTIME_ERROR(
      two->Open(Variant("SELECT * FROM WordMergeTable; DROP TABLE WordMergeTable;"),
                Variant(connection), 0, 3),
      3001);
  EXPECT_EQ(query(path, "SELECT count(*) FROM WordMergeTable;").size(), 1u);
}

}  // namespace
}  // namespace nvwm::testing
