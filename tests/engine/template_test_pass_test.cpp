// testRTBComment: the first fault of a template in the user's words, or a pass.
#include <gtest/gtest.h>

#include "engine/engine_test_support.h"
#include "services/message_services.h"

namespace nvwm::testing {
namespace {

// The messages exactly as the user reads them.
const std::string M1 = "You are missing your opening brackets, '«' in one of your expressions";
const std::string M2 =
    "You are missing the closing round bracket, ')' in one of your date expressions";
std::string M3(const std::string& format) {
  return "The date format of: '" + format +
         "' is not valid.  Please see help for valid date formats.";
}
const std::string M4 =
    "You are missing the opening round bracket, '(' in one of your date expressions";
const std::string M5 =
    "You are missing a closing bracket, '»' in one of your expressions.  Make sure you have a "
    "bracket immediately before and after a field.\r\n\r\neg. «Company Name»";
std::string M6(const std::string& name) {
  return "The Tallowbrook Pad did not recognize: «" + name + "» as a valid placeholder field name.";
}

using Messages = std::vector<std::string>;

class TemplateTestPassTest : public EngineTest {
 protected:
  TemplateTestPassTest() {
    rtb->MsgboxClassRTB(messages);
    rtb->MDIFormRTB(form);
  }

  // The result of the pass; the messages it showed are in `messages`.
  bool check(const std::string& text, bool isRTF = false, bool skipNames = false,
             bool show = true) {
    messages->clear();
    env.refs.errors->errors.clear();
    return rtb->testRTBComment(text, isRTF, show, skipNames);
  }

  std::shared_ptr<RecordingMessageService> messages = std::make_shared<RecordingMessageService>();
  std::shared_ptr<Object> form = std::make_shared<Object>();
};

const std::string k30 = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcd";

std::string repeat(const std::string& s, int n) {
  std::string out;
  for (int i = 0; i < n; ++i) out += s;
  return out;
}

TEST_F(TemplateTestPassTest, FirstFaultOfEachKind) {
  const struct {
    std::string text;
    bool isRTF;
    bool skipNames;
    Messages expected;  // empty: the template passes
  } cases[] = {
      {"", false, false, {}},
      {"Dear «Company Name», see you on «(Task Due Date, mmmm d yyyy)».", false, false, {}},
      {"«(Task Due Date, dddd, mmmm d yyyy)»", false, false, {}},
      {"«(  Task Due Date ,  mmmm d  )»", false, false, {}},
      {"«company name» «(TASK DUE DATE, d)»", false, false, {}},
      // Old names and notations are tested in their current form.
      {"«(Due Date, mmmm d yyyy)»", false, false, {}},
      {"<<Company Name>>", false, false, {}},
      {"«(Task Due Date, Long Date)»", false, false, {}},
      {"«Contact Full Name»", false, false, {}},
      {"«(Calendar Date, d)»", false, false, {M6("Task Calendar Due Date")}},
      // The pseudo field passes the name check in either form.
      {"«Todays Date»", false, false, {}},
      {"«(todays date, d)»", false, false, {}},
      // The test pass doesn't look at a field's type.
      {"«(Company Name, mmmm d yyyy)»", false, false, {}},
      // Formats are compared exactly.
      {"«(Task Due Date, MMMM d yyyy)»", false, false, {M3("MMMM d yyyy")}},
      {"«(Task Due Date, dd/mmm/yy)»", false, false, {M3("dd/mmm/yy")}},
      {"«(Task Due Date, mmmm d yyyy, x)»", false, false, {M3("mmmm d yyyy, x")}},
      {"«(Task Due Date,)»", false, false, {M3("")}},
      // Brackets.
      {"«Company Name", false, false, {M1}},
      {"«", false, false, {M1}},
      {"Company Name» and «Company Name»", false, false, {M1}},
      {"«(Task Due Date, mmmm d yyyy»", false, false, {M2}},
      {"«(»", false, false, {M2}},
      {"«Task Due Date)»", false, false, {M4}},
      {"«)»", false, false, {M4}},
      // A trailing blank hides the round bracket from that test.
      {"«Company Name) »", false, false, {M6("Company Name) ")}},
      // A closing delimiter with no opening one after it goes unseen.
      {"Company Name»", false, false, {}},
      {"«Company Name»»", false, false, {}},
      // Thirty characters reach the catalogue; thirty-one tell of a forgotten closing bracket.
      {"«" + k30 + "»", false, false, {M6(k30)}},
      {"«" + k30 + "e»", false, false, {M5}},
      {"«" + k30 + "e»", false, true, {M5}},
      {"«Company Name and then «Task Due Date»", false, false, {M5}},
      {"«( Task Due Date , d)»", false, false, {}},
      // Characters are counted, not bytes.
      {"«" + repeat("é", 30) + "»", false, false, {M6(repeat("é", 30))}},
      {"«" + repeat("🦆", 31) + "»", false, false, {M5}},
      {"«" + repeat("é", 30) + "»", false, true, {}},
      // Names.
      {"«Nonsense»", false, false, {M6("Nonsense")}},
      {"«Nonsense»", false, true, {}},
      {"« Company Name»", false, false, {M6(" Company Name")}},
      {"«Comp\xff"
       "any»",
       false,
       false,
       {M6("Comp\xff"
           "any")}},
      {"\xff«Company Name»\xfe", false, false, {}},
      // The first fault ends the walk...
      {"«Nonsense» «Other»", false, false, {M6("Nonsense")}},
      // ...but a stray closing delimiter right after it adds the first message.
      {"«Nonsense» x» «Company Name»", false, false, {M6("Nonsense"), M1}},
      {"«(Task Due Date, X)» »«", false, false, {M3("X"), M1}},
      // RTF: only the escaped form is walked.
      {"{\\rtf1 Dear \\'abCompany Name\\'bb}", true, false, {}},
      {"{\\rtf1 \\'ABCompany Name\\'BB \\'ab(Task Due Date, d)\\'bb}", true, false, {}},
      {"{\\rtf1 \\'abNonsense\\'bb}", true, false, {M6("Nonsense")}},
      {"{\\rtf1 \\'abCompany Name}", true, false, {M1}},
      {"{\\rtf1 \\'abCompany Name\\'b", true, false, {M1}},
      {"{\\rtf1 \\'ab(Task Due Date, d\\'bb}", true, false, {M2}},
      {"{\\rtf1 «Nonsense»}", true, false, {}},
      {"{\\rtf1 \\'abNonsense\\'bb}", false, false, {}},
      {"{\\rtf1 \\'a", true, false, {}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.text + (c.isRTF ? " (RTF)" : "") + (c.skipNames ? " (no names)" : ""));
    EXPECT_EQ(check(c.text, c.isRTF, c.skipNames), !c.expected.empty());
    EXPECT_EQ(messages->messages(), c.expected);
    EXPECT_TRUE(env.refs.errors->errors.empty());
  }
}

TEST_F(TemplateTestPassTest, MessageArguments) {
  EXPECT_TRUE(check("«Nonsense»"));
  ASSERT_EQ(messages->calls().size(), 1u);
  const RecordingMessageService::Call& call = messages->calls()[0];
  EXPECT_EQ(call.style, 7);
  EXPECT_EQ(call.parentForm.objectValue(), form);
  EXPECT_EQ(call.defaultButton, 0);
  EXPECT_FALSE(call.option1);
  EXPECT_EQ(call.iconId, 101);
  EXPECT_FALSE(call.option2);
  EXPECT_EQ(call.title, "");
  EXPECT_FALSE(call.option3);
}

TEST_F(TemplateTestPassTest, WithoutMessagesOnlyTheResultTells) {
  for (const char* text : {"«Company Name", "«Nonsense»", "«(Task Due Date, X)»", "«A)»"}) {
    SCOPED_TRACE(text);
    EXPECT_TRUE(check(text, false, false, false));
    EXPECT_TRUE(messages->calls().empty());
  }
  EXPECT_FALSE(check("«Company Name»", false, false, false));
}

TEST_F(TemplateTestPassTest, DatePlaceholderWithoutFormatGoesToTheErrorService) {
  for (bool show : {true, false}) {
    for (const char* text : {"«(Task Due Date)»", "«()»", "{\\rtf1 \\'ab(Task Due Date)\\'bb}"}) {
      SCOPED_TRACE(std::string(text) + (show ? " shown" : " silent"));
      bool isRTF = text[0] == '{';
      EXPECT_TRUE(check(text, isRTF, false, show));
      EXPECT_TRUE(messages->calls().empty());
      EXPECT_EQ(errorNumbers(), std::vector<int32_t>{9});
      ASSERT_EQ(env.refs.errors->shownWithStack.size(), 1u);
      EXPECT_EQ(env.refs.errors->shownWithStack.back().back(),
                "Tallowbrook.exe-clsInsertFieldsInRTB-testRTBComment");
      env.refs.errors->shownWithStack.clear();
    }
  }
}

TEST_F(TemplateTestPassTest, GoingOnAfterAnErrorStillEndsTheWalk) {
  env.refs.errors->action = 1;
  EXPECT_TRUE(check("«(Task Due Date)» »«"));
  EXPECT_EQ(errorNumbers(), std::vector<int32_t>{9});
  // The stray closing delimiter after the faulty placeholder is still told.
  EXPECT_EQ(messages->messages(), Messages{M1});
}

TEST_F(TemplateTestPassTest, MissingMessageServiceCountsAsAFault) {
  auto silent = env.build(list_type::kTaskInfo);
  bool isRTF = false, show = true, skip = false;
  EXPECT_TRUE(silent->testRTBComment("«Nonsense»", isRTF, show, skip));
  EXPECT_EQ(errorNumbers(), std::vector<int32_t>{91});
  EXPECT_FALSE(silent->testRTBComment("«Company Name»", isRTF, show, skip));
}

TEST_F(TemplateTestPassTest, EmptyCatalogueKnowsOnlyTodaysDate) {
  auto empty = env.makeCatalogue();
  empty->MsgboxClassRTB(messages);
  bool isRTF = false, show = true, skip = false;
  EXPECT_TRUE(empty->testRTBComment("«Company Name»", isRTF, show, skip));
  EXPECT_FALSE(empty->testRTBComment("«(Todays Date, d)»", isRTF, show, skip));
  EXPECT_EQ(messages->messages(), Messages{M6("Company Name")});
}

TEST_F(TemplateTestPassTest, NamesAreThoseOfTheFirmsCatalogue) {
  PracticeCatalogue firm(env, list_type::kTaskInfo);
  firm.rtb->MsgboxClassRTB(messages);
  bool isRTF = false, show = true, skip = false;
  // The firm has labelled its first custom task fields "Form" and "Step".
  EXPECT_FALSE(firm.rtb->testRTBComment("«Form» «Step» «Custom Task Field 2»", isRTF, show, skip));
  EXPECT_TRUE(firm.rtb->testRTBComment("«Custom Task Field 1»", isRTF, show, skip));
  EXPECT_EQ(messages->messages(), Messages{M6("Custom Task Field 1")});
}

TEST_F(TemplateTestPassTest, ChangesNothing) {
  std::string text = "<<Docket>> «Nonsense»";
  bool isRTF = false, show = false, skip = false;
  rtb->testRTBComment(text, isRTF, show, skip);
  EXPECT_EQ(text, "<<Docket>> «Nonsense»");
  EXPECT_FALSE(isRTF);
  EXPECT_FALSE(show);
  EXPECT_FALSE(skip);
}

}  // namespace
}  // namespace nvwm::testing
