#include "database/schema.h"

#include "database/sqlite_engine.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QScopeGuard>
#include <QSet>
#include <QUuid>

using namespace Qt::StringLiterals;

namespace {

/// Marks a file as a database of this program: "TATD".
constexpr int ApplicationId = 0x54415444;
constexpr int SchemaNumber = 90003;

[[noreturn]] void Refuse(const QString& description) {
    throw DatabaseError({SchemaNumber, u"Time Attendance"_s, description});
}

/// The modifier makes the engine work the date out anew: without it, some of its versions give 30 February
/// and 24:00:00 back as they are.
QString Checked(QStringView column, QStringView form) {
    return u"%1 TEXT CHECK (%1 IS %2(%1,'+0 days'))"_s.arg(column, form);
}

QString DayColumn(QStringView column) {
    return Checked(column, u"date");
}

QString TimeColumn(QStringView column) {
    return Checked(column, u"datetime");
}

QString FlagColumn(QStringView column) {
    return u"%1 BOOLEAN CHECK (%1 IN (0,1))"_s.arg(column);
}

/// Keys lead the rows (WITHOUT ROWID), since nearly every look-up is by key. The indexes on the first 9 and
/// 11 characters of TCID serve the search for a sheet's date, those on year and month the roster of a month;
/// they hold the very expressions that the translated statements use.
QStringList FirstStep() {
    return {
        u"CREATE TABLE timecardmaster (TCID TEXT NOT NULL PRIMARY KEY, Status SMALLINT) WITHOUT ROWID"_s,
        u"CREATE TABLE TimeCardHeader (TCID TEXT NOT NULL PRIMARY KEY, NIP TEXT, Status TEXT, Keterangan "
        u"TEXT, "
        "NormalHours SINGLE, OTHours SINGLE, NormalAmount CURRENCY, OTAmount CURRENCY, "
        "TotalUangMakan CURRENCY) WITHOUT ROWID"_s,
        u"CREATE INDEX TimeCardHeaderNIP ON TimeCardHeader (NIP)"_s,
        u"CREATE TABLE TimeCardDetail (TCID TEXT NOT NULL, %1 NOT NULL, %2, %3, %4, %5, ShiftCode TEXT, %6, "
        "PRIMARY KEY (TCID, Tanggal)) WITHOUT ROWID"_s.arg(
            DayColumn(u"Tanggal"), TimeColumn(u"TimeIN"), TimeColumn(u"TimeOUT"), TimeColumn(u"TimeINOT"),
            TimeColumn(u"TimeOutOT"), FlagColumn(u"BeriUangMakan")),
        u"CREATE INDEX TimeCardDetailTanggal ON TimeCardDetail (Tanggal)"_s,
        u"CREATE INDEX TimeCardDetailSheet ON TimeCardDetail (substr(TCID,1,9))"_s,
        u"CREATE INDEX TimeCardDetailExtendedSheet ON TimeCardDetail (substr(TCID,1,11))"_s,
        u"CREATE TABLE Employee (NIP TEXT NOT NULL PRIMARY KEY, Nama TEXT, Dept TEXT, Divisi TEXT, PathImage "
        u"TEXT, "
        "GP CURRENCY, RateOT DOUBLE, TMakan DOUBLE, EmpType TEXT, sc NUMBER) WITHOUT ROWID"_s,
        u"CREATE TABLE Shift (Code TEXT NOT NULL PRIMARY KEY, %1, %2) WITHOUT ROWID"_s.arg(
            TimeColumn(u"TimeIn"), TimeColumn(u"TimeOut")),
        u"CREATE TABLE ShiftEmployee (NIP TEXT NOT NULL, %1 NOT NULL, ShiftCode TEXT, "
        "PRIMARY KEY (NIP, Tgl)) WITHOUT ROWID"_s.arg(DayColumn(u"Tgl")),
        u"CREATE INDEX ShiftEmployeeMonth ON ShiftEmployee "
        "(CAST(substr(Tgl,1,4) AS INTEGER), CAST(substr(Tgl,6,2) AS INTEGER))"_s,
        u"CREATE TABLE [Employee Status] (ID INTEGER, Status TEXT NOT NULL PRIMARY KEY, Description TEXT) "
        "WITHOUT ROWID"_s,
        u"CREATE TABLE AbsenTipe (Kode TEXT NOT NULL PRIMARY KEY, Keterangan TEXT) WITHOUT ROWID"_s,
        u"CREATE TABLE Division (DivKode TEXT NOT NULL PRIMARY KEY, DivName TEXT) WITHOUT ROWID"_s,
        u"CREATE TABLE Departments (DeptCode TEXT NOT NULL PRIMARY KEY, DeptName TEXT, "
        "[Dept Code] TEXT GENERATED ALWAYS AS (DeptCode) VIRTUAL, "
        "[Dept Name] TEXT GENERATED ALWAYS AS (DeptName) VIRTUAL) WITHOUT ROWID"_s,
        u"CREATE TABLE [User] (UserID TEXT NOT NULL PRIMARY KEY, Password TEXT) WITHOUT ROWID"_s,
        u"CREATE TABLE User_Job (UserID TEXT NOT NULL, GroupID TEXT NOT NULL, PRIMARY KEY (UserID, GroupID)) "
        "WITHOUT ROWID"_s,
        u"CREATE VIEW qry_TimeCardAll AS SELECT h.Status, h.NIP, e.Nama, h.Keterangan, e.Dept, h.TCID, "
        u"e.Divisi, "
        "d.Tanggal, d.TimeIN, d.TimeOUT, d.TimeINOT, d.TimeOutOT, d.BeriUangMakan, h.NormalHours, h.OTHours, "
        "h.NormalAmount, h.OTAmount FROM TimeCardHeader h INNER JOIN TimeCardDetail d ON h.TCID=d.TCID "
        "INNER JOIN Employee e ON h.NIP=e.NIP"_s,
    };
}

int NumberOf(Connection& connection, const QString& query) {
    Cursor rows = connection.QueryNative(query);
    return rows.Next() ? static_cast<int>(rows.Value(0).Number()) : 0;
}

/// The names of the tables, or of the views, and "table.column" for each of their columns.
QString NamesQuery(QStringView kind) {
    return u"SELECT lower(m.name), lower(m.name)||'.'||lower(c.name) FROM sqlite_master m "
           "JOIN pragma_table_xinfo(m.name) c WHERE m.type='%1'"_s.arg(kind);
}

QSet<QString> NamesIn(Connection& connection, QStringView kind) {
    QSet<QString> found;
    Cursor rows = connection.QueryNative(NamesQuery(kind));
    while (rows.Next())
        found << rows.Text(0) << rows.Text(1);
    return found;
}

struct ExpectedNames {
    QSet<QString> tables;
    QSet<QString> views;
};

/// What a database of this version holds is read off a fresh one in memory: the steps are its only
/// description.
ExpectedNames NamesOf(std::span<const SchemaStep> steps) {
    const QString name = QUuid::createUuid().toString();
    ExpectedNames expected;
    {
        QSqlDatabase memory = QSqlDatabase::addDatabase(u"QSQLITE"_s, name);
        memory.setDatabaseName(u":memory:"_s);
        memory.open();
        QSqlQuery query(memory);
        for (const SchemaStep& step : steps) {
            for (const QString& statement : step.statements)
                query.exec(statement);
        }
        const auto read = [&query](QSet<QString>& names, QStringView kind) {
            query.exec(NamesQuery(kind));
            while (query.next())
                names << query.value(0).toString() << query.value(1).toString();
        };
        read(expected.tables, u"table");
        read(expected.views, u"view");
    }
    QSqlDatabase::removeDatabase(name);
    return expected;
}

void RefuseMissing(const QSet<QString>& expected, const QSet<QString>& found) {
    QStringList missing = (expected - found).values();
    missing.sort();
    if (!missing.isEmpty())
        Refuse(u"Database tidak lengkap, tidak ditemukan: %1.\nPulihkan database dari cadangan."_s.arg(
            missing.first()));
}

void RunSteps(Connection& connection, std::span<const SchemaStep> steps) {
    for (const SchemaStep& step : steps) {
        Transaction transaction(connection);
        // Read inside: another desk may have taken this step a moment ago.
        if (NumberOf(connection, u"PRAGMA user_version"_s) >= step.version)
            continue;
        for (const QString& statement : step.statements)
            connection.ExecuteNative(statement);
        connection.ExecuteNative(u"PRAGMA user_version=%1"_s.arg(step.version));
        connection.ExecuteNative(u"PRAGMA application_id=%1"_s.arg(ApplicationId));
        transaction.Commit();
    }
}

/// The engine makes the copy, so that it is whole even while other desks write. It gets its name only once it
/// is complete; when another desk was quicker, that desk's copy stays.
void CopyAside(Connection& connection, int version) {
    const QString copy = connection.FileName() + u".v"_s + QString::number(version);
    if (QFile::exists(copy))
        return;
    const QString unfinished = copy + u'.' + QUuid::createUuid().toString(QUuid::WithoutBraces);
    const auto removeUnfinished = qScopeGuard([&] { QFile::remove(unfinished); });
    connection.ExecuteNative(u"VACUUM INTO '"_s + QString(unfinished).replace(u'\'', u"''"_s) + u'\'');
    if (!QFile::rename(unfinished, copy) && !QFile::exists(copy))
        Refuse(u"Salinan database tidak dapat dibuat: %1"_s.arg(QDir::toNativeSeparators(copy)));
}

} // namespace

std::span<const SchemaStep> SchemaSteps() {
    static const SchemaStep steps[] = {{1, FirstStep()}};
    return steps;
}

void CreateDatabase(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly))
        throw ProgramError(SchemaNumber, file.exists()
                                             ? u"%1 exists already"_s.arg(path)
                                             : u"%1 cannot be made: %2"_s.arg(path, file.errorString()));
    file.close();
    Connection connection(std::make_unique<SqliteEngine>(), QFileInfo(path).absoluteFilePath());
    RunSteps(connection, SchemaSteps());
}

void PrepareSchema(Connection& connection, std::span<const SchemaStep> steps) {
    const int newest = steps.back().version;
    const int version = NumberOf(connection, u"PRAGMA user_version"_s);
    const int application = NumberOf(connection, u"PRAGMA application_id"_s);
    if (application != ApplicationId)
        Refuse(
            u"File ini bukan database absensi (atau masih kosong): %1\nPeriksa nama file atau pulihkan dari "
            "cadangan."_s.arg(QDir::toNativeSeparators(connection.FileName())));
    if (version > newest)
        Refuse(u"Database ini dibuat oleh program yang lebih baru (versi %1; program ini mengenal sampai "
               u"versi %2). "
               "Pasang program yang terbaru."_s.arg(version)
                   .arg(newest));
    if (version < newest) {
        CopyAside(connection, version);
        RunSteps(connection, steps);
    }

    // Tables first: the engine cannot even describe a view that stands on a missing one.
    const ExpectedNames expected = NamesOf(steps);
    RefuseMissing(expected.tables, NamesIn(connection, u"table"));
    RefuseMissing(expected.views, NamesIn(connection, u"view"));
}

std::unique_ptr<Connection> OpenDatabaseFile(const QString& path) {
    auto connection =
        std::make_unique<Connection>(std::make_unique<SqliteEngine>(), QFileInfo(path).absoluteFilePath());
    PrepareSchema(*connection);
    return connection;
}
