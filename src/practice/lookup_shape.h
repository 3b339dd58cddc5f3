// Internal: the one shape of the practice lookups (modDatabaseFunctions).
//
// A lookup, in this order:
//   1. enters its routine with its log tag, "Tallowbrook.exe-modDatabaseFunctions-<name>";
//   2. starts from its default result;
//   3. asks isConnected: not connected, the default comes back, silently;
//   4. builds its SQL (IDs in plain decimal, ending with ";");
//   5. opens it with cursor type 1, lock type 1 (read-only);
//   6. when the recordset has rows, reads one field of the first row: with the Null test, a
//      Null leaves the default; without it, a Null reaches the conversion and raises 94;
//   7. closes the recordset;
//   8. leaves the routine and returns the result.
// Each statement is a step of the routine (host/routine.h): a failing one goes to the handler.
// When the handler sends the routine to its exit, the recordset stays open (nothing cleans it
// up) and the result is what it was at the moment of the error. When the handler says "go on",
// every statement here is safe to run again.
//
// `lookupFirstRow` is the whole shape; the lookups that do more are written with the steps of
// `LookupRoutine`. Services come from the library-wide references, never from arguments.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "host/database_service.h"
#include "host/routine.h"
#include "host/utilities.h"
#include "runtime/convert.h"
#include "runtime/variant.h"

namespace nvwm::practice {

inline constexpr std::string_view kProgramTag = "Tallowbrook.exe";
inline constexpr std::string_view kDatabaseFunctions = "modDatabaseFunctions";

// The library-wide services. An empty reference raises 91, as a call on Nothing does, and the
// calling routine's handler takes it over.
DatabaseService& database();
VariantUtility& variantUtility();

// Whether a lookup asks isNullValue before converting the field it reads.
enum class NullTest {
  kNotTested,  // a Null reaches the conversion and raises 94 into the error tail
  kTested,     // a Null leaves the default; a non-Null value is fetched again and converted
};

// The conversion of a field into a lookup's result type, as the runtime converts.
template <class T>
T convertField(const Variant& value);
template <>
inline int32_t convertField<int32_t>(const Variant& value) {
  return CLng(value);
}
template <>
inline float convertField<float>(const Variant& value) {
  return CSng(value);
}
template <>
inline bool convertField<bool>(const Variant& value) {
  return CBool(value);
}
template <>
inline std::string convertField<std::string>(const Variant& value) {
  return CStr(value);
}
template <>
inline Date convertField<Date>(const Variant& value) {
  return CDate(value);
}

// The steps of a lookup, each run as one statement of its routine. Lives on the stack of one
// call; not thread-safe.
class LookupRoutine {
 public:
  // Enters "Tallowbrook.exe-<module>-<routineName>".
  explicit LookupRoutine(std::string_view routineName)
      : LookupRoutine(kDatabaseFunctions, routineName) {}
  LookupRoutine(std::string_view module, std::string_view routineName);
  // A routine whose handler does more first (sets a result, resets the mouse pointer): extra
  // runs before the error service is told, as Routine's own extra steps.
  LookupRoutine(std::string_view module, std::string_view routineName,
                Routine::ExtraHandlerSteps extra);
  LookupRoutine(const LookupRoutine&) = delete;
  LookupRoutine& operator=(const LookupRoutine&) = delete;

  // One statement of the routine's own (see Routine::step).
  template <class Step>
  bool step(Step&& body) {
    return routine_.step(std::forward<Step>(body));
  }
  bool running() const { return routine_.running(); }
  // The handler asks errorsAreSuppressed first and leaves without reporting when it says True
  // (the error tail of the address routines).
  void askSuppressionFirst() { routine_.askSuppressionFirst(); }

  // isConnected. False also when the test itself failed or the routine has left its body.
  bool connected();
  // openRecordset(sql, 1, lockType, True, "", True). kNoHandle when the open failed.
  Handle open(const std::string& sql, int32_t lockType = kLockReadOnly);
  // hasRecords. False when it failed.
  bool hasRows(Handle h);
  // isEOF. True when it failed, so that a walk ends.
  bool atEnd(Handle h);
  // moveNext. False when it failed, so that a walk ends.
  bool moveNext(Handle h);
  void close(Handle h);

  // Reads `field` of the current row into result with the given Null test; result is left as
  // it was on a Null (tested) or on any error.
  template <class T>
  void readField(Handle h, std::string_view field, NullTest test, T& result) {
    step([&] {
      const Variant name{field};
      if (test == NullTest::kTested && variantUtility().isNullValue(database().getField(h, name)))
        return;
      result = convertField<T>(database().getField(h, name));
    });
  }

  // Steps 5 to 7: opens sql, runs read(handle) on its first row when it has one, closes it.
  // Returns whether it had rows.
  template <class Read>
  bool withFirstRow(const std::string& sql, Read&& read, int32_t lockType = kLockReadOnly) {
    const Handle h = open(sql, lockType);
    const bool rows = hasRows(h);
    if (rows) std::forward<Read>(read)(h);
    close(h);
    return rows;
  }

 private:
  Routine routine_;
};

// What a lookup of the common shape reads.
struct FieldLookup {
  std::string_view routine;  // the routine's name, the last piece of its log tag
  std::string_view field;
  NullTest nullTest = NullTest::kNotTested;
  // Only the firm look-up goes ahead without asking isConnected, and opens with lock type 3.
  bool asksConnection = true;
  int32_t lockType = kLockReadOnly;
};

// The whole shape: the default, the connection test, the SQL from buildSql() (called only when
// connected), the field of the first row, the close. buildSql may itself be a routine.
// `refused` (a Null or negative ID, for the lookups that test it) gives the default with no
// query once the connection is known.
template <class T, class BuildSql>
T lookupFirstRow(const FieldLookup& lookup, T defaultValue, BuildSql&& buildSql,
                 bool refused = false) {
  LookupRoutine r(lookup.routine);
  T result = std::move(defaultValue);
  if (lookup.asksConnection && !r.connected()) return result;
  if (refused) return result;
  std::string sql;
  if (!r.step([&] { sql = std::forward<BuildSql>(buildSql)(); })) return result;
  r.withFirstRow(
      sql, [&](Handle h) { r.readField(h, lookup.field, lookup.nullTest, result); },
      lookup.lockType);
  return result;
}

// One ID lookup as a row of data: "<sqlPrefix><id>;", one field, its Null test, its default.
template <class Default>
struct IdLookupRow {
  std::string_view routine;
  std::string_view sqlPrefix;
  std::string_view field;
  NullTest nullTest;
  Default noRow;  // the result without a row, without a connection, and on a Null when tested
  // A negative ID gives the default with no query.
  bool refusesNegativeID = false;
};

template <class T, class Default>
T lookupByID(const IdLookupRow<Default>& row, int32_t id) {
  return lookupFirstRow<T>(
      {row.routine, row.field, row.nullTest}, T(row.noRow),
      [&] { return std::string(row.sqlPrefix) + std::to_string(id) + ";"; },
      row.refusesNegativeID && id < 0);
}

}  // namespace nvwm::practice
