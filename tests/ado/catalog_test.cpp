// ADOX over SQLite: making the database file, describing a table, and the table it makes.
#include <filesystem>
#include <fstream>

#include "ado_test_support.h"

namespace nvwm::testing {
namespace {

namespace fs = std::filesystem;
using namespace nvwm::ado;

class CatalogTest : public ::testing::Test {
 protected:
  // A catalog on a new database, and a table described on it.
  void SetUp() override {
    catalog = makeSqliteCatalog();
    catalog->Create(connectionTo(path));
    table = makeSqliteTable();
    table->ParentCatalog(catalog);
    table->Name("WordMergeTable");
  }
  void append(const std::string& name, DataType type, int32_t size, bool nullable,
              bool zeroLength) {
    table->Columns()->Append(name, static_cast<int32_t>(type), size);
    auto properties = table->Columns()->Item(Variant(name))->Properties();
    properties->Item(Variant("Nullable"))->Value(Variant(nullable));
    if (type == DataType::kVarWChar) {
      properties->Item(Variant("Jet OLEDB:Allow Zero Length"))->Value(Variant(zeroLength));
    }
  }
  TempDir dir;
  std::string path = dir.file("WordMergeSource1.db");
  std::shared_ptr<Catalog> catalog;
  std::shared_ptr<Table> table;
};

TEST_F(CatalogTest, CreateMakesADatabaseFileAtOnce) {
  EXPECT_TRUE(fs::is_regular_file(path));
  EXPECT_GT(fs::file_size(path), 0u);
  EXPECT_TRUE(query(path, "SELECT name FROM sqlite_master;").empty());
}

TEST_F(CatalogTest, CreateRefusesWhatCantBeMade) {
  const struct {
    std::string connection;
    int32_t error;
  } cases[] = {
      {connectionTo(path), 3204},                        // the file exists
      {connectionTo(dir.file("no-folder/x.db")), 3044},  // no such folder
      {connectionTo(""), 3044},                          // no Data Source
      {connectionTo(dir.file("y.db")) + "Jet OLEDB:Database Password=secret;", 3031},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.connection);
    EXPECT_RUNTIME_ERROR(makeSqliteCatalog()->Create(c.connection), c.error);
  }
  EXPECT_FALSE(fs::exists(dir.file("y.db")));
}

TEST_F(CatalogTest, ColumnsBecomeDeclaredTypesAndConstraints) {
  append("Company Name", DataType::kVarWChar, 255, true, true);
  append("Year End Date", DataType::kDate, 0, true, false);
  append("Count", DataType::kInteger, 0, false, false);
  append("Short", DataType::kVarWChar, 0, false, false);  // size 0: the longest
  catalog->Tables()->Append(table);
  catalog->Tables()->Refresh();
  EXPECT_EQ(query(path, "SELECT name, type, \"notnull\" FROM pragma_table_info('WordMergeTable');"),
            (std::vector<std::vector<std::string>>{{"Company Name", "VARCHAR(255)", "0"},
                                                   {"Year End Date", "DATETIME", "0"},
                                                   {"Count", "INTEGER", "1"},
                                                   {"Short", "VARCHAR(255)", "1"}}));
}

TEST_F(CatalogTest, ProviderPropertiesNeedTheParentCatalog) {
  auto orphan = makeSqliteTable();
  orphan->Name("Loose");
  orphan->Columns()->Append("Name", static_cast<int32_t>(DataType::kVarWChar), 50);
  auto properties = orphan->Columns()->Item(Variant("Name"))->Properties();
  EXPECT_RUNTIME_ERROR(properties->Item(Variant("Nullable")), 3265);
  orphan->ParentCatalog(catalog);
  EXPECT_NO_THROW(properties->Item(Variant("Nullable"))->Value(Variant(true)));
  EXPECT_RUNTIME_ERROR(properties->Item(Variant("Colour")), 3265);
}

TEST_F(CatalogTest, BadDescriptionsAreRefused) {
  auto columns = table->Columns();
  columns->Append("Name", static_cast<int32_t>(DataType::kVarWChar), 50);
  EXPECT_RUNTIME_ERROR(columns->Append("NAME", static_cast<int32_t>(DataType::kInteger), 0), 3191);
  EXPECT_RUNTIME_ERROR(columns->Append("Blob", 128, 0), 3001);
  EXPECT_RUNTIME_ERROR(columns->Append("Wide", static_cast<int32_t>(DataType::kVarWChar), 256),
                       3001);
  EXPECT_RUNTIME_ERROR(columns->Item(Variant("Missing")), 3265);
  EXPECT_RUNTIME_ERROR(columns->Item(Variant(int32_t{5})), 3265);
  EXPECT_NO_THROW(columns->Item(Variant(int32_t{0})));
}

TEST_F(CatalogTest, ATableIsMadeOnceAndItsNameOnlyOnce) {
  append("Name", DataType::kVarWChar, 50, true, true);
  catalog->Tables()->Append(table);
  EXPECT_RUNTIME_ERROR(table->Columns()->Append("More", 3, 0), 3001);
  auto again = makeSqliteTable();
  again->Name("wordmergetable");
  again->Columns()->Append("X", 3, 0);
  EXPECT_RUNTIME_ERROR(catalog->Tables()->Append(again), 3010);
}

TEST_F(CatalogTest, ATableWithoutColumnsGetsTheRowIdAlone) {
  catalog->Tables()->Append(table);
  EXPECT_EQ(query(path, "SELECT name, type FROM pragma_table_info('WordMergeTable');"),
            (std::vector<std::vector<std::string>>{{"rowid", "INTEGER"}}));
}

TEST_F(CatalogTest, ACatalogWorksOnAnOpenConnectionOnly) {
  auto connection = makeSqliteConnection();
  auto other = makeSqliteCatalog();
  EXPECT_RUNTIME_ERROR(other->ActiveConnection(connection), 3709);
  EXPECT_RUNTIME_ERROR(other->Tables(), 3709);
  connection->Open(connectionTo(path));
  other->ActiveConnection(connection);
  EXPECT_NO_THROW(other->Tables()->Refresh());
}

TEST_F(CatalogTest, ConnectionsOpenExistingDatabasesOnly) {
  auto connection = makeSqliteConnection();
  EXPECT_RUNTIME_ERROR(connection->Open(connectionTo(dir.file("missing.db"))), 3024);
  const std::string text = dir.file("text.db");
  std::ofstream(text) << "plain text, not a database";
  EXPECT_RUNTIME_ERROR(connection->Open(connectionTo(text)), 3343);
  connection->CursorLocation(3);
  connection->Mode(3);
  connection->Open(" PROVIDER = Microsoft.Jet.OLEDB.4.0 ; data source = '" + path + "' ;");
  EXPECT_RUNTIME_ERROR(connection->Open(connectionTo(path)), 3705);
  EXPECT_RUNTIME_ERROR(connection->CursorLocation(2), 3705);
  connection->Close();
  EXPECT_RUNTIME_ERROR(connection->Close(), 3704);
  EXPECT_RUNTIME_ERROR(connection->CursorLocation(7), 3001);
}

}  // namespace
}  // namespace nvwm::testing
