#include "cards/card_computation.h"
#include "database/database_error.h"
#include "database/database_file.h"
#include "exchange/access_file.h"
#include "exchange/database_import.h"
#include "exchange/exact_sum.h"
#include "support/test_company.h"

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype PageSize = 4096;

/// The file of a company of twelve that another program wrote; it is stored packed.
const QByteArray& CompanyBytes() {
    static const QByteArray bytes = qUncompress(BytesOf(QStringLiteral(ACCESS_FILE)));
    return bytes;
}

class Access : public testing::Test {
protected:
    QString Written(const QByteArray& bytes) const {
        QFile file(folder.filePath(u"old.mdb"_s));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        return file.fileName();
    }
    QString NewFile() const { return folder.filePath(u"new.mdb"_s); }

    QTemporaryDir folder;
};

/// A database that a test makes up.
struct MadeUpSource : TableSource {
    std::vector<SourceTable> Tables() override { return tables; }
    bool ReadRows(const std::vector<SourceTable>& wanted, const RowSink& sink) override {
        for (size_t i = 0; i < wanted.size(); ++i) {
            for (const QStringList& row : rows[wanted[i].name]) {
                if (!sink(i, row))
                    return false;
            }
        }
        return true;
    }

    std::vector<SourceTable> tables;
    std::map<QString, QList<QStringList>> rows;
};

QStringList Names(const std::vector<LeftRow>& rows) {
    QStringList names;
    for (const auto& [table, key, why] : rows)
        names << u"%1 %2: %3"_s.arg(table, key, why);
    return names;
}

} // namespace

TEST_F(Access, ACompanyComesInWholeAndIsComputed) {
    AccessFile source(Written(CompanyBytes()));
    const DatabaseImport import = ImportDatabase(source, NewFile(), WhenMissing::Refuse);
    EXPECT_TRUE(import.Agrees());
    // Two rows of one key: the first is the one that was always looked up.
    EXPECT_EQ(Names(import.setAside), QStringList{u"ShiftEmployee 0011 2026-01-01: ShiftCode MALAM"_s});
    QStringList accounts;
    for (const TableAccount& table : import.tables) {
        for (const ColumnAccount& column : table.columns)
            accounts << u"%1.%2 %3"_s.arg(table.name, column.name, column.read);
    }
    for (const auto& account :
         {u"TimeCardHeader.NormalHours 869.25"_s, u"TimeCardHeader.OTAmount 300012.34"_s,
          u"Employee.GP 29258500"_s, u"ShiftEmployee.Tgl 2026-01-01 .. 2026-08-10"_s,
          u"Shift.TimeOut 1899-12-30 00:00:00 .. 1899-12-31 06:00:00"_s})
        EXPECT_TRUE(accounts.contains(account)) << accounts.join(u'\n').toStdString();

    const auto db = OpenDatabaseFile(NewFile());
    EXPECT_EQ(
        RowsOf(*db, u"select NormalHours, OTHours, NormalAmount, OTAmount, TotalUangMakan, Keterangan "
                    "from TimeCardHeader where TCID in ('T202608010011','T202608010016') order by TCID"_s),
        (QStringList{u"9.15|0.3|95000.5|3000.1234|12500|Lupa kartu, absen manual"_s, u"-|-|-|-|-|-"_s}));
    EXPECT_EQ(RowsOf(*db, u"select Nama, GP from Employee where NIP='0011'"_s),
              QStringList{u"Ma'ruf Lubis|4100000"_s});
    EXPECT_EQ(RowsOf(*db, u"select distinct BeriUangMakan from TimeCardDetail order by 1"_s),
              (QStringList{u"0"_s, u"1"_s}));
    QStringList cards = RowsOf(*db, u"select TCID from TimeCardHeader order by TCID"_s);
    EXPECT_GT(modAbsen::CalculateTimeCards(*db, cards).computed, 100);
}

TEST_F(Access, ADamagedFileIsToldAndLeavesNothing) {
    const QByteArray& whole = CompanyBytes();
    const auto with = [&whole](qsizetype at, const QByteArray& bytes) {
        return QByteArray(whole).replace(at, bytes.size(), bytes);
    };
    const auto pages = [&whole](char kind, char fill) {
        QByteArray broken = whole;
        for (qsizetype at = 3 * PageSize; at < broken.size(); at += PageSize) {
            if (broken[at] == kind)
                broken.replace(at + 1, PageSize - 1, QByteArray(PageSize - 1, fill));
        }
        return broken;
    };
    using enum ErrorKind;
    const std::tuple<const char*, QByteArray, ErrorKind> cases[] = {
        {"empty", {}, AccessForeign},
        {"a text", QByteArray("NIP,Nama\n").repeated(1000), AccessForeign},
        {"its first page alone", whole.first(PageSize), AccessDamaged},
        {"cut in half", whole.first(whole.size() / 2), AccessDamaged},
        {"its end missing", whole.chopped(PageSize), AccessDamaged},
        {"an unknown version", with(0x14, QByteArray(1, '\x77')), AccessForeign},
        {"no list of tables", with(2 * PageSize, QByteArray(PageSize, '\0')), AccessDamaged},
        {"definitions of zeros", pages(2, '\0'), AccessDamaged},
        {"definitions of noise", pages(2, '\xFF'), AccessDamaged},
        {"rows of zeros", pages(1, '\0'), AccessDamaged},
        {"rows of noise", pages(1, '\xA5'), AccessDamaged},
        {"a password", with(0x42, "secret"), AccessProtected},
    };
    for (const auto& [what, bytes, kind] : cases) {
        AccessFile source(Written(bytes));
        try {
            ImportDatabase(source, NewFile(), WhenMissing::LeaveEmpty);
            ADD_FAILURE() << what;
        } catch (const ProgramError& error) {
            EXPECT_EQ(error.Kind(), kind) << what << ": " << error.what();
        }
        EXPECT_EQ(QDir(folder.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
                  QStringList{u"old.mdb"_s})
            << what;
    }
}

TEST_F(Access, WhatDoesNotFitIsNamed) {
    MadeUpSource source;
    source.tables = {{u"employee"_s, {u"Nip"_s, u"NAMA"_s, u"gp"_s, u"Foto"_s}, {false, false, false, true}},
                     {u"Departments"_s, {u"Dept Code"_s, u"Dept Name"_s, u"DeptCode"_s}},
                     {u"shiftemployee"_s, {u"NIP"_s, u"Tgl"_s}},
                     {u"pph"_s, {u"kode"_s}},
                     {u"User"_s, {}, {}, true}};
    source.rows[u"Departments"_s] = {{u"PRD"_s, u"Produksi"_s, u"PRD"_s}};
    const auto import = [&] { return ImportDatabase(source, NewFile(), WhenMissing::LeaveEmpty); };

    source.rows[u"employee"_s] = {
        {u"1"_s, u"Budi"_s, u"0.1"_s, {}}, {u"2"_s, {}, u"12a"_s, {}}, {{}, u"X"_s, {}, {}}};
    source.rows[u"shiftemployee"_s] = {{u"1"_s, u"2026-01-31 07:00:00"_s}};
    DatabaseImport found = import();
    EXPECT_EQ(
        Names(found.refused),
        (QStringList{
            u"Employee 2: GP \"12a\" is no number"_s, u"Employee : NIP \"\" is empty"_s,
            u"ShiftEmployee 1 2026-01-31 07:00:00: Tgl \"2026-01-31 07:00:00\" holds a time of day"_s}));
    EXPECT_EQ(found.linked, QStringList{u"User"_s});
    EXPECT_EQ(found.leftTables, QStringList{u"pph"_s});
    EXPECT_EQ(found.leftColumns, (QStringList{u"employee.Foto"_s, u"Departments.DeptCode"_s}));
    EXPECT_TRUE(found.missing.contains(u"AbsenTipe"_s) && found.missing.contains(u"Employee.Dept"_s));
    EXPECT_FALSE(found.missing.contains(u"Setting"_s) || found.missing.contains(u"Employee.Masuk"_s));
    EXPECT_FALSE(QFile::exists(NewFile()));

    source.tables.pop_back();
    source.rows[u"shiftemployee"_s].clear();
    source.rows[u"employee"_s] = {{u"1"_s, u"Budi"_s, u"123456789012345.6789"_s, {}}};
    found = import();
    EXPECT_FALSE(found.Agrees()) << "more digits than can be stored";
    source.rows[u"employee"_s] = {
        {u"1"_s, u"Budi"_s, u"0.1"_s, {}}, {u"2"_s, {}, u"0.2"_s, {}}, {u"1"_s, u"Twin"_s, u"5"_s, {}}};
    EXPECT_FALSE(ImportDatabase(source, NewFile(), WhenMissing::Refuse).Agrees());
    EXPECT_FALSE(QFile::exists(NewFile()));
    found = import();
    EXPECT_TRUE(found.Agrees());
    EXPECT_EQ(found.tables[0].columns[0].written, u"5.3"_s);
    EXPECT_EQ(RowsOf(*OpenDatabaseFile(NewFile()),
                     u"select NIP, Nama, GP, DeptName from Employee, Departments order by NIP"_s),
              (QStringList{u"1|Budi|0.1|Produksi"_s, u"2|-|0.2|Produksi"_s}));
}

TEST(ExactSum, RoundsNothing) {
    const std::pair<QStringList, QString> cases[] = {
        {{}, u"0"_s},
        {{u"0.1"_s, u"0.2"_s}, u"0.3"_s},
        {{u"999999999.9999"_s, u"0.0001"_s}, u"1000000000"_s},
        {{u"1"_s, u"-1.5"_s}, u"-0.5"_s},
        {{u"-1000000000000"_s, u"999999999999.999999999999"_s}, u"-0.000000000001"_s},
        {{u"1000000000000000000000"_s, u"0.000000000000000000001"_s},
         u"1000000000000000000000.000000000000000000001"_s},
        {{u"-0.5"_s, u"0.5"_s, u"100"_s}, u"100"_s},
    };
    for (const auto& [numbers, sum] : cases) {
        ExactSum total;
        for (const QString& number : numbers)
            total.Add(number);
        EXPECT_EQ(total.Text(), sum);
    }
}
