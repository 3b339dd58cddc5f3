// Internal: the errors of the ADO/ADOX objects over SQLite, with Jet's and ADO's numbers.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace nvwm::ado {

// DO NOT CHANGE THESE VALUES: error services and logs show them, as Jet and ADO number them.
enum class AdoError : int32_t {
  kInvalidArgument = 3001,     // an argument of the wrong kind or out of range
  kNotFound = 3024,            // Connection.Open on a missing file
  kNotValidPassword = 3031,    // a database password SQLite can't keep
  kNotValidPath = 3044,        // Catalog.Create in a folder that doesn't exist
  kTableExists = 3010,         // Tables.Append of a name already used
  kNoCurrentRecord = 3021,     // Field.Value without a row being added
  kFieldTooSmall = 3163,       // a text longer than its column, at Update
  kFieldDefinedTwice = 3191,   // Columns.Append of a name already used
  kDatabaseExists = 3204,      // Catalog.Create on an existing file
  kNotUpdatable = 3251,        // AddNew on a read-only recordset or a join
  kItemNotFound = 3265,        // Fields, Columns, Properties: no such item
  kRequiredValue = 3314,       // Null in a column that isn't Nullable
  kZeroLength = 3315,          // "" where zero length isn't allowed
  kUnrecognizedFormat = 3343,  // the file is no SQLite database
  kObjectClosed = 3704,        // the object is closed
  kObjectOpen = 3705,          // the object is open
  kConnectionUnusable = 3709,  // no open connection to work on
};

// Raises RuntimeError with the number and Jet's or ADO's text, followed by ": detail" when a
// detail is given.
[[noreturn]] void raise(AdoError error, std::string_view detail = {});

// The text of an error.
std::string_view describe(AdoError error);

}  // namespace nvwm::ado
