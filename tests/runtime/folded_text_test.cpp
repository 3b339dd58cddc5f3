#include <gtest/gtest.h>

#include "runtime/text.h"
#include "support/runtime_assertions.h"

namespace nvwm {
namespace {

TEST(FoldedTextTest, FindsLikeInStrInTextMode) {
  const struct {
    std::string_view text, needle;
    int32_t start;
  } cases[] = {
      {"Dear «Company Name», thank you", "«company name»", 1},
      {"Dear «Company Name», «COMPANY NAME»", "«company name»", 7},
      {"{\\rtf1 \\'abCompany Name\\'bb}", "\\'ABCOMPANY NAME\\'BB", 1},
      {"SOCIÉTÉ GÉNÉRALE", "générale", 1},
      {"Straße Strasse", "STRASSE", 2},
      {"🦆🦆 «x»", "«X»", 1},
      {"no match here", "«x»", 1},
      {"é\xFF"
       "é",
       "\xFF", 1},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.text);
    FoldedText folded{std::string(c.text)};
    EXPECT_EQ(folded.find(c.needle, c.start), InStr(c.start, c.text, c.needle, CompareMode::kText));
  }
}

TEST(FoldedTextTest, MatchMapsFoldedPositionsBackToTheOriginal) {
  // "ß" folds to two letters and "İ" to two code points: positions after them must still be
  // the original's.
  FoldedText folded{"Straße İstanbul «Firm»"};
  auto m = folded.match("«FIRM»");
  ASSERT_TRUE(m.has_value());
  EXPECT_EQ(m->position, 17);
  EXPECT_EQ(m->endPosition, 23);
  EXPECT_EQ(folded.text().substr(m->byteBegin, m->byteEnd - m->byteBegin), "«Firm»");

  auto sharp = folded.match("SS");
  ASSERT_TRUE(sharp.has_value());
  EXPECT_EQ(sharp->position, 5);
  EXPECT_EQ(sharp->endPosition, 6);  // the whole ß, one character
}

TEST(FoldedTextTest, ReplaceAllReplacesEveryMatchAndRefolds) {
  const struct {
    std::string_view text, needle, replacement;
    int32_t count;
    std::string expected;
  } cases[] = {
      {"Dear «Company Name», «company name»!", "«COMPANY NAME»", "Acme", 2, "Dear Acme, Acme!"},
      {"\\'abName\\'bb and \\'ABNAME\\'BB", "\\'abname\\'bb", "Jo", 2, "Jo and Jo"},
      {"Straße/STRASSE", "strasse", "«Weg»", 2, "«Weg»/«Weg»"},
      {"🦆«a»🦆", "«A»", "é", 1, "🦆é🦆"},
      {"«a»", "«a»", "«a»«a»", 1, "«a»«a»"},  // the replacement is not searched again
      {"nothing", "«a»", "x", 0, "nothing"},
      {"x\xFFy", "\xFF", "?", 1, "x?y"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.text);
    FoldedText folded{std::string(c.text)};
    EXPECT_EQ(folded.replaceAll(c.needle, c.replacement), c.count);
    EXPECT_EQ(folded.text(), c.expected);
    EXPECT_EQ(folded.length(), Len(c.expected));
  }
}

TEST(FoldedTextTest, SearchesTheUpdatedTextAfterAReplacement) {
  FoldedText folded{"«First» «Last»"};
  ASSERT_EQ(folded.replaceAll("«first»", "Société"), 1);
  EXPECT_EQ(folded.find("«LAST»"), 9);
  EXPECT_EQ(folded.find("SOCIÉTÉ"), 1);
  EXPECT_FALSE(folded.contains("«first»"));
}

TEST(FoldedTextTest, AnIndexOfDelimitedSpansGivesTheSameAnswers) {
  const std::string_view text =
      "Dear «Company Name», ««Contact» «Nested «Inner»» «open \\'abFirm\\'bb "
      "\\'ABSOCIÉTÉ\\'BB «Straße»";
  const std::string_view needles[] = {
      "«company name»",
      "«CONTACT»",
      "««contact»",
      "«Inner»",
      "«Nested «Inner»",
      "«Nested «Inner»»",
      "«open \\'abFirm\\'bb «Straße»",
      "\\'abfirm\\'bb",
      "\\'absociété\\'bb",
      "«STRASSE»",
      "«Missing»",
      "«Company»",
      "Company",
      "»",
      "\\'abNope\\'bb",
  };
  FoldedText plain{std::string(text)};
  FoldedText indexed{std::string(text)};
  indexed.indexDelimited("«", "»");
  indexed.indexDelimited("\\'ab", "\\'bb");
  for (std::string_view needle : needles) {
    SCOPED_TRACE(needle);
    EXPECT_EQ(indexed.find(needle), plain.find(needle));
    EXPECT_EQ(indexed.find(needle), InStr(1, text, needle, CompareMode::kText));
  }
}

TEST(FoldedTextTest, TheIndexFollowsReplacements) {
  FoldedText folded{"«A» and «B»"};
  folded.indexDelimited("«", "»");
  EXPECT_EQ(folded.replaceAll("«a»", "«C»"), 1);  // a value may bring a placeholder
  EXPECT_EQ(folded.find("«c»"), 1);
  EXPECT_EQ(folded.find("«A»"), 0);
  EXPECT_EQ(folded.replaceAll("«b»", "x"), 1);
  EXPECT_EQ(folded.text(), "«C» and x");
}

TEST(FoldedTextTest, EmptyNeedleMatchesNothingAndBadStartRaises5) {
  FoldedText folded{"abc"};
  EXPECT_FALSE(folded.match("").has_value());
  EXPECT_EQ(folded.replaceAll("", "x"), 0);
  EXPECT_EQ(folded.find("a", 4), 0);
  EXPECT_RUNTIME_ERROR(folded.find("a", 0), 5);
}

TEST(FoldedTextTest, FoldCaseMakesEqualKeysForCaseVariants) {
  EXPECT_EQ(foldCase("«Company NAME»"), foldCase("«company name»"));
  EXPECT_EQ(foldCase("SOCIÉTÉ"), foldCase("société"));
  EXPECT_EQ(foldCase("Straße"), "strasse");
  EXPECT_NE(foldCase("é"), foldCase("e"));  // no accent stripping
}

}  // namespace
}  // namespace nvwm
