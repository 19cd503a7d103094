#include "core/error_words.h"
#include "database/sqlite_dialect.h"
#include "editing/attendance_cards.h"
#include "editing/attendance_model.h"
#include "editing/attendance_print.h"
#include "support/failures.h"
#include "support/recording_engine.h"
#include "support/test_company.h"

#include <QAbstractItemModelTester>

using namespace Qt::StringLiterals;

namespace {

const QString Cards = u"select h.TCID, h.NIP, h.Status, d.Tanggal, d.TimeIN, d.TimeOUT from TimeCardHeader h "
                      "left join TimeCardDetail d on h.TCID=d.TCID order by h.TCID"_s;

bool GoOn(qsizetype /*done*/, qsizetype /*total*/) {
    return true;
}

Day On(QStringView day) {
    return DayOf(Moment(day));
}

class AttendanceTest : public CompanyTest {
protected:
    AttendanceTest() {
        AddEmployee(u"0012"_s, u"Siti"_s, u"x"_s, u"PROD"_s, u"A"_s);
        AddEmployee(u"0013"_s, u"Budi"_s, u"x"_s, u"PROD"_s, u"B"_s);
        AddEmployee(u"0014"_s, u"Agus"_s, u"x"_s, u"ADM"_s, u"A"_s);
        AddEmployee(u"k1"_s, u"Kiki"_s, u"x"_s, u"ADM"_s, u"B"_s);
        Run(u"INSERT INTO [Employee Status] VALUES (1,'S','Sakit'),(2,'CT','Cuti')"_s);
    }

    /// Several statements, ";" between them.
    void RunAll(const QString& statements) {
        for (const QString& statement : statements.split(u';', Qt::SkipEmptyParts))
            Run(statement);
    }
    void Refresh(const AttendanceCriteria& criteria) {
        model.Show(*RefreshAttendance(Db(), criteria, clock.Today(), GoOn));
    }
    /// What the rows show of the given columns, a row's cells joined by "|".
    QStringList Shown(std::initializer_list<AttendanceModel::Column> columns) const {
        QStringList rows;
        for (int row = 0; row < model.rowCount(); ++row) {
            QStringList cells;
            for (const int column : columns)
                cells << model.index(row, column).data().toString();
            rows << cells.join(u'|');
        }
        return rows;
    }
    ShownDayRow RowOf(const QString& nip, Day day) { return {nip, day, AttendanceOn(Db(), nip, day)}; }

    AttendanceModel model;
    QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::Fatal};
};

constexpr auto SrNo = AttendanceModel::SerialNumber;
constexpr auto Nip = AttendanceModel::Nip;
constexpr auto Tanggal = AttendanceModel::Tanggal;
constexpr auto TimeIn = AttendanceModel::TimeIn;
constexpr auto TimeOut = AttendanceModel::TimeOut;
constexpr auto Status = AttendanceModel::Status;
constexpr auto Tcid = AttendanceModel::Tcid;

} // namespace

TEST_F(AttendanceTest, EveryEmployeeOnEveryDayDaysOutermost) {
    AddCard(u"T202603050012"_s, u"0012"_s, u"IN"_s, u"2026-03-05"_s, u"2026-03-05 07:45:59"_s,
            u"2026-03-06 00:00:00"_s);
    AddCard(u"T20260305-W0012"_s, u"0012"_s, u"W"_s, u"2026-03-05"_s);
    AddCard(u"T202603060014"_s, u"0014"_s, u"IN"_s, u"2026-03-06"_s, u"1899-12-30 00:00:00"_s);
    AddCard(u"T20260307K1"_s, u"K1"_s, u"IN"_s, u"2026-03-07"_s); // nobody's number
    Refresh({{}, {}, {}, DayRange{On(u"2026-03-05"), On(u"2026-03-07")}});
    EXPECT_EQ(
        Shown({SrNo, Nip, Tanggal, TimeIn, TimeOut, Status, Tcid}),
        (QStringList{u"1|0014|05-Mar-2026||||"_s, u"2|0013|05-Mar-2026||||"_s, u"3|k1|05-Mar-2026||||"_s,
                     u"4|0012|05-Mar-2026|||W|T20260305-W0012"_s, u"5|0014|06-Mar-2026|||IN|T202603060014"_s,
                     u"6|0013|06-Mar-2026||||"_s, u"7|k1|06-Mar-2026||||"_s, u"8|0012|06-Mar-2026||||"_s,
                     u"9|0014|07-Mar-2026||||"_s, u"10|0013|07-Mar-2026||||"_s, u"11|k1|07-Mar-2026||||"_s,
                     u"12|0012|07-Mar-2026||||"_s}));
    EXPECT_EQ(model.RowOf(model.KeyOf(10)), 10);
    EXPECT_EQ(model.RowOf({u"0012"_s, On(u"2026-03-08")}), -1);
    Run(u"DELETE FROM TimeCardDetail WHERE TCID='T20260305-W0012'"_s);
    Refresh({u" 0012 "_s, {}, {}, {}}); // from the earliest to the latest day of this employee
    EXPECT_EQ(Shown({Tanggal, TimeIn, TimeOut}), QStringList{u"05-Mar-2026|07:45|00:00 (+1)"_s});
}

TEST_F(AttendanceTest, CriteriaChooseEmployeesAndDays) {
    AddCard(u"T202611190013"_s, u"0013"_s, u"IN"_s, u"2026-11-19"_s);
    AddCard(u"T202611210014"_s, u"0014"_s, u"IN"_s, u"2026-11-21"_s);
    struct Case {
        QString nip;
        std::optional<QString> dept;
        std::optional<QString> divisi;
        QStringList withInterval; ///< employees of 20 November
        QString from;             ///< without interval
        QString to;
        qsizetype withoutInterval;
    };
    const Case cases[] = {
        {{}, {}, {}, {u"0014"_s, u"0013"_s, u"k1"_s, u"0012"_s}, u"19-Nov-2026"_s, u"21-Nov-2026"_s, 12},
        {{}, u"PROD"_s, {}, {u"0013"_s, u"0012"_s}, u"19-Nov-2026"_s, u"19-Nov-2026"_s, 2},
        {{}, {}, u"A"_s, {u"0014"_s, u"0012"_s}, u"21-Nov-2026"_s, u"21-Nov-2026"_s, 2},
        {{}, u"PROD"_s, u"A"_s, {u"0012"_s}, u"22-Nov-2026"_s, u"22-Nov-2026"_s, 1},
        {u"0014"_s, u"PROD"_s, {}, {u"0014"_s}, u"21-Nov-2026"_s, u"21-Nov-2026"_s, 1},
        {u"9999"_s, {}, {}, {}, {}, {}, 0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.nip.toStdString() + c.dept.value_or(u"-"_s).toStdString());
        Refresh({c.nip, c.dept, c.divisi, DayRange{On(u"2026-11-20"), On(u"2026-11-20")}});
        EXPECT_EQ(Shown({Nip}), c.withInterval);
        Refresh({c.nip, c.dept, c.divisi, {}});
        const QStringList days = Shown({Tanggal});
        EXPECT_EQ(days.size(), c.withoutInterval);
        EXPECT_EQ(days.value(0), c.from);
        EXPECT_EQ(days.value(days.size() - 1), c.to);
    }
    Refresh({{}, {}, {}, DayRange{On(u"2026-11-21"), On(u"2026-11-20")}});
    EXPECT_EQ(model.rowCount(), 0);
}

TEST_F(AttendanceTest, RefusesWhatNoGridHoldsAndStopsWhenAsked) {
    AddCard(u"T202611210014"_s, u"0014"_s, u"IN"_s, u"2026-11-21"_s);
    const Day first = On(u"0001-01-01");
    const qint64 most = Attendance::MostRows / 4; // days of four employees
    const DayRange ages{first, first + std::chrono::days{most - 1}};
    const DayRange tooLong{first, first + std::chrono::days{most}};
    const auto refresh = [&](const AttendanceCriteria& criteria, const Progress& progress) {
        return RefreshAttendance(Db(), criteria, clock.Today(), progress);
    };
    EXPECT_THROW(refresh({{}, {}, {}, tooLong}, GoOn), ProgramError);
    EXPECT_TRUE(refresh({{}, {}, {}, ages}, GoOn));
    EXPECT_FALSE(refresh({}, [](auto, auto) { return false; }));
    EXPECT_NE(FailureOf([&] { refresh({u"0'14"_s, {}, {}, {}}, GoOn); }), QString());
}

/// The history grows for years while the days that are shown stay few.
TEST_F(AttendanceTest, ReadsInTwoStatementsByAnIndex) {
    QStringList statements;
    Connection desk(std::make_unique<RecordingEngine>(statements), DatabaseFile());
    const DayRange day{clock.Today(), clock.Today()};
    for (const AttendanceCriteria& criteria :
         {AttendanceCriteria{{}, {}, {}, day}, AttendanceCriteria{{}, u"PROD"_s, u"A"_s, day},
          AttendanceCriteria{u"0012"_s, {}, {}, day}}) {
        statements.clear();
        RefreshAttendance(desk, criteria, clock.Today(), GoOn);
        ASSERT_EQ(statements.size(), 2);
        Cursor plan = desk.QueryNative(u"EXPLAIN QUERY PLAN "_s + ToSqlite(statements[1]));
        QStringList steps;
        while (plan.Next())
            steps << plan.Text(3);
        SCOPED_TRACE(steps.join(u'\n').toStdString());
        EXPECT_EQ(steps.filter(u"SCAN"_s), QStringList());
        if (criteria.nip.isEmpty()) {
            EXPECT_TRUE(steps.value(0).contains(u"TimeCardDetailTanggal"_s));
        }
    }
}

TEST_F(AttendanceTest, AStatusMakesTheCardOfADayThatHasNone) {
    const Day day = On(u"2006-03-05");
    for (const auto& [nip, tcid] : {std::pair{u"0012"_s, u"T200603050012"_s}, {u"k1"_s, u"T20060305K1"_s}}) {
        const AttendanceRecord saved = SaveDayStatus(Db(), {nip, day, {}}, u"S"_s);
        EXPECT_EQ(saved, (AttendanceRecord{tcid, {}, {}, u"S"_s, {}}));
        EXPECT_EQ(RowOf(nip, day).record, saved);
    }
    EXPECT_EQ(RowsOf(Cards),
              (QStringList{u"T200603050012|0012|S|2006-03-05|-|-"_s, u"T20060305K1|k1|S|2006-03-05|-|-"_s}));
    // A deleted card leaves its header, which is taken up again.
    DeleteCardDays(Db(), RowOf(u"0012"_s, day), {});
    EXPECT_EQ(RowOf(u"0012"_s, day).record, std::nullopt);
    Run(u"UPDATE TimeCardHeader SET OTHours=2, OTAmount=30000, Keterangan='surat dokter'"_s);
    SaveDayStatus(Db(), RowOf(u"0012"_s, day), u"CT"_s);
    EXPECT_EQ(RowsOf(u"select OTHours, OTAmount, Keterangan from TimeCardHeader order by TCID"_s)[0],
              u"-|-|surat dokter"_s);
    EXPECT_EQ(RowsOf(Cards).value(0), u"T200603050012|0012|CT|2006-03-05|-|-"_s);
}

TEST_F(AttendanceTest, WhatAnotherDeskWroteIsNotOverwritten) {
    const Day day = On(u"2026-11-20");
    const QString clockIn = u"INSERT INTO TimeCardHeader (TCID,NIP,Status) VALUES ('%1','%2','IN');"
                            "INSERT INTO TimeCardDetail (TCID,Tanggal,TimeIN) VALUES "
                            "('%1','%3','2026-11-20 07:00:00')"_s;
    const auto card = [&](const QString& tcid, const QString& nip, const QString& tanggal = u"2026-11-20"_s) {
        return clockIn.arg(tcid, nip, tanggal);
    };
    struct Case {
        const char* what;
        QString nip;
        QString before; ///< before the row was shown
        QString meanwhile;
        bool statusSaved;
        bool deleted;
        QString told = {};
    };
    const QString own = card(u"T202611200012"_s, u"0012"_s);
    const QString extended = card(u"T20261120-W0012"_s, u"0012"_s);
    const QString moved = card(u"T202611200012"_s, u"0012"_s, u"2026-11-19"_s);
    const QString header = u"INSERT INTO TimeCardHeader (TCID,NIP) VALUES ('T20261120K1','K1')"_s;
    const QString secondDay =
        u"INSERT INTO TimeCardDetail (TCID,Tanggal) VALUES ('T202611200012','2026-11-21')"_s;
    const Case cases[] = {
        {"clocked in", u"0012"_s, {}, own, false, true},
        {"clocked in on an extended sheet",
         u"0012"_s,
         {},
         extended,
         false,
         true,
         u"Kartu T20261120-W0012 (0012, 20-Nov-2026): Status sudah diganti komputer lain menjadi IN. Yang "
         "Anda ketik (S) tidak disimpan."_s},
        {"another employee's card", u"k1"_s, {}, card(u"T20261120K1"_s, u"K1"_s), false, true},
        {"another employee's header", u"k1"_s, header, {}, false, true},
        {"the card's day moved", u"0012"_s, {}, moved, false, true},
        {"status changed", u"0012"_s, own, u"UPDATE TimeCardHeader SET Status='OUT'"_s, false, false,
         u"Kartu T202611200012 (0012, 20-Nov-2026): Status sudah diganti komputer lain menjadi OUT. Yang "
         "Anda ketik (S) tidak disimpan."_s},
        {"removed", u"0012"_s, own, u"DELETE FROM TimeCardDetail"_s, false, false},
        {"a time recorded", u"0012"_s, own, u"UPDATE TimeCardDetail SET TimeOUT='2026-11-20 16:00:00'"_s,
         true, false},
        {"overtime recorded", u"0012"_s, own, u"UPDATE TimeCardDetail SET TimeINOT='2026-11-20 17:00:00'"_s,
         true, false},
        {"a day added to the card", u"0012"_s, own, secondDay, true, false},
        {"given to another employee", u"0012"_s, own, u"UPDATE TimeCardHeader SET NIP='0013'"_s, false, false,
         u"Kartu T202611200012 (0012, 20-Nov-2026):\nNIP sudah diganti komputer lain menjadi 0013.\nTidak "
         u"ada "
         "yang disimpan."_s},
        {"the same status", u"0012"_s, own, u"UPDATE TimeCardHeader SET Status='S'"_s, true, false},
        {"nothing", u"0012"_s, own, {}, true, true},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        for (const bool deleting : {false, true}) {
            RemoveCards();
            RunAll(c.before);
            const ShownDayRow row = RowOf(c.nip, day);
            const QStringList told = HiddenOnCard(Db(), row);
            RunAll(c.meanwhile);
            const QStringList before = RowsOf(Cards);
            QString failure;
            try {
                if (deleting)
                    DeleteCardDays(Db(), row, told);
                else
                    SaveDayStatus(Db(), row, u"S"_s);
            } catch (const ProgramError& error) {
                failure = UserText(error);
            }
            EXPECT_EQ(failure.isEmpty(), deleting ? c.deleted : c.statusSaved) << failure.toStdString();
            if (!failure.isEmpty()) {
                EXPECT_EQ(RowsOf(Cards), before);
                EXPECT_TRUE(deleting || failure.contains(c.told)) << failure.toStdString();
            } else if (!deleting) {
                EXPECT_EQ(RowsOf(Cards), QStringList(before).replaceInStrings(u"|IN|"_s, u"|S|"_s));
            }
        }
    }
}

TEST_F(AttendanceTest, PrintsFixedColumnsUnderThePeriod) {
    AddEmployee(u"123456789"_s, u"Abdurrahman Wahid Hasyim"_s, u"x"_s, u"PRODUKSI1"_s);
    AddCard(u"T20261120123456789"_s, u"123456789"_s, u"IN"_s, u"2026-11-20"_s, u"2026-11-20 07:05:00"_s,
            u"2026-11-21 00:10:00"_s);
    Run(u"UPDATE TimeCardHeader SET Keterangan='Lupa absen —\né dan lagi sampai lebih dari tiga puluh'"_s);
    const DayRange range{On(u"2026-11-20"), On(u"2026-11-20")};
    Refresh({u"123456789"_s, {}, {}, range});
    const QString rule(104, u'-');
    QStringList lines;
    const QString period = ListedPeriod({range.first, On(u"2026-11-22")}, u"NIP:\n123456789"_s);
    EXPECT_TRUE(PrintAttendance(model, period, Into(lines), GoOn));
    EXPECT_EQ(
        lines,
        (QStringList{u"ABSENSI KARYAWAN "_s, u"Tanggal: 20-Nov-2026 s/d 22-Nov-2026  NIP: 123456789"_s, rule,
                     u"|NIP     |Nama                |Dept    |Divisi  |TimeIN |TimeOUT|Status "
                     "|Keterangan"_s,
                     rule,
                     u"|12345678|Abdurrahman Wahid Ha|PRODUKSI|        |07:05  |00:10  |IN     |Lupa absen "
                     "— é dan lagi sampai"_s,
                     rule}));
    EXPECT_EQ(ListedPeriod(range, {}), u"Tanggal: 20-Nov-2026"_s);
    EXPECT_FALSE(PrintAttendance(model, {}, Into(lines), [](auto, auto) { return false; }));
}
