// The rows of the client company ("CompanyInfo", read from CompaniesRST) and its custom block.
// One line per row, in order of adding. From "Company Alternate Abbreviated Province" on, the
// alternate rows have 255 where their counterparts in the main address have 50: kept as it is.
#include "catalogue/field_list_rows.h"
#include "catalogue/field_record.h"

namespace nvwm::catalogue {
namespace {

constexpr const char* T = kFieldTypeText;
constexpr Only use2 = Only::kUse2;
constexpr Only notUse2 = Only::kNotUse2;
constexpr Only ca = Only::kCountry1;
constexpr Only caNotUse2 = Only::kCountry1NotUse2;
constexpr Only us = Only::kOtherCountry;

constexpr FieldRowSpec kCompanyRows[] = {
    {"Company Name", "CompanyName", T, 255, text("ABC Consulting")},
    {"Client ID", "ClientID", T, 255, text("B34")},
    {"Corporate Name", "CorporateName", T, 255, text("ABC Consulting Corp.")},
    {"Company Type", "CompanyType", T, 50, text("Corporation")},
    {"Industry Type", "IndustryType", T, 100, text("Consulting")},
    {"Address 1", "Address1", T, 255, text("100 Sussex Drive"), use2},
    {"Address 2", "Address2", T, 255, text("100 Sussex Drive"), use2},
    {"Address 3", "Address3", T, 255, text("100 Sussex Drive"), use2},
    {"Address", "Address", T, 255, text("100 Sussex Drive"), notUse2},
    {"City", "City", T, 50, text("Ottawa")},
    {"Province", "Province", T, 50, text("Ontario"), ca},
    {"Abbreviated Province", "AbbreviatedProvince", T, 50, text("ON"), caNotUse2},
    {"Postal Code", "PostalCode", T, 50, text("K2G 0Z1"), ca},
    {"State", "Province", T, 50, text("California"), us},
    {"Zip Code", "PostalCode", T, 50, text("90210"), us},
    {"Country", "Country", T, 50, text("Canada")},
    {"Office Number", "OfficeNumber", T, 50, text("(555) 453-2947")},
    {"Alternate Phone Number", "AltPhoneNumber", T, 50, text("(555) 453-2947")},
    {"Fax Number", "FaxNumber", T, 50, text("(555) 453-3756")},
    {"Email", "Email", T, 255, text("info@abcconsulting.example")},
    {"Web Site", "WebSite", T, 255, text("www.abcconsulting.example.ca"), ca},
    {"Web Site", "WebSite", T, 255, text("www.abcconsulting.example.com"), us},
    {"Company FaceBook URL", "FaceBookURL", T, 255, text("www.facebook.com/abcconsulting.example")},
    {"Company Twitter Account", "TwitterAccount", T, 255, text("@abcconsulting_example")},
    {"Supervising Partner", "PartnerName", T, 255, text("Susan Partner")},
    {"Managing Accountant", "AccountantName", T, 255, text("John Accountant")},
    {"Company Alternate Address 1", "AltAddress1", T, 255, text("101 Finchley St."), use2},
    {"Company Alternate Address 2", "AltAddress2", T, 255, text("101 Finchley St."), use2},
    {"Company Alternate Address 3", "AltAddress3", T, 255, text("101 Finchley St."), use2},
    {"Company Alternate Address", "AltAddress", T, 255, text("101 Finchley St."), notUse2},
    {"Company Alternate City", "AltCity", T, 50, text("Toronto")},
    {"Company Alternate Province", "AltProvince", T, 50, text("Ontario"), ca},
    {"Company Alternate Abbreviated Province", "AltAbbreviatedProvince", T, 255, text("ON"),
     caNotUse2},
    {"Company Alternate Postal Code", "AltPostalCode", T, 255, text("M4R 3T6"), ca},
    {"Company Alternate State", "AltProvince", T, 255, text("California"), us},
    {"Company Alternate Zip Code", "AltPostalCode", T, 255, text("90210"), us},
    {"Company Alternate Country", "AltCountry", T, 255, text("Canada")},
};

}  // namespace

const FieldBlockSpec kCompanyBlock{kCategoryCompany, kCompanyRows};

// Category, label query, label columns, test hasRecords, database fields, default display text,
// sample text, display prefix, stored name of the fifth default row.
// clang-format off
const CustomBlockSpec kCompanyCustomBlock{kCategoryCompany, kCustomAddressFieldsQuery, "CompanyLabel", false, "Custom", "Company Custom Field ", "Company Custom Info ", "", nullptr};
// clang-format on

}  // namespace nvwm::catalogue
