#include "core/text_table.h"
#include "database/database_error.h"
#include "exchange/grid_export.h"
#include "support/test_company.h"

#include <QDir>
#include <QtEndian>

#include <zlib.h>

using namespace Qt::StringLiterals;

namespace {

/// The first sheet of a workbook as it stands in the file, a ZIP archive of XML.
QString SheetIn(const QString& path) {
    const QByteArray archive = BytesOf(path);
    constexpr qsizetype headSize = 46;
    for (qsizetype at = archive.indexOf("PK\1\2"); at >= 0; at = archive.indexOf("PK\1\2", at + 4)) {
        const auto number = [&](qsizetype offset) {
            return static_cast<qsizetype>(qFromLittleEndian<quint32>(archive.constData() + at + offset));
        };
        const qsizetype nameSize = number(28) & 0xFFFF;
        if (archive.mid(at + headSize, nameSize) != "xl/worksheets/sheet1.xml")
            continue;
        const qsizetype local = number(42);
        const qsizetype start =
            local + 30 + nameSize + qFromLittleEndian<quint16>(archive.constData() + local + 28);
        QByteArray packed = archive.mid(start, number(20));
        QByteArray sheet(number(24), Qt::Uninitialized);
        z_stream stream{};
        stream.next_in = reinterpret_cast<Bytef*>(packed.data());
        stream.avail_in = static_cast<uInt>(packed.size());
        stream.next_out = reinterpret_cast<Bytef*>(sheet.data());
        stream.avail_out = static_cast<uInt>(sheet.size());
        inflateInit2(&stream, -MAX_WBITS);
        EXPECT_EQ(inflate(&stream, Z_FINISH), Z_STREAM_END);
        inflateEnd(&stream);
        return QString::fromUtf8(sheet);
    }
    return {};
}

using Export = CompanyTest;

} // namespace

TEST_F(Export, AWorkbookHoldsDatesTimesAndNumbers) {
    const QString path = folder.filePath(u"a.xlsx"_s);
    using enum ColumnKind;
    ExportTable(path,
                {{u"NIP"_s}, {u"GP"_s, Number}, {u"Tgl"_s, Date}, {u"Masuk"_s, Moment}, {u"Makan"_s, Flag}},
                [](const auto& sink) {
                    sink({u"=0012"_s, 150000.5, FieldValue(DayOf(::Moment(u"2026-11-22"))),
                          FieldValue(::Moment(u"2026-11-22 18:00:00")), true});
                    sink({u"-5"_s,
                          u"n/a"_s,
                          FieldValue(DayOf(::Moment(u"1899-01-01"))),
                          FieldValue(::Moment(u"1899-12-31 06:00:00")),
                          {}});
                    return true;
                });
    const QString sheet = SheetIn(path);
    for (const auto& part :
         {u"<pane ySplit=\"1\""_s, u"<t>=0012</t>"_s, u"<v>150000.5</v>"_s, u"<v>46348</v>"_s,
          u"<v>46348.75</v>"_s, u"<c r=\"E2\" t=\"b\"><v>1</v>"_s, u"<t>-5</t>"_s, u"<t>n/a</t>"_s,
          u"<t>1899-01-01</t>"_s, u"<v>1.25</v>"_s, u"<col min=\"4\" max=\"4\""_s})
        EXPECT_TRUE(sheet.contains(part)) << part.toStdString() << "\n" << sheet.toStdString();
    EXPECT_EQ(QDir(folder.path()).entryList({u"*ekspor*"_s, u"*.xlsx"_s}, QDir::AllEntries | QDir::Hidden),
              QStringList{u"a.xlsx"_s});
    EXPECT_THROW(ExportTable(folder.filePath(u"none/a.xlsx"_s), {{u"x"_s}}, [](const auto&) { return true; }),
                 ProgramError);
}

TEST_F(Export, WhatAGridShowsBecomesAValueOfItsKind) {
    using enum ColumnKind;
    const std::tuple<QString, ColumnKind, QString> cases[] = {
        {u"1,250.5"_s, Number, u"1250.5"_s},
        {u"8.20"_s, Number, u"8.2"_s},
        {u"n/a"_s, Number, u"n/a"_s},
        {u"05-Mar-2004"_s, Date, u"2004-03-05"_s},
        {u"08:15"_s, Moment, u"1899-12-30 08:15:00"_s},
        {u"06:05 (+1)"_s, Moment, u"1899-12-31 06:05:00"_s},
        {u"0012"_s, Text, u"0012"_s},
    };
    for (const auto& [shown, kind, value] : cases)
        EXPECT_EQ(ShownValue(shown, kind).Text(), value);
    EXPECT_TRUE(ShownValue(u""_s, Number).IsNull());
}

TEST_F(Export, AGridGoesOutAsItIsShown) {
    modGeneral::TextGrid grid;
    grid.SetHeaders({u"NIK"_s, u"Jam"_s, u"Total"_s});
    grid.SetRows({{u"0012"_s, u"08:15"_s, u"1,250.50"_s}, {u"0013"_s, u""_s, u"-"_s}});
    const QString path = folder.filePath(u"g.csv"_s);
    using enum ColumnKind;
    const std::vector<GridColumn> columns{{2, Number}, {0, Text}, {1, Moment}};
    EXPECT_TRUE(ExportGrid(path, grid, columns));
    EXPECT_EQ(BytesOf(path).mid(3),
              "\"Total\",\"NIK\",\"Jam\"\r\n1250.5,\"0012\",08:15:00\r\n\"'-\",\"0013\",\r\n");
    grid.SetRows(std::vector<QStringList>(2000, {u"1"_s, u""_s, u""_s}));
    EXPECT_FALSE(ExportGrid(path, grid, columns, [](qsizetype, qsizetype) { return false; }));
    EXPECT_TRUE(BytesOf(path).contains("0013")) << "stopped, the former file stays";
}

TEST_F(Export, ATableOfTheDatabaseIsWrittenWithThePayInForceAndWithoutPasswords) {
    AddEmployee(u"0012"_s, u"Budi"_s, u"rahasia"_s);
    Run(u"UPDATE Employee SET GP=100, EmpType='BLN'"_s);
    Run(u"INSERT INTO EmployeePay (NIP,Berlaku,EmpType,GP) VALUES ('0012','2026-11-01','HRN',250.125),"
        "('0012','2026-12-01','HRN',300)"_s);
    const auto exported = [this](const QString& table, QStringView today = u"2026-11-30") {
        const QString path = folder.filePath(u"t.csv"_s);
        ExportDatabaseTable(Db(), table, path, DayOf(Moment(today)));
        return QString::fromUtf8(BytesOf(path).mid(3)).split(u"\r\n"_s);
    };
    EXPECT_EQ(exported(u"employee"_s)[1], u"\"0012\",\"Budi\",,,,,,,,\"HRN\",250.1250,,"_s);
    EXPECT_EQ(exported(u"Employee"_s, u"2026-10-31")[1], u"\"0012\",\"Budi\",,,,,,,,\"BLN\",100,,"_s);
    EXPECT_EQ(exported(u"User"_s)[0], u"\"UserID\""_s);
    EXPECT_EQ(exported(u"Departments"_s)[0], u"\"DeptCode\",\"DeptName\""_s);
    EXPECT_THROW(exported(u"Gaji"_s), ProgramError);
}
