#include "editing/card_problems.h"

#include "cards/card_store.h"

#include "support/recording_engine.h"
#include "support/test_company.h"

#include "database/database_file.h"

using namespace Qt::StringLiterals;

namespace {

class Problems : public CompanyTest {
protected:
    Problems() {
        Run(u"INSERT INTO Shift VALUES ('D','1899-12-30 08:00:00','1899-12-30 16:00:00'),"
            "('M','1899-12-30 22:00:00','1899-12-31 06:00:00'),"
            "('OFF','1899-12-30 00:00:00','1899-12-30 00:00:00')"_s);
        Run(u"INSERT INTO Employee (NIP,Nama,Dept,Keluar) VALUES ('0012','Siti','PROD',NULL),"
            "('0013','Budi','ADM','2026-11-18')"_s);
    }
    void Roster(const QString& nip, const QString& day, const QString& code) {
        Db().Execute(u"INSERT INTO ShiftEmployee VALUES (?,?,?)"_s, {nip, day, code});
    }
    std::vector<CardProblem> Find(QStringView now = u"2026-11-22 12:00:00", CardFilter filter = {}) {
        filter.days = {DayOf(Moment(u"2026-11-18")), DayOf(Moment(u"2026-11-22"))};
        return FindProblems(Db(), filter, Moment(now));
    }
    QStringList Texts(const std::vector<CardProblem>& problems) {
        QStringList texts;
        for (const CardProblem& problem : problems)
            texts << problem.nip + u": "_s + KindText(problem.kind) + u"; "_s + problem.ProposalText();
        return texts;
    }
};

} // namespace

TEST_F(Problems, EachKindIsToldAndWhatIsInOrderIsNot) {
    const QString forgotten = u"masuk tanpa keluar; "_s;
    const QString missing = u"dijadwalkan, tanpa kartu dan status; isi statusnya: S, I, C atau A"_s;
    struct {
        const char* what;
        QString roster;
        QString status;
        QString timeIn;
        QString timeOut;
        QStringView now;
        QStringList told;
    } const cases[] = {
        {"forgotten",
         u"D"_s,
         u"IN"_s,
         u"2026-11-18 07:50:00"_s,
         {},
         u"2026-11-18 20:00:01",
         {forgotten + u"keluar 16:00, status OUT"_s}},
        {"not over for four hours",
         u"D"_s,
         u"IN"_s,
         u"2026-11-18 07:50:00"_s,
         {},
         u"2026-11-18 20:00:00",
         {}},
        {"a night",
         u"M"_s,
         u"IN"_s,
         u"2026-11-18 22:50:00"_s,
         {},
         u"2026-11-19 10:00:01",
         {forgotten + u"keluar 06:00 (+1), status OUT"_s}},
        {"a night that lasts", u"M"_s, u"IN"_s, u"2026-11-18 22:50:00"_s, {}, u"2026-11-19 09:59:00", {}},
        {"after the shift's end",
         u"D"_s,
         u"IN"_s,
         u"2026-11-18 16:30:00"_s,
         {},
         u"2026-11-19 09:00:00",
         {forgotten + u"buka kartu dan isi jam keluar"_s}},
        {"no arrival",
         u"D"_s,
         u"OUT"_s,
         {},
         u"2026-11-18 16:00:00"_s,
         u"2026-11-22",
         {u"keluar tanpa masuk; buka kartu dan isi jam masuk"_s}},
        {"no time at all",
         u"D"_s,
         u"OUT"_s,
         {},
         {},
         u"2026-11-22",
         {u"keluar tanpa masuk; buka kartu dan isi jam masuk"_s}},
        {"reversed",
         u"D"_s,
         u"OUT"_s,
         u"2026-11-18 07:50:00"_s,
         u"2026-11-18 07:49:59"_s,
         u"2026-11-22",
         {u"keluar sebelum masuk; buka kartu dan betulkan jamnya"_s}},
        {"too long",
         u"D"_s,
         u"OUT"_s,
         u"2026-11-18 07:50:00"_s,
         u"2026-11-18 23:50:01"_s,
         u"2026-11-22",
         {u"lebih dari 16 jam; buka kartu dan periksa jam keluar"_s}},
        {"not computed",
         u"D"_s,
         u"OUT"_s,
         u"2026-11-18 07:50:00"_s,
         u"2026-11-18 16:00:00"_s,
         u"2026-11-22",
         {u"jam belum dihitung; hitung"_s}},
        {"day off",
         u"O"_s,
         u"IN"_s,
         u"2026-11-18 07:50:00"_s,
         {},
         u"2026-11-18 09:00:00",
         {u"bekerja pada hari libur; periksa jadwal shift hari itu"_s}},
        {"a day off by another code",
         u"OFF"_s,
         u"IN"_s,
         u"2026-11-18 07:50:00"_s,
         {},
         u"2026-11-18 09:00:00",
         {u"bekerja pada hari libur; periksa jadwal shift hari itu"_s}},
        {"the same, free", u"OFF"_s, {}, {}, {}, u"2026-11-22", {}},
        {"unknown shift",
         u"X"_s,
         u"IN"_s,
         u"2026-11-18 07:50:00"_s,
         {},
         u"2026-11-18 09:00:00",
         {u"kode shift tidak dikenal; isi kode itu di Master Shift Code, atau betulkan jadwal"_s}},
        {"sick", u"D"_s, u"S"_s, {}, {}, u"2026-11-22", {}},
        {"no status", u"D"_s, {}, {}, {}, u"2026-11-22", {missing}},
        {"no status on a day off", u"O"_s, {}, {}, {}, u"2026-11-22", {}},
    };
    for (const auto& [what, roster, status, timeIn, timeOut, now, told] : cases) {
        SCOPED_TRACE(what);
        RemoveCards();
        Run(u"DELETE FROM ShiftEmployee"_s);
        Roster(u"0012"_s, u"2026-11-18"_s, roster);
        AddCard(u"T202611180012"_s, u"0012"_s, status, u"2026-11-18"_s, timeIn, timeOut);
        EXPECT_EQ(Texts(Find(now)).join(u'\n'), told.isEmpty() ? QString() : u"0012: "_s + told.join(u'\n'));
    }
}

TEST_F(Problems, RosteredDaysWithoutACardCountAsLongAsTheEmployeeIsThere) {
    for (const auto& day : {u"2026-11-18"_s, u"2026-11-19"_s})
        Roster(u"0013"_s, day, u"D"_s); // leaves on the 18th
    Roster(u"0012"_s, u"2026-11-17"_s, u"D"_s);
    Roster(u"0012"_s, u"2026-11-22"_s, u"D"_s); // not over yet
    Run(u"INSERT INTO TimeCardHeader (TCID,NIP,Status) VALUES ('T202611190012','0012','A'),"
        "('T202611230012','0012','A')"_s);
    EXPECT_EQ(Texts(Find()),
              (QStringList{u"0013: dijadwalkan, tanpa kartu dan status; isi statusnya: S, I, C atau A"_s,
                           u"0012: kartu tanpa hari; buka kartu, isi jamnya lalu simpan"_s}));
    CardFilter ofProd;
    ofProd.dept = u"PROD"_s;
    EXPECT_EQ(Find(u"2026-11-22 12:00:00", ofProd).size(), 1U);
    EXPECT_EQ(CountProblems(Db(), clock.now), 3) << "with the 17th";
}

TEST_F(Problems, ForgottenDeparturesAreCompletedTogetherAndWhatChangedMeanwhileIsLeft) {
    for (const auto& nip : {u"0012"_s, u"0013"_s}) {
        Roster(nip, u"2026-11-18"_s, u"D"_s);
        AddCard(u"T20261118"_s + nip, nip, u"IN"_s, u"2026-11-18"_s, u"2026-11-18 07:45:00"_s);
    }
    Run(u"UPDATE TimeCardHeader SET Keterangan='lupa' WHERE NIP='0012'"_s);
    const std::vector<CardProblem> shown = Find();
    ASSERT_EQ(shown.size(), 2U);
    EXPECT_EQ(shown[0].OldAndNew(), u"18-Nov-2026 0012 Siti: keluar kosong → 16:00, status IN → OUT"_s);
    CardStore(*OtherDesk()).Change(u"T202611180013"_s, [](TimeCard& card) {
        card.days[0].timeOut = Moment(u"2026-11-18 15:30:00");
        card.header->status = u"PC"_s;
    });
    const TakenProposals taken = TakeProposals(Db(), shown);
    EXPECT_EQ(taken.completed, 1);
    ASSERT_EQ(taken.changedMeanwhile.size(), 1U);
    EXPECT_EQ(taken.changedMeanwhile[0].nip, u"0013"_s);
    EXPECT_EQ(
        RowsOf(u"select h.NIP,h.Status,h.Keterangan,d.TimeOUT,h.NormalHours from TimeCardHeader h inner join "
               "TimeCardDetail d on d.TCID=h.TCID order by h.NIP"_s),
        (QStringList{u"0012|OUT|lupa; keluar dilengkapi|2026-11-18 16:00:00|8.15"_s,
                     u"0013|PC|-|2026-11-18 15:30:00|-"_s}));
    EXPECT_EQ(Texts(Find()), QStringList{u"0013: jam belum dihitung; hitung"_s});
}

TEST_F(Problems, AreFoundInAsManyStatementsForOneCardAsForMany) {
    qsizetype counts[2];
    for (const int cards : {1, 40}) {
        for (int i = 0; i < cards; ++i)
            AddCard(u"T20261118%1"_s.arg(1000 * cards + i), QString::number(i), u"IN"_s, u"2026-11-18"_s,
                    u"2026-11-18 08:00:00"_s);
        QStringList statements;
        Connection connection(std::make_unique<RecordingEngine>(statements), DatabaseFile());
        FindProblems(connection,
                     {.days = DayRange{DayOf(Moment(u"2026-11-18")), DayOf(Moment(u"2026-11-18"))}},
                     clock.now);
        counts[cards > 1] = statements.size();
    }
    EXPECT_EQ(counts[0], counts[1]);
}
