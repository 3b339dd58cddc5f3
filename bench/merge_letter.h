// The benchmark letter: a one-page letter of 30 merge fields (13 simple, 17 complex, with
// date, number and case switches, one field in the header) and CSV data sources for it.
#pragma once

#include <cstdint>
#include <string>

namespace nvwm::bench {

// Writes the letter's main document to path.
void writeMergeLetter(const std::string& path);
// Writes a CSV file of `records` rows for the letter (header row first).
void writeMergeLetterCsv(const std::string& path, int64_t records);

}  // namespace nvwm::bench
