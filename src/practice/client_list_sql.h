// modDatabaseFunctions: the client list query, the one big SELECT that gives the merge engine
// the whole record of each client (company, client data, accounting services, options and the
// tax and legal tables of the firm's country).
#pragma once

#include <cstdint>
#include <string>

namespace nvwm {

// The client list SQL for the firm's country (LocaleReference.getCountryCode: 1 Canada, any
// other value the United States tables). statusFilter: 1 active clients, 2 clients not active,
// 3 all; any other value gives "". showOnlyVisible keeps only clients marked to be shown. Only
// builds text; asks nothing of the database. All joins are inner: a client without a row in one
// of its country's tables is not listed. Without a locale service the routine ends in its
// handler and gives "". Log tag "Tallowbrook.exe-modDatabaseFunctions-getMainBusinessSQLString".
std::string getMainBusinessSQLString(bool showOnlyVisible, int32_t statusFilter);

}  // namespace nvwm
