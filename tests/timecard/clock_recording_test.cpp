#include "timecard/clock_recording.h"

#include "core/passwords.h"
#include "timecard/employee_details.h"
#include "timecard/sheet_lifecycle.h"

#include "support/failures.h"
#include "support/test_company.h"

#include <barrier>
#include <thread>

using namespace Qt::StringLiterals;

namespace {

ClockEntry Entry(const QString& mode, QStringView openedAt, const QString& sheet = u"T20261122"_s,
                 QStringView sheetDate = u"2026-11-22") {
    return {sheet, DayOf(Moment(sheetDate)), mode, Moment(openedAt)};
}

class Recording : public CompanyTest {
protected:
    std::optional<Refusal> In(QStringView at) {
        return RecordClockEntry(Db(), Entry(u"IN"_s, at), u"0012"_s);
    }
    std::optional<Refusal> Out(QStringView at) {
        return RecordClockEntry(Db(), Entry(u"N"_s, at), u"0012"_s);
    }
    QStringList Headers() {
        return RowsOf(u"select TCID,NIP,Status,Keterangan,OTHours from TimeCardHeader"_s);
    }
    QStringList Days() {
        return RowsOf(u"select TCID,Tanggal,TimeIN,TimeOUT,TimeINOT,BeriUangMakan from TimeCardDetail"_s);
    }
};

} // namespace

TEST_F(Recording, AnArrivalMakesTheCardAndASecondOneIsRefused) {
    EXPECT_EQ(In(u"2026-11-22 07:58:12"), std::nullopt);
    const QStringList header{u"T202611220012|0012|IN|-|-"_s};
    const QStringList day{u"T202611220012|2026-11-22|2026-11-22 07:58:12|-|-|1"_s};
    EXPECT_EQ(Headers(), header);
    EXPECT_EQ(Days(), day);
    EXPECT_EQ(In(u"2026-11-22 08:00:00"), Refusal::AlreadyClockedIn);
    EXPECT_EQ(Headers(), header);
    EXPECT_EQ(Days(), day);
    // Another sheet of the same day is another card, named in upper case.
    EXPECT_EQ(RecordClockEntry(Db(), Entry(u"IN"_s, u"2026-11-22 08:00:00", u"T20261122-a"_s), u"x1"_s),
              std::nullopt);
    EXPECT_EQ(Headers(), (QStringList{u"T20261122-AX1|x1|IN|-|-"_s} + header));
}

TEST_F(Recording, AnArrivalTakesTheSheetsDayAndADepartureTheMomentItself) {
    const auto record = [&](const QString& mode, QStringView at) {
        return RecordClockEntry(Db(), Entry(mode, at, u"T20261120"_s, u"2026-11-20"), u"0012"_s);
    };
    EXPECT_EQ(record(u"IN"_s, u"2026-11-22 22:00:01"), std::nullopt);
    EXPECT_EQ(record(u"N"_s, u"2026-11-23 06:00:02"), std::nullopt);
    EXPECT_EQ(Days(), QStringList{u"T202611200012|2026-11-20|2026-11-20 22:00:01|2026-11-23 06:00:02|-|1"_s});
}

TEST_F(Recording, AnEmptyArrivalIsFilledAndTheOtherFieldsKept) {
    for (const auto& empty : {u"NULL"_s, u"'1899-12-30 00:00:00'"_s}) {
        SCOPED_TRACE(empty.toStdString());
        RemoveCards();
        Run(u"INSERT INTO TimeCardHeader (TCID,NIP,Status,Keterangan,OTHours) VALUES ('T202611220012','9','A','sakit',1.3)"_s);
        Run(u"INSERT INTO TimeCardDetail (TCID,Tanggal,TimeIN,TimeOUT,TimeINOT,BeriUangMakan) VALUES "
            "('T202611220012','2026-11-01',%1,'2026-11-22 15:00:00','2026-11-22 14:00:00',0)"_s.arg(empty));
        EXPECT_EQ(In(u"2026-11-22 07:58:12"), std::nullopt);
        EXPECT_EQ(Headers(), QStringList{u"T202611220012|0012|IN|sakit|1.3"_s});
        EXPECT_EQ(Days(), QStringList{u"T202611220012|2026-11-22|2026-11-22 07:58:12|2026-11-22 15:00:00|"
                                      "2026-11-22 14:00:00|1"_s});
    }
}

TEST_F(Recording, MidnightOfARealDayIsAnArrivalEvenWithoutAHeader) {
    Run(u"INSERT INTO TimeCardDetail (TCID,Tanggal,TimeIN) VALUES ('T202611220012','2026-11-22','2026-11-22 00:00:00')"_s);
    EXPECT_EQ(In(u"2026-11-22 07:58:12"), Refusal::AlreadyClockedIn);
    EXPECT_EQ(Out(u"2026-11-22 15:00:00"), Refusal::NotClockedIn);
    EXPECT_EQ(Headers(), QStringList());
    EXPECT_EQ(Days(), QStringList{u"T202611220012|2026-11-22|2026-11-22 00:00:00|-|-|-"_s});
}

TEST_F(Recording, ADepartureNeedsTheCardAndMayBeRepeated) {
    EXPECT_EQ(Out(u"2026-11-22 15:00:00"), Refusal::NotClockedIn);
    EXPECT_TRUE(Headers().isEmpty());

    EXPECT_EQ(In(u"2026-11-22 07:58:12"), std::nullopt);
    for (const auto& at : {u"2026-11-22 15:00:00"_s, u"2026-11-22 14:00:00"_s, u"2026-11-23 01:00:00"_s}) {
        EXPECT_EQ(Out(at), std::nullopt);
        EXPECT_EQ(Days(), QStringList{u"T202611220012|2026-11-22|2026-11-22 07:58:12|%1|-|1"_s.arg(at)});
        EXPECT_EQ(Headers(), QStringList{u"T202611220012|0012|OUT|-|-"_s});
    }

    // The card's day was removed meanwhile: the departure is kept on a new one.
    Db().Execute(u"Delete from [TimeCardDetail] where TCID='T202611220012'"_s);
    EXPECT_EQ(Out(u"2026-11-22 16:00:00"), std::nullopt);
    EXPECT_EQ(Days(), QStringList{u"T202611220012|2026-11-22|-|2026-11-22 16:00:00|-|-"_s});
}

TEST_F(Recording, ASheetClosedAfterTheEntryBeganTakesNothing) {
    const QString sheet = u"T20261122"_s;
    CloseSheet(*OtherDesk(), sheet);
    EXPECT_EQ(In(u"2026-11-22 07:58:12"), Refusal::SheetClosed);
    EXPECT_TRUE(Headers().isEmpty());
    ReopenSheet(Db(), sheet);
    EXPECT_EQ(In(u"2026-11-22 07:58:12"), std::nullopt);
    CloseSheet(Db(), sheet);
    const QStringList days = Days();
    EXPECT_EQ(Out(u"2026-11-22 15:00:00"), Refusal::SheetClosed);
    EXPECT_EQ(Days(), days);
}

TEST_F(Recording, NothingIsWrittenWhenAnythingFails) {
    const std::tuple<const char*, QString, QString, QString> cases[] = {
        {"day row of an arrival", u"BEFORE INSERT ON TimeCardDetail"_s, u"IN"_s, u"0013"_s},
        {"header of a departure", u"BEFORE UPDATE ON TimeCardHeader"_s, u"N"_s, u"0012"_s},
        {"quote in the number", {}, u"IN"_s, u"' or '1'='1"_s},
        {"quote in the number at departure", {}, u"N"_s, u"' or '1'='1"_s},
    };
    In(u"2026-11-22 07:58:12");
    const QStringList headers = Headers();
    const QStringList days = Days();
    for (const auto& [what, trigger, mode, nip] : cases) {
        SCOPED_TRACE(what);
        if (!trigger.isEmpty())
            Run(u"CREATE TRIGGER stop %1 BEGIN SELECT RAISE(ABORT,'x'); END"_s.arg(trigger));
        EXPECT_NE(FailureOf([&, &mode = mode, &nip = nip] {
                      RecordClockEntry(Db(), Entry(mode, u"2026-11-22 15:00:00"), nip);
                  }),
                  QString());
        Run(u"DROP TRIGGER IF EXISTS stop"_s);
        EXPECT_EQ(Headers(), headers);
        EXPECT_EQ(Days(), days);
    }
}

TEST_F(Recording, OfTwoDesksAtOneInstantExactlyOneRecords) {
    constexpr int employees = 40;
    std::barrier together(2);
    struct Desk {
        QStringView at;
        QStringList recorded{};
    };
    Desk desks[] = {{u"2026-11-22 07:58:12"}, {u"2026-11-22 07:58:13"}};
    const auto work = [&](Desk& desk) {
        const auto connection = OtherDesk();
        for (int nip = 1000; nip < 1000 + employees; ++nip) {
            together.arrive_and_wait();
            FailureOf([&] {
                if (!RecordClockEntry(*connection, Entry(u"IN"_s, desk.at), QString::number(nip)))
                    desk.recorded << u"T20261122%1|%2"_s.arg(nip).arg(desk.at);
            });
        }
    };
    std::thread other(work, std::ref(desks[1]));
    work(desks[0]);
    other.join();
    QStringList recorded = desks[0].recorded + desks[1].recorded;
    recorded.sort();
    EXPECT_EQ(recorded.size(), employees);
    EXPECT_EQ(RowsOf(u"select TCID, TimeIN from TimeCardDetail order by TCID"_s), recorded);
    EXPECT_EQ(RowsOf(u"select count(1) from TimeCardHeader"_s), QStringList{QString::number(employees)});
}

TEST(Password, MatchesInAnyLetterCaseButNeverEmpty) {
    TestCompany company;
    company.AddUser(u"0012"_s, u"Rahasia"_s);
    company.AddUser(u"0013"_s, QString());
    const std::tuple<QString, QString, bool> cases[] = {{u"rahasia"_s, u"RAHASIA"_s, true},
                                                        {u"rahasia "_s, u"rahasia"_s, false},
                                                        {u""_s, u""_s, false},
                                                        {u"x"_s, u""_s, false},
                                                        {u"ü"_s, u"Ü"_s, true}};
    for (const auto& [typed, stored, matches] : cases)
        EXPECT_EQ(Passwords::MatchesAnyCase(typed, stored), matches) << typed.toStdString();
    EXPECT_EQ(LoadStoredPassword(company.Db(), u"0012"_s), u"Rahasia"_s);
    EXPECT_EQ(LoadStoredPassword(company.Db(), u"0013"_s), QString());
    EXPECT_EQ(LoadStoredPassword(company.Db(), u"0099"_s), std::nullopt);
    EXPECT_NE(FailureOf([&] { LoadStoredPassword(company.Db(), u"' or '1'='1"_s); }), QString());
    company.Run(u"INSERT INTO Employee (NIP,Nama,Dept,PathImage) VALUES ('0012','Budi','GA','a.gif')"_s);
    EXPECT_EQ(LoadEmployeeDetails(company.Db(), u"0012"_s).pathImage, u"a.gif"_s);
}

TEST_F(Recording, ANightWorkersDepartureGoesToTheCardOfTheEveningBefore) {
    const QString open = u"T202611210012"_s;
    const QString extended = u"T20261121-B0012"_s;
    struct {
        const char* what;
        QString roster;
        QString tcid;
        QString arrival;
        QStringView out;
        QString closed;
        QString goesTo; ///< empty when it is refused
    } const cases[] = {
        {"rostered", u"M"_s, open, u"2026-11-21 22:50:00"_s, u"2026-11-22 07:05:00", {}, open},
        {"by the hour of the arrival", {}, open, u"2026-11-21 22:50:00"_s, u"2026-11-22 07:05:00", {}, open},
        {"an extended sheet",
         u"M"_s,
         extended,
         u"2026-11-21 22:50:00"_s,
         u"2026-11-22 07:05:00",
         {},
         extended},
        {"a day worker who forgot", u"D"_s, open, u"2026-11-21 15:50:00"_s, u"2026-11-22 07:05:00", {}, {}},
        {"an unknown shift", u"X"_s, open, u"2026-11-21 22:50:00"_s, u"2026-11-22 07:05:00", {}, {}},
        {"the evening after", u"M"_s, open, u"2026-11-21 22:50:00"_s, u"2026-11-22 22:40:00", {}, {}},
        {"two days before",
         u"M"_s,
         u"T202611200012"_s,
         u"2026-11-20 22:50:00"_s,
         u"2026-11-22 07:05:00",
         {},
         {}},
        {"closed", u"M"_s, extended, u"2026-11-21 22:50:00"_s, u"2026-11-22 07:05:00", u"T20261121-b"_s, {}},
    };
    Run(u"INSERT INTO Shift VALUES ('D','1899-12-30 08:00:00','1899-12-30 16:00:00'),"
        "('M','1899-12-30 22:00:00','1899-12-31 06:00:00')"_s);
    for (const auto& [what, roster, tcid, arrival, out, closed, goesTo] : cases) {
        SCOPED_TRACE(what);
        RemoveCards();
        Run(u"DELETE FROM ShiftEmployee"_s);
        const QString day = arrival.first(10);
        AddCard(tcid, u"0012"_s, u"IN"_s, day, arrival);
        AddCard(tcid.chopped(4) + u"0013"_s, u"0013"_s, u"IN"_s, day, arrival);
        if (!roster.isEmpty())
            Db().Execute(u"INSERT INTO ShiftEmployee VALUES ('0012',?,?)"_s, {day, roster});
        ClockEntry entry = Entry(u"N"_s, out);
        entry.night = NightOfDeparture(Db(), entry, u"0012"_s);
        EXPECT_EQ(entry.night.has_value(), !goesTo.isEmpty() || !closed.isEmpty());
        if (!closed.isEmpty())
            CloseSheet(Db(), closed);
        EXPECT_EQ(RecordClockEntry(Db(), entry, u"0012"_s),
                  goesTo.isEmpty()
                      ? std::optional(closed.isEmpty() ? Refusal::NotClockedIn : Refusal::SheetClosed)
                      : std::nullopt);
        EXPECT_EQ(RowsOf(u"select TCID,TimeOUT from TimeCardDetail where TimeOUT is not null"_s),
                  goesTo.isEmpty() ? QStringList() : QStringList{goesTo + u'|' + out.toString()});
    }
}

TEST_F(Recording, ANightThatAnotherDeskEndedMeanwhileIsNotEndedAgain) {
    Run(u"INSERT INTO Shift VALUES ('M','1899-12-30 22:00:00','1899-12-31 06:00:00')"_s);
    AddCard(u"T202611210012"_s, u"0012"_s, u"IN"_s, u"2026-11-21"_s, u"2026-11-21 22:50:00"_s);
    ClockEntry entry = Entry(u"N"_s, u"2026-11-22 07:05:00");
    entry.night = NightOfDeparture(Db(), entry, u"0012"_s);
    ASSERT_TRUE(entry.night);
    EXPECT_EQ(entry.night->Text(), u"Keluar untuk lembar 21-Nov, masuk 22:50"_s);
    EXPECT_EQ(RecordClockEntry(Db(), entry, u"0012"_s), std::nullopt);
    entry.openedAt += Seconds{60};
    EXPECT_EQ(RecordClockEntry(Db(), entry, u"0012"_s), Refusal::NotClockedIn);
    // The evening's arrival is today's, whatever became of yesterday's card.
    EXPECT_EQ(In(u"2026-11-22 22:45:00"), std::nullopt);
    EXPECT_EQ(Days(), (QStringList{u"T202611210012|2026-11-21|2026-11-21 22:50:00|2026-11-22 07:05:00|-|-"_s,
                                   u"T202611220012|2026-11-22|2026-11-22 22:45:00|-|-|1"_s}));
}
