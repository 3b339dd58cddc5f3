// Internal: the data source of a mail merge: a table of named columns and typed rows, read
// from an SQLite file (one table) or a CSV file with a header row.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "runtime/variant.h"

namespace nvwm::docx {

enum class DataSourceKind { kSqlite, kCsv };

class MergeData {
 public:
  // Reads the whole source. path: an SQLite file or a CSV file (told apart by the SQLite
  // header, not by the extension). For SQLite, connection is Word's "TABLE name" (the keyword
  // in any case, the name bare or in `...`, [...] or "..."); a non-empty sqlStatement is run
  // instead; with neither, a file with exactly one table gives that table. For CSV both are
  // ignored. Raises 53 for a missing file, 4198 for a source that can't be read (no such table,
  // no header row, a row longer than the header, text that is not UTF-8), naming the cause.
  static MergeData load(const std::string& path, std::string_view connection = {},
                        std::string_view sqlStatement = {});

  DataSourceKind kind() const { return kind_; }
  const std::string& path() const { return path_; }
  // The table name for SQLite ("" for CSV or a statement).
  const std::string& table() const { return table_; }
  const std::vector<std::string>& columns() const { return columns_; }
  size_t rowCount() const { return rows_.size(); }
  const std::vector<Variant>& row(size_t i) const { return rows_[i]; }
  // The column of a name, compared case-insensitively (Unicode case folding).
  std::optional<size_t> column(std::string_view name) const;

  // A CSV source from its text; path names it in messages. Raises 4198 as load does.
  static MergeData fromCsvText(std::string text, const std::string& path);

  // For tests and benchmarks: a source built in memory.
  MergeData(std::vector<std::string> columns, std::vector<std::vector<Variant>> rows);

 private:
  MergeData() = default;
  void buildIndex();
  static MergeData loadSqlite(const std::string& path, std::string_view connection,
                              std::string_view sqlStatement);
  static MergeData loadCsv(const std::string& path);

  DataSourceKind kind_ = DataSourceKind::kCsv;
  std::string path_;
  std::string table_;
  std::vector<std::string> columns_;
  std::vector<std::vector<Variant>> rows_;
  std::unordered_map<std::string, size_t> index_;
};

// The table name of a connection text "TABLE name"; empty when it isn't one.
std::string tableOfConnection(std::string_view connection);

}  // namespace nvwm::docx
