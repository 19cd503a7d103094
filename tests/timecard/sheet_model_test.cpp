#include "timecard/sheet_model.h"

#include "database/sqlite_dialect.h"
#include "support/failures.h"
#include "support/recording_engine.h"
#include "support/test_company.h"
#include "timecard/clock_recording.h"
#include "timecard/employee_details.h"
#include "timecard/sheet_lifecycle.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>

using namespace Qt::StringLiterals;

namespace {

const QString Sheet = u"T20261122"_s;
const QString ByName = u" ORDER BY NAMA"_s;

class DaySheet : public CompanyTest {
protected:
    DaySheet() {
        AddEmployee(u"0012"_s, u"Budi"_s, u"x"_s, u"PROD"_s, u"A"_s);
        AddEmployee(u"0013"_s, u"Ani"_s, u"x"_s, u"GA"_s);
    }

    void AddCard(const QString& sheet, const QString& status, const QString& times) {
        const QString card = u'\'' + sheet + u"0012'"_s;
        Run(u"INSERT INTO TimeCardHeader (TCID,NIP,Status) VALUES (%1,'0012',%2)"_s.arg(card, status));
        Run(u"INSERT INTO TimeCardDetail (TCID,Tanggal,TimeIN,TimeOUT,TimeINOT,TimeOutOT) VALUES (%1,'2026-11-22',%2)"_s
                .arg(card, times));
    }
    /// The cells of a row from the left to the right.
    QString Row(int row) const {
        QStringList cells;
        for (int column = 0; column < model.columnCount(); ++column)
            cells << model.index(row, column).data().toString();
        return cells.join(u'|');
    }
    void Refresh(const QString& sheet = Sheet) { model.Refresh(Db(), sheet); }

    SheetModel model{clock};
    QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::Fatal};
};

} // namespace

TEST_F(DaySheet, ShowsEachStateOfACard) {
    const std::tuple<const char*, QString, QString, QString> cases[] = {
        {"in, 58:12 ago", u"'IN'"_s, u"'2026-11-22 07:00:00',NULL,NULL,NULL"_s,
         u"IN|07:00:00||00:58:12|||"_s},
        {"in, though it left before", u"'IN'"_s, u"'2026-11-22 06:28:12','2026-11-22 06:30:00',NULL,NULL"_s,
         u"IN|06:28:12|06:30:00|1:30:00|||"_s},
        {"in, from tomorrow on", u"'IN'"_s, u"'2026-11-22 08:00:12',NULL,NULL,NULL"_s,
         u"IN|08:00:12||0:-120|||"_s},
        {"in without a time", u"'IN'"_s, u"NULL,NULL,NULL,NULL"_s, u"IN||||||"_s},
        {"out", u"'OUT'"_s, u"'2026-11-21 22:00:00','2026-11-22 06:30:00',NULL,NULL"_s,
         u"OUT|22:00:00|06:30:00|8:30:00|||"_s},
        {"out without an arrival", u"'OUT'"_s, u"'1899-12-30 00:00:00','2026-11-22 06:30:00',NULL,NULL"_s,
         u"OUT||06:30:00||||"_s},
        {"absent without departure", u"'A'"_s, u"'2026-11-22 07:00:00',NULL,NULL,NULL"_s,
         u"A|07:00:00|||||"_s},
        {"status null", u"NULL"_s, u"'2026-11-22 07:00:00','2026-11-22 07:02:05',NULL,NULL"_s,
         u"A|07:00:00|07:02:05|00:2:05|||"_s},
        {"overtime, dates dropped", u"'OUT'"_s, u"NULL,NULL,'2026-11-20 15:00:00','2026-11-22 16:30:00'"_s,
         u"OUT||||15:00:00|16:30:00|1:30:00"_s},
        {"overtime past midnight", u"'OUT'"_s, u"NULL,NULL,'2026-11-22 23:00:00','2026-11-23 01:00:00'"_s,
         u"OUT||||23:00:00|01:00:00|0:-79200"_s},
        {"overtime begun", u"'OUT'"_s, u"NULL,NULL,'2026-11-22 15:00:00',NULL"_s, u"OUT||||15:00:00||"_s},
        {"overtime without a start", u"'OUT'"_s, u"NULL,NULL,NULL,'2026-11-22 15:00:00'"_s,
         u"OUT|||||15:00:00|"_s},
    };
    model.LoadEmployees(Db(), ByName);
    for (const auto& [what, status, times, row] : cases) {
        RemoveCards();
        AddCard(Sheet, status, times);
        Refresh();
        const QString shown = Row(1).replace(u"|PROD/A|0012|Budi"_s, QString());
        EXPECT_EQ(shown, row) << what;
        EXPECT_EQ(Row(0), u"A|GA/|0013|Ani||||||"_s) << what;
    }
    Run(u"DELETE FROM TimeCardHeader"_s); // a day row whose header is gone
    Refresh();
    EXPECT_EQ(Row(1), u"A|PROD/A|0012|Budi|||||15:00:00|"_s);
    Run(u"DELETE FROM TimeCardDetail"_s);
    Refresh();
    EXPECT_EQ(Row(1), u"A|PROD/A|0012|Budi||||||"_s);
}

TEST_F(DaySheet, EachSheetShowsItsOwnCardsAndTheirFirstDay) {
    AddCard(Sheet, u"'OUT'"_s, u"'2026-11-22 07:00:00',NULL,NULL,NULL"_s);
    Run(u"INSERT INTO TimeCardDetail (TCID,Tanggal,TimeIN) VALUES ('T202611220012','2026-11-23','2026-11-23 09:00:00')"_s);
    AddCard(Sheet + u"-A"_s, u"'OUT'"_s, u"'2026-11-22 13:00:00',NULL,NULL,NULL"_s);
    model.LoadEmployees(Db(), ByName);
    const std::pair<QString, QString> cases[] = {{Sheet, u"07:00:00"_s},
                                                 {Sheet + u"-a"_s, u"13:00:00"_s},
                                                 {u"T20261123"_s, u""_s},
                                                 {Sheet, u"07:00:00"_s}};
    for (const auto& [sheet, timeIn] : cases) {
        Refresh(sheet);
        EXPECT_EQ(model.index(1, SheetModel::TimeIn).data().toString(), timeIn) << sheet.toStdString();
    }
    Refresh(u"T20261124"_s);
    EXPECT_EQ(model.SheetDay(), clock.Today());
    EXPECT_NE(FailureOf([&] { Refresh(u"T'"_s); }), QString());
}

TEST_F(DaySheet, ACardThatTwoNumbersShareStandsInBothRows) {
    AddEmployee(u"k1"_s, u"Citra"_s, u"x"_s);
    AddEmployee(u"K1"_s, u"Dodi"_s, u"x"_s);
    Run(u"INSERT INTO TimeCardDetail (TCID,Tanggal,TimeIN) VALUES ('T20261122K1','2026-11-22','2026-11-22 07:00:00')"_s);
    Run(u"INSERT INTO TimeCardDetail (TCID,Tanggal,TimeIN) VALUES ('T20261122GONE','2026-11-22','2026-11-22 08:00:00')"_s);
    model.LoadEmployees(Db(), ByName);
    Refresh();
    QStringList arrivals;
    for (int row = 0; row < model.rowCount(); ++row)
        arrivals << model.index(row, SheetModel::TimeIn).data().toString();
    EXPECT_EQ(arrivals, (QStringList{u""_s, u""_s, u"07:00:00"_s, u"07:00:00"_s}));
}

TEST_F(DaySheet, HoursRunWithTheClockUntilTheSheetIsClosed) {
    RecordClockEntry(Db(), {Sheet, clock.Today(), u"IN"_s, clock.now}, u"0012"_s);
    model.LoadEmployees(Db(), ByName);
    const auto hours = [&] { return model.index(1, SheetModel::Hours).data().toString(); };
    Refresh();
    EXPECT_EQ(hours(), u"0:00"_s);
    QSignalSpy changes(&model, &QAbstractItemModel::dataChanged);
    clock.now += std::chrono::minutes(2);
    Refresh();
    EXPECT_EQ(hours(), u"00:2:00"_s);
    ASSERT_EQ(changes.size(), 1);
    EXPECT_EQ(changes[0][0].toModelIndex().column(), SheetModel::Hours);

    const auto other = OtherDesk();
    RecordClockEntry(*other, {Sheet, clock.Today(), u"IN"_s, clock.now}, u"0013"_s);
    CloseSheet(*other, Sheet);
    clock.now += std::chrono::minutes(2);
    Refresh();
    EXPECT_TRUE(model.IsClosed());
    EXPECT_EQ(hours(), u"00:2:00"_s);
    EXPECT_EQ(Row(0), u"A|GA/|0013|Ani||||||"_s);
    EXPECT_EQ(changes.size(), 1);
    model.LoadEmployees(Db(), u" ORDER BY [NIP]"_s);
    Refresh();
    EXPECT_EQ(Row(0), u"IN|PROD/A|0012|Budi|07:58:12||00:2:00|||"_s) << "as it was before it was sorted";
    model.LoadEmployees(Db(), ByName);
    CloseSheet(*other, Sheet + u"-A"_s);
    model.Refresh(Db(), Sheet + u"-A"_s);
    EXPECT_EQ(hours(), QString()) << "not those of the sheet before";
    ReopenSheet(*other, Sheet);
    Refresh();
    EXPECT_FALSE(model.IsClosed());
    EXPECT_EQ(hours(), u"00:4:00"_s);
    EXPECT_EQ(Row(0), u"IN|GA/|0013|Ani|08:00:12||00:2:00|||"_s);
}

TEST_F(DaySheet, TellsTheRosterOfWhoHasNoCard) {
    AddEmployee(u"0014"_s, u"Citra"_s, u"x"_s);
    Run(u"INSERT INTO ShiftEmployee (NIP,Tgl,ShiftCode) VALUES "
        u"('0012','2026-11-22','O'),('0013','2026-11-22','M'),"
        "('0014','2026-11-21','P')"_s);
    model.LoadEmployees(Db(), u" ORDER BY NIP"_s);
    const auto tips = [&] {
        Refresh();
        QStringList texts;
        for (int row = 0; row < model.rowCount(); ++row)
            texts << model.index(row, 0).data(Qt::StatusTipRole).toString();
        return texts;
    };
    EXPECT_EQ(tips(), (QStringList{u"Budi: libur menurut jadwal shift 22-Nov-2026"_s,
                                   u"Ani: belum hadir, jadwal 22-Nov-2026 shift M"_s,
                                   u"Citra: tidak ada di jadwal shift 22-Nov-2026"_s}));
    AddCard(Sheet, u"'IN'"_s, u"'2026-11-22 07:00:00',NULL,NULL,NULL"_s);
    EXPECT_EQ(tips().first(), QString());
    CloseSheet(Db(), Sheet);
    EXPECT_EQ(tips(), (QStringList{{}, {}, {}}));
}

TEST_F(DaySheet, ReadsFewStatementsAndNoneWhenNothingChanged) {
    QStringList statements;
    Connection desk(std::make_unique<RecordingEngine>(statements), DatabaseFile());
    const auto refresh = [&] {
        statements.clear();
        model.Refresh(desk, Sheet);
        return statements.size();
    };
    model.LoadEmployees(desk, ByName);
    const auto withTwo = refresh();
    EXPECT_GT(withTwo, 0);
    EXPECT_EQ(refresh(), 0);
    clock.now += std::chrono::hours(1);
    EXPECT_EQ(refresh(), 0);
    for (int i = 100; i < 110; ++i)
        AddEmployee(QString::number(i), u"x"_s, u"x"_s);
    model.LoadEmployees(desk, ByName);
    EXPECT_EQ(refresh(), withTwo);
    EXPECT_EQ(refresh(), 0);
    Run(u"UPDATE Employee SET Nama='y' WHERE NIP='100'"_s);
    EXPECT_EQ(refresh(), withTwo + 1) << "the employees, too";
    EXPECT_EQ(model.index(model.RowOf(u"100"_s), SheetModel::Nama).data(), u"y"_s);
    clock.now += std::chrono::hours(24); // the date of a sheet without cards is the present day
    EXPECT_EQ(refresh(), withTwo);
    EXPECT_EQ(model.SheetDay(), clock.Today());
}

TEST_F(DaySheet, EveryStatementOfTheDeskUsesAnIndex) {
    QStringList statements;
    Connection desk(std::make_unique<RecordingEngine>(statements), DatabaseFile());
    model.LoadEmployees(desk, ByName);
    statements.clear(); // the list of all employees is read whole, also with the roster
    model.Refresh(desk, Sheet);
    model.Refresh(desk, Sheet + u"-1"_s);
    RecordClockEntry(desk, {Sheet, clock.Today(), u"IN"_s, clock.now}, u"0012"_s);
    RecordClockEntry(desk, {Sheet, clock.Today(), u"N"_s, clock.now}, u"0012"_s);
    LoadEmployeeDetails(desk, u"0012"_s);
    LoadStoredPassword(desk, u"0012"_s);
    CloseSheet(desk, Sheet);
    statements << u"select * from ShiftEmployee where year(Tgl)=2026 and Month(Tgl)=11"_s
               << u"select * from ShiftEmployee Where NIP='0012' and Tgl=#2026-11-22#"_s
               << u"sp_TimeCardDetail 'T202611220012'"_s << u"sp_sel_TimeCard 'T202611220012'"_s;
    ASSERT_GE(statements.size(), 15);
    for (const QString& statement : statements) {
        SCOPED_TRACE(statement.toStdString());
        const QString native = ToSqlite(statement).replace(u'?', u"'x'"_s);
        Cursor plan = desk.QueryNative(u"EXPLAIN QUERY PLAN "_s + native);
        int steps = 0;
        for (; plan.Next(); ++steps) {
            const QString step = plan.Text(3);
            EXPECT_TRUE(step.startsWith(u"SEARCH"_s) || step == u"SCAN e"_s) << step.toStdString();
        }
        EXPECT_EQ(steps == 0, native.startsWith(u"INSERT"_s));
    }
}
