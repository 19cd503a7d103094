#pragma once

#include "database/connection.h"

#include <QString>

#include <functional>
#include <memory>

/// A row that does not fit to the others or cannot be read.
struct Finding {
    QString table;
    QString key; ///< the values of the row's key, a blank between
    QString problem;

    /// "TimeCardHeader T202611220012: unknown status "X"": always a single line.
    QString Line() const;
};

/// Opens a database file without changing anything in it: one of an older version is refused, not converted.
/// Throws DatabaseError, as OpenDatabaseFile does.
std::unique_ptr<Connection> OpenUnchanged(const QString& path);

/// Told how many rows have been read, every now and then.
using CheckProgress = std::function<void(qint64 rowsRead)>;

/// Reads every table and reports the rows that do not fit together, table by table. The number of statements
/// does not depend on the number of rows. Throws DatabaseError when a table cannot be read.
void CheckData(Connection& connection, const std::function<void(const Finding&)>& report,
               const CheckProgress& progress = {});
