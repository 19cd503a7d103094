#include "cards/card_computation.h"
#include "compute/shift_resolution.h"
#include "database/database_error.h"
#include "support/test_company.h"

using namespace Qt::StringLiterals;
using modAbsen::CalculateTimeCard;
using modAbsen::CalculateTimeCards;
using modAbsen::ResolveShift;

namespace {

const QString Date = u"2026-11-20"_s;
const QString Tcid = u"T202611201001"_s;

/// A day shift P, a night shift M, a night shift N stored on one base day, a shift k in small letters; one
/// employee of each pay type and one about whom nothing is known.
class TimeCard : public CompanyTest {
protected:
    TimeCard() {
        Run(u"PRAGMA synchronous=OFF"_s);
        Db().Execute(u"INSERT INTO Shift VALUES ('M','1899-12-30 22:00:00','1899-12-31 06:00:00'),"
                     "('N','1899-12-30 21:00:00','1899-12-30 05:00:00'),"
                     "('P','1899-12-30 08:00:00','1899-12-30 17:00:00'),"
                     "('S','1899-12-30 12:00:00','1899-12-30 20:00:00'),"
                     "('k','1899-12-30 07:00:00','1899-12-30 09:30:00')"_s);
        for (const auto& [nip, type] : {std::pair{u"1001"_s, u"BLN"_s}, std::pair{u"1002"_s, u" hRn "_s},
                                        std::pair{u"1003"_s, u"HRNX"_s}})
            Db().Execute(u"INSERT INTO Employee (NIP, GP, RateOT, TMakan, EmpType) VALUES (?,?,?,?,?)"_s,
                         {nip, 150000.25, 10000.0, 12500.0, type});
        Db().Execute(u"INSERT INTO Employee (NIP) VALUES ('1004')"_s);
    }

    void Roster(const QString& nip, const QString& code) {
        Db().Execute(u"INSERT INTO ShiftEmployee (NIP, Tgl, ShiftCode) VALUES (?,?,?)"_s,
                     {nip, Date, OrNull(code)});
    }

    /// The one card, with results of an earlier computation. Empty texts are nulls.
    void PutCard(const QString& nip, const QString& status, const QString& timeIn, const QString& timeOut,
                 const QVariant& meal = 1) {
        RemoveCards();
        AddCard(Tcid, nip, status, Date, timeIn, timeOut);
        Run(u"UPDATE TimeCardHeader SET NormalHours=99, OTHours=99, NormalAmount=99, OTAmount=99, "
            "TotalUangMakan=99"_s);
        Db().Execute(u"UPDATE TimeCardDetail SET ShiftCode='Z', BeriUangMakan=?"_s, {meal});
    }

    QString Header() {
        return RowsOf(
                   u"select NormalHours, OTHours, NormalAmount, OTAmount, TotalUangMakan from TimeCardHeader"_s)
            .join(u'/');
    }
    QString DayRow() {
        return RowsOf(u"select TimeINOT, TimeOutOT, ShiftCode from TimeCardDetail"_s).join(u'/');
    }
};

} // namespace

TEST_F(TimeCard, HoursAmountsAndDayRowFollowTheRules) {
    // Times have their day of November before them; the day row is the shift's end and code, "" for
    // untouched.
    const struct {
        QStringView what, nip, roster, status, in, out, header, day;
    } cases[] = {
        {u"early arrival lengthens", u"1001", u"P", u"OUT", u"20 07:45:00", u"20 17:00:00",
         u"9.15|0|0|0|12500", u"20 17:00:00|P"},
        {u"early departure is what counts as overtime", u"1001", u"P", u"OUT", u"20 07:45:00", u"20 16:30:00",
         u"9.15|0.3|0|3000|12500", u"20 17:00:00|P"},
        {u"late arrival shortens, late departure counts nothing", u"1001", u"P", u"OUT", u"20 09:00:00",
         u"20 19:00:00", u"8|0|0|0|12500", u"20 17:00:00|P"},
        {u"under a minute before the end", u"1001", u"P", u"OUT", u"20 15:00:15", u"20 16:59:30",
         u"1.6|0|0|0|12500", u"20 17:00:00|P"},
        {u"night shift", u"1001", u"M", u"OUT", u"20 21:50:00", u"21 06:05:00", u"8.1|0|0|0|12500",
         u"21 06:00:00|M"},
        {u"night shift stored on one base day ends before it began", u"1001", u"N", u"OUT", u"20 21:00:00",
         u"21 05:00:00", u"0|0|0|0|12500", u"20 05:00:00|N"},
        {u"missing shift row", u"1001", u"XX", u"OUT", u"20 08:00:00", u"20 17:00:00", u"0|0|0|0|12500",
         u"20 00:00:00|XX"},
        {u"code in small letters", u"1001", u"k", u"OUT", u"20 07:00:00", u"20 08:30:00",
         u"2.3|1|0|10000|12500", u"20 09:30:00|K"},
        {u"day off", u"1001", u"O", u"OUT", u"20 08:00:00", u"20 16:00:00", u"0|0|0|0|0", u""},
        {u"only the capital O is a day off", u"1001", u"o", u"OUT", u"20 08:00:00", u"20 16:00:00",
         u"0|0|0|0|12500", u"20 00:00:00|O"},
        {u"day off of a daily employee", u"1002", u"O", u"OUT", u"20 08:00:00", u"20 16:00:00",
         u"0|0|150000.25|0|0", u""},
        {u"still in", u"1002", u"P", u"IN", u"20 08:00:00", u"", u"0|0|150000.25|0|0", u""},
        {u"OU", u"1002", u"P", u"OU", u"20 08:00:00", u"20 15:00:00", u"9|2|150000.25|20000|12500",
         u"20 17:00:00|P"},
        {u"PC, neither daily nor monthly", u"1003", u"P", u"PC", u"20 08:00:00", u"20 15:00:00",
         u"9|2|0|20000|12500", u"20 17:00:00|P"},
        {u"status in small letters", u"1001", u"P", u"out", u"20 08:00:00", u"20 15:00:00", u"0|0|0|0|0",
         u""},
        {u"status with a blank", u"1001", u"P", u"OUT ", u"20 08:00:00", u"20 15:00:00", u"0|0|0|0|0", u""},
        {u"no status", u"1001", u"P", u"", u"20 08:00:00", u"20 15:00:00", u"0|0|0|0|0", u""},
        {u"missing employee", u"9999", u"P", u"OUT", u"20 08:00:00", u"20 16:00:00", u"9|1|0|0|0",
         u"20 17:00:00|P"},
        {u"employee with empty columns", u"1004", u"P", u"OUT", u"20 08:00:00", u"20 16:00:00", u"9|1|0|0|0",
         u"20 17:00:00|P"},
        {u"no departure", u"1002", u"P", u"OUT", u"20 08:00:00", u"", u"0|0|150000.25|0|0", u""},
        {u"no arrival", u"1001", u"P", u"OUT", u"", u"20 16:00:00", u"0|0|0|0|0", u""},
        {u"found by its hours", u"1001", u"", u"OUT", u"20 18:00:00", u"20 19:00:00", u"2|1|0|10000|12500",
         u"20 20:00:00|S"},
    };
    const auto moment = [](QStringView dayAndTime) {
        return dayAndTime.isEmpty() ? QString() : u"2026-11-"_s + dayAndTime.toString();
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what.toString().toStdString());
        Db().Execute(u"DELETE FROM ShiftEmployee"_s);
        Roster(c.nip.toString(), c.roster.toString());
        PutCard(c.nip.toString(), c.status.toString(), moment(c.in), moment(c.out));
        const auto unknown = CalculateTimeCard(Db(), Tcid).unknownShifts;
        EXPECT_EQ(unknown.empty(), c.roster != u"XX" && c.roster != u"o");
        EXPECT_EQ(Header(), c.header.toString());
        EXPECT_EQ(DayRow(),
                  c.day.isEmpty() ? u"-|-|Z"_s : moment(c.day).replace(u"|"_s, u'|' + moment(c.out) + u'|'));
    }
}

TEST_F(TimeCard, APayFromADateLeavesTheDaysBeforeItAsTheyAre) {
    const auto amountsOn = [this](const QString& day) {
        RemoveCards();
        AddCard(Tcid, u"1002"_s, u"OUT"_s, day, day + u" 08:00:00"_s, day + u" 16:00:00"_s);
        Run(u"UPDATE TimeCardDetail SET BeriUangMakan=1"_s);
        CalculateTimeCard(Db(), Tcid);
        return RowsOf(u"select NormalAmount, OTAmount, TotalUangMakan from TimeCardHeader"_s).join(u'/');
    };
    Run(u"INSERT INTO EmployeePay (NIP,Berlaku,EmpType,GP,RateOT,TMakan) VALUES "
        "('1002','2026-12-01','HRN',165000,11000.5,14000),('1002','2027-01-15','BLN',4000000,20000,NULL),"
        "('1003','2020-01-01','HRN',1,1,1)"_s);
    const std::pair<QString, QString> cases[] = {
        {u"2026-11-30"_s, u"150000.25|10000|12500"_s},
        {u"2026-12-01"_s, u"165000|11000.5|14000"_s},
        {u"2027-01-14"_s, u"165000|11000.5|14000"_s},
        {u"2027-01-15"_s, u"0|20000|0"_s}, // monthly, and no meal allowance any more
    };
    for (const auto& [day, amounts] : cases)
        EXPECT_EQ(amountsOn(day), amounts) << day.toStdString();
}

TEST_F(TimeCard, EmptyTimesAndAnUnsetMealFlagCountNothing) {
    PutCard(u"1001"_s, u"OUT"_s, u"2026-11-20 08:00:00"_s, u"1899-12-30 00:00:00"_s);
    CalculateTimeCard(Db(), Tcid);
    EXPECT_EQ(Header(), u"0|0|0|0|0"_s);
    EXPECT_EQ(DayRow(), u"-|-|Z"_s);

    for (const QVariant& flag : {QVariant(), QVariant(0)}) {
        PutCard(u"1001"_s, u"OUT"_s, u"2026-11-20 08:00:00"_s, u"2026-11-20 16:00:00"_s, flag);
        CalculateTimeCard(Db(), Tcid);
        EXPECT_EQ(Header(), u"9|1|0|10000|0"_s);
    }
}

TEST_F(TimeCard, WhatCannotBeComputedIsNamedAndStopsNoNeighbour) {
    const auto put = [this](const QString& tcid, const QString& nip) {
        AddCard(tcid, nip, u"OUT"_s, Date, u"2026-11-20 08:00:00"_s, u"2026-11-20 16:00:00"_s);
    };
    Db().Execute(u"INSERT INTO Employee (NIP, RateOT) VALUES ('1e18', 1e18)"_s);
    Roster(u"1003"_s, u"P'"_s);
    const QStringList left{u"a day is missing"_s, u"b header is missing"_s, u"c rate"_s,
                           u"d ' in the number"_s, u"e ' in the shift"_s};
    Db().Execute(u"INSERT INTO TimeCardHeader (TCID,NIP,Status,OTHours) VALUES (?,'1001','OUT',99)"_s,
                 {left[0]});
    Db().Execute(u"INSERT INTO TimeCardDetail (TCID,Tanggal) VALUES (?,?)"_s, {left[1], Date});
    put(left[2], u"1e18"_s);
    put(left[3], u"O'1"_s);
    put(left[4], u"1003"_s);
    put(u"f"_s, u"1001"_s);
    // Its first day counts and the other is left alone.
    Run(u"INSERT INTO TimeCardDetail (TCID,Tanggal,TimeIN,TimeOUT) VALUES "
        "('f','2026-11-21','2026-11-21 08:00:00','2026-11-21 12:00:00')"_s);
    const auto report = CalculateTimeCards(Db(), left + QStringList{u"f"_s, u""_s, u"f"_s, left[0]});
    EXPECT_EQ(RowsOf(u"select TimeOutOT from TimeCardDetail where TCID='f' order by Tanggal"_s),
              (QStringList{u"2026-11-20 16:00:00"_s, u"-"_s}));
    EXPECT_EQ(report.computed, 1);
    QStringList named;
    for (const auto& card : report.notComputed) {
        named << card.tcid;
        EXPECT_EQ(card.reason != nullptr, named.size() > 2) << card.tcid.toStdString();
    }
    EXPECT_EQ(named, left);
    EXPECT_THROW(std::rethrow_exception(report.notComputed.back().reason), StatementError) << "told in full";
    EXPECT_EQ(RowsOf(u"select OTHours from TimeCardHeader order by TCID"_s),
              (QStringList{u"99"_s, u"-"_s, u"-"_s, u"-"_s, u"1"_s}));
    const auto none = CalculateTimeCard(Db(), u""_s);
    EXPECT_TRUE(none.computed == 0 && none.notComputed.empty());
}

TEST_F(TimeCard, DayRowAndHeaderAreWrittenTogetherOrNotAtAll) {
    PutCard(u"1001"_s, u"OUT"_s, u"2026-11-20 08:00:00"_s, u"2026-11-20 16:00:00"_s);
    Run(u"CREATE TRIGGER refuse BEFORE UPDATE ON TimeCardHeader BEGIN "
        "SELECT RAISE(ABORT,'disk on fire'); END"_s);
    EXPECT_THROW(CalculateTimeCard(Db(), Tcid), DatabaseError);
    EXPECT_THROW(CalculateTimeCards(Db(), {Tcid}), DatabaseError);
    EXPECT_EQ(DayRow(), u"-|-|Z"_s);
    EXPECT_EQ(Header(), u"99|99|99|99|99"_s);

    Run(u"DROP TRIGGER refuse"_s);
    CalculateTimeCard(Db(), Tcid);
    EXPECT_EQ(Header(), u"9|1|0|10000|12500"_s) << "nothing was left open";
}

TEST(Shift, IsTheRostersElseTheOneAroundTheClockInElseTheDefault) {
    const auto row = [](const QString& code, QStringView in, QStringView out) {
        return ShiftRow{code, ReadStored(in), ReadStored(out)};
    };
    const std::vector<ShiftRow> shifts{row(u"M"_s, u"1899-12-30 22:00:00", u"1899-12-31 06:00:00"),
                                       row(u"N"_s, u"1899-12-30 21:00:00", u"1899-12-30 05:00:00"),
                                       row(u"P"_s, u"1899-12-30 08:00:00", u"1899-12-30 17:00:00"),
                                       row(u"S"_s, u"1899-12-30 12:00:00", u"1899-12-30 20:00:00"),
                                       row(u"k"_s, u"1899-12-30 07:00:00", u"1899-12-30 09:30:00"),
                                       row(u"Q"_s, u"", u"")};
    const std::tuple<QString, QStringView, QString> cases[] = {
        {u"M"_s, u"08:30:00", u"M"_s}, // the roster wins
        {u""_s, u"19:00:00", u"S"_s},  // an empty roster entry gives nothing
        {u""_s, u"12:30:00", u"P"_s},  // in P and S: the first in order
        {u""_s, u"07:00:00", u"k"_s},  {u""_s, u"20:00:00", u"S"_s}, {u""_s, u"20:00:01", u"P"_s}, // in none
        {u""_s, u"22:30:00", u"M"_s}, // before midnight the night shift is found
        {u""_s, u"02:00:00", u"P"_s}, // after midnight it is not
        {u""_s, u"21:30:00", u"P"_s}, // one stored on one base day never is
        {u""_s, u"", u"P"_s},
    };
    for (const auto& [roster, clockIn, code] : cases)
        EXPECT_EQ(ResolveShift(roster, ReadStored(u"2026-11-20 "_s + clockIn.toString()), shifts), code)
            << clockIn.toString().toStdString();
}
