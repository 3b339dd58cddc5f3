// Public: the connection to the practice database (DatabaseReference) that a host hands the
// library. The library sends Jet SQL texts and reads fields by name; recordsets stay inside the
// service behind handles.
#pragma once

#include <cstdint>
#include <string>

#include "runtime/date.h"
#include "runtime/variant.h"

namespace nvwm {

// A recordset kept inside the service. -1 is none. Handles are never reused while the service
// lives, so a stale handle can't reach another recordset.
using Handle = int32_t;
inline constexpr Handle kNoHandle = -1;

// Cursor and lock types of openRecordset. DO NOT CHANGE THESE VALUES: the library passes them.
inline constexpr int32_t kCursorKeyset = 1;
inline constexpr int32_t kLockReadOnly = 1;
inline constexpr int32_t kLockOptimistic = 3;

// Every operation raises RuntimeError on failure (a bad handle, bad SQL, a write to a read-only
// recordset, an unknown field); the calling routine's handler deals with it. Operations on a
// handle act on that recordset's current row. Not thread-safe.
class DatabaseService {
 public:
  virtual ~DatabaseService() = default;

  // Number of rows; leaves the recordset on its first row.
  virtual int32_t getRecordCount(Handle h) = 0;
  // True when the recordset holds no rows.
  virtual bool isEmptyRecordset(Handle h) = 0;
  // True when the handle stands for an open recordset; False (no error) for any other number.
  virtual bool isRecordsetOpen(Handle h) = 0;
  // True past the last row.
  virtual bool isEOF(Handle h) = 0;
  // True when the practice database is usable. Never raises.
  virtual bool isConnected() = 0;
  // Runs one Jet SQL statement and keeps its rows. cursorType is always 1 (keyset); lockType 1
  // is read-only, 3 writes through to the table. The last three arguments are always passed
  // True, "" and True. The recordset starts on its first row.
  virtual Handle openRecordset(const std::string& sql, int32_t cursorType, int32_t lockType,
                               bool option1 = true, const std::string& option2 = "",
                               bool option3 = true) = 0;
  // Closes and forgets the recordset. A handle that is not open is passed over.
  virtual void closeRecordset(Handle h) = 0;
  // The current row, as a position for setRecordPosition.
  virtual int32_t getRecordPosition(Handle h) = 0;
  // Returns to a row got from getRecordPosition; the result is a status (0 = done).
  virtual int32_t setRecordPosition(Handle h, int32_t position) = 0;
  // True when the recordset has a row; also puts it back on its first row.
  virtual bool hasRecords(Handle h) = 0;
  virtual void moveNext(Handle h) = 0;
  // The column's value in the current row, typed by the column's declared type; Null as Null.
  // The name is matched case-insensitively; an unknown name raises.
  virtual Variant getField(Handle h, const Variant& fieldName) = 0;
  // Stores a value given as text ("True", "11/23/2026", "9:30 am", "2.5") in the current row,
  // converted to the column's one stored form. Raises on a read-only recordset.
  virtual void setField(Handle h, const std::string& fieldName, const std::string& value,
                        const std::string& option1 = "", bool option2 = false) = 0;
  // Opens a new row; its AutoNumber key can be read with getField at once.
  virtual void addNewRecord(Handle h) = 0;
  // Fills a column of the new row.
  virtual void setNewField(Handle h, const std::string& fieldName, const Variant& value) = 0;
  // Writes the new row; it stays the current row.
  virtual void updateRecord(Handle h) = 0;
  // Moves to the first row whose column has the value; True when found (else the position is
  // past the last row).
  virtual bool findRecord(Handle h, const std::string& fieldName, const Variant& value) = 0;
  // A second recordset: the rows of the first that pass an ADO filter text, in the first's
  // order. The first stays open and must be closed by the caller as well.
  virtual Handle filterRecordset(Handle h, const std::string& filter) = 0;
  // The date as the text that goes between # marks in SQL (m/d/yyyy).
  virtual std::string getSQLDateString(const Date& date) = 0;
};

}  // namespace nvwm
