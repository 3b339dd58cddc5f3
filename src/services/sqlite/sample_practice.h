// Public: the sample practice database, a made-up Ontario accounting firm and its clients.
#pragma once

#include <string>

namespace nvwm {

// Writes a new practice database file with the schema and the sample practice: the firm and
// its employees, 22 client companies (a few outside Ontario, one without contacts, one with
// several contacts and no default), contacts, links, client data with every satellite row,
// software, custom labels, schedule items and tasks (one task archived), appointments,
// dockets, schedule types, calendar and pop-up settings, and the holidays of the current
// year (the runtime's clock). Raises 58 when the file exists, 3001 when it can't be written.
void writeSamplePractice(const std::string& path);

}  // namespace nvwm
