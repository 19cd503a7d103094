#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include <stdexcept>

/// What can go wrong in the rooms below the windows. The user is told each in words of its own
/// (core/error_words), which take the error's details in order.
enum class ErrorKind {
    Told,        ///< the description is the user's text already
    Conflict,    ///< another desk changed or removed what was read; detail: the table or thing
    CardOfOther, ///< details: card, the employee whose card it is
    CardInUse,   ///< details: card, the day that it holds already
};

/// A failure with a number, a technical text in English for the log and the command line, and what the
/// user's text needs to know.
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
