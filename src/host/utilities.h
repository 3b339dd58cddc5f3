// Public: the file, value and date helpers the library creates for itself, and the ID list.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "host/error_service.h"
#include "runtime/date.h"
#include "runtime/variant.h"

namespace nvwm {

// File and path helpers. Paths are POSIX; withTrailingSeparator ends a folder in one '/'.
// May raise RuntimeError (ensureFolderExists when the folder can't be made).
class FileUtility {
 public:
  virtual ~FileUtility() = default;
  virtual bool folderExists(const std::string& folder) = 0;
  // Also True for a folder path.
  virtual bool fileExists(const std::string& path) = 0;
  // The file name without its extension.
  virtual std::string getFileTitle(const std::string& fileName) = 0;
  virtual std::string getFileNameOfPath(const std::string& path) = 0;
  virtual std::string getFolderOfPath(const std::string& path) = 0;
  // A path in the same folder whose name starts as the given name does and is not in use.
  virtual std::string makeUniqueFilePath(const std::string& path) = 0;
  // Creates the folder with its parents if needed.
  virtual void ensureFolderExists(const std::string& folder) = 0;
  virtual std::string withTrailingSeparator(const std::string& folder) = 0;
};

// Value tests and text helpers.
class VariantUtility {
 public:
  virtual ~VariantUtility() = default;
  virtual void setErrorClass(std::shared_ptr<ErrorService> errorClass) = 0;
  // True for Null, Empty, Missing, "" and an empty object: the one test of every value read
  // from the database and every text field of an address.
  virtual bool isNullValue(const Variant& value) = 0;
  // A field title made fit to be a column name of the merge table and a merge field name.
  virtual std::string cleanFieldName(const std::string& title) = 0;
};

// Date helpers.
class DateUtility {
 public:
  virtual ~DateUtility() = default;
  virtual void setErrorClass(std::shared_ptr<ErrorService> errorClass) = 0;
  // The date stored as a reminder's date.
  virtual Date getDateOnly(const Date& date) = 0;
  virtual bool isWeekend(const Date& date) = 0;
  // Called when a lead time has moved a reminder to an earlier day.
  virtual Date adjustReminderDate(const Date& date) = 0;
  virtual Date addHoursToTime(const Date& time, double hours) = 0;
  // The size of the difference in hours; never negative.
  virtual double getHoursBetween(const Date& first, const Date& second) = 0;
  // "0 min", "31 min", "1 hr 30 min"...
  virtual std::string minutesToDurationText(int32_t minutes) = 0;
};

// An ordered table of rows: a 32-bit key and up to 24 variant columns numbered from 1, with a
// current row. Not thread-safe.
class IDList : public Object {
 public:
  static constexpr int kColumns = 24;
  using Row = std::vector<Variant>;  // up to kColumns values; a Missing value is a missing column

  virtual int32_t getRowCount() = 0;
  // Makes the row with the key current; False (current row unchanged) when there is none.
  // Where rows share a key, the row added last under it is the one reached.
  virtual bool moveToKey(int32_t key) = 0;
  // The key of the first row whose column equals the value (text compared without regard to
  // case); below 0 when there is none. A row found becomes the current row, so the columns
  // read next are that row's even where a later row shares its key.
  virtual int32_t findRow(int16_t column, const Variant& value) = 0;
  // Appends a row. Columns beyond those given are missing.
  virtual void addRow(int32_t key, const Row& columns) = 0;
  // Must be called once on a new list before anything else; called again on a filled list by
  // each catalogue build, and then keeps the rows already there (a second build adds to them).
  virtual void initialize() = 0;
  // That column of the current row; Missing for a missing column. Raises 9 outside 1..24, 91
  // with no current row.
  virtual Variant getColumn(int16_t column) = 0;
  // All 24 columns of the current row; element 0 is column 1.
  virtual Row getRowValues() = 0;
  virtual void moveFirst() = 0;
  virtual void moveNext() = 0;
  virtual bool isAtEnd() = 0;
  virtual bool isEmpty() = 0;
  // The key of the current row. Raises 91 with no current row.
  virtual int32_t currentKey() = 0;
  // Replaces destination by a copy of source (keys, columns and order). The last argument is
  // always True.
  virtual void copyList(IDList& source, IDList& destination, bool copyAll = true) = 0;
};

}  // namespace nvwm
