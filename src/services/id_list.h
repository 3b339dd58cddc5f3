// Public: the ID list the library creates wherever it needs a list (host/utilities.h IDList).
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "host/utilities.h"

namespace nvwm {

// An ordered table of rows: a 32-bit key and up to 24 variant columns numbered from 1, with a
// current row.
//
// The rules where a list meets repeated keys and repeated builds:
//
// - initialize() starts a new build and keeps every row already there, in order. A catalogue
//   built twice on one object therefore holds the rows of both builds: the client rows of a
//   first build survive a second build that adds only the firm rows. initialize() leaves no
//   current row.
// - Keys need not be unique. A key names the row added last under it: after a rebuild that
//   counts its keys from 1 again, moveToKey(k) reaches the new table's row k, so a list entry
//   that kept an old key (its ItemData) points at a row of the new table. moveToKey is an index
//   look-up, not a scan.
// - findRow looks at the rows in order of adding and takes the first match, whatever its key,
//   and makes that row current. A caller that reads columns after findRow reads the row found,
//   even where a later row shares its key. Text is compared without regard to case (Unicode
//   simple case folding); numbers are compared as numbers, and a number matches a text that
//   reads as that number ("12" finds 12); two texts are always compared as texts ("012" is not
//   "12"); dates match dates; True is -1 and False 0; Empty matches Empty and "". Null, Missing
//   and objects match nothing. Each searched column gets an index built once, so a repeated
//   findRow costs one folding of the value and a hash look-up.
// - addRow appends and leaves the current row where it was. A column left out is Missing.
// - The current row is either a row or none ("at end"): a new list, moveNext past the last row,
//   moveFirst on an empty list and initialize() all leave none.
//
// A list that was never initialized works as an initialized empty one. Errors: a column outside
// 1..24 raises 9, more than 24 columns in addRow raises 9, reading with no current row raises 91,
// a copyList destination that is not an IndexedIDList raises 13. Not thread-safe.
class IndexedIDList : public IDList {
 public:
  int32_t getRowCount() override;
  bool moveToKey(int32_t key) override;
  int32_t findRow(int16_t column, const Variant& value) override;
  void addRow(int32_t key, const Row& columns) override;
  void initialize() override;
  Variant getColumn(int16_t column) override;
  Row getRowValues() override;
  void moveFirst() override;
  void moveNext() override;
  bool isAtEnd() override;
  bool isEmpty() override;
  int32_t currentKey() override;
  // The destination must be an IndexedIDList; the source may be any IDList (a foreign source is
  // walked from its first row, which moves its current row). The destination gets the source's
  // rows, keys and order, and its first row as current row. Copying a list onto itself changes
  // nothing.
  void copyList(IDList& source, IDList& destination, bool copyAll = true) override;

 private:
  struct StoredRow {
    int32_t key;
    std::vector<Variant> columns;  // trailing missing columns are not stored
  };
  // First row (in order of adding) for each form a value can match in one column.
  struct ColumnIndex {
    std::unordered_map<std::string, size_t> text;     // folded text cells; Empty as ""
    std::unordered_map<double, size_t> textAsNumber;  // text cells that read as a number
    std::unordered_map<double, size_t> number;        // number and boolean cells
    std::unordered_map<double, size_t> date;          // date cells, by serial
  };
  static constexpr size_t kNone = static_cast<size_t>(-1);

  const StoredRow& current() const;
  void addToIndex(ColumnIndex& index, const Variant& cell, size_t row) const;
  ColumnIndex& indexOf(int column);

  std::vector<StoredRow> rows_;
  std::unordered_map<int32_t, size_t> rowOfKey_;  // key -> row added last under it
  std::vector<std::unique_ptr<ColumnIndex>> columnIndexes_ =
      std::vector<std::unique_ptr<ColumnIndex>>(kColumns);  // built on first findRow
  std::optional<size_t> current_;
};

}  // namespace nvwm
