#pragma once

#include "database/connection.h"

#include <QSet>
#include <QString>
#include <QStringList>

#include <optional>
#include <span>
#include <vector>

/// One numbered step of the schema: what brings a database from the version before it to this one. Steps that
/// have been in use are never edited; a change of the schema is a further step.
struct SchemaStep {
    int version;
    QStringList statements; ///< in the engine's own language
};

/// What a database holds, in lower case: the name of each table or view, and "table.column" for each column.
struct SchemaNames {
    QSet<QString> tables;
    QSet<QString> views;
};

/// What a column of a table is to hold; null is allowed everywhere but in keys.
enum class ColumnKind { Text, Number, Flag, Date, Moment };

struct ColumnDescription {
    QString name;
    ColumnKind kind = ColumnKind::Text;
    bool isKey = false;
};

struct TableDescription {
    QString name;
    std::vector<ColumnDescription> columns; ///< second spellings of a column left out

    /// As they are written in a statement, with a comma between.
    QString ColumnList() const;
};

/// What the upkeep of the schema asks of an engine. All functions throw DatabaseError.
class EngineSchema {
public:
    virtual ~EngineSchema() = default;

    virtual std::span<const SchemaStep> Steps() const = 0;

    /// The version of the schema; nothing when the database is empty or another program's.
    virtual std::optional<int> VersionOf(Connection& connection) const = 0;
    /// Writes down the version, and that the database is this program's.
    virtual void SetVersion(Connection& connection, int version) const = 0;

    /// Keeps a whole copy of the database as it is, unless there is one of this version already.
    virtual void CopyAside(Connection& connection, int version) const = 0;

    virtual QSet<QString> TablesIn(Connection& connection) const = 0;
    virtual QSet<QString> ViewsIn(Connection& connection) const = 0;
    /// The tables and their columns, in the order in which the schema names them.
    virtual std::vector<TableDescription> Describe(Connection& connection) const = 0;
    /// What a database holds after these steps.
    virtual SchemaNames NamesAfter(std::span<const SchemaStep> steps) const = 0;
};

/// The version of an opened database. Throws DatabaseError when it is not one of this program's.
int SchemaVersion(Connection& connection);

/// The newest version that the program knows.
int NewestSchemaVersion(const Connection& connection);

/// The tables of an opened database.
std::vector<TableDescription> TablesOf(Connection& connection);

/// Takes the steps that are newer than the database, each as a whole or not at all.
void RunSchemaSteps(Connection& connection, std::span<const SchemaStep> steps);

/// Brings an opened database to the newest version and makes sure that every table and column is there. A
/// database of an older version is copied aside first. Throws DatabaseError when the database is of a newer
/// version, is not one of this program's, or lacks something.
void PrepareSchema(Connection& connection, std::span<const SchemaStep> steps);
void PrepareSchema(Connection& connection);
