#include "runtime/text.h"

#include <gtest/gtest.h>

#include "support/runtime_assertions.h"

namespace nvwm {
namespace {

constexpr CompareMode kBinary = CompareMode::kBinary;
constexpr CompareMode kText = CompareMode::kText;

TEST(TextTest, LenCountsCharacters) {
  const struct {
    std::string_view text;
    int32_t length;
  } cases[] = {
      {"", 0},
      {"abc", 3},
      {"«Company Name»", 14},
      {"Société", 7},
      {"🦆ab", 3},
      {"\\'abName\\'bb", 12},  // RTF escapes are plain ASCII
      {"a\xE2\x82", 3},        // a cut-short sequence: each bad byte is one character
      {"\xFF\xC0\x80", 3},     // bytes that begin no sequence, and an overlong form
      {"\xED\xA0\x80", 3},     // an encoded surrogate is three bad bytes
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.text);
    EXPECT_EQ(Len(c.text), c.length);
  }
}

TEST(TextTest, LeftRightMidCountCharacters) {
  const struct {
    std::string_view text;
    int32_t n;
    std::string left, right;
  } cases[] = {
      {"abcdef", 2, "ab", "ef"},
      {"abcdef", 0, "", ""},
      {"abcdef", 10, "abcdef", "abcdef"},
      {"«Name»", 1, "«", "»"},
      {"🦆ab", 1, "🦆", "b"},
      {"ab🦆", 1, "a", "🦆"},
      {"Société", 5, "Socié", "ciété"},
      {"a\xFF"
       "b",
       2, "a\xFF",
       "\xFF"
       "b"},  // bad bytes are kept, not replaced
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.text);
    EXPECT_EQ(Left(c.text, c.n), c.left);
    EXPECT_EQ(Right(c.text, c.n), c.right);
  }
}

TEST(TextTest, MidTakesFromStartForLength) {
  const struct {
    std::string_view text;
    int32_t start, length;  // length -1: the two-argument form
    std::string expected;
  } cases[] = {
      {"abcdef", 2, 3, "bcd"},
      {"abcdef", 4, -1, "def"},
      {"abcdef", 7, -1, ""},
      {"abcdef", 5, 10, "ef"},
      {"abcdef", 2, 0, ""},
      {"«Company Name»", 2, 7, "Company"},
      {"x🦆y", 2, 1, "🦆"},
      {"Société", 5, -1, "été"},
      {"\xE2\x82"
       "ab",
       2, 2,
       "\x82"
       "a"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.text);
    if (c.length < 0) {
      EXPECT_EQ(Mid(c.text, c.start), c.expected);
    } else {
      EXPECT_EQ(Mid(c.text, c.start, c.length), c.expected);
    }
  }
}

TEST(TextTest, OutOfRangeArgumentsRaise5) {
  EXPECT_RUNTIME_ERROR(Mid("abc", 0), 5);
  EXPECT_RUNTIME_ERROR(Mid("abc", 0, 1), 5);
  EXPECT_RUNTIME_ERROR(Mid("abc", 1, -1), 5);
  EXPECT_RUNTIME_ERROR(Left("abc", -1), 5);
  EXPECT_RUNTIME_ERROR(Right("abc", -1), 5);
  EXPECT_RUNTIME_ERROR(InStr(0, "abc", "a"), 5);
  EXPECT_RUNTIME_ERROR(InStrRev("abc", "a", 0), 5);
  EXPECT_RUNTIME_ERROR(InStrRev("abc", "a", -2), 5);
  EXPECT_RUNTIME_ERROR(Replace("abc", "a", "b", 0), 5);
  EXPECT_RUNTIME_ERROR(Replace("abc", "a", "b", 1, -2), 5);
  EXPECT_RUNTIME_ERROR(Split("abc", ",", -2), 5);
  EXPECT_RUNTIME_ERROR(Space(-1), 5);
}

TEST(TextTest, InStrFindsFromStart) {
  const struct {
    int32_t start;
    std::string_view text, find;
    CompareMode mode;
    int32_t expected;
  } cases[] = {
      {1, "abcabc", "c", kBinary, 3},
      {4, "abcabc", "c", kBinary, 6},
      {7, "abcabc", "c", kBinary, 0},
      {1, "abcabc", "C", kBinary, 0},
      {1, "abcabc", "C", kText, 3},
      {1, "", "a", kBinary, 0},
      {1, "", "", kBinary, 0},
      {2, "abc", "", kBinary, 2},
      {4, "abc", "", kBinary, 0},
      {1, "Dear «Company Name»,", "«Company Name»", kBinary, 6},
      {1, "Dear «Company Name»,", "«COMPANY NAME»", kText, 6},
      {1, "🦆 «Name» 🦆 «Name»", "«name»", kText, 3},
      {4, "🦆 «Name» 🦆 «Name»", "«name»", kText, 12},
      {1, "LA SOCIÉTÉ GÉNÉRALE", "société", kText, 4},
      {1, "la Société", "SOCIÉTÉ", kText, 4},
      {1, "la Société", "SOCIÉTÉ", kBinary, 0},
      {1, "Die Straße", "STRASSE", kText, 5},  // full folding: ß is ss
      {1, "Maße", "s", kText, 0},              // but a lone s is not half of ß
      {1, "{\\rtf1 Dear \\'abCompany Name\\'bb}", "\\'ABcompany name\\'BB", kText, 13},
      {1,
       "a\xFF"
       "b\xFF",
       "\xFF", kBinary, 2},
      {3,
       "a\xFF"
       "b\xFF",
       "\xFF", kText, 4},
      {1, "é", "\xA9", kBinary, 0},  // a bad byte never matches inside a character
      {1, "é", "\xC3", kText, 0},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(std::string(c.text) + " / " + std::string(c.find));
    EXPECT_EQ(InStr(c.start, c.text, c.find, c.mode), c.expected);
  }
}

TEST(TextTest, InStrRevFindsTheLastMatchWithinStart) {
  const struct {
    std::string_view text, find;
    int32_t start;
    CompareMode mode;
    int32_t expected;
  } cases[] = {
      {"abcabc", "abc", -1, kBinary, 4},
      {"abcabc", "abc", 5, kBinary, 1},  // the match must end within the first 5
      {"abcabc", "abc", 6, kBinary, 4},
      {"abcabc", "ABC", -1, kText, 4},
      {"abcabc", "x", -1, kBinary, 0},
      {"abc", "", -1, kBinary, 3},
      {"abc", "a", 4, kBinary, 0},
      {"aaa", "aa", -1, kBinary, 2},
      {"«a» «A»", "«a»", -1, kText, 5},
      {"🦆x🦆x", "🦆", -1, kBinary, 3},
      {"Société société", "SOCIÉTÉ", 10, kText, 1},
      {"a\xFF"
       "b",
       "\xFF", -1, kBinary, 2},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(std::string(c.text) + " / " + std::string(c.find));
    EXPECT_EQ(InStrRev(c.text, c.find, c.start, c.mode), c.expected);
  }
}

TEST(TextTest, TrimTakesOnlyBlanks) {
  const struct {
    std::string_view text;
    std::string trim, ltrim, rtrim;
  } cases[] = {
      {"  a b  ", "a b", "a b  ", "  a b"},
      {"", "", "", ""},
      {"   ", "", "", ""},
      {"\ta\t", "\ta\t", "\ta\t", "\ta\t"},
      {" «é» ", "«é»", "«é» ", " «é»"},
      {" 🦆", "🦆", "🦆", " 🦆"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.text);
    EXPECT_EQ(Trim(c.text), c.trim);
    EXPECT_EQ(LTrim(c.text), c.ltrim);
    EXPECT_EQ(RTrim(c.text), c.rtrim);
  }
}

TEST(TextTest, CaseMappingIsUnicode) {
  const struct {
    std::string_view text;
    std::string upper, lower;
  } cases[] = {
      {"Company Name", "COMPANY NAME", "company name"},
      {"Société", "SOCIÉTÉ", "société"},
      {"straße", "STRASSE", "straße"},
      {"«ab» 🦆", "«AB» 🦆", "«ab» 🦆"},
      {"\\'abx", "\\'ABX", "\\'abx"},
      {"é\xFF"
       "a",
       "É\xFF"
       "A",
       "é\xFF"
       "a"},  // bad bytes pass through
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.text);
    EXPECT_EQ(UCase(c.text), c.upper);
    EXPECT_EQ(LCase(c.text), c.lower);
  }
}

TEST(TextTest, ReplaceFromStartAndCount) {
  const struct {
    std::string_view text, find, with;
    int32_t start, count;
    CompareMode mode;
    std::string expected;
  } cases[] = {
      {"a-b-c", "-", "+", 1, -1, kBinary, "a+b+c"},
      {"a-b-c", "-", "+", 1, 1, kBinary, "a+b-c"},
      {"a-b-c", "-", "+", 3, -1, kBinary, "b+c"},  // the text before start is dropped
      {"a-b-c", "-", "+", 6, -1, kBinary, ""},
      {"a-b-c", "-", "+", 1, 0, kBinary, "a-b-c"},
      {"a-b-c", "", "+", 2, -1, kBinary, "-b-c"},
      {"", "a", "b", 1, -1, kBinary, ""},
      {"aaa", "aa", "b", 1, -1, kBinary, "ba"},
      {"Dear «Name», «NAME»", "«name»", "Jo", 1, -1, kText, "Dear Jo, Jo"},
      {"Dear «Name», «NAME»", "«name»", "Jo", 1, -1, kBinary, "Dear «Name», «NAME»"},
      {"Dear \\'abName\\'bb", "\\'ABNAME\\'BB", "«Jo»", 1, -1, kText, "Dear «Jo»"},
      {"SOCIÉTÉ et société", "Société", "X", 1, -1, kText, "X et X"},
      {"Straße STRASSE", "strasse", "Weg", 1, -1, kText, "Weg Weg"},
      {"🦆a🦆A", "a", "b", 3, -1, kText, "🦆b"},
      {"x\xFFy\xFF", "\xFF", "?", 1, -1, kBinary, "x?y?"},
      {"é\xC3", "\xC3", "?", 1, -1, kText, "é?"},  // only the bad byte, not é's first byte
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(std::string(c.text) + " / " + std::string(c.find));
    EXPECT_EQ(Replace(c.text, c.find, c.with, c.start, c.count, c.mode), c.expected);
  }
}

TEST(TextTest, SplitWithLimits) {
  using Pieces = std::vector<std::string>;
  const struct {
    std::string_view text, delimiter;
    int32_t limit;
    CompareMode mode;
    Pieces expected;
  } cases[] = {
      {"a,b,c", ",", -1, kBinary, {"a", "b", "c"}},
      {"a,b,c", ",", 2, kBinary, {"a", "b,c"}},
      {"a,b,c", ",", 1, kBinary, {"a,b,c"}},
      {"a,b,c", ",", 0, kBinary, {}},
      {"a,b,c", ",", 5, kBinary, {"a", "b", "c"}},
      {"", ",", -1, kBinary, {}},
      {"a,b", "", -1, kBinary, {"a,b"}},
      {",a,", ",", -1, kBinary, {"", "a", ""}},
      {"Task Due Date, mmmm d, yyyy", ",", 2, kBinary, {"Task Due Date", " mmmm d, yyyy"}},
      {"1xa2Xb", "X", -1, kText, {"1", "a2", "b"}},
      {"1xa2Xb", "X", -1, kBinary, {"1xa2", "b"}},
      {"«a»🦆«b»🦆«c»", "🦆", 2, kBinary, {"«a»", "«b»🦆«c»"}},
      {"éÉé", "É", -1, kText, {"", "", "", ""}},
      {"a\xFF"
       "b",
       "\xFF",
       -1,
       kBinary,
       {"a", "b"}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(std::string(c.text) + " / " + std::to_string(c.limit));
    EXPECT_EQ(Split(c.text, c.delimiter, c.limit, c.mode), c.expected);
  }
}

TEST(TextTest, SplitDefaultsToBlanks) {
  EXPECT_EQ(Split("a b  c"), (std::vector<std::string>{"a", "b", "", "c"}));
}

TEST(TextTest, StrCompOrdersByCodePoint) {
  const struct {
    std::string_view a, b;
    CompareMode mode;
    int expected;
  } cases[] = {
      {"abc", "abc", kBinary, 0},       {"abc", "abd", kBinary, -1},     {"b", "a", kBinary, 1},
      {"ABC", "abc", kBinary, -1},      {"ABC", "abc", kText, 0},        {"ab", "abc", kText, -1},
      {"Société", "SOCIÉTÉ", kText, 0}, {"é", "f", kBinary, 1},  // code points, not a collation
      {"🦆", "«", kBinary, 1},        {"STRASSE", "straße", kText, 0},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(std::string(c.a) + " / " + std::string(c.b));
    EXPECT_EQ(StrComp(c.a, c.b, c.mode), c.expected);
  }
}

TEST(TextTest, SpaceMakesBlanks) {
  EXPECT_EQ(Space(0), "");
  EXPECT_EQ(Space(3), "   ");
}

}  // namespace
}  // namespace nvwm
