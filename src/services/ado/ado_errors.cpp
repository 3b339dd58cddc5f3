#include "services/ado/ado_errors.h"

#include "runtime/error.h"

namespace nvwm::ado {

std::string_view describe(AdoError error) {
  switch (error) {
    case AdoError::kInvalidArgument:
      return "Arguments are of the wrong type, are out of acceptable range, or are in conflict "
             "with one another.";
    case AdoError::kNotFound:
      return "Could not find file.";
    case AdoError::kNotValidPassword:
      return "Not a valid password.";
    case AdoError::kNotValidPath:
      return "Not a valid path.";
    case AdoError::kTableExists:
      return "Table already exists.";
    case AdoError::kNoCurrentRecord:
      return "Either BOF or EOF is True, or the current record has been deleted. Requested "
             "operation requires a current record.";
    case AdoError::kFieldTooSmall:
      return "The field is too small to accept the amount of data you attempted to add.  Try "
             "inserting or pasting less data.";
    case AdoError::kFieldDefinedTwice:
      return "Cannot define field more than once.";
    case AdoError::kDatabaseExists:
      return "Database already exists.";
    case AdoError::kNotUpdatable:
      return "Current Recordset does not support updating. This may be a limitation of the "
             "provider, or of the selected locktype.";
    case AdoError::kItemNotFound:
      return "Item cannot be found in the collection corresponding to the requested name or "
             "ordinal.";
    case AdoError::kRequiredValue:
      return "The field cannot contain a Null value because the Required property for this "
             "field is set to True.";
    case AdoError::kZeroLength:
      return "Field cannot be a zero-length string.";
    case AdoError::kUnrecognizedFormat:
      return "Unrecognized database format.";
    case AdoError::kObjectClosed:
      return "Operation is not allowed when the object is closed.";
    case AdoError::kObjectOpen:
      return "Operation is not allowed when the object is open.";
    case AdoError::kConnectionUnusable:
      return "The connection cannot be used to perform this operation. It is either closed or "
             "invalid in this context.";
  }
  return "ADO error.";
}

void raise(AdoError error, std::string_view detail) {
  std::string text(describe(error));
  if (!detail.empty()) {
    text += ": ";
    text += detail;
  }
  raiseWith(static_cast<int32_t>(error), std::move(text));
}

}  // namespace nvwm::ado
