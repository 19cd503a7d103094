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

class DaySheet : public testing::Test {
protected:
    DaySheet() {
        company.AddEmployee(u"0012"_s, u"Budi"_s, u"x"_s, u"PROD"_s, u"A"_s);
        company.AddEmployee(u"0013"_s, u"Ani"_s, u"x"_s, u"GA"_s);
    }

    void Add(const QString& statement) { company.Db().ExecuteNative(u"INSERT INTO "_s + statement); }
    void AddCard(const QString& sheet, const QString& status, const QString& times) {
        const QString card = u'\'' + sheet + u"0012'"_s;
        Add(u"TimeCardHeader (TCID,NIP,Status) VALUES (%1,'0012',%2)"_s.arg(card, status));
        Add(u"TimeCardDetail (TCID,Tanggal,TimeIN,TimeOUT,TimeINOT,TimeOutOT) VALUES (%1,'2026-11-22',%2)"_s
                .arg(card, times));
    }
    /// The cells of a row from the left to the right.
    QString Row(int row) const {
        QStringList cells;
        for (int column = 0; column < model.columnCount(); ++column)
            cells << model.index(row, column).data().toString();
        return cells.join(u'|');
    }
    void Refresh(const QString& sheet = Sheet) { model.Refresh(company.Db(), sheet); }

    TestCompany company;
    SheetModel model{company.clock};
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
    model.LoadEmployees(company.Db(), ByName);
    for (const auto& [what, status, times, row] : cases) {
        company.Db().ExecuteNative(u"DELETE FROM TimeCardHeader"_s);
        company.Db().ExecuteNative(u"DELETE FROM TimeCardDetail"_s);
        AddCard(Sheet, status, times);
        Refresh();
        const QString shown = Row(1).replace(u"|PROD/A|0012|Budi"_s, QString());
        EXPECT_EQ(shown, row) << what;
        EXPECT_EQ(Row(0), u"A|GA/|0013|Ani||||||"_s) << what;
    }
    company.Db().ExecuteNative(u"DELETE FROM TimeCardHeader"_s); // a day row whose header is gone
    Refresh();
    EXPECT_EQ(Row(1), u"A|PROD/A|0012|Budi|||||15:00:00|"_s);
    company.Db().ExecuteNative(u"DELETE FROM TimeCardDetail"_s);
    Refresh();
    EXPECT_EQ(Row(1), u"A|PROD/A|0012|Budi||||||"_s);
}

TEST_F(DaySheet, EachSheetShowsItsOwnCardsAndTheirFirstDay) {
    AddCard(Sheet, u"'OUT'"_s, u"'2026-11-22 07:00:00',NULL,NULL,NULL"_s);
    Add(u"TimeCardDetail (TCID,Tanggal,TimeIN) VALUES ('T202611220012','2026-11-23','2026-11-23 09:00:00')"_s);
    AddCard(Sheet + u"-A"_s, u"'OUT'"_s, u"'2026-11-22 13:00:00',NULL,NULL,NULL"_s);
    model.LoadEmployees(company.Db(), ByName);
    const std::pair<QString, QString> cases[] = {{Sheet, u"07:00:00"_s},
                                                 {Sheet + u"-a"_s, u"13:00:00"_s},
                                                 {u"T20261123"_s, u""_s},
                                                 {Sheet, u"07:00:00"_s}};
    for (const auto& [sheet, timeIn] : cases) {
        Refresh(sheet);
        EXPECT_EQ(model.index(1, SheetModel::TimeIn).data().toString(), timeIn) << sheet.toStdString();
    }
    Refresh(u"T20261124"_s);
    EXPECT_EQ(model.SheetDay(), company.clock.Today());
    EXPECT_NE(FailureOf([&] { Refresh(u"T'"_s); }), QString());
}

TEST_F(DaySheet, ACardThatTwoNumbersShareStandsInBothRows) {
    company.AddEmployee(u"k1"_s, u"Citra"_s, u"x"_s);
    company.AddEmployee(u"K1"_s, u"Dodi"_s, u"x"_s);
    Add(u"TimeCardDetail (TCID,Tanggal,TimeIN) VALUES ('T20261122K1','2026-11-22','2026-11-22 07:00:00')"_s);
    Add(u"TimeCardDetail (TCID,Tanggal,TimeIN) VALUES ('T20261122GONE','2026-11-22','2026-11-22 08:00:00')"_s);
    model.LoadEmployees(company.Db(), ByName);
    Refresh();
    QStringList arrivals;
    for (int row = 0; row < model.rowCount(); ++row)
        arrivals << model.index(row, SheetModel::TimeIn).data().toString();
    EXPECT_EQ(arrivals, (QStringList{u""_s, u""_s, u"07:00:00"_s, u"07:00:00"_s}));
}

TEST_F(DaySheet, HoursRunWithTheClockUntilTheSheetIsClosed) {
    RecordClockEntry(company.Db(), {Sheet, company.clock.Today(), u"IN"_s, company.clock.now}, u"0012"_s);
    model.LoadEmployees(company.Db(), ByName);
    const auto hours = [&] { return model.index(1, SheetModel::Hours).data().toString(); };
    Refresh();
    EXPECT_EQ(hours(), u"0:00"_s);
    QSignalSpy changes(&model, &QAbstractItemModel::dataChanged);
    company.clock.now += std::chrono::minutes(2);
    Refresh();
    EXPECT_EQ(hours(), u"00:2:00"_s);
    ASSERT_EQ(changes.size(), 1);
    EXPECT_EQ(changes[0][0].toModelIndex().column(), SheetModel::Hours);

    const auto other = company.OtherDesk();
    CloseSheet(*other, Sheet);
    RecordClockEntry(*other, {Sheet, company.clock.Today(), u"IN"_s, company.clock.now}, u"0013"_s);
    company.clock.now += std::chrono::minutes(2);
    Refresh();
    EXPECT_TRUE(model.IsClosed());
    EXPECT_EQ(hours(), u"00:2:00"_s);
    EXPECT_EQ(Row(0), u"A|GA/|0013|Ani||||||"_s);
    EXPECT_EQ(changes.size(), 1);
    CloseSheet(*other, Sheet + u"-A"_s);
    model.Refresh(company.Db(), Sheet + u"-A"_s);
    EXPECT_EQ(hours(), QString()) << "not those of the sheet before";
    ReopenSheet(*other, Sheet);
    Refresh();
    EXPECT_FALSE(model.IsClosed());
    EXPECT_EQ(hours(), u"00:4:00"_s);
    EXPECT_EQ(Row(0), u"IN|GA/|0013|Ani|08:00:12||00:2:00|||"_s);
}

TEST_F(DaySheet, ReadsFewStatementsAndNoneWhenNothingChanged) {
    QStringList statements;
    Connection desk(std::make_unique<RecordingEngine>(statements), company.DatabaseFile());
    const auto refresh = [&] {
        statements.clear();
        model.Refresh(desk, Sheet);
        return statements.size();
    };
    model.LoadEmployees(desk, ByName);
    const auto withTwo = refresh();
    EXPECT_GT(withTwo, 0);
    EXPECT_EQ(refresh(), 0);
    company.clock.now += std::chrono::hours(1);
    EXPECT_EQ(refresh(), 0);
    for (int i = 100; i < 110; ++i)
        company.AddEmployee(QString::number(i), u"x"_s, u"x"_s);
    model.LoadEmployees(desk, ByName);
    EXPECT_EQ(refresh(), withTwo);
    EXPECT_EQ(refresh(), 0);
    company.Db().ExecuteNative(u"UPDATE Employee SET Nama='y' WHERE NIP='100'"_s);
    EXPECT_EQ(refresh(), withTwo);
    company.clock.now += std::chrono::hours(24); // the date of a sheet without cards is the present day
    EXPECT_EQ(refresh(), withTwo);
    EXPECT_EQ(model.SheetDay(), company.clock.Today());
}

TEST_F(DaySheet, EveryStatementOfTheDeskUsesAnIndex) {
    QStringList statements;
    Connection desk(std::make_unique<RecordingEngine>(statements), company.DatabaseFile());
    model.LoadEmployees(desk, ByName);
    statements.clear(); // the list of all employees is read whole
    model.Refresh(desk, Sheet);
    model.Refresh(desk, Sheet + u"-1"_s);
    RecordClockEntry(desk, {Sheet, company.clock.Today(), u"IN"_s, company.clock.now}, u"0012"_s);
    RecordClockEntry(desk, {Sheet, company.clock.Today(), u"N"_s, company.clock.now}, u"0012"_s);
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
        for (; plan.Next(); ++steps)
            EXPECT_TRUE(plan.Text(3).startsWith(u"SEARCH"_s)) << plan.Text(3).toStdString();
        EXPECT_EQ(steps == 0, native.startsWith(u"INSERT"_s));
    }
}
