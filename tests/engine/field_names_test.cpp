// convertFieldName, testStr, getDBFieldFromEnglishField and getEnglishFieldFromDBField, on a
// catalogue built from a test practice database.
#include <gtest/gtest.h>

#include "engine/engine_test_support.h"

namespace nvwm::testing {
namespace {

class FieldNamesTest : public ::testing::Test {
 protected:
  CatalogueEnvironment env;
  PracticeCatalogue tasks{env, list_type::kTaskInfo};
  clsInsertFieldsInRTB& rtb = *tasks.rtb;
};

TEST_F(FieldNamesTest, ConvertFieldNameEscapesTheDelimitersOnly) {
  const struct {
    const char* text;
    const char* expected;
  } cases[] = {
      {"«Company Name»", "\\'abCompany Name\\'bb"},
      {"«", "\\'ab"},
      {"»", "\\'bb"},
      {"«a» and «(b, d)»", "\\'aba\\'bb and \\'ab(b, d)\\'bb"},
      {"plain text", "plain text"},
      {"<<Company Name>>", "<<Company Name>>"},
      {"\\'abName\\'bb", "\\'abName\\'bb"},
      {"", ""},
      {"é«🦆»\xff", "é\\'ab🦆\\'bb\xff"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.text);
    EXPECT_EQ(rtb.convertFieldName(c.text), c.expected);
  }
}

TEST_F(FieldNamesTest, TestStrKnowsTheCatalogueAndTodaysDate) {
  const struct {
    const char* name;
    bool valid;
  } cases[] = {
      {"Todays Date", true},
      {"todays date", true},
      {"TODAYS DATE", true},
      {" Todays Date", false},
      {"Todays Date ", false},
      {"Today's Date", false},
      {"Task Due Date", true},
      {"task due date", true},
      {"Task Due Date ", false},
      {"Company Name", true},
      {"WSIB Number", true},
      {"Your Company Name", true},
      // The firm's own labels replace the default names, without their colon.
      {"Step", true},
      {"Form", true},
      {"Step:", false},
      {"Custom Task Field 1", false},
      {"Custom Task Field 2", true},
      {"DueDate", false},
      {"Nonsense", false},
      {"", false},
      {"Company\xff Name", false},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    std::string name = c.name;
    EXPECT_EQ(rtb.testStr(name), c.valid);
    EXPECT_EQ(name, c.name);
  }
  EXPECT_TRUE(env.refs.errors->errors.empty());
}

TEST_F(FieldNamesTest, EmptyCatalogueKnowsOnlyTodaysDate) {
  auto empty = env.makeCatalogue();
  std::string todays = "todays date", company = "Company Name";
  EXPECT_TRUE(empty->testStr(todays));
  EXPECT_FALSE(empty->testStr(company));
  EXPECT_EQ(empty->getDBFieldFromEnglishField(company), "Company Name");
}

TEST_F(FieldNamesTest, DatabaseFieldOfADisplayName) {
  const struct {
    const char* displayName;
    const char* expected;
  } cases[] = {
      {"Task Due Date", "DueDate"},
      {"TASK DUE DATE", "DueDate"},
      {"Company Name", "CompanyName"},
      {"Your Company Name", "CompanyName"},
      {"Step", "TaskCustom1"},
      {"Form", "Custom1"},
      // Two rows share this name: the first added wins.
      {"Task Calendar Date", "CalendarDate"},
      // A miss gives the argument back, so it can't be told from a hit by the result.
      {"Nonsense", "Nonsense"},
      {"DueDate", "DueDate"},
      {"Todays Date", "Todays Date"},
      {"", ""},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.displayName);
    std::string name = c.displayName;
    EXPECT_EQ(rtb.getDBFieldFromEnglishField(name), c.expected);
    EXPECT_EQ(name, c.displayName);
  }
}

TEST_F(FieldNamesTest, DisplayNameOfADatabaseField) {
  const struct {
    const char* databaseField;
    const char* expected;
  } cases[] = {
      {"DueDate", "Task Due Date"},
      {"duedate", "Task Due Date"},
      {"DateFrom", "Task Calendar Date"},
      // Several rows share these columns: the first added wins.
      {"CompanyName", "Company Name"},
      {"Custom1", "Form"},
      {"WSIBNumber", "WSIB Number"},
      {"Task Due Date", "Task Due Date"},
      {"Nonsense", "Nonsense"},
      {"", ""},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.databaseField);
    std::string field = c.databaseField;
    EXPECT_EQ(rtb.getEnglishFieldFromDBField(field), c.expected);
    EXPECT_EQ(field, c.databaseField);
  }
}

}  // namespace
}  // namespace nvwm::testing
