// convertProvinceFields: the rules of tests/engine/data/province_fields.tsv, one row per case,
// and what happens when the locale can't be asked.
#include <gtest/gtest.h>

#include "engine/engine_test_support.h"
#include "host/references.h"
#include "runtime/clock.h"

namespace nvwm::testing {
namespace {

class ProvinceFieldsTest : public EngineTest {};

TEST_F(ProvinceFieldsTest, EveryRuleOfTheTable) {
  std::vector<TableRow> rows = readTable("province_fields.tsv", 5);
  // The table covers the notation rules, every province branch and both countries.
  EXPECT_GE(rows.size(), 200u);
  for (const TableRow& row : rows) {
    const auto& c = row.cells;
    SCOPED_TRACE("province_fields.tsv:" + std::to_string(row.line) + " \"" + c[3] + "\"");
    env.locale->setCountryCode(std::stoi(c[0]));
    env.locale->setProvinceCode(std::stoi(c[1]));
    env.clock->set(isoDate(c[2]));
    EXPECT_EQ(rtb->convertProvinceFields(c[3]), c[4]);
  }
  EXPECT_TRUE(env.refs.errors->errors.empty());
}

TEST_F(ProvinceFieldsTest, OldBracketsBecomeDelimitersWhateverTheLocale) {
  for (int32_t country : {1, 2, 0, 99}) {
    env.locale->setCountryCode(country);
    EXPECT_EQ(rtb->convertProvinceFields("<<Company Name>>"), "«Company Name»");
  }
}

TEST_F(ProvinceFieldsTest, DocketBecomesTimeEntryInTheBodyToo) {
  EXPECT_EQ(rtb->convertProvinceFields("The docket, the DOCKET and the dOcKeT."),
            "The Time Entry, the Time Entry and the Time Entry.");
}

TEST_F(ProvinceFieldsTest, MultiByteAndInvalidUtf8AreKept) {
  EXPECT_EQ(rtb->convertProvinceFields("Société 🦆 <<Docket>> é"),
            "Société 🦆 «Time Entry» é");
  EXPECT_EQ(rtb->convertProvinceFields("\xff<<Remittance Year>>\xc3 \xe2\x82"),
            "\xff«Task Year»\xc3 \xe2\x82");
  EXPECT_TRUE(env.refs.errors->errors.empty());
}

TEST_F(ProvinceFieldsTest, RtfCutInsideAnEscapeIsLeftAsItIs) {
  EXPECT_EQ(rtb->convertProvinceFields("{\\rtf1 \\'abRemittance Year\\'b"),
            "{\\rtf1 \\'abRemittance Year\\'b");
  EXPECT_EQ(rtb->convertProvinceFields("{\\rtf1 \\'ab(Due Date, d)\\"),
            "{\\rtf1 \\'ab(Task Due Date, d)\\");
}

// A locale that fails when asked for the province.
class FailingProvinceLocale : public LocaleService {
 public:
  int32_t getCountryCode() override { return 1; }
  int32_t getProvinceCode() override { raise(ErrorNumber::kApplicationDefined, "no province"); }
};

TEST_F(ProvinceFieldsTest, FailingLocaleKeepsWhatTheNotationRulesDid) {
  references().LocaleReference = std::make_shared<FailingProvinceLocale>();
  EXPECT_EQ(rtb->convertProvinceFields("<<WSIB Number>> <<State>>"), "«WSIB Number» «State»");
  ASSERT_EQ(errorNumbers(), std::vector<int32_t>{1004});
  ASSERT_EQ(env.refs.errors->shownWithStack.size(), 1u);
  EXPECT_EQ(env.refs.errors->shownWithStack[0].back(),
            "Tallowbrook.exe-clsInsertFieldsInRTB-convertProvinceFields");
}

TEST_F(ProvinceFieldsTest, MissingLocaleKeepsWhatTheNotationRulesDid) {
  references().LocaleReference.reset();
  EXPECT_EQ(rtb->convertProvinceFields("<<Docket>> <<Province>>"), "«Time Entry» «Province»");
  EXPECT_EQ(errorNumbers(), std::vector<int32_t>{91});
}

}  // namespace
}  // namespace nvwm::testing
