#include "database/database_error.h"

using namespace Qt::StringLiterals;

namespace {

/// The engine's own numbers are below 100 or combined from two bytes; ours start where it has none.
constexpr int ConflictNumber = 90001;
constexpr int StatementNumber = 90002;

const QString OwnSource = u"Time Attendance"_s;

} // namespace

ProgramError::ProgramError(int number, const QString& description)
    : ProgramError(ErrorKind::Told, number, description) {}

ProgramError::ProgramError(ErrorKind kind, int number, const QString& description, QStringList details)
    : std::runtime_error(description.toStdString()), kind_(kind), number_(number), description_(description),
      details_(std::move(details)) {}

DatabaseError::DatabaseError(QList<DatabaseFailure> failures)
    : ProgramError(failures.isEmpty() ? 0 : failures.first().number,
                   failures.isEmpty() ? QString() : failures.first().description),
      failures_(std::move(failures)) {}

DatabaseError::DatabaseError(const DatabaseFailure& failure) : DatabaseError(QList{failure}) {}

ConflictError::ConflictError(const QString& table)
    : DatabaseError({ConflictNumber, OwnSource,
                     u"Data %1 sudah diubah dari komputer lain. Tidak ada yang disimpan. "
                     "Muat ulang data lalu ulangi."_s.arg(table)}) {}

StatementError::StatementError(const QString& description)
    : DatabaseError({StatementNumber, OwnSource, description}) {}
