// Public: the ADO and ADOX objects of host/ado.h over SQLite files: what the library uses to
// make its merge source database.
//
// Model. A database is one SQLite file, named by "Data Source=" in a connection string of
// "Key=Value;" pairs (keys without regard to case; Provider, User ID, Password and the
// "Jet OLEDB:..." keys are accepted and, apart from a database password, change nothing).
//
//   Catalog.Create     makes a new, empty database file and connects the catalog to it. The
//                      file must not exist yet (3204) and its folder must (3044). SQLite keeps
//                      no password: a non-empty "Jet OLEDB:Database Password" raises 3031.
//   Connection.Open    opens an existing file for reading and writing (Mode 1, read only,
//                      opens it for reading); 3024 when it is missing, 3343 when it is no
//                      SQLite database. CursorLocation and Mode are kept; client and server
//                      cursors behave alike here.
//   Table, Columns     a table is described first (Name, ParentCatalog, Columns.Append with
//                      name, type and defined size), then made by Tables.Append.
//   Column.Properties  "Nullable" and "Jet OLEDB:Allow Zero Length", both False for a new
//                      column as in ADOX; reachable only once the column's table has a parent
//                      catalog (before, any name raises 3265, as provider properties do).
//   Recordset          Open on a SELECT; with lock type 2, 3 or 4 and a select list from one
//                      table: AddNew, Fields.Item(name or ordinal).Value, Update insert a row.
//
// Column types and how they are stored (the declared type tells readers what a column holds):
//
//   202 adVarWChar (size n)  VARCHAR(n)   text of at most n characters (1 <= n <= 255)
//   203 adLongVarWChar       LONGTEXT     text of any length
//   3   adInteger            INTEGER      32-bit integer
//   5   adDouble             DOUBLE
//   6   adCurrency           CURRENCY
//   7   adDate               DATETIME     text 'YYYY-MM-DD HH:MM:SS', as the practice database
//   11  adBoolean            BOOLEAN      1 / 0
//
// A value is converted to its column's kind when Field.Value is put ("March 31, 2026" into a
// date column, "12" into an integer one; 13 when it can't be). The limits are checked when
// Update writes the row, as Jet does: a text longer than its column (3163), a Null in a column
// that isn't Nullable (3314), "" where zero length isn't allowed (3315). They are kept as
// constraints of the table, so the file itself refuses such rows to any writer.
//
// Rows written through one recordset go into one transaction, begun at its first AddNew and
// committed when the recordset is closed or released: other readers see the rows from then on.
// A failed Update gives its row up and leaves the rows written before it in place (they are
// committed with the rest). A row still pending at Close is given up.
//
// A table described without columns is made with one column, `rowid INTEGER PRIMARY KEY`
// (SQLite has no table without columns); Fields doesn't list it.
//
// Errors are RuntimeError with Jet's and ADO's numbers (services/ado/ado_errors.h). Objects
// belong to one thread. Connections, catalogs and recordsets share the open file; it closes
// when the last of them lets go of it.
#pragma once

#include <memory>

#include "host/ado.h"

namespace nvwm::ado {

std::shared_ptr<Connection> makeSqliteConnection();
std::shared_ptr<Recordset> makeSqliteRecordset();
std::shared_ptr<Catalog> makeSqliteCatalog();
std::shared_ptr<Table> makeSqliteTable();

}  // namespace nvwm::ado
