#include "database/database_error.h"
#include "exchange/csv_reader.h"
#include "exchange/number_form.h"
#include "exchange/table_export.h"
#include "support/test_company.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace {

class Csv : public testing::Test {
protected:
    QString Written(const QByteArray& bytes) const {
        QFile file(folder.filePath(u"in.csv"_s));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        return file.fileName();
    }

    /// Each row as its line and its cells.
    static QStringList RowsIn(const QString& path) {
        QStringList rows;
        ReadCsv(path, [&rows](const CsvRow& row) {
            rows << QString::number(row.line) + u':' + row.cells.join(u'|');
            return true;
        });
        return rows;
    }

    QTemporaryDir folder;
};

} // namespace

TEST_F(Csv, IsReadAsSpreadsheetsWriteIt) {
    const std::tuple<const char*, QByteArray, QStringList> cases[] = {
        {"commas", "NIP,Nama\n1,Budi\n", {u"1:NIP|Nama"_s, u"2:1|Budi"_s}},
        {"semicolons, a mark, no last end",
         "\xEF\xBB\xBFNIP;Nama\r\n1;Budi, S.E.",
         {u"1:NIP|Nama"_s, u"2:1|Budi, S.E."_s}},
        {"tabs and empty cells", "NIP\tNama\tDept\n\t\tPRD\n", {u"1:NIP|Nama|Dept"_s, u"2:||PRD"_s}},
        {"a separator in quotes", "\"Nama; a, b, c\";NIP\n", {u"1:Nama; a, b, c|NIP"_s}},
        {"quotes, ends inside, blank lines",
         "a,b\n\n\"x\r\ny \"\"z\"\"\",1\n ,\n2,3\n",
         {u"1:a|b"_s, u"3:x\r\ny \"z\"|1"_s, u"6:2|3"_s}},
        {"a named separator", "sep=;\r\na,b;c\r\n", {u"2:a,b|c"_s}},
        {"carriage returns alone", "a;b\r1;2\r\r3;4", {u"1:a|b"_s, u"2:1|2"_s, u"3:3|4"_s}},
        {"UTF-8", "Nama,x\nRen\xC3\xA9,\xE2\x82\xAC\n", {u"1:Nama|x"_s, u"2:René|€"_s}},
        {"Windows-1252", "Nama,x\nRen\xE9 \x96,\x80\n", {u"1:Nama|x"_s, u"2:René –|€"_s}},
        {"marks against formulas", "a,b,c\n'=1,'Abc,''+5\n", {u"1:a|b|c"_s, u"2:=1|'Abc|'+5"_s}},
        {"nothing", "", {}},
    };
    for (const auto& [what, bytes, rows] : cases)
        EXPECT_EQ(RowsIn(Written(bytes)), rows) << what;
    // A character and a line across the borders of what is read at once.
    const QString row = QString(70'000, u'é') + u"|1"_s;
    EXPECT_EQ(RowsIn(Written("a,b\n" + row.chopped(2).toUtf8() + ",1\nx,y\n")),
              (QStringList{u"1:a|b"_s, u"2:"_s + row, u"3:x|y"_s}));
}

TEST_F(Csv, WhatIsNoTextOrDoesNotEndIsTold) {
    const std::tuple<QByteArray, ErrorKind, QString> cases[] = {
        {QByteArray("\xFF\xFEN\0I\0P\0", 8), ErrorKind::NoTextFile, u"save it as CSV"_s},
        {"a,b\n1,2\n3,\"open\n4,5\n", ErrorKind::QuoteOpen, u"line 3"_s},
    };
    for (const auto& [bytes, kind, says] : cases) {
        try {
            RowsIn(Written(bytes));
            ADD_FAILURE() << says.toStdString();
        } catch (const ProgramError& error) {
            EXPECT_EQ(error.Kind(), kind);
            EXPECT_TRUE(error.Description().contains(says)) << error.what();
        }
    }
    EXPECT_THROW(RowsIn(folder.filePath(u"none.csv"_s)), ProgramError);
}

TEST(NumberForms, AreRecognisedOverTheWholeFile) {
    using enum NumberForm;
    const std::tuple<QStringList, NumberForm, QString, QStringList> cases[] = {
        {{u"150000"_s, u"-5"_s}, Digits, u""_s, {u"150000"_s, u"-5"_s}},
        {{u"150.000"_s, u"1.500.000"_s}, CommaDecimals, u""_s, {u"150000"_s, u"1500000"_s}},
        {{u"150.000"_s, u"7"_s}, CommaDecimals, u""_s, {u"150000"_s, u"7"_s}},
        {{u"150,000"_s}, PointDecimals, u""_s, {u"150000"_s}},
        {{u"150,000.00"_s, u"1,5"_s}, PointDecimals, u""_s, {u"150000.00"_s, u"-"_s}},
        {{u"Rp 150.000,50"_s, u" 12,5 "_s}, CommaDecimals, u""_s, {u"150000.50"_s, u"12.5"_s}},
        {{u"12.5"_s, u"9150.125"_s, u"1,000"_s}, PointDecimals, u""_s, {u"12.5"_s, u"9150.125"_s, u"1000"_s}},
        {{u"12.5"_s, u"150.000"_s}, PointDecimals, u"150.000"_s, {u"12.5"_s, u"150.000"_s}},
        {{u"150.000"_s, u"150,000"_s}, CommaDecimals, u"150,000"_s, {u"150000"_s, u"150.000"_s}},
        {{u"12a"_s, u"1.2.3"_s, u"1e5"_s, u""_s, u"1,50.000"_s},
         Digits,
         u""_s,
         {u"-"_s, u"-"_s, u"-"_s, u"-"_s, u"-"_s}},
    };
    for (const auto& [cells, form, inDoubt, numbers] : cases) {
        SCOPED_TRACE(cells.join(u' ').toStdString());
        NumberFormFinder finder;
        for (const QString& cell : cells)
            finder.Note(cell);
        EXPECT_EQ(finder.Found().form, form);
        EXPECT_EQ(finder.Found().inDoubt, inDoubt);
        QStringList read;
        for (const QString& cell : cells)
            read << ReadNumber(cell, form).value_or(u"-"_s);
        EXPECT_EQ(read, numbers);
    }
}

TEST(DateForms, AreRecognisedOverTheWholeFile) {
    const std::tuple<QStringList, DateForm, QString, QStringList> cases[] = {
        {{u"2026-01-31"_s, u"2026-02-30"_s}, DateForm::DayFirst, u""_s, {u"2026-01-31"_s, u"-"_s}},
        {{u"1/2/2026"_s, u"31.01.2026"_s}, DateForm::DayFirst, u""_s, {u"2026-02-01"_s, u"2026-01-31"_s}},
        {{u"1/2/2026"_s, u"1/31/2026 0:00:00"_s},
         DateForm::MonthFirst,
         u""_s,
         {u"2026-01-02"_s, u"2026-01-31"_s}},
        {{u"1/2/2026"_s, u"5-5-2026"_s},
         DateForm::DayFirst,
         u"1/2/2026"_s,
         {u"2026-02-01"_s, u"2026-05-05"_s}},
        {{u"1/2/26"_s, u"2026-01-31 08:00:00"_s}, DateForm::DayFirst, u""_s, {u"-"_s, u"-"_s}},
    };
    for (const auto& [cells, form, inDoubt, days] : cases) {
        SCOPED_TRACE(cells.join(u' ').toStdString());
        DateFormFinder finder;
        for (const QString& cell : cells)
            finder.Note(cell);
        EXPECT_EQ(finder.Found().form, form);
        EXPECT_EQ(finder.Found().inDoubt, inDoubt);
        QStringList read;
        for (const QString& cell : cells) {
            const std::optional<Day> day = ReadDate(cell, form);
            read << (day ? StoredDay(*day) : u"-"_s);
        }
        EXPECT_EQ(read, days);
    }
}

TEST_F(Csv, WhatIsWrittenComesBackUnchanged) {
    const QStringList texts{u"0012"_s, u"=1+1"_s, u"+62"_s,          u"-"_s,    u"@x"_s,  u"'=a"_s,
                            u"''+"_s,  u"'"_s,    u"a,\"b\"\r\nc"_s, u" é€ "_s, u"\tx"_s, u"Ma'ruf"_s};
    const QString path = folder.filePath(u"out.csv"_s);
    EXPECT_TRUE(ExportTable(path, {{u"Text"_s}, {u"Number"_s, ColumnKind::Number}}, [&](const auto& sink) {
        for (const QString& text : texts)
            sink({text, 12.125});
        return true;
    }));
    QStringList read;
    NumberFormFinder numbers;
    ReadCsv(path, [&](const CsvRow& row) {
        read << row.cells[0];
        numbers.Note(row.cells[1]);
        return true;
    });
    EXPECT_EQ(read.mid(1), texts);
    EXPECT_EQ(numbers.Found().form, NumberForm::PointDecimals);
    EXPECT_TRUE(BytesOf(path).startsWith("\xEF\xBB\xBF\"Text\",\"Number\"\r\n\"0012\",12.1250\r\n\"'=1+1\""));
    // A table that was stopped leaves the former file.
    const QByteArray former = BytesOf(path);
    EXPECT_FALSE(ExportTable(path, {{u"x"_s}}, [](const auto&) { return false; }));
    EXPECT_EQ(BytesOf(path), former);
}
