#include <gtest/gtest.h>

#include <iterator>
#include <random>

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

// A replacement updates the folding in place instead of folding the whole text again: every
// search must answer as on the same text folded afresh, also where a replacement puts a bad byte
// next to another one, or non-ASCII text into an ASCII one.
TEST(FoldedTextTest, AfterReplacementsSearchesAnswerAsOnAFreshText) {
  const std::string pieces[] = {"a", "B",    " ",     "«",    "»",    "é",    "É",        "ß", "SS",
                                "İ", "🦆", "\\'ab", "\xFF", "\xC3", "\xA9", "\xE2\x82", "x"};
  const std::string needles[] = {"a", "ss", "«a»", "é", "i", "\xFF", "\xC3\xA9", "b «", "🦆"};
  std::mt19937 random(20260315);
  auto piece = [&] { return pieces[random() % std::size(pieces)]; };
  for (int round = 0; round < 300; ++round) {
    std::string text;
    for (int i = random() % 12; i > 0; --i) text += piece();
    FoldedText folded{text};
    if (round % 2 == 0) folded.indexDelimited("«", "»");
    for (int step = 0; step < 3; ++step) {
      std::string needle = needles[random() % std::size(needles)];
      std::string replacement;
      for (int i = random() % 4; i > 0; --i) replacement += piece();
      const std::string before = folded.text();
      folded.replaceAll(needle, replacement, random() % 3 == 0 ? 1 : -1);
      SCOPED_TRACE(::testing::PrintToString(before) + " " + ::testing::PrintToString(needle) +
                   " -> " + ::testing::PrintToString(replacement));
      const FoldedText fresh{folded.text()};
      ASSERT_EQ(folded.length(), fresh.length());
      for (const std::string& n : needles) {
        for (int32_t start = 1; start <= fresh.length(); ++start) {
          auto got = folded.match(n, start);
          auto expected = fresh.match(n, start);
          ASSERT_EQ(got.has_value(), expected.has_value()) << n << " from " << start;
          if (!got) continue;
          EXPECT_EQ(got->position, expected->position);
          EXPECT_EQ(got->endPosition, expected->endPosition);
          EXPECT_EQ(got->byteBegin, expected->byteBegin);
          EXPECT_EQ(got->byteEnd, expected->byteEnd);
        }
        auto last = folded.matchLast(n);
        auto freshLast = fresh.matchLast(n);
        ASSERT_EQ(last.has_value(), freshLast.has_value()) << n;
        if (last) EXPECT_EQ(last->position, freshLast->position);
      }
    }
  }
}

TEST(FoldedTextTest, AnIndexOfPairsGivesTheSameAnswers) {
  const std::string text = "Dear «Company Name», Straße \\'abDocket\\'bb İ x\xFFy";
  const std::string_view needles[] = {"docket", "DOCKET", "strasse", "«company name»", "<<",
                                      "d",      "i̇",      "\xFFY",   "x\xFF",          "rd",
                                      "ss",     "zz",     "«"};
  FoldedText plain{text};
  FoldedText indexed{text};
  indexed.indexPairs();
  for (std::string_view needle : needles) {
    SCOPED_TRACE(needle);
    EXPECT_EQ(indexed.find(needle), plain.find(needle));
  }
  // It follows replacements.
  EXPECT_EQ(indexed.replaceAll("docket", "zz"), 1);
  EXPECT_EQ(indexed.find("zz"), InStr(1, indexed.text(), "zz", CompareMode::kText));
  EXPECT_GT(indexed.find("zz"), 0);
  EXPECT_EQ(indexed.find("docket"), 0);
}

TEST(FoldedTextTest, ReplaceAllFromAStartKeepsWhatStandsBefore) {
  FoldedText folded{"é«a» b «A» «a»"};
  EXPECT_EQ(folded.replaceAll("«a»", "x", -1, 3), 2);
  EXPECT_EQ(folded.text(), "é«a» b x x");
  EXPECT_EQ(folded.replaceAll("«a»", "x", -1, 99), 0);
  EXPECT_RUNTIME_ERROR(folded.replaceAll("«a»", "x", -1, 0), 5);
}

TEST(FoldedTextTest, ReleaseGivesTheTextAndLeavesItEmpty) {
  FoldedText folded{"«a» b"};
  folded.replaceAll("«A»", "é");
  EXPECT_EQ(folded.release(), "é b");
  EXPECT_EQ(folded.text(), "");
  EXPECT_EQ(folded.length(), 0);
}

TEST(FoldedTextTest, EmptyNeedleMatchesNothingAndBadStartRaises5) {
  FoldedText folded{"abc"};
  EXPECT_FALSE(folded.match("").has_value());
  EXPECT_EQ(folded.replaceAll("", "x"), 0);
  EXPECT_EQ(folded.find("a", 4), 0);
  EXPECT_RUNTIME_ERROR(folded.find("a", 0), 5);
}

TEST(FoldedTextTest, FoldCaseLowersTheAsciiLettersAndNothingElse) {
  std::string ascii, lowered;
  for (int c = 0; c < 128; ++c) {
    ascii += static_cast<char>(c);
    lowered += static_cast<char>(c >= 'A' && c <= 'Z' ? c + 32 : c);
  }
  // Every offset, so that each byte is seen in every place of a word and in the tail.
  for (size_t from = 0; from < 16; ++from) {
    SCOPED_TRACE(from);
    EXPECT_EQ(foldCase(ascii.substr(from)), lowered.substr(from));
    EXPECT_EQ(FoldedText(ascii.substr(from)).find(lowered.substr(from)), 1);
  }
}

TEST(FoldedTextTest, FoldCaseMakesEqualKeysForCaseVariants) {
  EXPECT_EQ(foldCase("«Company NAME»"), foldCase("«company name»"));
  EXPECT_EQ(foldCase("SOCIÉTÉ"), foldCase("société"));
  EXPECT_EQ(foldCase("Straße"), "strasse");
  EXPECT_NE(foldCase("é"), foldCase("e"));  // no accent stripping
}

}  // namespace
}  // namespace nvwm
