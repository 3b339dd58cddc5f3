// Synthetic practice databases of any size, for benchmarks.
//
//   PracticeSize size;
//   size.companies = 100000;
//   generatePractice(path, size);
//
// Company n (from 1) has ClientData n with every satellite row (both countries' joins find
// it), `contactsPerCompany` contacts (the first the default) linked to it, and per client
// `scheduleItemsPerClient` schedule items, the first `tasksPerClient` of them carried out by
// a task. Four employees (IDs 901-904) own the tasks. Names and numbers are deterministic, so
// two runs give the same file.
#pragma once

#include <string>

namespace nvwm::bench {

struct PracticeSize {
  int companies = 1000;
  int contactsPerCompany = 1;
  int scheduleItemsPerClient = 0;
  int tasksPerClient = 0;
};

// Writes a new practice database file (the schema, then the rows, in one transaction).
// Raises RuntimeError 58 when the file exists and 3001 on an SQLite error.
void generatePractice(const std::string& path, const PracticeSize& size);

// The path of a practice of that size under the temporary folder's "nvwm-bench", written anew
// the first time a program asks for that name and company count, and reused after.
const std::string& cachedPractice(const std::string& name, const PracticeSize& size);

}  // namespace nvwm::bench
