// MERGEFIELD instructions and the text their switches make of a value.
#include "docx/field_code.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "runtime/date.h"
#include "runtime/format.h"

namespace nvwm::docx {
namespace {

TEST(MergeFieldCodeTest, ParsesNamesAndSwitchesWhereverTheBlanksFall) {
  const struct {
    const char* instruction;
    const char* name;
    const char* date;     // nullptr: no \@
    const char* numeric;  // nullptr: no \#
    size_t formats;
  } cases[] = {
      {" MERGEFIELD FirstName ", "FirstName", nullptr, nullptr, 0},
      {"mergefield firstname", "firstname", nullptr, nullptr, 0},
      {" MERGEFIELD \"Company Name\" \\* MERGEFORMAT ", "Company Name", nullptr, nullptr, 1},
      {" MERGEFIELD Due \\@ \"MMMM d, yyyy\" ", "Due", "MMMM d, yyyy", nullptr, 0},
      {" MERGEFIELD Due \\@\"dddd, MMMM dd, yyyy\"", "Due", "dddd, MMMM dd, yyyy", nullptr, 0},
      {" MERGEFIELD Amount \\# $#,##0.00 \\* Upper \\* MERGEFORMAT", "Amount", nullptr, "$#,##0.00",
       2},
      {" MERGEFIELD Name \\*Upper", "Name", nullptr, nullptr, 1},
      {" MERGEFIELD \"Say \\\"Hi\\\"\" ", "Say \"Hi\"", nullptr, nullptr, 0},
      {" MERGEFIELD Name \\z junk \\m \\v", "Name", nullptr, nullptr, 0},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.instruction);
    auto code = parseMergeField(c.instruction);
    ASSERT_TRUE(code);
    EXPECT_EQ(code->name, c.name);
    EXPECT_EQ(code->datePicture.has_value(), c.date != nullptr);
    if (c.date) {
      EXPECT_EQ(*code->datePicture, c.date);
    }
    EXPECT_EQ(code->numericPicture.has_value(), c.numeric != nullptr);
    if (c.numeric) {
      EXPECT_EQ(*code->numericPicture, c.numeric);
    }
    EXPECT_EQ(code->formats.size(), c.formats);
  }
}

TEST(MergeFieldCodeTest, OtherFieldsAndNamelessOnesAreNotMergeFields) {
  for (const char* instruction :
       {" PAGE ", " DATE \\@ \"MMMM\" ", " MERGEFIELD ", "", "  \\* Upper"}) {
    SCOPED_TRACE(instruction);
    EXPECT_FALSE(parseMergeField(instruction));
  }
  EXPECT_EQ(fieldKeyword("  page \\* Arabic"), "PAGE");
}

TEST(MergeFieldCodeTest, SwitchesMAndVAreAccepted) {
  auto code = parseMergeField(" MERGEFIELD Name \\m \\v ");
  ASSERT_TRUE(code);
  EXPECT_TRUE(code->mapped);
  EXPECT_TRUE(code->vertical);
  EXPECT_EQ(formatMergeValue(*code, Variant("Ann")), "Ann");
}

// A switch that lacks its argument shows Word's error text, never an empty result.
TEST(MergeFieldCodeTest, ASwitchWithoutItsArgumentShowsWordsError) {
  const struct {
    const char* instruction;
    Variant value;
    const char* expected;
  } cases[] = {
      {"MERGEFIELD Amount \\#", Variant(15.0), "Error! Switch argument not specified."},
      {"MERGEFIELD Amount \\# ", Variant("15"), "Error! Switch argument not specified."},
      {"MERGEFIELD Due \\@", Variant(Date::fromYmd(2026, 3, 5)),
       "Error! Switch argument not specified."},
      {"MERGEFIELD Due \\@ \\* Upper", Variant(Date::fromYmd(2026, 3, 5)),
       "Error! Switch argument not specified."},
      {"MERGEFIELD Name \\b", Variant("Ann"), "Error! Switch argument not specified."},
      {"MERGEFIELD Name \\# \\b \"Dear \"", Variant(""), "Error! Switch argument not specified."},
      // An argument that is there but empty is an argument.
      {"MERGEFIELD Name \\b \"\"", Variant("Ann"), "Ann"},
      {"MERGEFIELD Name \\q", Variant("Ann"), "Ann"},  // an unknown switch, no argument needed
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.instruction);
    auto code = parseMergeField(c.instruction);
    ASSERT_TRUE(code);
    EXPECT_EQ(formatMergeValue(*code, c.value), c.expected);
  }
  auto counter = parseCounterField("MERGEREC \\#", "MERGEREC");
  ASSERT_TRUE(counter);
  EXPECT_EQ(formatMergeValue(*counter, Variant(3.0)), "Error! Switch argument not specified.");
}

TEST(WordDatePictureTest, UpperMIsTheMonthLowerMTheMinute) {
  Date at = Date::fromParts({2026, 3, 5, 14, 7, 9});  // a Thursday
  const struct {
    const char* picture;
    const char* expected;
  } cases[] = {
      {"MMMM d, yyyy", "March 5, 2026"},
      {"dddd, MMMM dd, yyyy", "Thursday, March 05, 2026"},
      {"M/d/yy", "3/5/26"},
      {"ddd MMM", "Thu Mar"},
      {"h:mm am/pm", "2:07 PM"},
      {"h:mm AM/pm", "2:07 PM"},
      {"hh:mm AM/PM", "02:07 PM"},
      {"HH:mm:ss", "14:07:09"},
      {"'Due on' d MMMM", "Due on 5 March"},
      {"yyyy-MM-dd", "2026-03-05"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.picture);
    EXPECT_EQ(formatWordDate(at, c.picture), c.expected);
  }
  EXPECT_EQ(formatWordDate(Date::fromParts({2026, 1, 1, 0, 5, 0}), "h:mm am/pm"), "12:05 AM");
}

// Word's documented examples of numeric pictures, one a row of
// tests/docx/data/word_numeric_pictures.tsv: value, picture, expected, the rule shown. The value
// goes in as text, as a data source gives it.
TEST(WordNumericPictureTest, FollowsWordsDocumentedRules) {
  std::ifstream in(std::string(NVWM_SOURCE_DIR) + "/tests/docx/data/word_numeric_pictures.tsv");
  ASSERT_TRUE(in);
  std::string line;
  size_t lineNumber = 0, rows = 0;
  while (std::getline(in, line)) {
    ++lineNumber;
    if (line.empty() || line[0] == '#') continue;
    std::vector<std::string> cells;
    std::istringstream split(line);
    for (std::string cell; std::getline(split, cell, '\t');) cells.push_back(cell);
    ASSERT_EQ(cells.size(), 4u) << "line " << lineNumber;
    SCOPED_TRACE("word_numeric_pictures.tsv:" + std::to_string(lineNumber) + " " + cells[3]);
    MergeFieldCode code;
    code.numericPicture = cells[1];
    EXPECT_EQ(formatMergeValue(code, Variant(cells[0])), cells[2]);
    ++rows;
  }
  EXPECT_GE(rows, 20u);
}

// This was "1.00" in a merge field and "1.01" in Format: the two pictures rounded apart.
TEST(WordNumericPictureTest, RoundsLikeFormat) {
  for (double value : {1.005, 2.675, 0.125, 1234.565, 0.0049999, 1e15 + 0.5, 99.995}) {
    SCOPED_TRACE(value);
    EXPECT_EQ(formatWordNumber(value, "0.00"), Format(Variant(value), "0.00"));
    // (# pads with spaces in a field, not in Format: the rounding is compared on 0s.)
    EXPECT_EQ(formatWordNumber(value, "0.0"), Format(Variant(value), "0.0"));
  }
}

TEST(MergeValueTest, SwitchesApplyInWordsOrder) {
  const struct {
    const char* instruction;
    Variant value;
    const char* expected;
  } cases[] = {
      {"MERGEFIELD N", Variant("ann lee"), "ann lee"},
      {"MERGEFIELD N \\* Upper", Variant("société"), "SOCIÉTÉ"},
      {"MERGEFIELD N \\* Lower", Variant("ÉCOLE"), "école"},
      {"MERGEFIELD N \\* Caps", Variant("ann MARIE lee"), "Ann Marie Lee"},
      {"MERGEFIELD N \\* FirstCap", Variant("ann lee"), "Ann lee"},
      {"MERGEFIELD N \\* Caps", Variant("mary smith"), "Mary Smith"},
      {"MERGEFIELD N \\* FirstCap", Variant("mary smith"), "Mary smith"},
      {"MERGEFIELD N \\* Caps", Variant("\"mary\" (smith)"), "\"Mary\" (Smith)"},
      {"MERGEFIELD N \\* Caps", Variant("'mary o'neil"), "'Mary O'neil"},
      {"MERGEFIELD N \\* FirstCap", Variant("...mary smith"), "...Mary smith"},
      {"MERGEFIELD N \\* FirstCap", Variant("\"mary\""), "\"Mary\""},
      {"MERGEFIELD N \\* Caps", Variant("-- 42 --"), "-- 42 --"},
      {"MERGEFIELD N \\* MERGEFORMAT", Variant("ann"), "ann"},
      {"MERGEFIELD N \\b \"Dear \" \\f \",\"", Variant("Ann"), "Dear Ann,"},
      {"MERGEFIELD N \\b \"Dear \" \\f \",\"", Variant(""), ""},
      {"MERGEFIELD N \\b \"Dear \"", Variant::null(), ""},
      {"MERGEFIELD D \\@ \"MMMM d, yyyy\"", Variant(Date::fromYmd(2026, 11, 23)),
       "November 23, 2026"},
      {"MERGEFIELD D \\@ \"MMMM d, yyyy\"", Variant("2026-11-23 00:00:00"), "November 23, 2026"},
      {"MERGEFIELD D \\@ \"MMMM d, yyyy\"", Variant("not a date"), "not a date"},
      {"MERGEFIELD A \\# \"$#,##0.00\"", Variant(1234.5), "$1,234.50"},
      {"MERGEFIELD A \\# \"$#,##0.00\"", Variant("1234.5"), "$1,234.50"},
      {"MERGEFIELD A \\# \"$#,##0.00\"", Variant("n/a"), "n/a"},
      {"MERGEFIELD A \\# 0.00", Variant(1.005), "1.01"},
      {"MERGEFIELD A \\# 0.00", Variant("1.005"), "1.01"},
      {"MERGEFIELD A", Variant(int32_t{42}), "42"},
      {"MERGEFIELD A", Variant(2.5), "2.5"},
      {"MERGEFIELD A", Variant(true), "True"},
      {"MERGEFIELD D", Variant(Date::fromYmd(2026, 11, 23)), "11/23/2026"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.instruction);
    auto code = parseMergeField(c.instruction);
    ASSERT_TRUE(code);
    EXPECT_EQ(formatMergeValue(*code, c.value), c.expected);
  }
}

// Bytes that are not UTF-8 stay as they are: they never reach ICU as U+FFFD.
TEST(MergeValueTest, CaseSwitchesKeepBytesThatAreNotUtf8) {
  const struct {
    const char* instruction;
    const char* value;
    const char* expected;
  } cases[] = {
      {"MERGEFIELD N \\* Upper", "caf\xC3\xA9 \xFFok", "CAF\xC3\x89 \xFFOK"},
      {"MERGEFIELD N \\* Lower",
       "\xE2\x82 \xC3\x89"
       "COLE",
       "\xE2\x82 \xC3\xA9"
       "cole"},
      {"MERGEFIELD N \\* Caps", "ann\xFFLEE \xC3\xA9mile", "Ann\xFFlee \xC3\x89mile"},
      {"MERGEFIELD N \\* Caps",
       "\xFF"
       "ann bob",
       "\xFF"
       "Ann Bob"},  // a bad byte leads up to the letter, as punctuation does
      {"MERGEFIELD N \\* FirstCap", "  \xC3\xA9mile lee", "  \xC3\x89mile lee"},
      {"MERGEFIELD N \\* FirstCap",
       "\xC0"
       "ann",
       "\xC0"
       "Ann"},
      {"MERGEFIELD N \\* Upper",
       "stra\xC3\x9F"
       "e",
       "STRASSE"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.instruction + std::string(" ") + c.value);
    auto code = parseMergeField(c.instruction);
    ASSERT_TRUE(code);
    EXPECT_EQ(formatMergeValue(*code, Variant(c.value)), c.expected);
  }
}

}  // namespace
}  // namespace nvwm::docx
