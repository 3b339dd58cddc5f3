#include <gtest/gtest.h>

#include "runtime/format.h"
#include "support/runtime_assertions.h"

namespace nvwm {
namespace {

struct Case {
  double value;
  std::string_view pattern;
  std::string expected;
};

void expectAll(const Case* begin, const Case* end) {
  for (const Case* c = begin; c != end; ++c) {
    SCOPED_TRACE(std::string(c->pattern) + " on " + std::to_string(c->value));
    EXPECT_EQ(Format(Variant(c->value), c->pattern), c->expected);
  }
}

TEST(FormatNumberTest, DollarsWithTheMinusAfterTheSign) {
  const Case cases[] = {
      {1250, "$#,##0.00;$-#,##0.00", "$1,250.00"},
      {-1250, "$#,##0.00;$-#,##0.00", "$-1,250.00"},
      {0, "$#,##0.00;$-#,##0.00", "$0.00"},
      {1234567.891, "$#,##0.00;$-#,##0.00", "$1,234,567.89"},
      {0.005, "$#,##0.00;$-#,##0.00", "$0.01"},
      {999.995, "$#,##0.00;$-#,##0.00", "$1,000.00"},
      {-0.004, "$#,##0.00;$-#,##0.00", "$-0.00"},  // the section is chosen before rounding
      {12.5, "$#,##0.00", "$12.50"},
      {-12.5, "$#,##0.00", "-$12.50"},  // one section: the minus goes in front
  };
  expectAll(std::begin(cases), std::end(cases));
}

TEST(FormatNumberTest, DigitPlaceholdersAndRounding) {
  const Case cases[] = {
      {2.5, "0", "3"},  // half away from zero, unlike CInt
      {-2.5, "0", "-3"},
      {0.4, "0", "0"},
      {1234, "0", "1234"},
      {7, "000", "007"},
      {1.005, "0.00", "1.01"},
      {3.14159, "0.00", "3.14"},
      {-0.5, "0.00", "-0.50"},
      {1234567, "#,##0", "1,234,567"},
      {999, "#,##0", "999"},
      {0, "#,##0", "0"},
      {-1234.5, "#,##0", "-1,235"},
      {1234.5, "#,##0.00", "1,234.50"},
      {5, "#.##", "5."},
      {0.5, "#.##", ".5"},
      {0, "#", ""},
      {1.5, "0.0#", "1.5"},
      {1.255, "0.0#", "1.26"},
      {12.5, ".00", "12.50"},
      {1234567, "#,##0,", "1,235"},  // a comma at the end divides by 1000
      {5551234, "000-0000", "555-1234"},
      {0.256, "0.0%", "25.6%"},
  };
  expectAll(std::begin(cases), std::end(cases));
}

TEST(FormatNumberTest, SectionsAndLiterals) {
  const Case cases[] = {
      {5, "0;(0);\"zero\"", "5"}, {-5, "0;(0);\"zero\"", "(5)"}, {0, "0;(0);\"zero\"", "zero"},
      {-5, "0;;\"zero\"", "-5"},  // an empty negative section prints as the first
      {3, "0 \"hrs\"", "3 hrs"},  {3, "0 \\h", "3 h"},           {3, "«0» 🦆", "«3» 🦆"},
  };
  expectAll(std::begin(cases), std::end(cases));
}

TEST(FormatNumberTest, NamedFormats) {
  const Case cases[] = {
      {1234.5, "Currency", "$1,234.50"},
      {-1234.5, "Currency", "($1,234.50)"},
      {1234.567, "Fixed", "1234.57"},
      {1234.567, "Standard", "1,234.57"},
      {0.256, "Percent", "25.60%"},
      {12345, "Scientific", "1.23E+04"},
      {0.00012345, "Scientific", "1.23E-04"},
      {1234.5, "General Number", "1234.5"},
      {1, "Yes/No", "Yes"},
      {0, "Yes/No", "No"},
      {-1, "True/False", "True"},
      {0, "On/Off", "Off"},
  };
  expectAll(std::begin(cases), std::end(cases));
}

TEST(FormatNumberTest, OtherValueKinds) {
  EXPECT_EQ(Format(Variant(true), "0"), "-1");
  EXPECT_EQ(Format(Variant(true), "Yes/No"), "Yes");
  EXPECT_EQ(Format(Variant(true)), "True");
  EXPECT_EQ(Format(Variant(int16_t{-7}), "000"), "-007");
  EXPECT_EQ(Format(Variant(int32_t{1250}), "$#,##0.00;$-#,##0.00"), "$1,250.00");
  EXPECT_EQ(Format(Variant(Currency{12345000}), "#,##0.00"), "1,234.50");
  EXPECT_EQ(Format(Variant(2.675f), "0.00"), "2.68");
  EXPECT_EQ(Format(Variant("1250"), "$#,##0.00;$-#,##0.00"), "$1,250.00");
  EXPECT_EQ(Format(Variant("-1,250.5"), "#,##0.00"), "-1,250.50");
  EXPECT_EQ(Format(Variant("abc"), "$#,##0.00"), "abc");
  EXPECT_EQ(Format(Variant(Date::fromParts({2026, 11, 23, 12, 0, 0})), "0.00"), "46349.50");
  EXPECT_EQ(Format(Variant(1.5)), "1.5");
  EXPECT_EQ(Format(Variant::null(), "0.00"), "");
  EXPECT_EQ(Format(Variant(), "0.00"), "");
  EXPECT_RUNTIME_ERROR(Format(Variant::missing(), "0"), 13);
}

}  // namespace
}  // namespace nvwm
