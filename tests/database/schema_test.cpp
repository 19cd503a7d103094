#include "database/sqlite_schema.h"

#include "database/database_file.h"
#include "support/failures.h"
#include "support/test_company.h"

#include <QDir>

#include <barrier>
#include <thread>

using namespace Qt::StringLiterals;

namespace {

int Newest() {
    return SqliteSchema().Steps().back().version;
}

/// Of the copy that an upgrade keeps of a database that is so many steps after today's.
QString CopyName(int later = 0) {
    return u"DATA.mdb.v%1"_s.arg(Newest() + later);
}

/// The steps of today and two that might follow them.
std::vector<SchemaStep> LaterSteps(const QString& third = u"CREATE TABLE Libur (Tgl TEXT)"_s) {
    const std::span<const SchemaStep> today = SqliteSchema().Steps();
    std::vector<SchemaStep> steps(today.begin(), today.end());
    const int newest = steps.back().version;
    steps.push_back({newest + 1, {u"ALTER TABLE Employee ADD COLUMN Telepon TEXT"_s}});
    steps.push_back({newest + 2, {u"UPDATE Employee SET Telepon='-'"_s, third}});
    return steps;
}

int VersionOf(Connection& connection) {
    Cursor rows = connection.QueryNative(u"PRAGMA user_version"_s);
    return rows.Next() ? static_cast<int>(rows.Value(0).Number()) : -1;
}

} // namespace

TEST(Schema, StoredFormsAreEnforced) {
    TestCompany company;
    const QString noDays =
        u"2026-02-29|2026-11-31|2026-13-01|22-11-2026|2026-1-2|2026-11-22 00:00:00|now||kemarin"_s;
    const QString days = u"2026-11-22|2028-02-29|1899-12-30"_s;
    const QString noTimes =
        u"2026-11-22|2026-11-22 24:00:00|2026-02-29 07:00:00|2026-11-22T07:58:12|2026-11-22 7:58:12|"
        "2026-11-22 07:58|07:58:12|2026-11-22 07:58:12.5|2026-11-22 07:58:12Z|"_s;
    const QString times = u"2026-11-22 23:59:59|1899-12-30 00:00:00|2026-11-22 00:00:00"_s;
    std::vector<std::tuple<QString, QString, QString>> columns{
        {u"TimeCardDetail (TCID,Tanggal) VALUES ('T',?)"_s, noDays, days},
        {u"ShiftEmployee (NIP,Tgl) VALUES ('0012',?)"_s, noDays, days},
        {u"Employee (NIP,Keluar) VALUES ('0012',?)"_s, noDays, days},
        {u"EmployeePay (NIP,Berlaku) VALUES ('0012',?)"_s, noDays, days},
        {u"Shift (Code,TimeIn) VALUES ('P',?)"_s, noTimes, times},
        {u"Shift (Code,TimeOut) VALUES ('P',?)"_s, noTimes, times},
        {u"TimeCardDetail (TCID,Tanggal,BeriUangMakan) VALUES ('T','2026-11-22',?)"_s, u"2|-1|ya|True|"_s,
         u"0|1"_s},
    };
    for (const QString& time : {u"TimeIN"_s, u"TimeOUT"_s, u"TimeINOT"_s, u"TimeOutOT"_s})
        columns.emplace_back(u"TimeCardDetail (TCID,Tanggal,%1) VALUES ('T','2026-11-22',?)"_s.arg(time),
                             noTimes, times);
    for (const auto& [insert, bad, good] : columns) {
        const auto refusal = [&, &insert = insert](const QString& value) {
            return FailureOf([&] {
                TakenBack(company.Db(), [&] { company.Db().Execute(u"INSERT INTO "_s + insert, {value}); });
            });
        };
        for (const QString& value : bad.split(u'|'))
            EXPECT_NE(refusal(value), QString()) << insert.toStdString() << " took " << value.toStdString();
        for (const QString& value : good.split(u'|'))
            EXPECT_EQ(refusal(value), QString()) << insert.toStdString();
    }
}

TEST(Schema, BothSpellingsOfTheDepartmentsAnswerAlike) {
    TestCompany company;
    company.Db().ExecuteNative(
        u"INSERT INTO Departments (DeptCode,DeptName) VALUES ('P','Produksi'),('G','Umum'),('X',NULL)"_s);
    const QStringList rows{u"X|-"_s, u"P|Produksi"_s, u"G|Umum"_s};
    EXPECT_EQ(company.RowsOf(u"SELECT DeptCode, DeptName FROM Departments ORDER BY DeptName"_s), rows);
    EXPECT_EQ(company.RowsOf(u"SELECT [Dept Code], [Dept Name] FROM [Departments] ORDER BY [Dept Name]"_s),
              rows);
}

TEST(SchemaUpgrade, TakesAllFurtherStepsAndCopiesTheFileAside) {
    for (const auto& name : {u"biasa"_s, u"50% %1 %2"_s, u"kantor 'A'; B"_s}) {
        SCOPED_TRACE(name.toStdString());
        const QTemporaryDir folder;
        QDir(folder.path()).mkdir(name);
        const QDir inside(folder.filePath(name));
        const QString path = inside.filePath(u"DATA.mdb"_s);
        CreateDatabase(path);
        OpenDatabaseFile(path)->ExecuteNative(u"INSERT INTO Employee (NIP,Nama) VALUES ('0012','Budi')"_s);
        for (int start = 0; start < 2; ++start) {
            const auto connection = ConnectToFile(path);
            PrepareSchema(*connection, LaterSteps());
            EXPECT_EQ(VersionOf(*connection), Newest() + 2);
            Cursor rows = connection->QueryNative(u"SELECT Nama||Telepon FROM Employee"_s);
            ASSERT_TRUE(rows.Next());
            EXPECT_EQ(rows.Text(0), u"Budi-"_s);
        }
        EXPECT_EQ(inside.entryList(QDir::Files, QDir::Name), (QStringList{u"DATA.mdb"_s, CopyName()}));
        Cursor copied = OpenDatabaseFile(inside.filePath(CopyName()))->Query(u"select Nama from Employee"_s);
        EXPECT_TRUE(copied.Next());
    }
}

TEST(SchemaUpgrade, ADatabaseOfTheFirstVersionKeepsItsRows) {
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"DATA.mdb"_s);
    QFile(path).open(QIODevice::WriteOnly);
    {
        const auto connection = ConnectToFile(path);
        RunSchemaSteps(*connection, SqliteSchema().Steps().first(1));
        connection->ExecuteNative(u"INSERT INTO Employee (NIP,Nama,GP) VALUES ('0012','Budi',150000)"_s);
    }
    const auto connection = OpenDatabaseFile(path);
    Cursor rows = connection->Query(u"select Nama,GP,Masuk,Keluar,IdMesin from Employee"_s);
    ASSERT_TRUE(rows.Next());
    EXPECT_EQ(rows.Text(0), u"Budi"_s);
    EXPECT_EQ(rows.Value(1).Number(), 150000);
    for (int column = 2; column < 5; ++column)
        EXPECT_TRUE(rows.Value(column).IsNull());
    EXPECT_TRUE(QFile::exists(path + u".v1"_s));
}

TEST(SchemaUpgrade, AFailingStepIsTakenBackWhole) {
    TestCompany company;
    company.AddEmployee(u"0012"_s, u"Budi"_s, u"x"_s);
    EXPECT_NE(FailureOf([&] { PrepareSchema(company.Db(), LaterSteps(u"CREATE TABLE Employee (NIP)"_s)); }),
              QString());
    EXPECT_EQ(VersionOf(company.Db()), Newest() + 1);
    EXPECT_EQ(company.RowsOf(u"select Nama,Telepon from Employee"_s), QStringList{u"Budi|-"_s});
    PrepareSchema(company.Db(), LaterSteps());
    EXPECT_EQ(VersionOf(company.Db()), Newest() + 2);
}

TEST(SchemaUpgrade, TwoProgramsUpgradeOneDatabase) {
    for (int round = 0; round < 10; ++round) {
        const TestCompany company(TestCompany::Database::Closed);
        std::barrier ready(2);
        QString failures[2];
        const auto upgrade = [&](QString& failure) {
            const auto connection = ConnectToFile(company.DatabaseFile());
            ready.arrive_and_wait();
            failure = FailureOf([&] { PrepareSchema(*connection, LaterSteps()); });
            EXPECT_EQ(VersionOf(*connection), Newest() + 2);
        };
        std::thread other(upgrade, std::ref(failures[0]));
        upgrade(failures[1]);
        other.join();
        EXPECT_EQ(failures[0], QString());
        EXPECT_EQ(failures[1], QString());
        // The one that comes between two steps of the other copies what it finds, too.
        QStringList files = QDir(company.folder.path()).entryList(QDir::Files, QDir::Name);
        files.removeAll(CopyName(1));
        EXPECT_EQ(files, (QStringList{u"DATA.mdb"_s, CopyName()}));
    }
}

TEST(SchemaUpgrade, WhatIsMissingIsNamedAndANewerDatabaseRefused) {
    const std::tuple<QString, QString> cases[] = {
        {u"DROP TABLE Employee"_s, u"Database tidak lengkap, tidak ditemukan: employee.\n"_s},
        {u"DROP TABLE [Employee Status]"_s, u"tidak ditemukan: employee status.\n"_s},
        {u"DROP VIEW qry_TimeCardAll"_s, u"tidak ditemukan: qry_timecardall.\n"_s},
        {u"ALTER TABLE Employee DROP COLUMN sc"_s, u"tidak ditemukan: employee.sc.\n"_s},
        {u"ALTER TABLE TimeCardDetail RENAME COLUMN ShiftCode TO Kode"_s,
         u"tidak ditemukan: timecarddetail.shiftcode.\n"_s},
        {u"PRAGMA user_version=99"_s,
         u"program yang lebih baru (versi 99; program ini mengenal sampai versi %1)"_s.arg(Newest())},
    };
    for (const auto& [statement, named] : cases) {
        const TestCompany company(TestCompany::Database::Closed);
        company.OtherDesk()->ExecuteNative(statement);
        const QString failure = FailureOf([&] { company.OtherDesk(); });
        EXPECT_TRUE(failure.contains(named)) << failure.toStdString();
    }
}
