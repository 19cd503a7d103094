#pragma once

#include "database/database_error.h"

#include <QSqlDatabase>
#include <QSqlError>
#include <QString>

#include <chrono>

class EngineSchema;

/// How long a statement waits for another program's lock unless told otherwise.
inline constexpr std::chrono::milliseconds DefaultPatience{2000};

/// All that differs between database engines, the upkeep of the schema apart, which it names. A second engine
/// is a second pair of classes like SqliteEngine and SqliteSchema.
class Engine {
public:
    virtual ~Engine() = default;

    /// Opens the database at the path for reading and writing. Throws DatabaseError when it is missing,
    /// locked, read-only or no database; never creates a file.
    virtual QSqlDatabase Open(const QString& path) const = 0;

    /// The file that holds the database at the path; empty when there is none.
    virtual QString FileAt(const QString& path) const = 0;

    /// Turns a statement of the program's dialect into one of the engine's. Throws StatementError when the
    /// statement is refused.
    virtual QString Translate(const QString& statement) const = 0;

    /// Says what kind of failure it is, with the engine's own words for it.
    virtual DatabaseFailure Describe(const QSqlError& error) const = 0;

    /// Starts a transaction that holds the right to write from its first moment on.
    virtual QString BeginStatement() const = 0;
    virtual QString CommitStatement() const = 0;
    virtual QString RollbackStatement() const = 0;

    /// A query for one number that differs whenever another program has committed a change. It reads no
    /// table.
    virtual QString ForeignChangesQuery() const = 0;

    /// Sets how long a statement waits for another program's lock.
    virtual QString PatienceStatement(std::chrono::milliseconds patience) const = 0;

    virtual const EngineSchema& Schema() const = 0;
};
