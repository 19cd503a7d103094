#include "database/sqlite_engine.h"

#include "database/sqlite_schema.h"

#include <QDir>
#include <QFileInfo>
#include <QSqlQuery>
#include <QUrl>
#include <QUuid>

#include <algorithm>
#include <iterator>

using namespace Qt::StringLiterals;

namespace {

constexpr int Corrupt = 11;
constexpr int CantOpen = 14;
/// The engine's result codes that the user can do something about.
constexpr std::pair<int, ErrorKind> Kinds[] = {
    {5, ErrorKind::Locked}, // by another program
    {6, ErrorKind::Locked}, // by another statement
    {8, ErrorKind::ReadOnly},   {10, ErrorKind::ReadOrWrite},      {Corrupt, ErrorKind::Damaged},
    {13, ErrorKind::DiskFull},  {CantOpen, ErrorKind::CannotOpen}, {19, ErrorKind::Constraint},
    {26, ErrorKind::NoDatabase}};

/// The engine's extended code for a file that it has open, but that no longer stands under its name.
constexpr int FileMoved = 8 | (4 << 8);

ErrorKind KindOf(int code) {
    if (code == FileMoved)
        return ErrorKind::FileMoved;
    const auto* found = std::ranges::find(Kinds, code & 0xFF, &std::pair<int, ErrorKind>::first);
    return found == std::end(Kinds) ? ErrorKind::Failed : found->second;
}

/// An URI, because only there can the engine be told not to create a missing file.
QString ExistingFileUri(const QString& path) {
    QString slashed = QFileInfo(path).absoluteFilePath();
    if (!slashed.startsWith(u'/'))
        slashed.prepend(u'/'); // a drive letter
    const QByteArray encoded = QUrl::toPercentEncoding(slashed, "/:"_ba);
    return u"file://"_s + QString::fromLatin1(encoded) + u"?mode=rw"_s;
}

/// Settles how the engine works on this connection, then takes the right to write, writes what stands there
/// already and takes it back. That tells a locked, read-only, damaged or foreign file apart from a good one
/// before the first employee stands at the desk; only to begin is not enough, since the engine begins on a
/// file that it can only read, too. Returns an error that is not valid when all went well.
QSqlError Prepare(QSqlQuery& query, const Engine& engine, const QString& path) {
    for (const QString& statement :
         {u"PRAGMA case_sensitive_like=ON"_s, u"PRAGMA temp_store=MEMORY"_s, u"PRAGMA synchronous=FULL"_s,
          u"PRAGMA cache_size=-32000"_s, engine.BeginStatement(),
          u"SELECT user_version, page_size FROM pragma_user_version, pragma_page_size"_s}) {
        if (!query.exec(statement))
            return query.lastError();
    }
    query.next();
    const QString version = query.value(0).toString();
    const int pageSize = query.value(1).toInt();
    // The engine itself notices only whole pages that are missing.
    if (pageSize > 0 && QFileInfo(path).size() % pageSize != 0)
        return QSqlError({}, u"incomplete page"_s, QSqlError::ConnectionError, QString::number(Corrupt));
    for (const QString& statement : {u"PRAGMA user_version="_s + version, engine.RollbackStatement()}) {
        if (!query.exec(statement))
            return query.lastError();
    }
    return {};
}

} // namespace

QSqlDatabase SqliteEngine::Open(const QString& path) const {
    const QString file = FileAt(path);
    if (file.isEmpty()) {
        const QString wanted = QDir::toNativeSeparators(ToLocalPath(path));
        throw DatabaseError(
            {CantOpen, u"SQLite"_s, u"%1 does not exist"_s.arg(wanted), ErrorKind::FileMissing, {wanted}});
    }
    const QString name = QUuid::createUuid().toString(QUuid::WithoutBraces);
    QSqlDatabase database = QSqlDatabase::addDatabase(u"QSQLITE"_s, name);
    database.setConnectOptions(u"QSQLITE_OPEN_URI;QSQLITE_BUSY_TIMEOUT=%1"_s.arg(DefaultPatience.count()));
    database.setDatabaseName(ExistingFileUri(file));

    DatabaseFailure failure;
    if (!database.open()) {
        failure = Describe(database.lastError());
    } else {
        QSqlQuery query(database);
        if (const QSqlError error = Prepare(query, *this, file); error.isValid())
            failure = Describe(error);
    }
    if (failure.number != 0) {
        database.close();
        database = QSqlDatabase();
        QSqlDatabase::removeDatabase(name);
        failure.details << QDir::toNativeSeparators(file);
        failure.description = failure.details.join(u": ");
        throw DatabaseError(failure);
    }
    return database;
}

DatabaseFailure SqliteEngine::Describe(const QSqlError& error) const {
    const int code = error.nativeErrorCode().toInt();
    const QString native = error.databaseText().isEmpty() ? error.driverText() : error.databaseText();
    return {code == 0 ? 1 : code, u"SQLite"_s, native, KindOf(code), {native}};
}

QString SqliteEngine::PatienceStatement(std::chrono::milliseconds patience) const {
    return u"PRAGMA busy_timeout=%1"_s.arg(patience.count());
}

const EngineSchema& SqliteEngine::Schema() const {
    static const SqliteSchema schema;
    return schema;
}
