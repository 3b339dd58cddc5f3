// The rows of the accounting firm that uses the system ("FirmInfo", read from
// AccountantFirmRST), for a template's letterhead. FieldSize is absent on every row.
#include "catalogue/field_list_rows.h"
#include "catalogue/field_record.h"

namespace nvwm::catalogue {
namespace {

constexpr const char* T = kFieldTypeText;
constexpr int16_t none = kSizeAbsent;
constexpr Only ca = Only::kCountry1;
constexpr Only us = Only::kOtherCountry;

constexpr FieldRowSpec kAccountantRows[] = {
    {"Your Company Name", "CompanyName", T, none, text("ABC Accounting Services")},
    {"Your Corporate Name", "CorporateName", T, none, text("ABC Accounting Services LLP")},
    {"Your Company Type", "CompanyType", T, none, text("Corporation")},
    {"Your Industry Type", "IndustryType", T, none, text("Consulting")},
    {"Your Address", "Address", T, none, text("100 Penny Lane")},
    {"Your City", "City", T, none, text("Ottawa")},
    {"Your Province", "Province", T, none, text("Ontario"), ca},
    {"Your Postal Code", "PostalCode", T, none, text("K2G 0Z9"), ca},
    {"Your State", "Province", T, none, text("California"), us},
    {"Your Zip Code", "PostalCode", T, none, text("90210"), us},
    {"Your Country", "Country", T, none, text("Canada")},
    {"Your Office Number", "OfficeNumber", T, none, text("(555) 453-2947")},
    {"Your Fax Number", "FaxNumber", T, none, text("(555) 453-3756")},
    {"Your Email", "Email", T, none, text("office@abcaccounting.example")},
    {"Your Web Site", "WebSite", T, none, text("www.abcaccounting.example")},
};

}  // namespace

const FieldBlockSpec kAccountantBlock{kCategoryFirm, kAccountantRows};

// Category, label query, label columns, test hasRecords, database fields, default display text,
// sample text, display prefix, stored name of the fifth default row.
// clang-format off
const CustomBlockSpec kAccountantCustomBlock{kCategoryFirm, kCustomAddressFieldsQuery, "CompanyLabel", false, "Custom", "Company Custom Field ", "Company Custom Info ", "Your ", nullptr};
// clang-format on

}  // namespace nvwm::catalogue
