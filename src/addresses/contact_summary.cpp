// saveContactBusinessRTF: the summary of one contact or firm employee as an RTF document.
//
// The summary is a run of sections. Whatever a section adds marks it; at the section's end a
// marked section gets a blank line and the mark is cleared. The labels' indents and the blanks
// behind them differ from line to line: they are the stored documents' own and stay as they are.
#include "addresses/contact_summary.h"

#include <array>
#include <string>
#include <string_view>

#include "addresses/address_blocks.h"
#include "addresses/format_addresses_internal.h"
#include "host/references.h"
#include "practice/lookups.h"
#include "runtime/convert.h"

namespace nvwm {

using addresses::AddressRoutine;
using addresses::isEmptyText;
using addresses::isEmptyValue;
using addresses::kSummaryEnd;
using addresses::kSummaryHeader;
using addresses::kSummaryLineEnd;
using addresses::kSummaryViewKind;
using addresses::textOf;

namespace {

struct ColumnLine {
  std::string_view column;
  std::string_view piece;
};

// clang-format off
constexpr std::array<ColumnLine, 6> kNameLines{{
    {"DisplayName",        R"(\b\pard\fi-1450\li1450\ri0 Name:\b0  )"},
    {"ClientID",           R"(\b\pard\fi-1450\li1450\ri0 Client ID:\b0  )"},
    {"BusinessName",       R"(\b\pard\fi-1425\li1425\ri0 Company Name:\b0   )"},
    {"BusinessJobTitle",   R"(\b\pard\fi-800\li800\ri0 Job Title:\b0   )"},
    {"BusinessDepartment", R"(\b\pard\fi-1050\li1050\ri0 Department:\b0   )"},
    {"BusinessOffice",     R"(\b\pard\fi-600\li600\ri0 Office:\b0   )"},
}};
constexpr std::array<ColumnLine, 9> kPhoneLines{{
    {"BusinessPhone_Main",     R"(\b\pard\fi-1100\li1100\ri0 Main Phone:\b0   )"},
    {"BusinessAltPhoneNumber", R"(\b\pard\fi-1100\li1100\ri0 Alternate Phone:\b0   )"},
    {"BusinessPhone_Cell",     R"(\b\pard\fi-1100\li1100\ri0 Cell Phone:\b0     )"},
    {"BusinessPhone_Fax",      R"(\b\pard\fi-1100\li1100\ri0 Fax:\b0  \tab         )"},
    {"BusinessPhone_Pager",    R"(\b\pard\fi-1100\li1100\ri0 Pager:\b0  \tab         )"},
    {"BusinessEmail",          R"(\b\pard\fi0\li0\ri0 Email:\b0  \tab         )"},
    {"BusinessWebSite",        R"(\b Web Site:\b0        )"},
    {"BusinessFaceBookURL",    R"(\b FaceBook:\b0        )"},
    {"BusinessTwitterAccount", R"(\b Twitter:\b0        )"},
}};
// clang-format on

constexpr std::string_view kDefaultYes = R"(\b Default Contact:\b0  Yes)";
constexpr std::string_view kDefaultNo = R"(\b Default Contact:\b0  No)";
constexpr std::string_view kAddressHeading = R"(\b\pard\fi0\li0\ri0 Address:\b0\par)";
constexpr std::string_view kNamedAddressHeading = R"(\b\pard\fi0\li0\ri0 Address ()";
constexpr std::string_view kNamedAddressHeadingEnd = R"():\b0\par)";
constexpr std::string_view kSin = R"(\b SIN:\b0  \tab\tab    )";
constexpr std::string_view kSsn = R"(\b SSN:\b0  \tab\tab    )";
constexpr std::string_view kEmployeeType = R"(\b Employee Type:\b0  )";
constexpr std::string_view kNotesHeading = R"(\b Notes:\b0\par)";
constexpr std::string_view kLineEnd = "\r\n";

// A list of names linked to the person (companies, categories) with its two headings.
struct LinkedNames {
  std::string_view nameColumn;
  std::string_view singleHeading;  // the name follows on the same line
  std::string_view pluralHeading;  // a line of its own
};
constexpr LinkedNames kCompanies{"CompanyName", R"(\b\pard\fi0\li0\ri0 Associated Company: \b0 )",
                                 R"(\b\pard\fi0\li0\ri0 Other Associated Companies: \b0\par)"};
constexpr LinkedNames kCategories{"CategoryName",
                                  R"(\b\pard\fi0\li0\ri0 Associated Category: \b0 )",
                                  R"(\b\pard\fi0\li0\ri0 Other Associated Categories: \b0\par)"};

DatabaseService& db() { return practice::database(); }

LocaleService& locale() {
  LocaleService* service = references().LocaleReference.get();
  if (service == nullptr) raise(ErrorNumber::kObjectVariableNotSet, "LocaleReference");
  return *service;
}

// The text being built, with the mark of the current section.
class SummaryText {
 public:
  void append(std::string_view piece) { text_.append(piece); }
  // A piece, a value and the line end; marks the section.
  void line(std::string_view piece, std::string_view value = {}) {
    text_.append(piece).append(value).append(kSummaryLineEnd);
    marked_ = true;
  }
  void mark() { marked_ = true; }
  bool marked() const { return marked_; }
  // A blank line when the section holds something; the mark is cleared.
  void endSection() {
    if (!marked_) return;
    text_.append(kSummaryLineEnd);
    marked_ = false;
  }
  const std::string& text() const { return text_; }

 private:
  std::string text_;
  bool marked_ = false;
};

// One line per column that isn't empty, each a statement of the routine.
template <size_t N>
void addColumnLines(AddressRoutine& r, Handle main, const std::array<ColumnLine, N>& lines,
                    SummaryText& summary) {
  for (const ColumnLine& l : lines) {
    r.step([&] {
      const Variant value = practice::database().getField(main, Variant(l.column));
      if (!isEmptyValue(value)) summary.line(l.piece, CStr(value));
    });
  }
}

// The names of the rows of `sql` under their heading. The heading is chosen by the number of
// all rows, named or not; only the named ones are listed, and only when there is one at all.
void addLinkedNames(AddressRoutine& r, const std::string& sql, const LinkedNames& names,
                    SummaryText& summary) {
  const Handle h = r.open(sql, kLockOptimistic);
  if (r.hasRows(h)) {
    int32_t named = 0;
    while (!r.atEnd(h)) {
      r.step([&] {
        if (!isEmptyValue(db().getField(h, Variant(names.nameColumn)))) ++named;
      });
      if (!r.moveNext(h)) break;
    }
    if (named > 0) {
      summary.endSection();
      int32_t rows = 0;
      r.step([&] { rows = db().getRecordCount(h); });  // back on the first row
      if (rows < 2) {
        summary.append(names.singleHeading);
      } else {
        summary.append(names.pluralHeading);
        summary.append(kLineEnd);
      }
      while (!r.atEnd(h)) {
        r.step([&] {
          const Variant name = db().getField(h, Variant(names.nameColumn));
          if (!isEmptyValue(name)) summary.line("", CStr(name));
        });
        if (!r.moveNext(h)) break;
      }
      summary.mark();
    }
  }
  r.close(h);
  summary.endSection();
}

}  // namespace

std::string saveContactBusinessRTF(int32_t contactID, int32_t employeeID, int32_t companyID,
                                   bool skipOtherCompanies) {
  AddressRoutine r("saveContactBusinessRTF");
  std::string result;
  if (!r.connected()) return result;

  const addresses::Person person = addresses::choosePerson(r, contactID, employeeID);
  if (!person.found) return result;
  const bool isEmployee = person.isEmployee;
  const int32_t personID = person.id;
  const Handle main = r.open(person.sql, kLockOptimistic);
  const Handle labels =
      r.open("SELECT CustomAddressFields.* FROM CustomAddressFields;", kLockOptimistic);
  const Handle notes = r.open("SELECT ContactsNotes.* FROM ContactsNotes WHERE ContactNum=" +
                                  std::to_string(personID) + ";",
                              kLockOptimistic);

  SummaryText summary;
  if (r.hasRows(main)) {
    summary.append(kSummaryHeader);
    summary.append(kSummaryViewKind);

    addColumnLines(r, main, kNameLines, summary);
    summary.endSection();

    if (!isEmployee) {
      bool isDefault = false;
      r.step([&] {
        isDefault = validCompanyID(std::to_string(companyID)) &&
                    isContactDefaultContact(companyID, contactID);
      });
      summary.line(isDefault ? kDefaultYes : kDefaultNo);
      summary.endSection();
    }

    addColumnLines(r, main, kPhoneLines, summary);
    summary.endSection();

    // companyID may come back as -1, or as the firm's ID for an employee, and is used so below.
    std::string block;
    r.step([&] {
      block = createBusinessContactAddress(contactID, true, employeeID, companyID, true, false,
                                           false, true);
    });
    r.step([&] {
      if (isEmptyText(block)) return;
      summary.append(kAddressHeading);
      summary.append(kLineEnd);
      summary.line(block);
    });
    summary.endSection();

    r.step([&] {
      const Variant sin = db().getField(main, Variant("SocialInsuranceNumber"));
      if (!isEmptyValue(sin)) summary.line(locale().getCountryCode() == 1 ? kSin : kSsn, CStr(sin));
    });
    r.step([&] {
      const Variant type = db().getField(main, Variant("EmployeeType"));
      if (!isEmptyValue(type)) summary.line(kEmployeeType, CStr(type));
    });

    if (!isEmployee) {
      addLinkedNames(r,
                     std::string("SELECT ContactLinks.ContactIDNum, ContactLinks.CompanyNum, "
                                 "Companies.CompanyName ") +
                         "FROM ContactLinks INNER JOIN Companies ON ContactLinks.CompanyNum = "
                         "Companies.CompanyID " +
                         "WHERE ContactLinks.ContactIDNum=" + std::to_string(personID) +
                         " AND Not ContactLinks.CompanyNum Is Null;",
                     kCompanies, summary);
    }

    // The second address.
    AddressRecord alt;
    r.readText(main, "AltAddress", alt.address);
    r.readText(main, "AltCity", alt.city);
    r.readText(main, "AltProvince", alt.province);
    r.readText(main, "AltPostalCode", alt.postalCode);
    r.readText(main, "AltCountry", alt.country);
    std::string altBlock;
    r.step([&] {
      if (isEmptyText(alt.address) && isEmptyText(alt.city) && isEmptyText(alt.province) &&
          isEmptyText(alt.postalCode) && isEmptyText(alt.country))
        return;
      altBlock = createAddress(alt, false, true);
    });
    r.step([&] {
      if (isEmptyText(altBlock)) return;
      const std::string name = textOf(db().getField(main, Variant("AltAddressName")));
      if (isEmptyText(name)) {
        summary.append(kAddressHeading);
      } else {
        summary.append(kNamedAddressHeading);
        summary.append(name);
        summary.append(kNamedAddressHeadingEnd);
      }
      summary.append(kLineEnd);
      summary.line(altBlock);
    });
    summary.endSection();

    // Categories go by contactID, for an employee too.
    addLinkedNames(r,
                   std::string("SELECT Categories.CategoryName, ContactLinks.ContactIDNum ") +
                       "FROM Categories INNER JOIN ContactLinks ON Categories.CategoryID = "
                       "ContactLinks.CategoryNum " +
                       "WHERE ContactLinks.ContactIDNum=" + std::to_string(contactID) + ";",
                   kCategories, summary);

    // Custom fields, labelled from the one row of CustomAddressFields, made here if missing.
    bool noLabels = false;
    r.step([&] { noLabels = db().isEmptyRecordset(labels); });
    if (noLabels) {
      r.step([&] { db().addNewRecord(labels); });
      r.step([&] { db().updateRecord(labels); });
    }
    r.hasRows(labels);
    for (int i = 1; i <= 5; ++i) {
      r.step([&] {
        const Variant value = db().getField(main, Variant("Custom" + std::to_string(i)));
        if (isEmptyValue(value)) return;
        summary.append("\\b ");
        summary.append(textOf(db().getField(labels, Variant("ContactLabel" + std::to_string(i)))));
        summary.line("\\b0  ", CStr(value));
      });
    }
    summary.endSection();

    std::string notesText;
    if (isEmployee) {
      r.readText(main, "Notes", notesText);
    } else if (r.hasRows(notes)) {
      r.readText(notes, "Notes", notesText);
    }
    r.step([&] {
      if (isEmptyText(notesText)) return;
      summary.append(kNotesHeading);
      summary.append(kLineEnd);
      summary.line(convertToRTF(notesText));
    });
    summary.endSection();
    summary.append(kSummaryEnd);

    // Stored. A contact without a notes row gets a new row holding only the summary: it has no
    // ContactNum, so it is found by nobody, and the next save adds another.
    const std::string& text = summary.text();
    if (isEmployee) {
      r.step([&] { db().setField(main, "BusinessNotes", text); });
    } else if (r.hasRows(notes)) {
      r.step([&] { db().setField(notes, "BusinessNotes", text); });
    } else {
      r.step([&] { db().addNewRecord(notes); });
      r.step([&] { db().setNewField(notes, "BusinessNotes", Variant(text)); });
      r.step([&] { db().updateRecord(notes); });
    }
    if (!isEmployee && !skipOtherCompanies) {
      r.step([&] { saveContactBusinessRTFForAllCompanies(contactID, companyID, text); });
    }
  }
  r.close(labels);
  r.close(notes);
  r.close(main);
  if (r.running()) result = summary.text();
  return result;
}

}  // namespace nvwm
