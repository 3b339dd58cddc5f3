// getDataField: the text of one catalogue field for the record the IDs name.
//
// The row is found by DisplayName, its Category picks the data set (engine/data_sets.h), and
// its DatabaseField is read there, with these fields computed or translated on the way:
//   - a contact that inherits its company's details prints the company's address lines in
//     preference to its own, but its own phone and fax in preference to the company's;
//   - "ContactAndSpouseName" is composed (contact_spouse_name.cpp);
//   - the abbreviated province fields read the full province and shorten it;
//   - "TimeDuration" is the span between TimeFrom and TimeTo of the appointment data set, also
//     for tasks and time entries (the product has always read it there);
//   - three client fields stored as numbers print as words.
// No record, no connection, an unknown name or a negative ID give "" without a word.
#include <string>

#include "catalogue/cls_insert_fields_in_rtb.h"
#include "engine/data_sets.h"
#include "runtime/convert.h"
#include "runtime/text.h"

namespace nvwm {
namespace {

// Business fields of a contact that inherits its company's details: the column read first and,
// when that is null, the one read instead.
struct InheritedField {
  const char* databaseField;
  bool companyFirst;  // the address lines prefer the company, the phone and fax the contact
  const char* companyColumn;
};

constexpr InheritedField kInheritedFields[] = {
    {"BusinessPhone_Main", false, "OfficeNumber"}, {"BusinessPhone_Fax", false, "FaxNumber"},
    {"BusinessAddress", true, "Address"},          {"BusinessCity", true, "City"},
    {"BusinessProvince", true, "Province"},        {"BusinessPostalCode", true, "PostalCode"},
    {"BusinessCountry", true, "Country"},
};

const InheritedField* inheritedField(const std::string& databaseField) {
  for (const InheritedField& f : kInheritedFields) {
    if (databaseField == f.databaseField) return &f;
  }
  return nullptr;
}

// Client fields kept as numbers; a number outside its list prints nothing.
struct TranslatedField {
  const char* databaseField;
  const char* words[4];
};

constexpr TranslatedField kTranslatedFields[] = {
    {"RC59Permission", {"None", "Full", "Limited", nullptr}},
    {"RC59Status", {"Not Filed", "Awaiting Signature", "CRA Processing", "Completed"}},
    {"GSTFilingMethod", {"Not Specified", "Traditional", "Simple Method", "Quick Method"}},
};

const TranslatedField* translatedField(const std::string& databaseField) {
  for (const TranslatedField& f : kTranslatedFields) {
    if (databaseField == f.databaseField) return &f;
  }
  return nullptr;
}

std::string translate(const TranslatedField& field, const Variant& stored) {
  std::optional<double> n = stored.isNull() ? std::nullopt : TryCDbl(stored);
  if (!n) return "";
  for (int i = 0; i < 4; ++i) {
    if (*n == i && field.words[i] != nullptr) return field.words[i];
  }
  return "";
}

bool isOneOf(const std::string& upperName, std::initializer_list<const char*> names) {
  for (const char* name : names) {
    if (upperName == name) return true;
  }
  return false;
}

}  // namespace

std::string clsInsertFieldsInRTB::getDataField(std::string& displayName, int32_t& companyID,
                                               int32_t& contactID, int32_t& scheduleID,
                                               int32_t& firmID, int32_t& appointmentID,
                                               int32_t& docketID, int32_t& taskID,
                                               bool& useSampleData, bool& isRTF) {
  Routine r(engine::routineTag("getDataField"), errorService());
  Variant value{std::string()};
  IDList& list = *FieldListStructure_;
  const int16_t kName = column(FieldColumn::kDisplayName);

  if (useSampleData) {
    r.step([&] {
      if (list.findRow(kName, Variant(displayName)) >= 0) {
        value = list.getColumn(column(FieldColumn::kSampleValue));
      }
    });
  } else {
    bool connected = false;
    r.step([&] { connected = engine::databaseConnected(); });
    bool rowFound = false;
    std::string databaseField, category;
    if (connected) {
      r.step(
          [&] { rowFound = engine::findCatalogueRow(list, displayName, databaseField, category); });
    }
    if (rowFound && r.running()) {
      const engine::RecordIDs ids{companyID,     contactID, scheduleID, firmID,
                                  appointmentID, docketID,  taskID};
      engine::DataSets sets = dataSets();
      const engine::FieldRecord record = engine::findFieldRecord(r, sets, category, ids);
      if (record.found) {
        DatabaseService& db = engine::database();
        const std::string upperField = UCase(databaseField);
        auto readColumn = [&](Handle h, const std::string& name) {
          r.step([&] { value = db.getField(h, Variant(name)); });
        };
        bool done = false;

        if (category == kCategoryContact) {
          Variant inherit;
          r.step([&] { inherit = db.getField(ContactsRST_, Variant("InheritCompanyInfo")); });
          bool companyFound = false;
          r.step([&] {
            // Only the contact's flag is converted, and only with a company to inherit from.
            if (companyID >= 0 && CBool(inherit)) {
              companyFound =
                  db.findRecord(CompaniesRST_, "CompanyID", Variant(std::to_string(companyID)));
            }
          });
          const InheritedField* inherited = companyFound ? inheritedField(databaseField) : nullptr;
          if (inherited != nullptr) {
            const Handle first = inherited->companyFirst ? CompaniesRST_ : ContactsRST_;
            const Handle second = inherited->companyFirst ? ContactsRST_ : CompaniesRST_;
            auto columnIn = [&](Handle h) {
              return h == CompaniesRST_ ? std::string(inherited->companyColumn) : databaseField;
            };
            readColumn(first, columnIn(first));
            r.step([&] {
              if (engine::isNullValue(value))
                value = db.getField(second, Variant(columnIn(second)));
            });
            done = true;
          } else if (upperField == "CONTACTANDSPOUSENAME") {
            r.step([&] {
              bool lastNameFirst = false;
              value = getContactAndSpouseName(contactID, lastNameFirst);
            });
            done = true;
          } else if (isOneOf(upperField, {"ABBREVIATEDPROVINCE", "BUSINESSABBREVIATEDPROVINCE",
                                          "HOMEABBREVIATEDPROVINCE", "SPOUSEABBREVIATEDPROVINCE",
                                          "ALTABBREVIATEDPROVINCE"})) {
            r.step([&] {
              std::string province = engine::plainText(db.getField(
                  ContactsRST_,
                  Variant(Replace(databaseField, "Abbreviated", "", 1, -1, CompareMode::kText))));
              value = getAbbreviatedProvince(province);
            });
            done = true;
          }
        } else if (category == kCategoryCompany) {
          if (isOneOf(upperField, {"ABBREVIATEDPROVINCE", "ALTABBREVIATEDPROVINCE"})) {
            r.step([&] {
              std::string province = engine::plainText(db.getField(
                  CompaniesRST_,
                  Variant(Replace(databaseField, "Abbreviated", "", 1, -1, CompareMode::kText))));
              value = getAbbreviatedProvince(province);
            });
            done = true;
          }
        } else if (category == kCategoryClient) {
          if (const TranslatedField* translated = translatedField(databaseField)) {
            r.step([&] {
              value = translate(*translated, db.getField(MainClientRST_, Variant(databaseField)));
            });
            done = true;
          }
        } else if (upperField == "TIMEDURATION" &&
                   (category == kCategoryAppoint || category == kCategoryDocket ||
                    (category == kCategoryTask && taskID >= 0))) {
          // The span is read from the appointment data set whatever the category.
          r.step([&] {
            Variant from = db.getField(AppointmentsRST_, Variant("TimeFrom"));
            Variant to = db.getField(AppointmentsRST_, Variant("TimeTo"));
            value = getTimeDurationFieldValue(from, to);
          });
          done = true;
        }
        if (!done) readColumn(record.readFrom, databaseField);
      }
    }
  }

  std::string result = engine::plainText(value);
  r.step([&] {
    if (engine::isNullValue(value)) {
      result.clear();
    } else if (isRTF) {
      result = convertToRTF(CStr(value));
    }
  });
  return result;
}

}  // namespace nvwm
