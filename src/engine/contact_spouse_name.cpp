// getContactAndSpouseName: the salutation name of a couple from one Contacts row.
//
// Which name parts are present picks one cell of a truth table; each cell was decided on its
// own by the product, so the tables below are data, not a formula. Two cells look like slips
// and are kept: first-name-first with a spouse of the same surname and no first name prints
// only the spouse and the surname, and with a different surname and neither name it drops the
// spouse (the last-name-first table keeps it there).
#include <array>
#include <string>

#include "catalogue/cls_insert_fields_in_rtb.h"
#include "engine/data_sets.h"
#include "runtime/convert.h"
#include "runtime/text.h"

namespace nvwm {
namespace {

// The five name parts of a Contacts row. A Null column is "".
struct NameParts {
  std::string first, last, display, spouseFirst, spouseLast;
};

// Cells: "F" first, "L" last, "D" display, "S" spouse first, "T" spouse last; every other
// character is printed as it stands.
// Rows: no spouse, spouse with the same surname, spouse with another surname.
// Columns: first and last name, last name only, first name only, neither.
using NameTable = std::array<std::array<const char*, 4>, 3>;

constexpr NameTable kFirstNameFirst = {{
    {"F L", "L", "F", "D"},
    {"F & S L", "S L", "F & S T", "D & S T"},
    {"F L & S T", "L & S T", "F & S T", "D"},
}};
constexpr NameTable kLastNameFirst = {{
    {"L, F", "L", "F", "D"},
    {"L, F & S", "L, S", "T, F & S", "D & T, S"},
    {"L, F & T, S", "L & T, S", "F & T, S", "D & T, S"},
}};

std::string compose(const char* cell, const NameParts& n) {
  std::string out;
  for (const char* c = cell; *c != '\0'; ++c) {
    switch (*c) {
      case 'F':
        out += n.first;
        break;
      case 'L':
        out += n.last;
        break;
      case 'D':
        out += n.display;
        break;
      case 'S':
        out += n.spouseFirst;
        break;
      case 'T':
        out += n.spouseLast;
        break;
      default:
        out += *c;
    }
  }
  return out;
}

}  // namespace

std::string clsInsertFieldsInRTB::getContactAndSpouseName(int32_t& contactID, bool& lastNameFirst) {
  Routine r(engine::routineTag("getContactAndSpouseName"), errorService());
  std::string result;
  bool connected = false;
  r.step([&] { connected = engine::databaseConnected(); });
  if (!connected || !r.running()) return result;

  engine::DataSets sets = dataSets();
  if (!engine::positionOnContact(r, sets, contactID, false)) return result;

  NameParts n;
  bool hasFirst = false, hasLast = false, hasSpouse = false, hasSpouseLast = false;
  auto read = [&](const char* column, std::string& text, bool& present) {
    r.step([&] {
      Variant value = engine::database().getField(ContactsRST_, Variant(column));
      present = !engine::isNullValue(value);
      text = value.isNull() || value.isMissing() ? "" : CStr(value);
    });
  };
  bool hasDisplay = false;
  read("FirstName", n.first, hasFirst);
  read("LastName", n.last, hasLast);
  read("DisplayName", n.display, hasDisplay);
  read("SpouseFirstName", n.spouseFirst, hasSpouse);
  read("SpouseLastName", n.spouseLast, hasSpouseLast);

  r.step([&] {
    const bool sameSurname = hasSpouseLast && UCase(n.spouseLast) == UCase(n.last);
    const size_t row = !hasSpouse ? 0 : sameSurname ? 1 : 2;
    const size_t column = hasFirst && hasLast ? 0 : hasLast ? 1 : hasFirst ? 2 : 3;
    const NameTable& table = lastNameFirst ? kLastNameFirst : kFirstNameFirst;
    result = compose(table[row][column], n);
  });
  return result;
}

}  // namespace nvwm
