#pragma once

#include "database/engine.h"
#include "database/file_lookup.h"
#include "database/sqlite_dialect.h"

/// SQLite through Qt Sql: the embedded database.
class SqliteEngine : public Engine {
public:
    QSqlDatabase Open(const QString& path) const override;
    QString FileAt(const QString& path) const override { return FindFile(path); }
    QString Translate(const QString& statement) const override { return ToSqlite(statement); }
    DatabaseFailure Describe(const QSqlError& error) const override;
    QString BeginStatement() const override { return QStringLiteral("BEGIN IMMEDIATE"); }
    QString CommitStatement() const override { return QStringLiteral("COMMIT"); }
    QString RollbackStatement() const override { return QStringLiteral("ROLLBACK"); }
    QString ForeignChangesQuery() const override { return QStringLiteral("PRAGMA data_version"); }
    QString PatienceStatement(std::chrono::milliseconds patience) const override;
    const EngineSchema& Schema() const override;
};
