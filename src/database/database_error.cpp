#include "database/database_error.h"

using namespace Qt::StringLiterals;

namespace {

/// The engine's own numbers are below 100 or combined from two bytes; ours start where it has none.
constexpr int ConflictNumber = 90001;
constexpr int StatementNumber = 90002;

DatabaseFailure FirstOf(const QList<DatabaseFailure>& failures) {
    return failures.isEmpty() ? DatabaseFailure() : failures.first();
}

} // namespace

ProgramError::ProgramError(int number, const QString& description)
    : ProgramError(ErrorKind::Told, number, description) {}

ProgramError::ProgramError(ErrorKind kind, int number, const QString& description, QStringList details)
    : std::runtime_error(description.toStdString()), kind_(kind), number_(number), description_(description),
      details_(std::move(details)) {}

DatabaseError::DatabaseError(QList<DatabaseFailure> failures)
    : ProgramError(FirstOf(failures).kind, FirstOf(failures).number, FirstOf(failures).description,
                   FirstOf(failures).details),
      failures_(std::move(failures)) {}

DatabaseError::DatabaseError(const DatabaseFailure& failure) : DatabaseError(QList{failure}) {}

DatabaseError::DatabaseError(ErrorKind kind, int number, const QString& description,
                             const QStringList& details)
    : DatabaseError({number, u"Time Attendance"_s, description, kind, details}) {}

ConflictError::ConflictError(const QString& table)
    : ConflictError(ErrorKind::Conflict,
                    u"%1 was changed by another program after it was read; nothing was written"_s.arg(table),
                    {table}) {}

ConflictError::ConflictError(ErrorKind kind, const QString& description, const QStringList& details)
    : DatabaseError(kind, ConflictNumber, description, details) {}

StatementError::StatementError(const QString& description) : StatementError(ErrorKind::Told, description) {}

StatementError::StatementError(ErrorKind kind, const QString& description, const QStringList& details)
    : DatabaseError(kind, StatementNumber, description, details) {}
