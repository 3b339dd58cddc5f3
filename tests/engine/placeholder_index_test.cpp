// The placeholder index of the parse pass answers as a case-insensitive search of the text
// would, and forgets a filled placeholder only when nothing else can have changed.
#include "engine/placeholder_index.h"

#include <gtest/gtest.h>

#include "runtime/text.h"

namespace nvwm::engine {
namespace {

const char* const kNames[] = {
    "Company Name", "company name", "Contact First Name", "Name", "Société",
    "SOCIÉTÉ",      "(Due, d)",     "(Due, mmmm d yyyy)", "",     "Straße",
    "STRASSE",      "x«y"};

const char* const kTexts[] = {
    "",
    "Dear «Company Name»,",
    "«COMPANY NAME» and \\'abcompany name\\'bb",
    "\\'ABContact First Name\\'BB",
    "««Name»",
    "«Company «Name» Name»",
    "«Name» «unclosed",
    "«unclosed «Name",
    "»Name«",
    "«»",
    "«(Due, d)» «(DUE, MMMM D YYYY)»",
    "«Société» \\'abSTRASSE\\'bb «Straße»",
    "{\\rtf1 \\b\\'abName\\'bb\\b0 \\'e9\\'abName\\'bb}",
    "\\'a«Name»",
    "bad \xff\xfe «Name» \xc2",
    "«x«y»",
};

TEST(PlaceholderIndexTest, AnswersAsTheSearch) {
  struct Form {
    DelimiterForm form;
    const char* open;
    const char* close;
  } forms[] = {{DelimiterForm::kPlain, "«", "»"}, {DelimiterForm::kEscaped, "\\'ab", "\\'bb"}};
  for (const char* text : kTexts) {
    PlaceholderIndex index(text);
    for (const Form& f : forms) {
      for (const char* name : kNames) {
        SCOPED_TRACE(std::string(text) + " / " + f.open + name + f.close);
        const std::string placeholder = std::string(f.open) + name + f.close;
        // A name holding a closing delimiter is never asked for; skip it.
        if (std::string(name).find(f.close) != std::string::npos) continue;
        EXPECT_EQ(index.holds(f.form, foldCase(name)),
                  InStr(text, placeholder, CompareMode::kText) > 0);
      }
    }
  }
}

TEST(PlaceholderIndexTest, DateNamesComeFromSpansWithATail) {
  PlaceholderIndex index("«(Task Due Date, mmmm d yyyy)» «(Other, yyyy mmmm)» \\'ab(X, d)\\'bb");
  EXPECT_TRUE(index.holdsDateOf(DelimiterForm::kPlain, "task due date"));
  EXPECT_FALSE(index.holdsDateOf(DelimiterForm::kPlain, "other"));
  EXPECT_FALSE(index.holdsDateOf(DelimiterForm::kPlain, "x"));
  EXPECT_TRUE(index.holdsDateOf(DelimiterForm::kEscaped, "x"));
}

TEST(PlaceholderIndexTest, ForgetsOnlyWhenNothingElseCanChange) {
  {
    PlaceholderIndex index("Dear «Name» and «Other»");
    EXPECT_TRUE(index.replaced(DelimiterForm::kPlain, "name", "Ann"));
    EXPECT_FALSE(index.holds(DelimiterForm::kPlain, "name"));
    EXPECT_TRUE(index.holds(DelimiterForm::kPlain, "other"));
  }
  // A value that may hold or make a delimiter.
  for (const char* value : {"«Other»", "a\\par b", "O'Brien", "\xc2"}) {
    PlaceholderIndex index("Dear «Name»");
    EXPECT_FALSE(index.replaced(DelimiterForm::kPlain, "name", value)) << value;
  }
  // A span around the placeholder, or a piece of an escape before it.
  EXPECT_FALSE(PlaceholderIndex("«A «Name» B»").replaced(DelimiterForm::kPlain, "name", "x"));
  EXPECT_FALSE(PlaceholderIndex("\\'a«Name»").replaced(DelimiterForm::kPlain, "name", "b"));
  EXPECT_FALSE(PlaceholderIndex("x\\«Name»").replaced(DelimiterForm::kPlain, "name", "y"));
}

}  // namespace
}  // namespace nvwm::engine
