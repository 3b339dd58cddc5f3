// Address blocks from a record: the lines, the city line, the country rule, the contact lines
// and the RTF form.
#include "addresses/address_blocks.h"

#include <gtest/gtest.h>

#include "practice_fixture.h"

namespace nvwm {
namespace {

using testing::PracticeFixture;

AddressRecord canadianContact() {
  AddressRecord r;
  r.businessName = "Maple Leaf Bakery Inc.";
  r.displayName = "Ann Brown";
  r.address = "48 Brock Street";
  r.city = "Kingston";
  r.province = "Ontario";
  r.postalCode = "K7L 1R8";
  r.country = "Canada";
  return r;
}

TEST(CreateAddressTest, LinesCityLineAndCountry) {
  const auto with = [](auto change) {
    AddressRecord r;
    change(r);
    return r;
  };
  const struct {
    const char* name;
    AddressRecord record;
    bool includeName;
    std::string expected;
  } cases[] = {
      {"nothing in it", AddressRecord{}, true, ""},
      {"a full Canadian address ends with the postal code", canadianContact(), true,
       "Maple Leaf Bakery Inc.\r\nAnn Brown\r\n48 Brock Street\r\nKingston, Ontario  K7L 1R8"},
      {"without the name", canadianContact(), false,
       "Maple Leaf Bakery Inc.\r\n48 Brock Street\r\nKingston, Ontario  K7L 1R8"},
      {"no city: province and postal code without a comma", with([](AddressRecord& r) {
         r.province = "Ontario";
         r.postalCode = "K7L 1R8";
       }),
       true, "Ontario  K7L 1R8"},
      {"city and postal code", with([](AddressRecord& r) {
         r.city = "Kingston";
         r.postalCode = "K7L 1R8";
       }),
       true, "Kingston  K7L 1R8"},
      {"postal code alone", with([](AddressRecord& r) { r.postalCode = "K7L 1R8"; }), true,
       "K7L 1R8"},
      {"only the first lines keep their line end", with([](AddressRecord& r) {
         r.businessName = "Acme";
         r.address = "1 Main Street";
       }),
       true, "Acme\r\n1 Main Street\r\n"},
      {"values are trimmed of blanks", with([](AddressRecord& r) {
         r.address = "  48 Brock Street ";
         r.city = " Kingston";
         r.province = "Ontario  ";
       }),
       true, "48 Brock Street\r\nKingston, Ontario"},
      {"a city of blanks is filled, and trims to nothing", with([](AddressRecord& r) {
         r.city = "  ";
         r.province = "Ontario";
       }),
       true, ", Ontario"},
      {"another country on a line of its own", with([](AddressRecord& r) {
         r.city = "Buffalo";
         r.province = "NY";
         r.postalCode = "14202";
         r.country = "USA";
       }),
       true, "Buffalo, NY  14202\r\nUSA"},
      {"country alone after an address line leaves an empty line", with([](AddressRecord& r) {
         r.address = "Hauptstrasse 1";
         r.country = "Österreich";
       }),
       true, "Hauptstrasse 1\r\n\r\nÖsterreich"},
      {"characters beyond ASCII stand as they are", with([](AddressRecord& r) {
         r.city = "Montréal";
         r.province = "Québec";
         r.postalCode = "H3G 1P1";
         r.country = "CANADA";
       }),
       true, "Montréal, Québec  H3G 1P1"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    PracticeFixture f;
    EXPECT_EQ(createAddress(c.record, c.includeName, false), c.expected);
    EXPECT_TRUE(f.errors().errors.empty());
  }
}

TEST(CreateAddressTest, CanadaInAnyCaseIsLeftOutButNotWithABlankBehind) {
  const struct {
    const char* country;
    std::string expected;
  } cases[] = {
      {"Canada", "Kingston"},
      {"canada", "Kingston"},
      {"CA", "Kingston"},
      {"ca", "Kingston"},
      {"Can", "Kingston"},
      {"cDa", "Kingston"},
      {"Canada ", "Kingston\r\nCanada"},
      {" CA", "Kingston\r\nCA"},
      {"Canadá", "Kingston\r\nCanadá"},
      {"United States", "Kingston\r\nUnited States"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.country);
    PracticeFixture f;
    AddressRecord r;
    r.city = "Kingston";
    r.country = c.country;
    EXPECT_EQ(createAddress(r, true, false), c.expected);
  }
}

TEST(CreateAddressTest, RtfPutsAParagraphMarkAfterEachLineEnd) {
  PracticeFixture f;
  EXPECT_EQ(createAddress(canadianContact(), true, true),
            "Maple Leaf Bakery Inc.\r\n\\par Ann Brown\r\n\\par 48 Brock Street\r\n\\par "
            "Kingston, Ontario  K7L 1R8");
  AddressRecord braces;
  braces.address = "Unit {3}\\b";
  braces.city = "Kingston";
  EXPECT_EQ(createAddress(braces, true, true), "Unit {3}\\b\r\n\\par Kingston");
}

TEST(CreateAddressWithContactInfoTest, ContactLinesInTheirOwnOrderAsTheyStand) {
  PracticeFixture f;
  AddressRecord r = canadianContact();
  r.webSite = "www.maple.example";
  r.email = "ann@maple.example";
  r.home = "(613) 555-3101";
  r.cell = " (613) 555-2101 ";
  r.phone = "(204) 555-1000";
  EXPECT_EQ(createAddressWithContactInfo(r, false, false),
            "Maple Leaf Bakery Inc.\r\n48 Brock Street\r\nKingston, Ontario  K7L 1R8"
            "\r\nPhone: (204) 555-1000\r\nCell:  (613) 555-2101 \r\nHome: (613) 555-3101"
            "\r\nEmail: ann@maple.example\r\nWeb Site: www.maple.example");
}

TEST(CreateAddressWithContactInfoTest, RtfConvertsTheAddressTwiceAndTheContactLinesOnce) {
  PracticeFixture f;
  AddressRecord r;
  r.address = "48 Brock Street";
  r.city = "Kingston";
  r.fax = "(204) 555-1009";
  r.email = "ann@maple.example";
  EXPECT_EQ(createAddressWithContactInfo(r, true, true),
            "48 Brock Street\r\n\\par \\par Kingston\r\n\\par Fax: (204) 555-1009\r\n\\par "
            "Email: ann@maple.example");
  // Without a contact line the block is converted once, as createAddress gives it.
  r.fax.clear();
  r.email.clear();
  EXPECT_EQ(createAddressWithContactInfo(r, true, true), "48 Brock Street\r\n\\par Kingston");
  EXPECT_EQ(createAddressWithContactInfo(AddressRecord{}, true, true), "");
}

TEST(ConvertToRTFTest, OnlyLineEndsChange) {
  const struct {
    std::string text;
    std::string expected;
  } cases[] = {
      {"", ""},
      {"no line end", "no line end"},
      {"A\r\nB", "A\r\n\\par B"},
      {"A\r\n\r\nB\r\n", "A\r\n\\par \r\n\\par B\r\n\\par "},
      {"lone\nfeed and\rreturn", "lone\nfeed and\rreturn"},
      {"{\\b bold}\r\n«Name»", "{\\b bold}\r\n\\par «Name»"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.text);
    PracticeFixture f;
    EXPECT_EQ(convertToRTF(c.text), c.expected);
  }
}

TEST(ClearAddressFieldsTest, EveryFieldBecomesEmpty) {
  PracticeFixture f;
  AddressRecord r = canadianContact();
  r.phone = r.fax = r.cell = r.home = r.email = r.webSite = "x";
  clearAddressFields(r);
  EXPECT_EQ(createAddressWithContactInfo(r, true, false), "");
  EXPECT_TRUE(r.businessName.empty() && r.displayName.empty() && r.address.empty() &&
              r.city.empty() && r.province.empty() && r.postalCode.empty() && r.country.empty() &&
              r.phone.empty() && r.fax.empty() && r.cell.empty() && r.home.empty() &&
              r.email.empty() && r.webSite.empty());
}

}  // namespace
}  // namespace nvwm
