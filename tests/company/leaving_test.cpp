#include "cards/listed_employees.h"
#include "core/code_lists.h"
#include "shifts/roster_model.h"
#include "timecard/clock_recording.h"
#include "timecard/sheet_model.h"

#include "support/test_company.h"

using namespace Qt::StringLiterals;

namespace {

QStringList NumbersIn(const QAbstractItemModel& model, int column) {
    QStringList numbers;
    for (int row = 0; row < model.rowCount(); ++row)
        numbers << model.index(row, column).data().toString();
    return numbers;
}

/// One who stays, one whose last day is 20 November.
class Leaving : public CompanyTest {
protected:
    Leaving() {
        AddEmployee(u"1"_s, u"Stays"_s, u"x"_s);
        AddEmployee(u"2"_s, u"Left"_s, u"x"_s);
        Run(u"UPDATE Employee SET Keluar='2026-11-20' WHERE NIP='2'"_s);
    }
    QStringList Listed(int month, int first, int last) {
        QStringList numbers;
        const DayRange days{*MakeDay(2026, static_cast<int>(month), first), *MakeDay(2026, month, last)};
        for (const ListedEmployee& employee : ReadListedEmployees(Db(), {.days = days}, u"NIP"_s))
            numbers << employee.nip;
        return numbers;
    }
    const QStringList both{u"1"_s, u"2"_s};
    const QStringList one{u"1"_s};
};

} // namespace

TEST_F(Leaving, WhoLeftStandsOnNoLaterSheetRosterOrList) {
    SheetModel sheet(clock);
    sheet.LoadEmployees(Db(), u" ORDER BY NIP"_s);
    for (const auto& [id, numbers] : {std::pair{u"T20261120"_s, both},
                                      {u"T20261121"_s, one},
                                      {u"T20261119"_s, both},
                                      {u"T20261122-2"_s, one}}) {
        sheet.Refresh(Db(), id);
        EXPECT_EQ(NumbersIn(sheet, SheetModel::Nip), numbers) << id.toStdString();
    }
    RosterModel roster(clock);
    Run(u"INSERT INTO ShiftEmployee VALUES ('1','2026-12-02','P'),('2','2026-11-02','PAGI')"_s);
    roster.LoadEmployees(Db());
    for (const auto& [period, numbers] :
         {std::pair{u"202612"_s, one}, {u"202611"_s, both}, {u"202612"_s, one}}) {
        roster.LoadRoster(Db(), period);
        EXPECT_EQ(NumbersIn(roster, RosterModel::Nip), numbers) << period.toStdString();
    }
    EXPECT_EQ(roster.index(0, RosterModel::FirstDay + 1).data(), u"P"_s);
    EXPECT_EQ(RowsOf(PickListQuery::EntryEmployees(*MakeDay(2026, 11, 20))).size(), 2);
    EXPECT_EQ(RowsOf(PickListQuery::EntryEmployees(*MakeDay(2026, 11, 21))), QStringList{u"Stays|1"_s});
}

TEST_F(Leaving, ReportsKeepWhoWasThereAndEveryCard) {
    EXPECT_EQ(Listed(11, 20, 30), both);
    EXPECT_EQ(Listed(11, 21, 30), one);
    AddCard(u"T202611252"_s, u"2"_s, u"IN"_s, u"2026-11-25"_s);
    EXPECT_EQ(Listed(11, 21, 30), both) << "a card that stands all the same";
    EXPECT_EQ(Listed(11, 26, 30), one);
}

TEST_F(Leaving, WhoLeftClocksOutButNotInAgain) {
    const auto record = [this](const QString& day, QStringView mode) {
        const WallTime at = Moment(day + u" 08:00:00"_s);
        return RecordClockEntry(Db(), {u"T"_s + QString(day).remove(u'-'), DayOf(at), mode.toString(), at},
                                u"2"_s);
    };
    EXPECT_EQ(record(u"2026-11-20"_s, ClockMode::In), std::nullopt);
    EXPECT_EQ(record(u"2026-11-20"_s, ClockMode::Out), std::nullopt);
    EXPECT_EQ(record(u"2026-11-21"_s, ClockMode::In), Refusal::HasLeft);
    EXPECT_EQ(RowsOf(u"select TCID from TimeCardHeader"_s), QStringList{u"T202611202"_s});
}
