#pragma once

#include "database/connection.h"

#include <QString>
#include <QStringList>

#include <span>

/// One numbered step of the schema: what brings a database from the version before it to this one. Steps that
/// have been in use are never edited; a change of the schema is a further step.
struct SchemaStep {
    int version;
    QStringList statements;
};

std::span<const SchemaStep> SchemaSteps();

/// Makes a file with an empty database of the newest version, ready to be opened. Throws ProgramError when
/// the file exists or cannot be made.
void CreateDatabase(const QString& path);

/// Brings an opened database to the newest version and makes sure that every table and column is there. A
/// database of an older version is copied aside first ("DATA.mdb.v1"). Throws DatabaseError when the database
/// is of a newer version, is not one of this program's, or lacks something.
void PrepareSchema(Connection& connection, std::span<const SchemaStep> steps = SchemaSteps());

/// Opens an existing database file by its path and prepares its schema.
std::unique_ptr<Connection> OpenDatabaseFile(const QString& path);
