// Rows are kept in order of adding; two indexes sit beside them. rowOfKey_ maps a key to the
// last row added under it and is kept up to date by addRow. The column indexes map each form a
// cell can match (folded text, number, date) to the first row holding it; a column's index is
// built on its first findRow and then extended by addRow, so findRow never scans.
#include "services/id_list.h"

#include <algorithm>
#include <cmath>

#include "runtime/convert.h"
#include "runtime/error.h"
#include "services/text_fold.h"

namespace nvwm {
namespace {

void checkColumn(int column) {
  if (column < 1 || column > IDList::kColumns) {
    raise(ErrorNumber::kSubscriptOutOfRange, "column " + std::to_string(column));
  }
}

// +0.0 for -0.0, so that both hash alike; nullopt for NaN, which equals nothing.
std::optional<double> numberKey(double x) {
  if (std::isnan(x)) return std::nullopt;
  return x + 0.0;
}

std::optional<double> asNumber(const Variant& v) {
  switch (v.type()) {
    case VarType::kInteger:
    case VarType::kLong:
    case VarType::kSingle:
    case VarType::kDouble:
    case VarType::kCurrency:
      return numberKey(CDbl(v));
    case VarType::kBoolean:
      return v.boolValue() ? -1.0 : 0.0;
    default:
      return std::nullopt;
  }
}

template <class Map, class Key>
void keepFirst(Map& map, const Key& key, size_t row) {
  map.emplace(key, row);  // an existing entry is an earlier row and stays
}

template <class Map, class Key>
size_t lookup(const Map& map, const Key& key) {
  auto it = map.find(key);
  return it == map.end() ? static_cast<size_t>(-1) : it->second;
}

}  // namespace

int32_t IndexedIDList::getRowCount() { return static_cast<int32_t>(rows_.size()); }

bool IndexedIDList::moveToKey(int32_t key) {
  auto it = rowOfKey_.find(key);
  if (it == rowOfKey_.end()) return false;
  current_ = it->second;
  return true;
}

void IndexedIDList::addToIndex(ColumnIndex& index, const Variant& cell, size_t row) const {
  if (cell.isString()) {
    keepFirst(index.text, services::foldCase(cell.stringValue()), row);
    if (auto n = TryParseNumber(cell.stringValue())) {
      if (auto k = numberKey(*n)) keepFirst(index.textAsNumber, *k, row);
    }
  } else if (auto n = asNumber(cell)) {
    keepFirst(index.number, *n, row);
  } else if (cell.isDate()) {
    keepFirst(index.date, cell.dateValue().serial(), row);
  } else if (cell.isEmpty()) {
    keepFirst(index.text, std::string(), row);
  }
  // Null, Missing and objects are not indexed: they match nothing.
}

IndexedIDList::ColumnIndex& IndexedIDList::indexOf(int column) {
  auto& slot = columnIndexes_[static_cast<size_t>(column - 1)];
  if (!slot) {
    slot = std::make_unique<ColumnIndex>();
    const size_t c = static_cast<size_t>(column - 1);
    for (size_t r = 0; r < rows_.size(); ++r) {
      if (c < rows_[r].columns.size()) addToIndex(*slot, rows_[r].columns[c], r);
    }
  }
  return *slot;
}

int32_t IndexedIDList::findRow(int16_t column, const Variant& value) {
  checkColumn(column);
  const ColumnIndex& index = indexOf(column);
  size_t found = kNone;
  if (value.isString()) {
    // An Empty cell is indexed under "" too, so "" finds it through the text map.
    found = lookup(index.text, services::foldCase(value.stringValue()));
    if (auto n = TryParseNumber(value.stringValue())) {
      if (auto k = numberKey(*n)) found = std::min(found, lookup(index.number, *k));
    }
  } else if (auto n = asNumber(value)) {
    found = std::min(lookup(index.number, *n), lookup(index.textAsNumber, *n));
  } else if (value.isDate()) {
    found = lookup(index.date, value.dateValue().serial());
  } else if (value.isEmpty()) {
    found = lookup(index.text, std::string());
  }
  if (found == kNone) return -1;
  current_ = found;
  return rows_[found].key;
}

void IndexedIDList::addRow(int32_t key, const Row& columns) {
  if (columns.size() > static_cast<size_t>(kColumns)) {
    raise(ErrorNumber::kSubscriptOutOfRange, "more than 24 columns");
  }
  StoredRow row{key, columns};
  while (!row.columns.empty() && row.columns.back().isMissing()) row.columns.pop_back();
  const size_t at = rows_.size();
  rows_.push_back(std::move(row));
  rowOfKey_[key] = at;  // the newest row takes the key over
  for (size_t c = 0; c < columnIndexes_.size(); ++c) {
    if (columnIndexes_[c] && c < rows_[at].columns.size()) {
      addToIndex(*columnIndexes_[c], rows_[at].columns[c], at);
    }
  }
}

void IndexedIDList::initialize() {
  // Rows stay on purpose: see the class comment.
  current_.reset();
}

const IndexedIDList::StoredRow& IndexedIDList::current() const {
  if (!current_ || *current_ >= rows_.size()) {
    raise(ErrorNumber::kObjectVariableNotSet, "the list has no current row");
  }
  return rows_[*current_];
}

Variant IndexedIDList::getColumn(int16_t column) {
  checkColumn(column);
  const StoredRow& row = current();
  const size_t c = static_cast<size_t>(column - 1);
  return c < row.columns.size() ? row.columns[c] : Variant::missing();
}

IDList::Row IndexedIDList::getRowValues() {
  Row values = current().columns;
  values.resize(kColumns, Variant::missing());
  return values;
}

void IndexedIDList::moveFirst() {
  if (rows_.empty()) {
    current_.reset();
  } else {
    current_ = 0;
  }
}

void IndexedIDList::moveNext() {
  if (!current_) return;
  if (*current_ + 1 < rows_.size()) {
    ++*current_;
  } else {
    current_.reset();
  }
}

bool IndexedIDList::isAtEnd() { return !current_; }

bool IndexedIDList::isEmpty() { return rows_.empty(); }

int32_t IndexedIDList::currentKey() { return current().key; }

void IndexedIDList::copyList(IDList& source, IDList& destination, bool /*copyAll*/) {
  auto* target = dynamic_cast<IndexedIDList*>(&destination);
  if (target == nullptr) {
    raise(ErrorNumber::kTypeMismatch, "copyList needs a destination list of this library");
  }
  if (&source == &destination) return;

  IndexedIDList copy;
  if (auto* same = dynamic_cast<IndexedIDList*>(&source)) {
    copy.rows_ = same->rows_;
    copy.rowOfKey_ = same->rowOfKey_;
  } else {
    for (source.moveFirst(); !source.isAtEnd(); source.moveNext()) {
      copy.addRow(source.currentKey(), source.getRowValues());
    }
  }
  copy.moveFirst();
  *target = std::move(copy);
}

}  // namespace nvwm
