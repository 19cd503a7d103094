#include "tools/demo_support.h"

using namespace Qt::StringLiterals;

namespace {

/// What is done to a sound demo company, and what the check then says.
struct Case {
    QStringList statements;
    QStringList findings;
};

/// A card of the employee 0001, and how findings about it and about its day begin.
const QString Tcid = u"T202611220001"_s;
const QString OfCard = u"TimeCardHeader T202611220001: "_s;
const QString OfDay = u"TimeCardDetail T202611220001 2026-11-22: "_s;

QString Header(const QString& status = u"S"_s, const QString& tcid = Tcid, const QString& nip = u"0001"_s) {
    return u"INSERT INTO TimeCardHeader (TCID, NIP, Status) VALUES ('%1','%2','%3')"_s.arg(tcid, nip, status);
}

/// A day row; the times are of that day unless they name their own.
QString DayRow(const QString& tcid = Tcid, const QString& timeIn = {}, const QString& timeOut = {},
               const QString& day = u"2026-11-22"_s) {
    const auto literal = [&day](const QString& time) {
        if (time.isEmpty())
            return u"NULL"_s;
        return u'\'' + (time.size() == 8 ? day + u' ' + time : time) + u'\'';
    };
    return u"INSERT INTO TimeCardDetail (TCID, Tanggal, TimeIN, TimeOUT) VALUES ('%1','%2',%3,%4)"_s.arg(
        tcid, day, literal(timeIn), literal(timeOut));
}

/// A card with one day, as statements; its number is that of the employee.
QStringList Card(const QString& tcid, const QString& timeIn) {
    return {Header(u"IN"_s, tcid, tcid.last(4)), DayRow(tcid, timeIn)};
}

QString ChangeDay(const QString& change) {
    return u"UPDATE TimeCardDetail SET %1 WHERE TCID='%2'"_s.arg(change, Tcid);
}

class DataCheck : public testing::Test {
protected:
    DataCheck() { MakeDemoCompany(sound, DemoUntil(u"2026-11-21", 6, 1)); }

    /// Runs each case on a copy of its own. Statements are the engine's own, so that they may do harm that
    /// the tables refuse otherwise.
    void Run(const std::vector<Case>& cases) {
        for (const Case& one : cases) {
            const QString broken = folder.filePath(u"broken.mdb"_s);
            QFile::remove(broken);
            ASSERT_TRUE(QFile::copy(sound, broken));
            const std::unique_ptr<Connection> db = OpenDatabaseFile(broken);
            db->ExecuteNative(u"PRAGMA ignore_check_constraints=ON"_s);
            for (const QString& statement : one.statements)
                db->ExecuteNative(statement);
            EXPECT_EQ(FindingsOf(*db), one.findings) << one.statements.join(u'\n').toStdString();
        }
    }

    QTemporaryDir folder;
    QString sound = folder.filePath(u"DATA.mdb"_s);
};

} // namespace

// The demo company has six employees and no card on the sheet T20261122.

TEST_F(DataCheck, TellsCardsThatDoNotFitTogether) {
    const QString noDeparture = OfDay + u"status OUT without a departure"_s;
    Run({
        {{DayRow()}, {OfDay + u"no header"_s}},
        {{Header(u"S"_s, u"T202611229999"_s, u"9999"_s)},
         {u"TimeCardHeader T202611229999: no employee \"9999\""_s}},
        {{Header(u"ZZ"_s), DayRow()}, {OfCard + u"unknown status \"ZZ\""_s}},
        {{Header(u"s"_s)}, {OfCard + u"unknown status \"s\""_s}},
        {{Header(), DayRow(), ChangeDay(u"ShiftCode='X'"_s)}, {OfDay + u"unknown shift code \"X\""_s}},
        {{Header(u"OUT"_s), DayRow(Tcid, u"07:58:12"_s)}, {noDeparture}},
        {{Header(u"OUT"_s), DayRow(Tcid, u"07:58:12"_s, u"1899-12-30 00:00:00"_s)}, {noDeparture}},
        {{Header(u"OUT"_s), DayRow(Tcid, u"17:00:01"_s, u"17:00:00"_s)},
         {OfDay + u"arrival 2026-11-22 17:00:01 is later than departure 2026-11-22 17:00:00"_s}},
    });
}

TEST_F(DataCheck, TellsCardIdentifiersThatAreNotMadeOfSheetAndNumber) {
    const QString lowerCase = u"INSERT INTO Employee (NIP) VALUES ('a7')"_s;
    const QString finding =
        u"TimeCardHeader %1: the card identifier is not made of a sheet and the employee number \"%2\""_s;
    std::vector<Case> cases{
        {{lowerCase, Header(u"S"_s, u"T20261122a7"_s, u"a7"_s)}, {finding.arg(u"T20261122a7"_s, u"a7"_s)}},
        {{lowerCase, Header(u"S"_s, u"T20261122A7"_s, u"a7"_s)}, {}},
        {{Header(u"S"_s, u"T202611310001"_s)}, {}},
        {{Header(u"S"_s, u"T20261122-AB0001"_s)}, {}},
    };
    for (const QString& tcid :
         {u"T202611220002"_s, u"T202611220001X"_s, u"T20261122-0001"_s, u"T2026112-0001"_s,
          u"T2026112X0001"_s, u"X202611220001"_s, u"t202611220001"_s, u"0001"_s, u"1"_s})
        cases.push_back({{Header(u"S"_s, tcid)}, {finding.arg(tcid, u"0001"_s)}});
    Run(cases);
}

TEST_F(DataCheck, TellsMoreThanOneArrivalOnADay) {
    const QString morning = u"07:58:12"_s;
    const QString evening = u"19:05:00"_s;
    const QString nextSheet = u"T202611230001"_s;
    const QString nextDay = DayRow(Tcid, u"08:00:00"_s, {}, u"2026-11-23"_s);
    const QStringList first = Card(Tcid, morning);
    const QString twice =
        u"TimeCardDetail T202611230001 2026-11-22: 2 arrivals of employee \"0001\" on one day, the first on %1"_s;
    Run({
        {first + Card(nextSheet, evening), {twice.arg(Tcid)}},
        {Card(nextSheet, morning) + Card(u"T20261123-10001"_s, evening), {twice.arg(u"T20261123-10001"_s)}},
        // told apart by the extension; one of the two without an arrival; two employees
        {first + Card(u"T20261122-10001"_s, evening), {}},
        {first + Card(nextSheet, u"1899-12-30 00:00:00"_s), {}},
        {first + Card(u"T202611220002"_s, morning), {}},
        // one card on two days, then one of them without an arrival
        {first + QStringList{nextDay},
         {u"TimeCardDetail T202611220001 2026-11-23: the card holds an arrival on another day too"_s}},
        {Card(Tcid, {}) + QStringList{nextDay}, {}},
    });
}

TEST_F(DataCheck, TellsCodesAndPeopleThatAreNotThere) {
    Run({
        {{u"INSERT INTO ShiftEmployee VALUES ('0001','2027-01-01','pagi'), ('9999','2027-01-01','PAGI')"_s},
         {u"ShiftEmployee 0001 2027-01-01: unknown shift code \"pagi\""_s,
          u"ShiftEmployee 9999 2027-01-01: no employee \"9999\""_s}},
        {{u"DELETE FROM [User] WHERE UserID='pelon'"_s}, {u"User_Job pelon SPV: no user \"pelon\""_s}},
        {{u"UPDATE Employee SET Dept='XX' WHERE NIP='0001'"_s,
          u"UPDATE Employee SET Divisi='YY' WHERE NIP='0002'"_s},
         {u"Employee 0001: unknown department \"XX\""_s, u"Employee 0002: unknown division \"YY\""_s}},
    });
}

TEST_F(DataCheck, TellsValuesThatCannotBeRead) {
    std::vector<Case> cases{
        {{u"INSERT INTO timecardmaster VALUES ('T20261122','tutup')"_s},
         {u"timecardmaster T20261122: Status \"tutup\" is no number"_s}},
        {{u"UPDATE [Employee Status] SET ID='dua' WHERE Status='OUT'"_s},
         {u"Employee Status OUT: ID \"dua\" is no number"_s}},
        {{u"UPDATE Shift SET TimeIn='08:00' WHERE Code='P'"_s}, {u"Shift P: TimeIn \"08:00\" is no date"_s}},
        {{u"INSERT INTO ShiftEmployee VALUES ('0001','1/2/2027','P')"_s},
         {u"ShiftEmployee 0001 1/2/2027: Tgl \"1/2/2027\" is no date"_s}},
        {{Header(), DayRow(Tcid, {}, {}, u"22-11-2026"_s)},
         {u"TimeCardDetail T202611220001 22-11-2026: Tanggal \"22-11-2026\" is no date"_s}},
        {{Header(), DayRow(), ChangeDay(u"BeriUangMakan=7"_s)},
         {OfDay + u"BeriUangMakan \"7\" is no flag"_s}},
    };
    for (const QString& column : {u"TimeIN"_s, u"TimeOUT"_s, u"TimeINOT"_s, u"TimeOutOT"_s})
        cases.push_back({{Header(), DayRow(), ChangeDay(column + u"='2026-02-30 08:00:00'"_s)},
                         {OfDay + column + u" \"2026-02-30 08:00:00\" is no date"_s}});
    for (const QString& column :
         {u"NormalHours"_s, u"OTHours"_s, u"NormalAmount"_s, u"OTAmount"_s, u"TotalUangMakan"_s})
        cases.push_back(
            {{Header(), u"UPDATE TimeCardHeader SET %1='8:30' WHERE TCID='%2'"_s.arg(column, Tcid)},
             {OfCard + column + u" \"8:30\" is no number"_s}});
    for (const QString& column : {u"GP"_s, u"RateOT"_s, u"TMakan"_s, u"sc"_s})
        cases.push_back({{u"UPDATE Employee SET %1='Rp 5' WHERE NIP='0003'"_s.arg(column)},
                         {u"Employee 0003: %1 \"Rp 5\" is no number"_s.arg(column)}});
    Run(cases);
}

TEST_F(DataCheck, LetsPassWhatTheProgramItselfLeaves) {
    // A header whose day rows were deleted; no department; an emptied cell of the roster; a shift code
    // written in upper case; the status of a sheet that counts as open.
    Run({
        {{Header(u"OUT"_s)}, {}},
        {{u"UPDATE Employee SET Dept=NULL, Divisi='' WHERE NIP='0001'"_s}, {}},
        {{u"INSERT INTO ShiftEmployee VALUES ('0001','2027-01-01','')"_s}, {}},
        {{u"INSERT INTO Shift (Code) VALUES ('Sore')"_s, Header(), DayRow(), ChangeDay(u"ShiftCode='SORE'"_s),
          u"INSERT INTO ShiftEmployee VALUES ('0001','2027-01-01','Sore')"_s},
         {}},
        {{u"INSERT INTO timecardmaster VALUES ('T20261122',2)"_s}, {}},
    });
}
