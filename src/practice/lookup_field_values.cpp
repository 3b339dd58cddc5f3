// changeDefaultContactChangeLookupFieldValue: the lookup-type custom values of the schedule
// items of the companies whose default contact a contact is.
//
// A custom field of type 3 holds a merge expression whose value, for the company's default
// contact, is copied into the schedule items' Custom1 to Custom5. The five holders of the
// expressions are booleans, as they have always been: an expression text is read into a
// boolean, which only a boolean word or a number survives (anything else raises 13), and the
// value looked up is that of "True" or "False".
#include <array>
#include <memory>
#include <string>

#include "catalogue/cls_insert_fields_in_rtb.h"
#include "host/references.h"
#include "practice/default_contacts.h"
#include "practice/lookup_shape.h"
#include "practice/lookups.h"

namespace nvwm {

using practice::database;
using practice::LookupRoutine;
using practice::variantUtility;

namespace {

constexpr int kCustomFields = 5;
constexpr int32_t kLookupType = 3;
constexpr int32_t kHourglass = 11;
constexpr int32_t kDefaultPointer = 0;

void setMousePointer(int32_t pointer) {
  if (MessagePump* pump = references().messagePump.get()) pump->setMousePointer(pointer);
}

std::string numbered(const char* name, int i) { return name + std::to_string(i); }

}  // namespace

void changeDefaultContactChangeLookupFieldValue(int32_t contactID) {
  LookupRoutine r("changeDefaultContactChangeLookupFieldValue");
  std::unique_ptr<clsInsertFieldsInRTB> fields;
  const auto catalogue = [&]() -> clsInsertFieldsInRTB& {
    if (!fields) raise(ErrorNumber::kObjectVariableNotSet, "clsInsertFieldsInRTB");
    return *fields;
  };
  r.step([&] { fields = std::make_unique<clsInsertFieldsInRTB>(); });
  r.step([&] { catalogue().errorClassRTB(references().errorClass); });
  r.step([&] { catalogue().MergeFieldListUse(3); });
  r.step([&] {
    catalogue().initializeDataRecordsets(3, false, -1, true, true, true, true, true, -1, -1);
  });

  if (r.connected()) {
    r.step([&] { setMousePointer(kHourglass); });
    const Handle custom = r.open(
        "SELECT CustomFields.RemittanceCustomInfo1, CustomFields.RemittanceCustomInfo2, "
        "CustomFields.RemittanceCustomInfo3, CustomFields.RemittanceCustomInfo4, "
        "CustomFields.RemittanceCustomInfo5, CustomFields.RemittanceCustomType1, "
        "CustomFields.RemittanceCustomType2, CustomFields.RemittanceCustomType3, "
        "CustomFields.RemittanceCustomType4, CustomFields.RemittanceCustomType5 FROM "
        "CustomFields;");
    std::array<bool, kCustomFields> holders{};
    bool lookupExists = false;
    if (r.hasRows(custom)) {
      for (int i = 1; i <= kCustomFields; ++i) {
        r.step([&] {
          const Variant info =
              database().getField(custom, Variant(numbered("RemittanceCustomInfo", i)));
          const std::string text = variantUtility().isNullValue(info) ? "" : CStr(info);
          const Variant type =
              database().getField(custom, Variant(numbered("RemittanceCustomType", i)));
          if (variantUtility().isNullValue(type) || CLng(type) != kLookupType) return;
          lookupExists = true;
          holders[i - 1] = CBool(Variant(text));  // 13 for an expression that isn't a boolean
        });
      }
    }
    r.step([&] {
      bool allEmpty = true;
      for (bool holder : holders)
        allEmpty = allEmpty && variantUtility().isNullValue(Variant(holder));
      if (allEmpty) lookupExists = false;
    });

    if (lookupExists && r.running()) {
      std::array<std::string, kCustomFields> values;
      for (int i = 0; i < kCustomFields; ++i) {
        bool& holder = holders[i];
        bool used = false;
        r.step([&] { used = !variantUtility().isNullValue(Variant(holder)); });
        if (!used) continue;
        r.step([&] {
          holder = CBool(Variant(catalogue().convertProvinceFields(CStr(Variant(holder)))));
        });
        r.step([&] {
          bool useSampleData = false;
          bool isRTF = false;
          bool useContactForMissingCompany = false;
          values[i] =
              catalogue().getMergeDataField(CStr(Variant(holder)), -1, contactID, -1, -1, -1, -1,
                                            -1, useSampleData, isRTF, useContactForMissingCompany);
        });
      }

      const Handle links = r.open(
          "SELECT ContactLinks.ContactIDNum, ContactLinks.CompanyNum, "
          "ContactLinks.DefaultContact FROM ContactLinks WHERE ContactLinks.ContactIDNum = " +
          std::to_string(contactID) + " AND ContactLinks.DefaultContact=True;");
      while (!r.atEnd(links)) {
        int32_t clientID = -1;
        r.step([&] {
          const Variant company = database().getField(links, Variant("CompanyNum"));
          if (!variantUtility().isNullValue(company))
            clientID = getClientDataIDFromCompanyID(CLng(company));
        });
        if (clientID >= 0) {
          const Handle schedule = r.open(
              "SELECT Schedule.ClientNum, Schedule.Custom1, Schedule.Custom2, Schedule.Custom3, "
              "Schedule.Custom4, Schedule.Custom5 FROM Schedule WHERE Schedule.ClientNum = " +
                  std::to_string(clientID) + ";",
              kLockOptimistic);
          while (!r.atEnd(schedule)) {
            for (int i = 1; i <= kCustomFields; ++i) {
              r.step([&] {
                if (!variantUtility().isNullValue(Variant(values[i - 1])))
                  database().setField(schedule, numbered("Custom", i), values[i - 1]);
              });
            }
            if (!r.moveNext(schedule)) break;
          }
          r.close(schedule);
        }
        if (!r.moveNext(links)) break;
      }
      r.close(links);
    }
    r.close(custom);
  }
  // The way out, after an error too: errors are passed over here.
  try {
    fields.reset();
  } catch (...) {
  }
  try {
    setMousePointer(kDefaultPointer);
  } catch (...) {
  }
}

}  // namespace nvwm
