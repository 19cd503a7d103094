#include "database/sqlite_schema.h"

#include "database/sqlite_engine.h"

#include <QDir>
#include <QFile>
#include <QScopeGuard>
#include <QUuid>

using namespace Qt::StringLiterals;

namespace {

/// Marks a file as a database of this program: "TATD".
constexpr int ApplicationId = 0x54415444;
constexpr int CopyNumber = 90003;

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
        "TEXT, NormalHours SINGLE, OTHours SINGLE, NormalAmount CURRENCY, OTAmount CURRENCY, "
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
        "TEXT, GP CURRENCY, RateOT DOUBLE, TMakan DOUBLE, EmpType TEXT, sc NUMBER) WITHOUT ROWID"_s,
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
        "e.Divisi, d.Tanggal, d.TimeIN, d.TimeOUT, d.TimeINOT, d.TimeOutOT, d.BeriUangMakan, h.NormalHours, "
        "h.OTHours, h.NormalAmount, h.OTAmount FROM TimeCardHeader h INNER JOIN TimeCardDetail d ON "
        "h.TCID=d.TCID INNER JOIN Employee e ON h.NIP=e.NIP"_s,
    };
}

/// What a company keeps beside: its settings, when its people came and went and what they were paid from
/// which day on, the rhythms of its shifts and how many people a shift needs on a weekday (1 Monday to 7
/// Sunday).
QStringList SecondStep() {
    return {
        u"ALTER TABLE Employee ADD COLUMN %1"_s.arg(DayColumn(u"Masuk")),
        u"ALTER TABLE Employee ADD COLUMN %1"_s.arg(DayColumn(u"Keluar")),
        u"ALTER TABLE Employee ADD COLUMN IdMesin TEXT"_s,
        u"CREATE TABLE Setting (Name TEXT NOT NULL PRIMARY KEY, Value TEXT) WITHOUT ROWID"_s,
        u"CREATE TABLE EmployeePay (NIP TEXT NOT NULL, %1 NOT NULL, EmpType TEXT, GP CURRENCY, RateOT "
        "DOUBLE, TMakan DOUBLE, PRIMARY KEY (NIP, Berlaku)) WITHOUT ROWID"_s.arg(DayColumn(u"Berlaku")),
        u"CREATE TABLE ShiftPattern (Name TEXT NOT NULL PRIMARY KEY, Cycle TEXT NOT NULL) WITHOUT ROWID"_s,
        u"CREATE TABLE ShiftNeed (ShiftCode TEXT NOT NULL, Weekday INTEGER NOT NULL CHECK (Weekday BETWEEN 1 "
        "AND 7), Needed INTEGER NOT NULL, PRIMARY KEY (ShiftCode, Weekday)) WITHOUT ROWID"_s,
    };
}

/// The lines of the clock devices' files as they came, what they say, whose number it is and what became of
/// them. The index finds those whose number nobody had.
QStringList ThirdStep() {
    return {
        u"CREATE TABLE DevicePunch (File TEXT NOT NULL, Line INTEGER NOT NULL, Content TEXT NOT NULL, Number "
        u"TEXT, "
        "%1, Direction TEXT, NIP TEXT, Outcome TEXT, PRIMARY KEY (File, Line, Content)) WITHOUT ROWID"_s.arg(
            TimeColumn(u"Moment")),
        u"CREATE INDEX DevicePunchUnknown ON DevicePunch (File, Line) WHERE NIP IS NULL"_s,
    };
}

/// The check of a day or of a moment is what tells such a column from other texts.
ColumnKind KindOf(const QString& column, const QString& type, const QString& table) {
    if (type == u"BOOLEAN"_s)
        return ColumnKind::Flag;
    if (type != u"TEXT"_s)
        return ColumnKind::Number;
    if (table.contains(DayColumn(column)))
        return ColumnKind::Date;
    return table.contains(TimeColumn(column)) ? ColumnKind::Moment : ColumnKind::Text;
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

void Run(QSqlQuery& query, const QString& statement) {
    if (!query.exec(statement))
        throw DatabaseError(SqliteEngine().Describe(query.lastError()));
}

SchemaNames NamesInMemoryAfter(std::span<const SchemaStep> steps, const QString& connectionName) {
    QSqlDatabase memory = QSqlDatabase::addDatabase(u"QSQLITE"_s, connectionName);
    memory.setDatabaseName(u":memory:"_s);
    if (!memory.open())
        throw DatabaseError(SqliteEngine().Describe(memory.lastError()));
    QSqlQuery query(memory);
    for (const SchemaStep& step : steps) {
        for (const QString& statement : step.statements)
            Run(query, statement);
    }
    const auto names = [&query](QStringView kind) {
        QSet<QString> found;
        Run(query, NamesQuery(kind));
        while (query.next())
            found << query.value(0).toString() << query.value(1).toString();
        return found;
    };
    return {names(u"table"), names(u"view")};
}

} // namespace

std::span<const SchemaStep> SqliteSchema::Steps() const {
    static const SchemaStep steps[] = {{1, FirstStep()}, {2, SecondStep()}, {3, ThirdStep()}};
    return steps;
}

std::optional<int> SqliteSchema::VersionOf(Connection& connection) const {
    Cursor rows = connection.QueryNative(
        u"SELECT user_version, application_id FROM pragma_user_version, pragma_application_id"_s);
    if (!rows.Next() || rows.Value(1).Number() != ApplicationId)
        return std::nullopt;
    return static_cast<int>(rows.Value(0).Number());
}

void SqliteSchema::SetVersion(Connection& connection, int version) const {
    connection.ExecuteNative(u"PRAGMA user_version=%1"_s.arg(version));
    connection.ExecuteNative(u"PRAGMA application_id=%1"_s.arg(ApplicationId));
}

/// The engine makes the copy, so that it is whole even while other desks write. It gets its name only once it
/// is complete; when another desk was quicker, that desk's copy stays.
void SqliteSchema::CopyAside(Connection& connection, int version) const {
    const QString copy = connection.FileName() + u".v"_s + QString::number(version);
    if (QFile::exists(copy))
        return;
    const QString unfinished = copy + u'.' + QUuid::createUuid().toString(QUuid::WithoutBraces);
    const auto removeUnfinished = qScopeGuard([&] { QFile::remove(unfinished); });
    connection.ExecuteNative(u"VACUUM INTO '"_s + QString(unfinished).replace(u'\'', u"''"_s) + u'\'');
    QFile::setPermissions(unfinished, QFile::permissions(connection.FileName()));
    if (!QFile::rename(unfinished, copy) && !QFile::exists(copy)) {
        const QString file = QDir::toNativeSeparators(copy);
        throw DatabaseError(ErrorKind::CopyNotMade, CopyNumber, u"the copy %1 cannot be made"_s.arg(file),
                            {file});
    }
}

QSet<QString> SqliteSchema::TablesIn(Connection& connection) const {
    return NamesIn(connection, u"table");
}

QSet<QString> SqliteSchema::ViewsIn(Connection& connection) const {
    return NamesIn(connection, u"view");
}

std::vector<TableDescription> SqliteSchema::Describe(Connection& connection) const {
    Cursor rows = connection.QueryNative(
        u"SELECT m.name, c.name, c.type, c.pk, m.sql FROM sqlite_master m JOIN pragma_table_xinfo(m.name) c "
        "WHERE m.type='table' AND m.name NOT LIKE 'sqlite_%' AND c.hidden=0 ORDER BY m.rowid, c.cid"_s);
    std::vector<TableDescription> tables;
    while (rows.Next()) {
        if (tables.empty() || tables.back().name != rows.Text(0))
            tables.push_back({rows.Text(0), {}});
        tables.back().columns.push_back(
            {rows.Text(1), KindOf(rows.Text(1), rows.Text(2), rows.Text(4)), rows.Value(3).Number() > 0});
    }
    return tables;
}

/// Read off a fresh database in memory: the steps are the only description of what a version holds.
SchemaNames SqliteSchema::NamesAfter(std::span<const SchemaStep> steps) const {
    const QString name = QUuid::createUuid().toString();
    const auto forget = qScopeGuard([&name] { QSqlDatabase::removeDatabase(name); });
    return NamesInMemoryAfter(steps, name);
}
