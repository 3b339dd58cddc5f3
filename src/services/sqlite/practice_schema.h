// Public: the practice database's schema (data/schema.sql, built into the library).
#pragma once

#include <string>
#include <string_view>

namespace nvwm {

// The text of data/schema.sql as it was at build time.
std::string_view practiceSchemaSql();

// Creates a new, empty practice database file with the schema. Raises RuntimeError 58 when
// the file exists and 3001 when SQLite can't create it.
void createPracticeDatabase(const std::string& path);

}  // namespace nvwm
