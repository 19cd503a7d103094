#pragma once

#include "database/engine.h"

/// SQLite through Qt Sql: the embedded database.
class SqliteEngine : public Engine {
public:
    QSqlDatabase Open(const QString& path) const override;
    QString FileAt(const QString& path) const override;
    QString Translate(const QString& statement) const override;
    DatabaseFailure Describe(const QSqlError& error) const override;
    QString BeginStatement() const override;
    QString CommitStatement() const override;
    QString RollbackStatement() const override;
    QString ForeignChangesQuery() const override;
    QString PatienceStatement(std::chrono::milliseconds patience) const override;
    const EngineSchema& Schema() const override;
};
