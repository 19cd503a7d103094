#pragma once

#include <QString>

/// Turns a statement of the program's dialect into SQLite's: names in any quoting, dates between "#", the
/// functions Left, Mid, year, Month and CDATE, Same(a,b), which is true of two nulls too, and saved queries
/// called by name with a quoted argument, in any letter case. Throws StatementError when the statement is not
/// one that the program may issue.
QString ToSqlite(const QString& statement);
