// SET and ASK give a name a value within one record's copy, REF (or the bare name) shows it,
// FILLIN shows its default; none of them prompts. The bookmark Word keeps for a SET goes; a
// REF to a real bookmark stays a field.
#include <gtest/gtest.h>

#include "docx/data_source.h"
#include "docx/docx_test_support.h"
#include "docx/mail_merge.h"
#include "support/temp_dir.h"

namespace nvwm::testing {
namespace {

class SetRefFieldsTest : public ::testing::Test {
 protected:
  std::unique_ptr<pugi::xml_document> mergedDoc(const std::string& body) {
    writeDocxBody(body, dir_.file("main.docx"));
    auto main = docx::Package::load(dir_.file("main.docx"));
    docx::mergeDocument(*main, data_)->save(dir_.file("merged.docx"));
    expectConsistentPackage(dir_.file("merged.docx"));
    return loadPart(dir_.file("merged.docx"), "word/document.xml");
  }

  docx::MergeData data_{{"Name", "Fee"},
                        {{Variant("ann lee"), Variant(100.0)}, {Variant("bob ray"), Variant(0.0)}}};
  TempDir dir_;
};

TEST_F(SetRefFieldsTest, ValuesHoldWithinEachCopyAndNothingPrompts) {
  const std::string setGreeting = fieldAround(
      instructionRun(" SET Greeting \"Dear ") + mergeFieldOf("Name") + instructionRun("\" "), "");
  const struct {
    const char* what;
    std::string body;
    const char* expected;
  } cases[] = {
      {"SET then REF", para(setGreeting + complexField({" REF Greeting "}, "x")),
       "Dear ann lee\n\n==section==\nDear bob ray\n"},
      {"REF with a case switch", para(setGreeting + complexField({" REF greeting \\* Caps "}, "x")),
       "Dear Ann Lee\n\n==section==\nDear Bob Ray\n"},
      {"the bare name", para(setGreeting + simpleField(" Greeting \\* Upper ", "x")),
       "DEAR ANN LEE\n\n==section==\nDEAR BOB RAY\n"},
      {"SET of a bare value",
       para(simpleField(" SET Rate 12 ", "") + run("at ") +
            simpleField(" REF Rate \\# \"0.00\" ", "x")),
       "at 12.00\n\n==section==\nat 12.00\n"},
      {"REF before any SET", para(simpleField(" REF Late ", "x") + simpleField(" SET Late 1 ", "")),
       "Error! Reference source not found.\n\n==section==\nError! Reference source not found.\n"},
      {"ASK takes its default",
       para(simpleField(" ASK Salutation \"How do we greet them?\" \\d \"Hello\" ", "") +
            simpleField(" REF Salutation ", "x") + run(",")),
       "Hello,\n\n==section==\nHello,\n"},
      {"ASK without a default",
       para(simpleField(" ASK Salutation \"Greeting?\" ", "") + run("[") +
            simpleField(" REF Salutation ", "x") + run("]")),
       "[]\n\n==section==\n[]\n"},
      {"FILLIN shows its default",
       para(run("Re: ") + simpleField(" FILLIN \"Subject?\" \\d \"your account\" ", "x")),
       "Re: your account\n\n==section==\nRe: your account\n"},
      {"FILLIN with a field in its default",
       para(fieldAround(instructionRun(" FILLIN \"Who?\" \\d ") + mergeFieldOf("Name"), "x")),
       "ann lee\n\n==section==\nbob ray\n"},
      {"SET in an IF result",
       para(fieldAround(instructionRun(" IF ") + mergeFieldOf("Fee") + instructionRun(" > 0 \"") +
                            simpleField(" SET Owing yes ", "") + instructionRun("\" \"") +
                            simpleField(" SET Owing no ", "") + instructionRun("\" "),
                        "") +
            run("owing: ") + simpleField(" REF Owing ", "x")),
       "owing: yes\n\n==section==\nowing: no\n"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    auto doc = mergedDoc(c.body);
    EXPECT_EQ(dumpBody(*doc), c.expected);
    EXPECT_EQ(countXPath(*doc, "//w:fldChar | //w:instrText | //w:fldSimple"), 0u);
  }
}

TEST_F(SetRefFieldsTest, TheBookmarkOfASetGoesAndARealBookmarkStays) {
  std::string body = para("<w:bookmarkStart w:id=\"3\" w:name=\"Greeting\"/>" +
                          simpleField(" SET Greeting \"Hi\" ", "Hi") +
                          "<w:bookmarkEnd w:id=\"3\"/>" + simpleField(" REF Greeting ", "x")) +
                     para("<w:bookmarkStart w:id=\"4\" w:name=\"Terms\"/>" + run("Our terms") +
                          "<w:bookmarkEnd w:id=\"4\"/>") +
                     para(run("See ") + simpleField(" REF Terms \\h ", "Our terms"));
  auto doc = mergedDoc(body);
  EXPECT_EQ(dumpBody(*doc),
            "Hi\nOur terms\nSee Our terms\n\n==section==\nHi\nOur terms\nSee Our terms\n");
  EXPECT_EQ(countXPath(*doc, "//w:bookmarkStart[@w:name='Greeting']"), 0u);
  EXPECT_EQ(countXPath(*doc, "//w:bookmarkStart[starts-with(@w:name, 'Greeting')]"), 0u);
  EXPECT_EQ(countXPath(*doc, "//w:bookmarkEnd"), 2u);  // Terms, once a copy
  EXPECT_EQ(countXPath(*doc, "//w:fldSimple[contains(@w:instr, 'REF Terms')]"), 2u);
}

}  // namespace
}  // namespace nvwm::testing
