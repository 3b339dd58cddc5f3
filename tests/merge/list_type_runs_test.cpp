// A whole run for each kind of record on the tests' practice: the table's columns and rows, and
// the merged letters of two records.
#include <algorithm>

#include "merge_test_support.h"

namespace nvwm::testing {
namespace {

class ListTypeRunsTest : public MergeTest {
 protected:
  ListTypeRunsTest() {
    loadPractice();
    writeLetter(letter);
  }
  const std::string letter = work.file("letter.docx");
};

struct KindCase {
  const char* name;
  mergeInfo2 type;
  std::vector<std::vector<Variant>> ids;
  const char* filter;
  // Company Name and Contact First Name of each row, in order.
  std::vector<std::pair<std::string, std::string>> rows;
  const char* letters;  // the merged body
};

std::vector<KindCase> kindCases() {
  const Variant none = Variant::missing();
  auto id = [](int32_t v) { return Variant(v); };
  return {
      {"company",
       mergeInfo2::wordMergeCompanyInfo,
       {{id(2)}, {id(3)}},
       "",
       {{"Maple Leaf Bakery Inc.", "Ann"}, {"Boulangerie Saint-Étienne", "Tyler"}},
       "Dear Ann,\nMaple Leaf Bakery Inc., year end March 31, 2026\n\n==section==\n"
       "Dear Tyler,\nBoulangerie Saint-Étienne, year end December 31, 2025\n"},
      // An explicit contact wins over the default one.
      {"company and contact",
       mergeInfo2::wordMergeCompanyContactInfo,
       {{id(2), id(102)}, {id(3)}},
       "",
       {{"Maple Leaf Bakery Inc.", "Robert"}, {"Boulangerie Saint-Étienne", "Tyler"}},
       "Dear Robert,\nMaple Leaf Bakery Inc., year end March 31, 2026\n\n==section==\n"
       "Dear Tyler,\nBoulangerie Saint-Étienne, year end December 31, 2025\n"},
      // The contact's own record: no company fields even where the row names one.
      {"contact",
       mergeInfo2::wordMergeContactInfo,
       {{id(2), id(101)}, {none, id(103)}},
       "",
       {{"", "Ann"}, {"", "Tyler"}},
       "Dear Ann,\n, year end \n\n==section==\nDear Tyler,\n, year end \n"},
      {"remittance by ID",
       mergeInfo2::wordMergeRemittanceInfo,
       {{id(1)}, {id(2)}},
       "",
       {{"Maple Leaf Bakery Inc.", "Ann"}, {"Boulangerie Saint-Étienne", "Tyler"}},
       "Dear Ann,\nMaple Leaf Bakery Inc., year end March 31, 2026\n\n==section==\n"
       "Dear Tyler,\nBoulangerie Saint-Étienne, year end December 31, 2025\n"},
      {"remittance by filter",
       mergeInfo2::wordMergeRemittanceInfo,
       {},
       "ScheduleID <= 2",
       {{"Maple Leaf Bakery Inc.", "Ann"}, {"Boulangerie Saint-Étienne", "Tyler"}},
       "Dear Ann,\nMaple Leaf Bakery Inc., year end March 31, 2026\n\n==section==\n"
       "Dear Tyler,\nBoulangerie Saint-Étienne, year end December 31, 2025\n"},
      {"appointment by ID",
       mergeInfo2::wordMergeAppointmentInfo,
       {{id(2)}, {id(1)}},
       "",
       {{"Boulangerie Saint-Étienne", "Tyler"}, {"Maple Leaf Bakery Inc.", "Ann"}},
       "Dear Tyler,\nBoulangerie Saint-Étienne, year end December 31, 2025\n\n==section==\n"
       "Dear Ann,\nMaple Leaf Bakery Inc., year end March 31, 2026\n"},
      {"appointment by filter",
       mergeInfo2::wordMergeAppointmentInfo,
       {},
       "DateFrom >= #4/2/2026#",
       {{"Maple Leaf Bakery Inc.", "Ann"}, {"Boulangerie Saint-Étienne", "Tyler"}},
       "Dear Ann,\nMaple Leaf Bakery Inc., year end March 31, 2026\n\n==section==\n"
       "Dear Tyler,\nBoulangerie Saint-Étienne, year end December 31, 2025\n"},
      {"docket by filter",
       mergeInfo2::wordMergeDocketinfo,
       {{id(2)}},
       "DocketID > 0",
       {{"Maple Leaf Bakery Inc.", "Ann"}, {"Boulangerie Saint-Étienne", "Tyler"}},
       "Dear Ann,\nMaple Leaf Bakery Inc., year end March 31, 2026\n\n==section==\n"
       "Dear Tyler,\nBoulangerie Saint-Étienne, year end December 31, 2025\n"},
      // Tasks and "no merge" have no road to their rows: the columns, no row, and a merged
      // document of one empty paragraph.
      {"task", mergeInfo2::wordMergeTaskInfo, {{id(1)}}, "", {}, "\n"},
      {"no merge", mergeInfo2::wordMergeNoMergeInfo, {{id(2)}}, "", {}, "\n"},
  };
}

TEST_F(ListTypeRunsTest, EachKindFillsTheTableAndTheLetters) {
  size_t columnCount = 0;
  for (const KindCase& c : kindCases()) {
    SCOPED_TRACE(c.name);
    shown.clear();
    auto merge = newMerge();
    merge->ListType(c.type);
    merge->IDList(idList(c.ids));
    if (*c.filter) merge->SQLFilter(c.filter);
    merge->DocName(letter);
    merge->openWordMethod(openWordMergeType::openMergeDocOnly);
    merge->performWordMerge();
    EXPECT_TRUE(events.events.empty());

    // The same columns whatever the kind: the company list's and the firm's, twice.
    const auto columns = mergeTableColumns(merge->MergeSourceDBLocation());
    if (columnCount == 0) columnCount = columns.size();
    EXPECT_EQ(columns.size(), columnCount);
    std::vector<std::string> names;
    for (const TableColumn& column : columns) names.push_back(column.name);
    for (const char* expected : {"Company Name", "Contact First Name", "Year End Date",
                                 "Your Company Name", "Your Company Name 1"}) {
      EXPECT_NE(std::find(names.begin(), names.end(), expected), names.end()) << expected;
    }

    const auto rows = mergeTableRows(merge->MergeSourceDBLocation());
    std::vector<std::pair<std::string, std::string>> got;
    for (const auto& row : rows) {
      auto text = [&](const char* column) {
        const std::string& v = row.at(column);
        return v == "NULL" ? std::string() : v;
      };
      got.emplace_back(text("Company Name"), text("Contact First Name"));
    }
    EXPECT_EQ(got, c.rows);
    EXPECT_EQ(documentText(shownDocument("Letters1").path), c.letters);
  }
}

TEST_F(ListTypeRunsTest, ColumnsAreTypedByTheFieldType) {
  auto merge = newMerge();
  merge->ShowProgess(false);
  merge->performWordMerge();
  const auto columns = mergeTableColumns(merge->MergeSourceDBLocation());
  ASSERT_FALSE(columns.empty());
  for (const TableColumn& column : columns) {
    SCOPED_TRACE(column.name);
    EXPECT_TRUE(column.nullable);
    const bool isDate = column.name == "Year End Date" || column.name == "Contact Birthday" ||
                        column.name == "Incorporation Date" || column.name == "Name Renewal Date" ||
                        column.name == "Contact Anniversary";
    EXPECT_EQ(column.type, isDate ? "DATETIME" : "VARCHAR(255)");
  }
}

TEST_F(ListTypeRunsTest, ValuesAreTheCataloguesForTheRecord) {
  auto merge = newMerge();
  merge->ShowProgess(false);
  merge->IDList(idList({{Variant(int32_t{2})}}));
  merge->performWordMerge();
  const auto rows = mergeTableRows(merge->MergeSourceDBLocation());
  ASSERT_EQ(rows.size(), 1u);
  const struct {
    const char* column;
    const char* stored;
  } cells[] = {
      {"Company Name", "Maple Leaf Bakery Inc."},
      {"Abbreviated Province", "ON"},
      {"Contact Display Name", "Ann Brown"},
      {"Contact Business Address", "48 Brock Street"},  // inherited from the company
      {"RC59 Form Status", "Completed"},
      {"HST Filing Method", "Quick Method"},
      {"Software Name", "Ledgerly Cloud Accounting"},
      {"Year End Date", "2026-03-31 00:00:00"},
      {"Contact Birthday", "1985-06-18 00:00:00"},
      {"Incorporation Date", "NULL"},  // no date: the cell stays empty
      {"Contact Middle Name", ""},     // no value: an empty text
      {"Your Company Name", ""},       // the firm's fields get no firm ID
  };
  for (const auto& cell : cells) {
    SCOPED_TRACE(cell.column);
    EXPECT_EQ(rows[0].at(cell.column), cell.stored);
  }
}

}  // namespace
}  // namespace nvwm::testing
