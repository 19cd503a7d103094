#pragma once

#include "database/error_kind.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <stdexcept>

/// A failure with a number, a technical text in English for the command line, and what the user's text needs
/// to know.
class ProgramError : public std::runtime_error {
public:
    /// A failure whose description is written for the user.
    ProgramError(int number, const QString& description);
    ProgramError(ErrorKind kind, int number, const QString& description, QStringList details = {});

    ErrorKind Kind() const { return kind_; }
    int Number() const { return number_; }
    const QString& Description() const { return description_; }
    const QStringList& Details() const { return details_; }

private:
    ErrorKind kind_ = ErrorKind::Told;
    int number_;
    QString description_;
    QStringList details_;
};

/// One failure as the database engine reports it.
struct DatabaseFailure {
    int number = 0;
    QString source;
    QString description; ///< in English, unless the kind is Told
    ErrorKind kind = ErrorKind::Told;
    QStringList details = {};
};

/// One or more failures of the database. Kind, number, description and details are those of the first.
class DatabaseError : public ProgramError {
public:
    explicit DatabaseError(QList<DatabaseFailure> failures);
    explicit DatabaseError(const DatabaseFailure& failure);
    /// A failure that the program itself found.
    DatabaseError(ErrorKind kind, int number, const QString& description, const QStringList& details = {});

    const QList<DatabaseFailure>& Failures() const { return failures_; }

private:
    QList<DatabaseFailure> failures_;
};

/// The row was changed or removed by another desk after it was read; nothing was written.
class ConflictError : public DatabaseError {
public:
    explicit ConflictError(const QString& table);
    ConflictError(ErrorKind kind, const QString& description, const QStringList& details);
};

/// The statement was refused before it reached the engine.
class StatementError : public DatabaseError {
public:
    /// With a description that is written for the user.
    explicit StatementError(const QString& description);
    StatementError(ErrorKind kind, const QString& description, const QStringList& details = {});
};
