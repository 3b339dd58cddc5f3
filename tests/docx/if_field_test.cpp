// IF fields in a merge: the comparison, the operands (quoted, bare, fields), the results
// (holding fields and further IFs) and the formatting the chosen result keeps.
#include <gtest/gtest.h>

#include "docx/conditional_fields.h"
#include "docx/data_source.h"
#include "docx/docx_test_support.h"
#include "docx/mail_merge.h"
#include "support/temp_dir.h"

namespace nvwm::testing {
namespace {

using docx::Comparison;

TEST(CompareTextsTest, NumbersAsNumbersTextsAsTextsWildcardsWhenQuoted) {
  const struct {
    const char* left;
    Comparison comparison;
    const char* right;
    bool wildcards;
    bool holds;
  } cases[] = {
      {"Ann", Comparison::kEqual, "Ann", false, true},
      {"Ann", Comparison::kEqual, "ann", false, false},  // case counts
      {"Ann", Comparison::kNotEqual, "Bob", false, true},
      {"10", Comparison::kGreater, "9", false, true},    // numbers, not "1" < "9"
      {"10", Comparison::kGreater, "9a", false, false},  // texts
      {"2.50", Comparison::kEqual, "2.5", false, true},
      {"$1,000.00", Comparison::kGreaterOrEqual, "1000", false, true},
      {"-3", Comparison::kLess, "-2.5", false, true},
      {"abc", Comparison::kLess, "abd", false, true},
      {"abd", Comparison::kLessOrEqual, "abc", false, false},
      {"", Comparison::kEqual, "", false, true},
      {"", Comparison::kLess, "a", false, true},
      {"Anderson", Comparison::kEqual, "And*", true, true},
      {"Anderson", Comparison::kEqual, "And*", false, false},  // bare: no wildcards
      {"Ann", Comparison::kEqual, "A?n", true, true},
      {"Ann", Comparison::kEqual, "A?", true, false},
      {"Ann", Comparison::kNotEqual, "B*", true, true},
      {"Ann", Comparison::kEqual, "*", true, true},
      {"", Comparison::kEqual, "*", true, true},
      {"\xC3\xA9t\xC3\xA9", Comparison::kEqual, "?t?", true, true},  // characters, not bytes
      {"a*b", Comparison::kEqual, "a*b", true, true},
      {"axxbyyb", Comparison::kEqual, "a*b", true, true},
      {"axxbyyc", Comparison::kEqual, "a*b*b", true, false},
      {"Ann", Comparison::kLess, "A*", true, false},  // wildcards in = and <> only
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(std::string(c.left) + " ? " + c.right);
    EXPECT_EQ(docx::compareTexts(c.comparison, c.left, c.right, c.wildcards), c.holds);
  }
}

std::string instr(const std::string& text, const std::string& rPr = "") {
  return instructionRun(text, rPr);
}
std::string field(const std::string& instructionXml, const std::string& shown = "x") {
  return fieldAround(instructionXml, shown);
}
std::string mergeField(const std::string& name, const std::string& rPr = "") {
  return mergeFieldOf(name, rPr);
}

class IfFieldTest : public ::testing::Test {
 protected:
  std::unique_ptr<docx::Package> merge(const std::string& body) {
    writeDocxBody(body, dir_.file("main.docx"));
    auto main = docx::Package::load(dir_.file("main.docx"));
    docx::mergeDocument(*main, data_)->save(dir_.file("merged.docx"));
    expectConsistentPackage(dir_.file("merged.docx"));
    return docx::Package::load(dir_.file("merged.docx"));
  }
  std::string mergedText(const std::string& body) {
    merge(body);
    return dumpBody(*loadPart(dir_.file("merged.docx"), "word/document.xml"));
  }

  docx::MergeData data_{{"FirstName", "Amount", "City", "Town"},
                        {{Variant("Ann"), Variant(1234.5), Variant(""), Variant("Ottawa")}}};
  TempDir dir_;
};

TEST_F(IfFieldTest, ChoosesTheResultTheComparisonGives) {
  const struct {
    const char* what;
    std::string field;
    const char* text;
  } cases[] = {
      {"quoted operand",
       field(instr(" IF ") + mergeField("FirstName") + instr(" = \"Ann\" \"Dear Ann\" \"Hello\" ")),
       "[Dear Ann]\n"},
      {"false",
       field(instr(" IF ") + mergeField("FirstName") + instr(" = \"Bob\" \"Dear Bob\" \"Hello\" ")),
       "[Hello]\n"},
      {"bare operands, numbers",
       field(instr(" IF ") + mergeField("Amount") + instr(" > 1000 big small ")), "[big]\n"},
      {"less or equal",
       field(instr(" IF ") + mergeField("Amount") + instr(" <= 1234.5 \"at most\" \"more\" ")),
       "[at most]\n"},
      {"not equal", field(instr(" IF ") + mergeField("FirstName") + instr(" <> \"Ann\" a b ")),
       "[b]\n"},
      {"greater or equal as text", field(instr(" IF \"abc\" >= \"abd\" yes no ")), "[no]\n"},
      {"empty value",
       field(instr(" IF ") + mergeField("City") + instr(" = \"\" \"no city\" \"city\" ")),
       "[no city]\n"},
      {"wildcard", field(instr(" IF ") + mergeField("FirstName") + instr(" = \"A*\" A other ")),
       "[A]\n"},
      {"a result holding fields",
       field(instr(" IF 1 = 1 \"Dear ") + mergeField("FirstName") + instr(" of ") +
             mergeField("Town") + instr(", hello\" \"\" ")),
       "[Dear Ann of Ottawa, hello]\n"},
      {"nested",
       field(
           instr(" IF ") + mergeField("FirstName") + instr(" = \"A*\" \"") +
           field(instr(" IF ") + mergeField("Amount") + instr(" >= 1234.5 \"rich \" \"poor \" ")) +
           mergeField("FirstName") + instr("\" \"other\" ")),
       "[rich Ann]\n"},
      {"no second result",
       field(instr(" IF ") + mergeField("FirstName") + instr(" = \"Bob\" \"Bob!\" ")), "[]\n"},
      {"a switch after the results", field(instr(" IF 2 < 10 \"yes\" \"no\" \\* MERGEFORMAT ")),
       "[yes]\n"},
      {"a switch in place of the second result",
       field(instr(" IF 2 > 10 \"yes\" \\* MERGEFORMAT ")), "[]\n"},
      {"an escaped quote", field(instr(" IF a = a \"say \\\"hi\\\"\" no ")), "[say \"hi\"]\n"},
      {"a simple field", simpleField(" IF \"a\" = \"a\" \"yes\" \"no\" "), "[yes]\n"},
      {"a field the merge doesn't evaluate counts as its result",
       field(instr(" IF ") + field(instr(" PAGE "), "1") + instr(" = 1 first later ")),
       "[first]\n"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    EXPECT_EQ(mergedText(para(run("[") + c.field + run("]"))), c.text);
    auto doc = loadPart(dir_.file("merged.docx"), "word/document.xml");
    EXPECT_EQ(countXPath(*doc, "//w:fldChar | //w:instrText | //w:fldSimple"), 0u);
  }
}

TEST_F(IfFieldTest, AnInstructionThatIsNoComparisonIsLeftAlone) {
  for (const char* instruction : {" IF ", " IF a b c ", " IF a == a yes no ", " IF a = "}) {
    SCOPED_TRACE(instruction);
    EXPECT_EQ(mergedText(para(field(instr(instruction), "kept"))),
              "{" + std::string(instruction) + "}kept\n");
  }
}

TEST_F(IfFieldTest, TheChosenResultKeepsTheFormattingOfItsRuns) {
  std::string body =
      para(field(instr(" IF ") + mergeField("FirstName") + instr(" = \"Ann\" \"") +
                 instr("Dear ", "<w:b/>") + mergeField("FirstName", "<w:u w:val=\"single\"/>") +
                 instr("!", "<w:b/>") + instr("\" \"") + instr("Hi", "<w:i/>") + instr("\" ")));
  auto merged = merge(body);
  auto doc = loadPart(dir_.file("merged.docx"), "word/document.xml");
  EXPECT_EQ(dumpBody(*doc), "Dear Ann!\n");
  EXPECT_EQ(countXPath(*doc, "//w:r[w:rPr/w:b and w:t='Dear ']"), 1u);
  EXPECT_EQ(countXPath(*doc, "//w:r[w:rPr/w:u and not(w:rPr/w:b) and w:t='Ann']"), 1u);
  EXPECT_EQ(countXPath(*doc, "//w:r[w:rPr/w:b and w:t='!']"), 1u);
  EXPECT_EQ(countXPath(*doc, "//w:i"), 0u);
}

TEST_F(IfFieldTest, EachRecordTakesItsOwnBranch) {
  data_ = docx::MergeData({"FirstName", "Amount"}, {{Variant("Ann"), Variant(5.0)},
                                                    {Variant("Bob"), Variant(50.0)},
                                                    {Variant("Cy"), Variant::null()}});
  std::string body =
      para(mergeField("FirstName") + run(": ") +
           field(instr(" IF ") + mergeField("Amount") + instr(" < 10 \"small\" \"large\" ")));
  // An empty value is no number: "" < "10" compares texts.
  EXPECT_EQ(mergedText(body), "Ann: small\n\n==section==\nBob: large\n\n==section==\nCy: small\n");
}

// IF nested deeper than a merge evaluates stays as it is, and nothing breaks.
TEST_F(IfFieldTest, NestingBeyondTheLimitIsLeftAsItIs) {
  std::string inner = instr("deep");
  for (int i = 0; i < 40; ++i) inner = field(instr(" IF 1 = 1 \"") + inner + instr("\" no "));
  merge(para(inner));
  auto doc = loadPart(dir_.file("merged.docx"), "word/document.xml");
  EXPECT_EQ(countXPath(*doc, "//w:fldChar[@w:fldCharType='begin']"), 8u);  // 40 - 32 kept
  EXPECT_EQ(countXPath(*doc, "//w:t[.='deep']"), 1u);
}

}  // namespace
}  // namespace nvwm::testing
