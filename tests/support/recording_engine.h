#pragma once

#include "database/sqlite_engine.h"

#include <QStringList>

/// The usual engine, which also keeps every statement of the program's dialect that it is given.
class RecordingEngine : public SqliteEngine {
public:
    explicit RecordingEngine(QStringList& statements) : statements_(statements) {}

    QString Translate(const QString& statement) const override {
        statements_ << statement;
        return SqliteEngine::Translate(statement);
    }

private:
    QStringList& statements_;
};
