#pragma once

#include <QList>
#include <QString>

#include <stdexcept>

/// A failure that can be told to the user by number and text.
class ProgramError : public std::runtime_error {
public:
    ProgramError(int number, const QString& description);

    int Number() const { return number_; }
    const QString& Description() const { return description_; }

private:
    int number_;
    QString description_;
};

/// One failure as the database engine reports it.
struct DatabaseFailure {
    int number = 0;
    QString source;
    QString description;
};

/// One or more failures of the database. Number and description are those of the first.
class DatabaseError : public ProgramError {
public:
    explicit DatabaseError(QList<DatabaseFailure> failures);
    explicit DatabaseError(const DatabaseFailure& failure);

    const QList<DatabaseFailure>& Failures() const { return failures_; }

private:
    QList<DatabaseFailure> failures_;
};

/// The row was changed or removed by another desk after it was read; nothing was written.
class ConflictError : public DatabaseError {
public:
    explicit ConflictError(const QString& table);
};

/// The statement was refused before it reached the engine.
class StatementError : public DatabaseError {
public:
    explicit StatementError(const QString& description);
};
